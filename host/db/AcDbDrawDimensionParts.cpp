// A dimension's shared drawing parts: the measured value as text and the painter of lines,
// arrows, arcs and labels in the dimension variables' sizes and colours.
#include "host/db/AcDbDrawDimension.h"

#include <algorithm>
#include <cmath>
#include <cwctype>

#include "host/db/AcDbDatabase.h"
#include "host/gi/AcGiWorldDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

std::wstring Lower(const ACHAR* text)
{
    std::wstring s = text ? text : L"";
    if (!s.empty() && s[0] == L'_')
        s.erase(0, 1);
    for (wchar_t& c : s)
        c = static_cast<wchar_t>(std::towlower(c));
    return s;
}

void Replace(std::wstring& text, const std::wstring& what, const std::wstring& with)
{
    for (std::size_t pos = text.find(what); pos != std::wstring::npos; pos = text.find(what, pos + with.size()))
        text.replace(pos, what.size(), with);
}

} // namespace

std::wstring acdbDimFormatNumber(double value, int decimals, double roundTo, wchar_t separator, int zeroBits)
{
    if (roundTo > 0.0)
        value = std::round(value / roundTo) * roundTo;
    decimals = std::clamp(decimals, 0, 8);
    wchar_t buffer[64];
    std::swprintf(buffer, 64, L"%.*f", decimals, value);
    std::wstring s = buffer;
    if (s == L"-0" || s.find_first_not_of(L"-0.") == std::wstring::npos)
        s.erase(0, s[0] == L'-' ? 1 : 0);  // no "-0.00"
    const std::size_t dot = s.find(L'.');
    if (dot != std::wstring::npos) {
        s[dot] = separator ? separator : L'.';
        if (zeroBits & 8) {
            s.erase(s.find_last_not_of(L'0') + 1);
            if (s.back() == s[dot])
                s.pop_back();
        }
    }
    if (zeroBits & 4) {
        const std::size_t digit = s[0] == L'-' ? 1 : 0;
        if (s.size() > digit + 1 && s[digit] == L'0' && !std::iswdigit(s[digit + 1]))
            s.erase(digit, 1);
    }
    return s;
}

std::wstring acdbDimMeasuredText(const AcDbDimension* dimension, const AcDbDimVars& vars, const std::wstring& prefix)
{
    double value = 0.0;
    dimension->measurement(value);
    const wchar_t separator = vars.dimdsep ? vars.dimdsep : L'.';
    if (!dimension->isLinearMeasure()) {
        // DIMAZIN counts its bits as 1 leading and 2 trailing zeros.
        const int bits = ((vars.dimazin & 1) ? 4 : 0) | ((vars.dimazin & 2) ? 8 : 0);
        return acdbDimFormatNumber(value * 180.0 / kPi, vars.dimadec, 0.0, separator, bits) + L"%%d";
    }
    std::wstring text = prefix + acdbDimFormatNumber(value, vars.dimdec, vars.dimrnd, separator, vars.dimzin);
    std::wstring post = vars.dimpost;
    if (post.find(L"<>") != std::wstring::npos) {
        Replace(post, L"<>", text);
        return post;
    }
    return text + post;
}

std::wstring acdbDimLabelContents(const std::wstring& userText, const std::wstring& measured)
{
    if (userText.empty())
        return measured;
    if (userText == L" ")
        return std::wstring();
    std::wstring text = userText;
    Replace(text, L"<>", measured);
    return text;
}

AcDbDimPainter::AcDbDimPainter(const AcDbDimension* dimension, AcGiWorldDraw* worldDraw)
    : m_dim(dimension), m_wd(worldDraw), m_vars(dimension->effectiveVars())
{
    m_scale = m_vars.dimscale > 0.0 ? m_vars.dimscale : 1.0;
    m_normal = dimension->normal().normal();
    m_xAxis = AcGeVector3d(1.0, 0.0, 0.0);
    m_xAxis.transformBy(AcGeMatrix3d::planeToWorld(m_normal));
    m_own = worldDraw->subEntityTraits().trueColor();
    AcDbObjectId styleId = m_vars.dimtxsty;
    if (styleId.isNull() && dimension->databaseToUse())
        styleId = dimension->databaseToUse()->textstyle();
    acdbTextStyleFromRecord(styleId, m_style);
}

AcGeVector3d AcDbDimPainter::readable(const AcGeVector3d& direction) const
{
    const double angle = m_xAxis.angleTo(direction, m_normal);
    const double eps = 1e-9;
    return angle > kPi / 2.0 + eps && angle <= 3.0 * kPi / 2.0 + eps ? -direction : direction;
}

AcGeVector3d AcDbDimPainter::labelDirection(const AcGeVector3d& lineDirection) const
{
    if (m_dim->textRotation() != 0.0)
        return AcGeVector3d(m_xAxis).rotateBy(m_dim->textRotation(), m_normal);
    return m_vars.dimtih ? m_xAxis : readable(lineDirection);
}

void AcDbDimPainter::part(AcDbDimMarker marker, const AcCmColor& color)
{
    AcGiSubEntityTraits& traits = m_wd->subEntityTraits();
    traits.setSelectionMarker(marker);
    // ByBlock parts take the dimension's own colour, as the parts of its block would.
    traits.setTrueColor(color.isByBlock() ? m_own : color.entityColor());
}

void AcDbDimPainter::line(const AcGePoint3d& a, const AcGePoint3d& b) const
{
    const AcGePoint3d pts[2] = {a, b};
    m_wd->geometry().polyline(2, pts);
}

void AcDbDimPainter::lineAround(const AcGePoint3d& a, const AcGePoint3d& b, const AcDbDimLabel& label) const
{
    const double length = a.distanceTo(b);
    if (label.empty || length <= 0.0) {
        line(a, b);
        return;
    }
    // Where the line runs inside the label's box (grown by the gap): one slab per text axis.
    const AcGeVector3d along = (b - a) / length;
    const AcGeVector3d x = label.direction;
    const AcGeVector3d y = m_normal.crossProduct(x).normal();
    const double margin = std::fabs(gap());
    double t0 = 0.0, t1 = length;
    const double halves[2] = {label.halfWidth + margin, label.halfHeight + margin};
    const AcGeVector3d axes[2] = {x, y};
    for (int i = 0; i < 2; ++i) {
        const double rate = along.dotProduct(axes[i]);
        const double at = (a - label.middle).dotProduct(axes[i]);
        if (std::fabs(rate) < 1e-12) {
            if (std::fabs(at) >= halves[i] - 1e-9)
                t0 = t1 + 1.0;  // parallel and outside (or touching): no overlap
            continue;
        }
        double lo = (-halves[i] - at) / rate, hi = (halves[i] - at) / rate;
        if (lo > hi)
            std::swap(lo, hi);
        t0 = std::max(t0, lo);
        t1 = std::min(t1, hi);
    }
    if (t0 >= t1) {
        line(a, b);
        return;
    }
    if (t0 > 0.0)
        line(a, a + along * t0);
    if (t1 < length)
        line(a + along * t1, b);
}

void AcDbDimPainter::extensionLine(const AcGePoint3d& object, const AcGePoint3d& onDimLine,
                                   const AcGeVector3d& fallback) const
{
    AcGeVector3d u = onDimLine - object;
    u = u.length() > 1e-12 ? u.normal() : fallback;
    line(object + u * scaled(m_vars.dimexo), onDimLine + u * scaled(m_vars.dimexe));
}

void AcDbDimPainter::arrow(const AcGePoint3d& tip, const AcGeVector3d& body, bool second) const
{
    const AcGeVector3d side = m_normal.crossProduct(body).normal();
    if (ticks()) {
        const double half = scaled(m_vars.dimtsz) / 2.0;
        line(tip - (body + side) * half, tip + (body + side) * half);
        return;
    }
    const double size = arrowSize();
    if (size <= 0.0)
        return;
    const std::wstring name = Lower(m_vars.dimsah ? (second ? m_vars.dimblk2.c_str() : m_vars.dimblk1.c_str())
                                                  : m_vars.dimblk.c_str());
    AcGiSubEntityTraits& traits = m_wd->subEntityTraits();
    const AcGePoint3d base = tip + body * size;
    const AcGePoint3d wing[2] = {base + side * (size / 6.0), base - side * (size / 6.0)};
    if (name == L"none")
        return;
    if (name == L"oblique" || name == L"archtick") {
        line(tip - (body + side) * (size / 2.0), tip + (body + side) * (size / 2.0));
    } else if (name == L"open" || name == L"open30" || name == L"open90") {
        const double w = name == L"open90" ? size : name == L"open30" ? size * std::tan(kPi / 12.0) : size / 6.0;
        line(tip, base + side * w);
        line(tip, base - side * w);
    } else if (name == L"dot" || name == L"dotsmall" || name == L"dotblank") {
        const double r = name == L"dotsmall" ? size / 16.0 : size / 4.0;
        const AcGiFillType before = traits.fillType();
        traits.setFillType(name == L"dotblank" ? kAcGiFillNever : kAcGiFillAlways);
        m_wd->geometry().circle(tip, r, m_normal);
        traits.setFillType(before);
    } else {
        const AcGePoint3d triangle[3] = {tip, wing[0], wing[1]};
        const AcGiFillType before = traits.fillType();
        const bool blank = name == L"closedblank" || name == L"closed";
        traits.setFillType(blank ? kAcGiFillNever : kAcGiFillAlways);
        m_wd->geometry().polygon(3, triangle);
        traits.setFillType(before);
    }
}

void AcDbDimPainter::arc(const AcGePoint3d& center, double radius, const AcGeVector3d& start, double sweep) const
{
    if (radius > 0.0 && sweep > 0.0)
        m_wd->geometry().circularArc(center, radius, m_normal, start, sweep);
}

void AcDbDimPainter::centerMark(const AcGePoint3d& center) const
{
    const double size = std::fabs(scaled(m_vars.dimcen));
    if (size <= 0.0)
        return;
    const AcGeVector3d y = m_normal.crossProduct(m_xAxis);
    line(center - m_xAxis * size, center + m_xAxis * size);
    line(center - y * size, center + y * size);
}

AcDbDimLabel AcDbDimPainter::label(const std::wstring& contents) const
{
    AcDbDimLabel label;
    if (contents.empty())
        return label;
    AcDbTextLayoutParams params;
    params.style = m_style;
    params.height = scaled(m_vars.dimtxt);
    params.attachment = 5;  // middle centre: the text position is the label's middle
    label.block = acdbLayoutMText(contents, params);
    label.empty = label.block.runs.empty();
    // Centre the box on the middle point: runs are moved by half the box's offset.
    const double cx = (label.block.minX + label.block.maxX) / 2.0;
    const double cy = (label.block.minY + label.block.maxY) / 2.0;
    for (AcDbTextRun& run : label.block.runs) {
        run.x -= cx;
        run.y -= cy;
    }
    for (std::size_t i = 0; i + 1 < label.block.bars.size(); i += 2) {
        label.block.bars[i] -= cx;
        label.block.bars[i + 1] -= cy;
    }
    label.halfWidth = (label.block.maxX - label.block.minX) / 2.0;
    label.halfHeight = (label.block.maxY - label.block.minY) / 2.0;
    label.block.minX -= cx, label.block.maxX -= cx;
    label.block.minY -= cy, label.block.maxY -= cy;
    return label;
}

void AcDbDimPainter::drawLabel(const AcDbDimLabel& label) const
{
    if (label.empty)
        return;
    acdbDrawTextBlock(m_wd, label.block, label.middle, label.direction, m_normal);
    if (m_vars.dimgap < 0.0) {
        // A negative gap frames the text (a basic dimension).
        const double m = -gap();
        const AcGeVector3d x = label.direction * (label.halfWidth + m);
        const AcGeVector3d y = m_normal.crossProduct(label.direction).normal() * (label.halfHeight + m);
        const AcGePoint3d c = label.middle;
        const AcGePoint3d box[5] = {c - x - y, c + x - y, c + x + y, c - x + y, c - x - y};
        m_wd->geometry().polyline(5, box);
    }
}
