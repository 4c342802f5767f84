// Text layout from unhinted font advances.
#include "host/gi/GiTextLayout.h"

#include "host/gi/AcGiTextStyle.h"
#include "host/gi/GiFont.h"
#include "host/gi/GiTextCodes.h"

namespace {

bool isBlank(char32_t c)
{
    return c == U' ' || c == U'\t' || c == U'\u00A0' || c == U'\u3000';
}

}  // namespace

GiTextLayout giLayoutText(const AcGiTextStyle& style, const ACHAR* str, int len, bool raw)
{
    GiTextLayout layout;
    layout.height = style.textSize();
    layout.xScale = style.xScale();
    layout.font = style.giFont();
    if (layout.font == nullptr)
        return layout;
    layout.shown = giShownText(str, len, raw);
    const GiFont& font = *layout.font;
    const double perUnit = style.textSize() / font.capHeight();
    layout.emSize = perUnit * font.unitsPerEm();
    const double step = perUnit * style.xScale() * style.trackingPercent();
    layout.glyphs.reserve(layout.shown.size());
    layout.x.reserve(layout.shown.size());
    double pen = 0.0;
    bool seenInk = false;
    for (char32_t c : layout.shown) {
        const unsigned g = font.glyphIndex(c);
        layout.glyphs.push_back(g);
        layout.x.push_back(pen);
        const double next = pen + font.advance(g) * step;
        if (!isBlank(c)) {
            if (!seenInk)
                layout.inkStart = pen;
            seenInk = true;
            layout.inkEnd = next;
        }
        pen = next;
    }
    layout.width = pen;
    return layout;
}
