// AcGePlane: distances, projections and plane coordinates.
#include "host/ge/AcGePlane.h"

#include "host/ge/AcGeLinearEnt3d.h"
#include "host/ge/AcGeMatrix3d.h"

#include <cmath>

const AcGePlane AcGePlane::kXYPlane;
const AcGePlane AcGePlane::kYZPlane(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1));
const AcGePlane AcGePlane::kZXPlane(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0));

AcGePlane::AcGePlane() = default;

AcGePlane::AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal)
{
    set(origin, normal);
}

AcGePlane::AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
{
    set(origin, uAxis, vAxis);
}

AcGePlane::AcGePlane(const AcGePoint3d& pntU, const AcGePoint3d& origin, const AcGePoint3d& pntV)
{
    set(origin, pntU - origin, pntV - origin);
}

AcGePlane::AcGePlane(double a, double b, double c, double d)
{
    AcGeVector3d n(a, b, c);
    double len2 = n.lengthSqrd();
    AcGePoint3d origin;
    if (len2 > 0.0)
        origin = AcGePoint3d::kOrigin + n * (-d / len2);
    set(origin, n);
}

AcGePlane& AcGePlane::set(const AcGePoint3d& origin, const AcGeVector3d& normal)
{
    m_origin = origin;
    m_normal = normal.normal();
    m_u = m_normal.perpVector();
    m_v = m_normal.crossProduct(m_u).normal();
    return *this;
}

AcGePlane& AcGePlane::set(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
{
    m_origin = origin;
    m_u = uAxis;
    m_v = vAxis;
    m_normal = uAxis.crossProduct(vAxis).normal();
    return *this;
}

bool AcGePlane::isKindOf(AcGe::EntityId id) const
{
    return id == AcGe::kPlane || id == AcGe::kPlanarEnt || AcGeEntity3d::isKindOf(id);
}

bool AcGePlane::isOn(const AcGePoint3d& pt, const AcGeTol& tol) const
{
    return distanceTo(pt) <= tol.equalPoint();
}

AcGePlane& AcGePlane::transformBy(const AcGeMatrix3d& m)
{
    m_origin.transformBy(m);
    m_u.transformBy(m);
    m_v.transformBy(m);
    m_normal = m_u.crossProduct(m_v).normal();
    return *this;
}

void AcGePlane::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const
{
    origin = m_origin;
    uAxis = m_u;
    vAxis = m_v;
}

void AcGePlane::getCoefficients(double& a, double& b, double& c, double& d) const
{
    a = m_normal.x;
    b = m_normal.y;
    c = m_normal.z;
    d = -m_normal.dotProduct(m_origin.asVector());
}

double AcGePlane::signedDistanceTo(const AcGePoint3d& pt) const
{
    return (pt - m_origin).dotProduct(m_normal);
}

double AcGePlane::distanceTo(const AcGePoint3d& pt) const
{
    return std::fabs(signedDistanceTo(pt));
}

AcGePoint3d AcGePlane::closestPointTo(const AcGePoint3d& pt) const
{
    return pt - m_normal * signedDistanceTo(pt);
}

bool AcGePlane::project(const AcGePoint3d& pt, const AcGeVector3d& dir, AcGePoint3d& projected,
                        const AcGeTol& tol) const
{
    projected = pt;
    if (dir.isZeroLength(tol) || m_normal.isPerpendicularTo(dir, tol))
        return false;
    projected = pt + dir * (-signedDistanceTo(pt) / m_normal.dotProduct(dir));
    return true;
}

AcGePoint2d AcGePlane::paramOf(const AcGePoint3d& pt) const
{
    // Least squares in the (u, v) basis, so that skew axes are honoured.
    AcGeVector3d w = pt - m_origin;
    double uu = m_u.dotProduct(m_u), uv = m_u.dotProduct(m_v), vv = m_v.dotProduct(m_v);
    double wu = w.dotProduct(m_u), wv = w.dotProduct(m_v);
    double det = uu * vv - uv * uv;
    if (det == 0.0)
        return {};
    return {(wu * vv - wv * uv) / det, (wv * uu - wu * uv) / det};
}

AcGePoint3d AcGePlane::evalPoint(const AcGePoint2d& uv) const
{
    return m_origin + m_u * uv.x + m_v * uv.y;
}

bool AcGePlane::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& pt, const AcGeTol& tol) const
{
    return line.intersectWith(*this, pt, tol);
}

bool AcGePlane::isParallelTo(const AcGePlane& other, const AcGeTol& tol) const
{
    return m_normal.isParallelTo(other.m_normal, tol);
}

bool AcGePlane::isCoplanarTo(const AcGePlane& other, const AcGeTol& tol) const
{
    return isParallelTo(other, tol) && isOn(other.m_origin, tol);
}
