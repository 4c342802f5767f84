// Reading MText contents: the inline format codes turned into runs of text with their
// character properties, shared by AcDbMText::text() and by whatever draws the text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Character properties in effect for a run. A value left at its "inherit" default means
// the entity's own (style, height, colour) applies.
struct AcDbMTextCharFormat {
    std::wstring fontName;      // \f typeface or \F font file; "" = the text style's font
    bool fontIsFile = false;    // true for \F
    bool bold = false;
    bool italic = false;
    double height = 0.0;        // absolute height from \H..; (0 = not set)
    double heightFactor = 1.0;  // product of the relative \H..x; factors
    double widthFactor = 1.0;   // \W
    double tracking = 1.0;      // \T
    double oblique = 0.0;       // \Q, degrees
    int colorIndex = -1;        // \C; -1 = the entity's colour
    bool hasTrueColor = false;  // \c: the value as written
    std::uint32_t trueColor = 0;
    bool underline = false;     // \L \l
    bool overline = false;      // \O \o
    bool strike = false;        // \K \k
    int alignment = -1;         // \A0..2 (bottom, centre, top); -1 = not set

    // The run's height for an entity text height of baseHeight.
    double effectiveHeight(double baseHeight) const
    {
        return height > 0.0 ? height : baseHeight * heightFactor;
    }
};

enum class AcDbMTextItemKind {
    kText,         // text: plain characters
    kParagraph,    // \P, ^J: a new paragraph
    kColumnBreak,  // \N
    kStack,        // \S: text over lower, split by stackType ('^', '/' or '#')
};

struct AcDbMTextItem {
    AcDbMTextItemKind kind = AcDbMTextItemKind::kText;
    std::wstring text;
    std::wstring lower;       // kStack only
    wchar_t stackType = 0;    // kStack only
    AcDbMTextCharFormat format;
};

namespace AcDbMTextFormat {

// Splits contents into items. Braces open and close property groups; escaped characters
// (\\ \{ \}) are literal; %%d %%p %%c %%% become their symbols; \U+XXXX its character.
// Malformed codes never fail: a code missing its ';' ends at the end of the text, and a
// code with an unreadable value is ignored. Unknown backslash codes stay as written.
std::vector<AcDbMTextItem> parse(const std::wstring& contents);

// The text without format codes: paragraphs separated by '\n', a stack as upper and lower
// joined by '/' for fractions ('/' and '#'); the '^' form gives upper, then a blank and
// lower if lower is not empty ("\S5^;" reads "5").
std::wstring plainText(const std::wstring& contents);

}  // namespace AcDbMTextFormat
