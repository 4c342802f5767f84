// Which font file of fonts-liberation2 stands for a text style's font: TrueType names map to
// their metric twins, the host's stroke fonts to Liberation Sans, anything else falls back.
#pragma once

#include <string>
#include <string_view>

struct GiFontChoice {
    std::string file;    // a file name in the font folder, e.g. "LiberationSans-Regular.ttf"
    bool known = false;  // false: the name was not recognised and the fallback was taken
};

// typeface (e.g. "Arial") wins over fileName (e.g. "arial.ttf", "romans.shx") when given;
// bold and italic pick the variant of a typeface. Names compare without case and extension.
GiFontChoice giMapFont(std::wstring_view fileName, std::wstring_view typeface = {},
                       bool bold = false, bool italic = false);

// The family every stroke font (txt, simplex, romans, isocp, gdt, ...) and every unknown
// font is drawn and measured in.
inline constexpr const char* kGiFallbackFontFile = "LiberationSans-Regular.ttf";
