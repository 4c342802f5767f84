// AcGeCircArc2d: circular arcs in the plane, with either sense of rotation.
#include "host/ge/AcGeCircArc2d.h"

#include "host/ge/AcGeDetail.h"

#include <cmath>

using acge_detail::kPi;
using acge_detail::kTwoPi;
using acge_detail::normalizeAngle;

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& center, double radius)
{
    set(center, radius);
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                             const AcGeVector2d& refVec, bool isClockWise)
{
    set(center, radius, startAngle, endAngle, refVec, isClockWise);
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& startPoint, const AcGePoint2d& pnt, const AcGePoint2d& endPoint)
{
    set(startPoint, pnt, endPoint);
}

AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& center, double radius)
{
    return set(center, radius, 0.0, kTwoPi);
}

AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                                  const AcGeVector2d& refVec, bool isClockWise)
{
    m_center = center;
    m_radius = std::fabs(radius);
    m_refVec = refVec.isZeroLength() ? AcGeVector2d::kXAxis : refVec.normal();
    m_clockwise = isClockWise;
    double sweep = endAngle - startAngle;
    if (sweep < 0.0)
        sweep = normalizeAngle(sweep);
    if (sweep > kTwoPi)
        sweep = kTwoPi;
    m_startAng = startAngle;
    m_endAng = startAngle + sweep;
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& startPoint, const AcGePoint2d& pnt, const AcGePoint2d& endPoint)
{
    AcGeVector2d a = pnt - startPoint, b = endPoint - pnt;
    double cross = a.x * b.y - a.y * b.x;
    if (startPoint.isEqualTo(pnt) || pnt.isEqualTo(endPoint) || startPoint.isEqualTo(endPoint)
        || a.isParallelTo(b)) {
        // No circle passes through them: a point-like arc at the start.
        return set(startPoint, 0.0, 0.0, 0.0);
    }
    // Circumcentre from the perpendicular bisectors.
    double ax = startPoint.x, ay = startPoint.y, bx = pnt.x, by = pnt.y, cx = endPoint.x, cy = endPoint.y;
    double d = 2.0 * (ax * (by - cy) + bx * (cy - ay) + cx * (ay - by));
    double a2 = ax * ax + ay * ay, b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    AcGePoint2d c((a2 * (by - cy) + b2 * (cy - ay) + c2 * (ay - by)) / d,
                  (a2 * (cx - bx) + b2 * (ax - cx) + c2 * (bx - ax)) / d);
    bool cw = cross < 0.0;
    double sign = cw ? -1.0 : 1.0;
    double start = normalizeAngle(sign * (startPoint - c).angle());
    double end = normalizeAngle(sign * (endPoint - c).angle());
    double sweep = normalizeAngle(end - start);
    return set(c, startPoint.distanceTo(c), start, start + sweep, AcGeVector2d::kXAxis, cw);
}

double AcGeCircArc2d::length() const
{
    return m_radius * (m_endAng - m_startAng);
}

bool AcGeCircArc2d::isClosed(const AcGeTol& tol) const
{
    double sweep = m_endAng - m_startAng;
    return sweep >= kTwoPi - 1e-12 || (sweep > kPi && startPoint().isEqualTo(endPoint(), tol));
}

AcGePoint2d AcGeCircArc2d::evalPoint(double param) const
{
    double a = m_refVec.angle() + (m_clockwise ? -param : param);
    return m_center + AcGeVector2d(std::cos(a), std::sin(a)) * m_radius;
}

double AcGeCircArc2d::toLocal(double worldAngle) const
{
    double a = worldAngle - m_refVec.angle();
    return normalizeAngle(m_clockwise ? -a : a);
}

double AcGeCircArc2d::paramOf(const AcGePoint2d& pt, const AcGeTol&) const
{
    double sweep = m_endAng - m_startAng;
    double d = normalizeAngle(toLocal((pt - m_center).angle()) - m_startAng);
    if (d <= sweep)
        return m_startAng + d;
    return (d - sweep < kTwoPi - d) ? m_startAng + d : m_startAng + d - kTwoPi;
}

AcGePoint2d AcGeCircArc2d::closestPointTo(const AcGePoint2d& pt, const AcGeTol& tol) const
{
    AcGeVector2d w = pt - m_center;
    if (w.lengthSqrd() == 0.0)
        return startPoint();
    double p = paramOf(pt, tol);
    if (p >= m_startAng && p <= m_endAng)
        return m_center + w.normal() * m_radius;
    AcGePoint2d s = startPoint(), e = endPoint();
    return pt.distanceTo(s) <= pt.distanceTo(e) ? s : e;
}

bool AcGeCircArc2d::isOn(const AcGePoint2d& pt, const AcGeTol& tol) const
{
    return closestPointTo(pt, tol).distanceTo(pt) <= tol.equalPoint();
}

AcGeCircArc2d& AcGeCircArc2d::reverseParam()
{
    // In the other sense each point's angle changes sign.
    double start = -m_endAng, end = -m_startAng;
    double shift = normalizeAngle(start) - start;
    m_clockwise = !m_clockwise;
    m_startAng = start + shift;
    m_endAng = end + shift;
    return *this;
}
