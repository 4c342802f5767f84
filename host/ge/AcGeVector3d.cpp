// AcGeVector3d: products, angles, tolerance tests and transformations.
#include "host/ge/AcGeVector3d.h"

#include "host/ge/AcGeDetail.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"
#include "host/ge/AcGeVector2d.h"

#include <algorithm>
#include <cmath>

using acge_detail::kTwoPi;

const AcGeVector3d AcGeVector3d::kIdentity(0.0, 0.0, 0.0);
const AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
const AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
const AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);

AcGeVector3d& AcGeVector3d::set(double xx, double yy, double zz)
{
    x = xx;
    y = yy;
    z = zz;
    return *this;
}

AcGeVector3d& AcGeVector3d::setToProduct(const AcGeMatrix3d& m, const AcGeVector3d& v)
{
    return *this = m * v;
}

AcGeVector3d& AcGeVector3d::setToSum(const AcGeVector3d& a, const AcGeVector3d& b)
{
    return *this = a + b;
}

AcGeVector3d AcGeVector3d::crossProduct(const AcGeVector3d& v) const
{
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
}

double AcGeVector3d::length() const
{
    return std::sqrt(lengthSqrd());
}

bool AcGeVector3d::isZeroLength(const AcGeTol& tol) const
{
    return length() <= tol.equalVector();
}

bool AcGeVector3d::isUnitLength(const AcGeTol& tol) const
{
    return std::fabs(length() - 1.0) <= tol.equalVector();
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const
{
    AcGeVector3d v(*this);
    return v.normalize(tol);
}

AcGeVector3d& AcGeVector3d::normalize(const AcGeTol&)
{
    // Even a vector below the tolerance keeps its direction; only zero has none.
    double len = length();
    if (len > 0.0)
        *this /= len;
    return *this;
}

AcGeVector3d& AcGeVector3d::negate()
{
    x = -x;
    y = -y;
    z = -z;
    return *this;
}

AcGeVector3d AcGeVector3d::perpVector() const
{
    AcGeVector3d n = normal();
    if (n.isZeroLength())
        return {};
    // The arbitrary-axis rule of the drawing exchange format.
    constexpr double kLimit = 1.0 / 64.0;
    AcGeVector3d ax = (std::fabs(n.x) < kLimit && std::fabs(n.y) < kLimit) ? kYAxis.crossProduct(n)
                                                                           : kZAxis.crossProduct(n);
    return ax.normal();
}

double AcGeVector3d::angleTo(const AcGeVector3d& v) const
{
    // atan2 keeps its precision near 0 and pi, where acos of the dot product does not.
    return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& ref) const
{
    double a = angleTo(v);
    if (ref.dotProduct(crossProduct(v)) < 0.0)
        a = kTwoPi - a;
    return a >= kTwoPi ? 0.0 : a;
}

double AcGeVector3d::angleOnPlane(const AcGePlane& plane) const
{
    AcGePoint3d origin;
    AcGeVector3d u, v;
    plane.getCoordSystem(origin, u, v);
    AcGeVector3d n = plane.normal();
    AcGeVector3d p = orthoProject(n);
    if (p.isZeroLength())
        return 0.0;
    return u.angleTo(p, n);
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    // The sine of the angle between them: small for both senses of parallel.
    return normal().crossProduct(v.normal()).length() <= tol.equalVector();
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    return (normal() - v.normal()).length() <= tol.equalVector();
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    return std::fabs(normal().dotProduct(v.normal())) <= tol.equalVector();
}

bool AcGeVector3d::isEqualTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    double e = tol.equalVector();
    return std::fabs(x - v.x) <= e && std::fabs(y - v.y) <= e && std::fabs(z - v.z) <= e;
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis)
{
    AcGeVector3d k = axis.normal();
    if (k.isZeroLength())
        return *this;
    // Rodrigues' formula.
    double c = std::cos(angle), s = std::sin(angle);
    AcGeVector3d v = *this;
    *this = v * c + k.crossProduct(v) * s + k * (k.dotProduct(v) * (1.0 - c));
    return *this;
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m)
{
    return *this = m * *this;
}

AcGeVector3d& AcGeVector3d::mirror(const AcGeVector3d& normalToPlane)
{
    AcGeVector3d n = normalToPlane.normal();
    return *this -= n * (2.0 * dotProduct(n));
}

AcGeVector3d AcGeVector3d::orthoProject(const AcGeVector3d& planeNormal) const
{
    AcGeVector3d n = planeNormal.normal();
    return *this - n * dotProduct(n);
}

AcGeVector2d AcGeVector3d::convert2d(const AcGePlane& plane) const
{
    AcGePoint3d origin = plane.pointOnPlane();
    AcGePoint2d a = plane.paramOf(origin + *this);
    AcGePoint2d b = plane.paramOf(origin);
    return a - b;
}
