// Lays a string out in a text style: the glyphs and where each one starts along the baseline.
// Measuring (AcGiTextStyle::extentsBox) and drawing (the renderers) both use it, so what is
// drawn is exactly what was measured.
#pragma once

#include <string>
#include <vector>

#include "host/rx/AcChar.h"

class AcGiTextStyle;
class GiFont;

struct GiTextLayout {
    const GiFont* font = nullptr;  // null when no font could be loaded: everything is empty
    std::u32string shown;          // the characters after code translation
    std::vector<unsigned> glyphs;  // one per shown character
    std::vector<double> x;         // pen position of each glyph, in drawing units from the start
    double width = 0.0;            // the pen position after the last glyph
    double inkStart = 0.0;         // pen position of the first character that is not blank
    double inkEnd = 0.0;           // pen position after the last character that is not blank
    double height = 0.0;           // the text size (cap height)
    double emSize = 0.0;           // the font's em square in drawing units at this height
    double xScale = 1.0;
};

// Pen advances are the font's design-unit advances scaled by height / cap height, times the
// style's x scale and tracking percentage. No kerning is applied: a string's width is the sum
// of its characters' widths, as drafting text has always been spaced.
GiTextLayout giLayoutText(const AcGiTextStyle& style, const ACHAR* str, int len, bool raw);
