// Text style settings, font resolution and string extents.
#include "host/gi/AcGiTextStyle.h"

#include <string>

#include "host/gi/GiFont.h"
#include "host/gi/GiFontMap.h"
#include "host/gi/GiTextLayout.h"

namespace {

std::wstring orEmpty(const ACHAR* s)
{
    return s != nullptr ? std::wstring(s) : std::wstring();
}

std::string narrow(const std::wstring& s)
{
    std::string out;
    for (wchar_t c : s)
        out += (c > 0 && c < 0x80) ? static_cast<char>(c) : '?';
    return out;
}

}  // namespace

AcGiTextStyle::AcGiTextStyle(const ACHAR* fontName, const ACHAR* bigFontName, double textSize,
                             double xScale, double obliqueAngle, double trackPercent,
                             Adesk::Boolean isBackward, Adesk::Boolean isUpsideDown,
                             Adesk::Boolean isVertical, Adesk::Boolean isOverlined,
                             Adesk::Boolean isUnderlined, const ACHAR* styleName)
    : m_fileName(orEmpty(fontName)),
      m_bigFontFileName(orEmpty(bigFontName)),
      m_styleName(orEmpty(styleName)),
      m_textSize(textSize),
      m_xScale(xScale),
      m_oblique(obliqueAngle),
      m_tracking(trackPercent),
      m_backward(isBackward),
      m_upsideDown(isUpsideDown),
      m_vertical(isVertical),
      m_underlined(isUnderlined),
      m_overlined(isOverlined)
{
}

const GiFont* AcGiTextStyle::giFont() const
{
    if (m_font == nullptr)
        loadStyleRec();
    return m_font;
}

int AcGiTextStyle::loadStyleRec(AcDbDatabase*) const
{
    if (m_font != nullptr)
        return m_loadFlags;
    const GiFontChoice choice = giMapFont(m_fileName, m_typeface, m_bold, m_italic);
    int flags = 0;
    if (!choice.known) {
        const std::wstring& name = m_typeface.empty() ? m_fileName : m_typeface;
        giWarnOnce("font \"" + narrow(name) + "\" is unknown; " + kGiFallbackFontFile +
                   " is used in its place");
        flags |= 0x02 | 0x08;
    }
    m_font = giLoadFont(choice.file);
    if (m_font == nullptr && choice.file != kGiFallbackFontFile) {
        m_font = giLoadFont(kGiFallbackFontFile);
        flags |= 0x02 | 0x08;
    }
    if (m_font == nullptr)
        return 0x02;  // nothing loaded; asked again next time
    if ((flags & 0x02) == 0)
        flags |= 0x01;
    if (!m_bigFontFileName.empty())
        flags |= 0x04;
    m_loadFlags = flags;
    return flags;
}

AcGePoint2d AcGiTextStyle::extents(const ACHAR* pStr, Adesk::Boolean penups, int len,
                                   Adesk::Boolean raw, AcGiWorldDraw* ctxt) const
{
    AcGePoint2d lo, hi;
    extentsBox(pStr, penups, len, raw, lo, hi, ctxt);
    return {hi.x - lo.x, hi.y - lo.y};
}

void AcGiTextStyle::extentsBox(const ACHAR* pStr, Adesk::Boolean penups, int len,
                               Adesk::Boolean raw, AcGePoint2d& extMin, AcGePoint2d& extMax,
                               AcGiWorldDraw*) const
{
    const GiTextLayout layout = giLayoutText(*this, pStr, len, raw);
    if (layout.shown.empty() || layout.font == nullptr) {
        extMin.set(0.0, 0.0);
        extMax.set(0.0, 0.0);
        return;
    }
    if (penups) {
        extMin.set(0.0, 0.0);
        extMax.set(layout.width, m_textSize);
    } else if (layout.inkEnd > layout.inkStart) {
        extMin.set(layout.inkStart, 0.0);
        extMax.set(layout.inkEnd, m_textSize);
    } else {  // only blanks: nothing but pen moves
        extMin.set(0.0, 0.0);
        extMax.set(0.0, 0.0);
    }
}

Acad::ErrorStatus AcGiTextStyle::setFileName(const ACHAR* fontName)
{
    m_fileName = orEmpty(fontName);
    resetFont();
    return Acad::eOk;
}

Acad::ErrorStatus AcGiTextStyle::setBigFontFileName(const ACHAR* bigFontFileName)
{
    m_bigFontFileName = orEmpty(bigFontFileName);
    resetFont();
    return Acad::eOk;
}

Acad::ErrorStatus AcGiTextStyle::setFont(const ACHAR* pTypeface, bool bold, bool italic,
                                         int charset, int pitchAndFamily)
{
    m_typeface = orEmpty(pTypeface);
    m_bold = bold;
    m_italic = italic;
    m_charset = charset;
    m_pitchAndFamily = pitchAndFamily;
    resetFont();
    return Acad::eOk;
}

Acad::ErrorStatus AcGiTextStyle::font(std::wstring& typeface, bool& bold, bool& italic,
                                      int& charset, int& pitchAndFamily) const
{
    typeface = m_typeface;
    bold = m_bold;
    italic = m_italic;
    charset = m_charset;
    pitchAndFamily = m_pitchAndFamily;
    return Acad::eOk;
}

Acad::ErrorStatus AcGiTextStyle::setStyleName(const ACHAR* styleName)
{
    m_styleName = orEmpty(styleName);
    return Acad::eOk;
}
