// AcGiTextStyle: the font, size and shape of drawn text, and the measuring of strings in it.
// Metrics come from real outline fonts (fonts-liberation2) through FreeType, unhinted and
// unscaled, so equal input gives equal numbers on every machine with those fonts.
#pragma once

#include <string>

#include "host/ge/AcGePoint2d.h"
#include "host/rx/AcChar.h"
#include "host/rx/AcadStrc.h"
#include "host/rx/Adesk.h"

class AcDbDatabase;
class AcGiWorldDraw;
class GiFont;

class AcGiTextStyle {
public:
    AcGiTextStyle() = default;
    AcGiTextStyle(const ACHAR* fontName, const ACHAR* bigFontName, double textSize, double xScale,
                  double obliqueAngle, double trackPercent, Adesk::Boolean isBackward,
                  Adesk::Boolean isUpsideDown, Adesk::Boolean isVertical,
                  Adesk::Boolean isOverlined, Adesk::Boolean isUnderlined,
                  const ACHAR* styleName = nullptr);

    // Resolves the font. Answers the platform's flags: 1 the files were opened as named,
    // 2 the font file was not found or not known and another was opened in its place
    // (0x08 is set with it then), 4 the big font could not be used (always with a big font:
    // the outline fonts cover every character themselves).
    int loadStyleRec(AcDbDatabase* db = nullptr) const;

    // The extents of a string: (width, height) of the box that extentsBox gives.
    AcGePoint2d extents(const ACHAR* pStr, Adesk::Boolean penups, int len, Adesk::Boolean raw,
                        AcGiWorldDraw* ctxt = nullptr) const;
    // The box of a string relative to its start on the baseline, in drawing units.
    // The box runs from the baseline to the text size (the cap height) and along the pen
    // advances: every character's advance width from the font (no kerning), times the x scale
    // and the tracking percentage. With penups false the leading and trailing blanks, which
    // only move the pen, are left out. Obliquing, backwards and upside-down leave it unchanged.
    void extentsBox(const ACHAR* pStr, Adesk::Boolean penups, int len, Adesk::Boolean raw,
                    AcGePoint2d& extMin, AcGePoint2d& extMax, AcGiWorldDraw* ctxt = nullptr) const;

    // Font: a file name (TrueType or stroke font) or a typeface; the typeface wins when set.
    Acad::ErrorStatus setFileName(const ACHAR* fontName);
    Acad::ErrorStatus setBigFontFileName(const ACHAR* bigFontFileName);
    Acad::ErrorStatus setFont(const ACHAR* pTypeface, bool bold, bool italic, int charset,
                              int pitchAndFamily);
    Acad::ErrorStatus font(std::wstring& typeface, bool& bold, bool& italic, int& charset,
                           int& pitchAndFamily) const;
    Acad::ErrorStatus setStyleName(const ACHAR* styleName);
    const ACHAR* fileName() const { return m_fileName.c_str(); }
    const ACHAR* bigFontFileName() const { return m_bigFontFileName.c_str(); }
    const ACHAR* styleName() const { return m_styleName.c_str(); }
    const ACHAR* typeface() const { return m_typeface.c_str(); }
    bool isBold() const { return m_bold; }
    bool isItalic() const { return m_italic; }

    void setTextSize(double size) { m_textSize = size; }
    void setXScale(double xScale) { m_xScale = xScale; }
    // Radians; positive leans the letters forward.
    void setObliquingAngle(double obliquingAngle) { m_oblique = obliquingAngle; }
    // 1.0 keeps the font's spacing; below squeezes, above spreads.
    void setTrackingPercent(double trackPercent) { m_tracking = trackPercent; }
    void setBackward(bool isBackward) { m_backward = isBackward; }
    void setUpsideDown(bool isUpsideDown) { m_upsideDown = isUpsideDown; }
    void setVertical(bool isVertical) { m_vertical = isVertical; }
    void setUnderlined(bool isUnderlined) { m_underlined = isUnderlined; }
    void setOverlined(bool isOverlined) { m_overlined = isOverlined; }

    double textSize() const { return m_textSize; }
    double xScale() const { return m_xScale; }
    double obliquingAngle() const { return m_oblique; }
    double trackingPercent() const { return m_tracking; }
    bool isBackward() const { return m_backward; }
    bool isUpsideDown() const { return m_upsideDown; }
    // Vertical text is laid out horizontally here.
    bool isVertical() const { return m_vertical; }
    bool isUnderlined() const { return m_underlined; }
    bool isOverlined() const { return m_overlined; }

    // Host side: the loaded face the style measures and draws with (the fallback face when
    // the named one is unknown); null only when no font file can be loaded at all.
    const GiFont* giFont() const;

private:
    void resetFont() { m_font = nullptr; m_loadFlags = 0; }

    std::wstring m_fileName = L"txt";
    std::wstring m_bigFontFileName;
    std::wstring m_styleName;
    std::wstring m_typeface;
    bool m_bold = false;
    bool m_italic = false;
    int m_charset = 0;
    int m_pitchAndFamily = 0;
    double m_textSize = 1.0;
    double m_xScale = 1.0;
    double m_oblique = 0.0;
    double m_tracking = 1.0;
    bool m_backward = false;
    bool m_upsideDown = false;
    bool m_vertical = false;
    bool m_underlined = false;
    bool m_overlined = false;
    mutable const GiFont* m_font = nullptr;
    mutable int m_loadFlags = 0;
};
