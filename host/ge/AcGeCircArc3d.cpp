// AcGeCircArc3d: construction, parameters and intersections of circular arcs.
#include "host/ge/AcGeCircArc3d.h"

#include "host/ge/AcGeDetail.h"
#include "host/ge/AcGeLinearEnt3d.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"

#include <algorithm>
#include <cmath>

using acge_detail::kPi;
using acge_detail::kTwoPi;
using acge_detail::normalizeAngle;

namespace {

// A sweep this close to a whole turn counts as the whole circle.
constexpr double kFullSweepSlack = 1e-12;

} // namespace

AcGeCircArc3d::AcGeCircArc3d() = default;

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
{
    set(center, normal, radius);
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& refVec,
                             double radius, double startAngle, double endAngle)
{
    set(center, normal, refVec, radius, startAngle, endAngle);
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint)
{
    set(startPoint, pnt, endPoint);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
{
    return set(center, normal, normal.perpVector(), radius, 0.0, kTwoPi);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& refVec,
                                  double radius, double startAngle, double endAngle)
{
    m_center = center;
    m_radius = std::fabs(radius);
    setAxes(normal, refVec);
    return setAngles(startAngle, endAngle);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint)
{
    AcGe::ErrorCondition error;
    return set(startPoint, pnt, endPoint, error);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint,
                                  AcGe::ErrorCondition& error)
{
    error = AcGe::kOk;
    if (startPoint.isEqualTo(pnt))
        error = AcGe::kEqualArg1Arg2;
    else if (startPoint.isEqualTo(endPoint))
        error = AcGe::kEqualArg1Arg3;
    else if (pnt.isEqualTo(endPoint))
        error = AcGe::kEqualArg2Arg3;
    else if ((pnt - startPoint).isParallelTo(endPoint - pnt))
        error = AcGe::kLinearlyDependentArg1Arg2Arg3;
    if (error != AcGe::kOk) {
        // No circle passes through them: a point-like arc keeps later arithmetic finite.
        m_center = startPoint;
        m_radius = 0.0;
        m_startAng = m_endAng = 0.0;
        return *this;
    }
    // The normal is chosen so that start, pnt, end run counter-clockwise about it.
    AcGeVector3d n = (pnt - startPoint).crossProduct(endPoint - pnt).normal();
    AcGeVector3d a = startPoint - endPoint, b = pnt - endPoint;
    AcGeVector3d axb = a.crossProduct(b);
    AcGeVector3d off = (b * a.lengthSqrd() - a * b.lengthSqrd()).crossProduct(axb) / (2.0 * axb.lengthSqrd());
    m_center = endPoint + off;
    m_radius = startPoint.distanceTo(m_center);
    m_normal = n;
    m_refVec = (startPoint - m_center).normal();
    m_startAng = 0.0;
    m_endAng = m_refVec.angleTo(endPoint - m_center, n);
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setCenter(const AcGePoint3d& center)
{
    m_center = center;
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setRadius(double radius)
{
    m_radius = std::fabs(radius);
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setAngles(double startAngle, double endAngle)
{
    // The arc runs counter-clockwise from start to end, at most one whole turn.
    double sweep = endAngle - startAngle;
    if (sweep < 0.0)
        sweep = normalizeAngle(sweep);
    if (sweep > kTwoPi)
        sweep = kTwoPi;
    m_startAng = startAngle;
    m_endAng = startAngle + sweep;
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setAxes(const AcGeVector3d& normal, const AcGeVector3d& refVec)
{
    m_normal = normal.isZeroLength() ? AcGeVector3d::kZAxis : normal.normal();
    AcGeVector3d ref = refVec.orthoProject(m_normal);
    m_refVec = ref.isZeroLength() ? m_normal.perpVector() : ref.normal();
    return *this;
}

bool AcGeCircArc3d::isKindOf(AcGe::EntityId id) const
{
    return id == AcGe::kCircArc3d || AcGeCurve3d::isKindOf(id);
}

AcGeCircArc3d& AcGeCircArc3d::transformBy(const AcGeMatrix3d& m)
{
    // The angles stay: the axes carry the transformation, a mirror flips the normal.
    AcGeVector3d x = m * m_refVec;
    AcGeVector3d y = m * yAxis();
    m_center.transformBy(m);
    m_radius *= x.length();
    AcGeVector3d n = x.crossProduct(y);
    if (!n.isZeroLength() && !x.isZeroLength()) {
        m_normal = n.normal();
        m_refVec = x.normal();
    }
    return *this;
}

void AcGeCircArc3d::getPlane(AcGePlane& plane) const
{
    plane.set(m_center, m_refVec, yAxis());
}

double AcGeCircArc3d::length() const
{
    return m_radius * (m_endAng - m_startAng);
}

double AcGeCircArc3d::length(double fromParam, double toParam) const
{
    return m_radius * std::fabs(toParam - fromParam);
}

double AcGeCircArc3d::rawAngle(const AcGePoint3d& pt) const
{
    AcGeVector3d w = pt - m_center;
    return normalizeAngle(std::atan2(w.dotProduct(yAxis()), w.dotProduct(m_refVec)));
}

bool AcGeCircArc3d::angleInExtent(double angle, const AcGeTol& tol) const
{
    double sweep = m_endAng - m_startAng;
    if (sweep >= kTwoPi - kFullSweepSlack)
        return true;
    double d = normalizeAngle(angle - m_startAng);
    double eps = m_radius > 0.0 ? tol.equalPoint() / m_radius : 0.0;
    return d <= sweep + eps || d >= kTwoPi - eps;
}

double AcGeCircArc3d::paramOf(const AcGePoint3d& pt, const AcGeTol&) const
{
    double sweep = m_endAng - m_startAng;
    double d = normalizeAngle(rawAngle(pt) - m_startAng);
    if (d <= sweep)
        return m_startAng + d;
    // Off the arc: the side of the gap the point is nearer to.
    return (d - sweep < kTwoPi - d) ? m_startAng + d : m_startAng + d - kTwoPi;
}

AcGePoint3d AcGeCircArc3d::evalPoint(double param) const
{
    return m_center + (m_refVec * std::cos(param) + yAxis() * std::sin(param)) * m_radius;
}

AcGePoint3d AcGeCircArc3d::closestPointTo(const AcGePoint3d& pt, const AcGeTol&) const
{
    AcGeVector3d w = (pt - m_center).orthoProject(m_normal);
    if (w.lengthSqrd() == 0.0)
        return startPoint(); // every arc point is equally near to the centre
    if (angleInExtent(rawAngle(pt), AcGeTol(0.0, 0.0)))
        return m_center + w.normal() * m_radius;
    AcGePoint3d s = startPoint(), e = endPoint();
    return pt.distanceTo(s) <= pt.distanceTo(e) ? s : e;
}

bool AcGeCircArc3d::isClosed(const AcGeTol& tol) const
{
    double sweep = m_endAng - m_startAng;
    return sweep >= kTwoPi - kFullSweepSlack || (sweep > kPi && startPoint().isEqualTo(endPoint(), tol));
}

AcGeCircArc3d& AcGeCircArc3d::reverseParam()
{
    // About the opposite normal the angle of each point changes sign.
    double start = -m_endAng, end = -m_startAng;
    double shift = normalizeAngle(start) - start;
    m_normal.negate();
    m_startAng = start + shift;
    m_endAng = end + shift;
    return *this;
}

bool AcGeCircArc3d::tangent(const AcGePoint3d& pt, AcGeLine3d& line, const AcGeTol& tol) const
{
    if (m_radius <= 0.0 || !isOn(pt, tol))
        return false;
    double a = paramOf(pt, tol);
    line.set(pt, m_refVec * -std::sin(a) + yAxis() * std::cos(a));
    return true;
}

int AcGeCircArc3d::circleHits(const AcGeLinearEnt3d& line, AcGePoint3d hits[2], const AcGeTol& tol) const
{
    AcGeVector3d d = line.direction();
    AcGePoint3d p0 = line.pointOnLine();
    if (d.isZeroLength())
        return 0;
    if (m_normal.isPerpendicularTo(d, tol)) {
        // The line runs in the circle's plane, or misses it entirely.
        if (std::fabs((p0 - m_center).dotProduct(m_normal)) > tol.equalPoint())
            return 0;
        AcGePoint3d foot = p0 + d * (m_center - p0).dotProduct(d);
        double h = (foot - m_center).orthoProject(m_normal).length();
        if (h > m_radius + tol.equalPoint())
            return 0;
        if (h >= m_radius - tol.equalPoint()) {
            hits[0] = foot; // touching, or missing by no more than the tolerance
            return 1;
        }
        double half = std::sqrt(m_radius * m_radius - h * h);
        hits[0] = foot - d * half;
        hits[1] = foot + d * half;
        return 2;
    }
    // The line pierces the plane once; it meets the circle if that point lies on it.
    double t = -(p0 - m_center).dotProduct(m_normal) / d.dotProduct(m_normal);
    AcGePoint3d q = p0 + d * t;
    if (std::fabs(q.distanceTo(m_center) - m_radius) > tol.equalPoint())
        return 0;
    hits[0] = q;
    return 1;
}

bool AcGeCircArc3d::intersectWith(const AcGeLinearEnt3d& line, int& numInt, AcGePoint3d& p1, AcGePoint3d& p2,
                                  const AcGeTol& tol) const
{
    AcGePoint3d hits[2];
    int count = circleHits(line, hits, tol);
    numInt = 0;
    for (int i = 0; i < count; ++i) {
        if (!angleInExtent(rawAngle(hits[i]), tol) || !line.isOn(hits[i], tol))
            continue;
        (numInt == 0 ? p1 : p2) = hits[i];
        ++numInt;
    }
    return numInt > 0;
}

bool AcGeCircArc3d::intersectWith(const AcGeCircArc3d& arc, int& numInt, AcGePoint3d& p1, AcGePoint3d& p2,
                                  const AcGeTol& tol) const
{
    numInt = 0;
    AcGePoint3d hits[2];
    int count = 0;
    const double eq = tol.equalPoint();
    if (m_normal.isParallelTo(arc.m_normal, tol)) {
        if (std::fabs((arc.m_center - m_center).dotProduct(m_normal)) > eq)
            return false; // parallel planes
        AcGeVector3d c12 = (arc.m_center - m_center).orthoProject(m_normal);
        double d = c12.length();
        double r1 = m_radius, r2 = arc.m_radius;
        // Concentric circles share no single point, not even when they coincide.
        if (d <= eq || d > r1 + r2 + eq || d < std::fabs(r1 - r2) - eq)
            return false;
        AcGeVector3d u = c12 / d;
        double a = (d * d + r1 * r1 - r2 * r2) / (2.0 * d);
        if (std::fabs(d - (r1 + r2)) <= eq || std::fabs(d - std::fabs(r1 - r2)) <= eq) {
            hits[0] = m_center + u * (a >= 0.0 ? r1 : -r1);
            count = 1;
        } else {
            double h = std::sqrt(std::max(0.0, r1 * r1 - a * a));
            AcGeVector3d v = m_normal.crossProduct(u);
            hits[0] = m_center + u * a - v * h;
            hits[1] = m_center + u * a + v * h;
            count = 2;
        }
    } else {
        // Meet the line common to both planes with this circle, then test the other.
        AcGeVector3d n1 = m_normal, n2 = arc.m_normal;
        double h1 = n1.dotProduct(m_center.asVector()), h2 = n2.dotProduct(arc.m_center.asVector());
        double k = n1.dotProduct(n2), den = 1.0 - k * k;
        AcGePoint3d base = AcGePoint3d::kOrigin + n1 * ((h1 - h2 * k) / den) + n2 * ((h2 - h1 * k) / den);
        AcGePoint3d cand[2];
        int n = circleHits(AcGeLine3d(base, n1.crossProduct(n2)), cand, tol);
        for (int i = 0; i < n; ++i)
            if (std::fabs(cand[i].distanceTo(arc.m_center) - arc.m_radius) <= eq)
                hits[count++] = cand[i];
    }
    for (int i = 0; i < count; ++i) {
        if (!angleInExtent(rawAngle(hits[i]), tol) || !arc.angleInExtent(arc.rawAngle(hits[i]), tol))
            continue;
        (numInt == 0 ? p1 : p2) = hits[i];
        ++numInt;
    }
    return numInt > 0;
}
