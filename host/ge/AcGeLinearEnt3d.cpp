// Lines, rays and segments: parameters, extents and intersections.
#include "host/ge/AcGeLinearEnt3d.h"

#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"

#include <algorithm>
#include <cmath>

const AcGeLine3d AcGeLine3d::kXAxis(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0));
const AcGeLine3d AcGeLine3d::kYAxis(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 1, 0));
const AcGeLine3d AcGeLine3d::kZAxis(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1));

AcGe::EntityId AcGeLinearEnt3d::type() const
{
    switch (m_extent) {
    case Extent::kRay:
        return AcGe::kRay3d;
    case Extent::kSegment:
        return AcGe::kLineSeg3d;
    case Extent::kLine:
        break;
    }
    return AcGe::kLine3d;
}

bool AcGeLinearEnt3d::isKindOf(AcGe::EntityId id) const
{
    return id == type() || id == AcGe::kLinearEnt3d || AcGeCurve3d::isKindOf(id);
}

AcGeLinearEnt3d* AcGeLinearEnt3d::copy() const
{
    // The copy is of the class the extent names, so a caller may cast by type().
    switch (m_extent) {
    case Extent::kRay:
        return new AcGeRay3d(m_point, m_vector);
    case Extent::kSegment:
        return new AcGeLineSeg3d(m_point, m_vector);
    case Extent::kLine:
        break;
    }
    return new AcGeLine3d(m_point, m_vector);
}

AcGeLinearEnt3d& AcGeLinearEnt3d::transformBy(const AcGeMatrix3d& m)
{
    m_point.transformBy(m);
    m_vector.transformBy(m);
    return *this;
}

double AcGeLinearEnt3d::paramOf(const AcGePoint3d& pt, const AcGeTol&) const
{
    double len2 = m_vector.lengthSqrd();
    if (len2 <= 0.0)
        return 0.0;
    return (pt - m_point).dotProduct(m_vector) / len2;
}

AcGePoint3d AcGeLinearEnt3d::evalPoint(double param) const
{
    return m_point + m_vector * param;
}

AcGePoint3d AcGeLinearEnt3d::closestPointTo(const AcGePoint3d& pt, const AcGeTol& tol) const
{
    double t = paramOf(pt, tol);
    if (m_extent == Extent::kRay)
        t = std::max(t, 0.0);
    else if (m_extent == Extent::kSegment)
        t = std::clamp(t, 0.0, 1.0);
    return evalPoint(t);
}

bool AcGeLinearEnt3d::hasStartPoint(AcGePoint3d& pt) const
{
    if (m_extent == Extent::kLine)
        return false;
    pt = m_point;
    return true;
}

bool AcGeLinearEnt3d::hasEndPoint(AcGePoint3d& pt) const
{
    if (m_extent != Extent::kSegment)
        return false;
    pt = m_point + m_vector;
    return true;
}

AcGeLinearEnt3d& AcGeLinearEnt3d::reverseParam()
{
    // A ray cannot run backwards without becoming another ray; it stays as it is.
    if (m_extent == Extent::kSegment)
        m_point += m_vector;
    if (m_extent != Extent::kRay)
        m_vector.negate();
    return *this;
}

AcGeVector3d AcGeLinearEnt3d::direction() const
{
    return m_vector.normal();
}

void AcGeLinearEnt3d::getLine(AcGeLine3d& line) const
{
    line.set(m_point, m_vector);
}

bool AcGeLinearEnt3d::paramInExtent(double t, const AcGeTol& tol) const
{
    if (m_extent == Extent::kLine)
        return true;
    double len = m_vector.length();
    double eps = len > 0.0 ? tol.equalPoint() / len : 0.0;
    if (t < -eps)
        return false;
    return m_extent == Extent::kRay || t <= 1.0 + eps;
}

bool AcGeLinearEnt3d::intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& pt, const AcGeTol& tol) const
{
    if (isParallelTo(other, tol) || m_vector.isZeroLength(tol) || other.m_vector.isZeroLength(tol))
        return false;
    // Closest points of the two infinite lines.
    const AcGeVector3d& d1 = m_vector;
    const AcGeVector3d& d2 = other.m_vector;
    AcGeVector3d w = m_point - other.m_point;
    double a = d1.dotProduct(d1), b = d1.dotProduct(d2), c = d2.dotProduct(d2);
    double d = d1.dotProduct(w), e = d2.dotProduct(w);
    double denom = a * c - b * b;
    if (denom <= 0.0)
        return false;
    double s = (b * e - c * d) / denom;
    double t = (a * e - b * d) / denom;
    AcGePoint3d p = evalPoint(s);
    AcGePoint3d q = other.evalPoint(t);
    if (p.distanceTo(q) > tol.equalPoint())
        return false;
    if (!paramInExtent(s, tol) || !other.paramInExtent(t, tol))
        return false;
    pt = p + (q - p) * 0.5;
    return true;
}

bool AcGeLinearEnt3d::intersectWith(const AcGePlane& plane, AcGePoint3d& pt, const AcGeTol& tol) const
{
    AcGeVector3d n = plane.normal();
    if (m_vector.isZeroLength(tol) || n.isPerpendicularTo(m_vector, tol))
        return false;
    double t = -plane.signedDistanceTo(m_point) / n.dotProduct(m_vector);
    if (!paramInExtent(t, tol))
        return false;
    pt = evalPoint(t);
    return true;
}

bool AcGeLinearEnt3d::isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const
{
    return m_vector.isParallelTo(other.m_vector, tol);
}

bool AcGeLinearEnt3d::isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const
{
    return m_vector.isPerpendicularTo(other.m_vector, tol);
}

bool AcGeLinearEnt3d::isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const
{
    if (!isParallelTo(other, tol))
        return false;
    AcGeLine3d line(m_point, m_vector);
    return line.isOn(other.m_point, tol);
}
