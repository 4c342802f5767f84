// The parts of a native dimension's picture that its kinds share: the measured value as
// text, and a painter that draws lines, arrows, arcs and the label with the dimension
// variables' sizes and colours.
#pragma once

#include <string>

#include "host/db/AcDbDimension.h"
#include "host/db/AcDbDraw.h"

class AcGiWorldDraw;

// The value as the variables format it: rounded to DIMRND, DIMDEC (angles: DIMADEC, in
// degrees with "%%d") decimals, DIMDSEP as separator, zeros suppressed by DIMZIN (DIMAZIN)
// bits 4 leading and 8 trailing (angles: 1 and 2), and DIMPOST around it.
std::wstring acdbDimMeasuredText(const AcDbDimension* dimension, const AcDbDimVars& vars,
                                 const std::wstring& prefix = std::wstring());
// The label's contents: "" the measured text, " " none, else the text with every "<>"
// replaced by the measured text.
std::wstring acdbDimLabelContents(const std::wstring& userText, const std::wstring& measured);
// A number with decimals, rounding, separator and the leading (4) and trailing (8) zero bits.
std::wstring acdbDimFormatNumber(double value, int decimals, double roundTo, wchar_t separator, int zeroBits);

// Selection markers of a dimension's parts.
enum AcDbDimMarker {
    kAcDbDimMarkerExtLine1 = 1,
    kAcDbDimMarkerExtLine2 = 2,
    kAcDbDimMarkerDimLine = 3,
    kAcDbDimMarkerText = 4,
    kAcDbDimMarkerCenter = 5,
};

// The label: laid-out text with its middle at a point, and its half sizes.
struct AcDbDimLabel {
    AcDbTextBlock block;
    bool empty = true;
    double halfWidth = 0.0;
    double halfHeight = 0.0;
    AcGePoint3d middle;
    AcGeVector3d direction{1, 0, 0};
};

class AcDbDimPainter {
public:
    AcDbDimPainter(const AcDbDimension* dimension, AcGiWorldDraw* worldDraw);

    const AcDbDimVars& vars() const { return m_vars; }
    // Sizes with DIMSCALE applied.
    double scaled(double size) const { return size * m_scale; }
    double arrowSize() const { return scaled(m_vars.dimasz); }
    double gap() const { return scaled(m_vars.dimgap); }
    const AcGeVector3d& normal() const { return m_normal; }
    const AcGeVector3d& xAxis() const { return m_xAxis; }
    // Flipped so that text along it reads from the left or from below.
    AcGeVector3d readable(const AcGeVector3d& direction) const;
    // The label's direction for a dimension line along lineDirection: DIMTIH horizontal,
    // else along the line; a text rotation set on the dimension wins.
    AcGeVector3d labelDirection(const AcGeVector3d& lineDirection) const;

    void part(AcDbDimMarker marker, const AcCmColor& color);
    void line(const AcGePoint3d& a, const AcGePoint3d& b) const;
    // The line with the stretch that runs under the label left out.
    void lineAround(const AcGePoint3d& a, const AcGePoint3d& b, const AcDbDimLabel& label) const;
    // An extension line from the object point towards and past the dimension line point.
    void extensionLine(const AcGePoint3d& object, const AcGePoint3d& onDimLine, const AcGeVector3d& fallback) const;
    // The arrowhead at tip whose body lies along body (unit), as DIMTSZ or the arrow block
    // names it: ticks, dots, open or closed, filled by default.
    void arrow(const AcGePoint3d& tip, const AcGeVector3d& body, bool second) const;
    bool ticks() const { return m_vars.dimtsz > 0.0; }
    void arc(const AcGePoint3d& center, double radius, const AcGeVector3d& start, double sweep) const;
    void centerMark(const AcGePoint3d& center) const;

    AcDbDimLabel label(const std::wstring& contents) const;
    void drawLabel(const AcDbDimLabel& label) const;

private:
    const AcDbDimension* m_dim;
    AcGiWorldDraw* m_wd;
    AcDbDimVars m_vars;
    double m_scale = 1.0;
    AcGeVector3d m_normal;
    AcGeVector3d m_xAxis;
    AcCmEntityColor m_own;
    AcGiTextStyle m_style;
};
