// AcGePoint2d and AcGeVector2d: the plane's small vector algebra.
#include "host/ge/AcGeDetail.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGeVector2d.h"

#include <cmath>

const AcGeVector2d AcGeVector2d::kIdentity(0.0, 0.0);
const AcGeVector2d AcGeVector2d::kXAxis(1.0, 0.0);
const AcGeVector2d AcGeVector2d::kYAxis(0.0, 1.0);
const AcGePoint2d AcGePoint2d::kOrigin(0.0, 0.0);

double AcGeVector2d::length() const
{
    return std::sqrt(lengthSqrd());
}

bool AcGeVector2d::isZeroLength(const AcGeTol& tol) const
{
    return length() <= tol.equalVector();
}

AcGeVector2d AcGeVector2d::normal(const AcGeTol& tol) const
{
    AcGeVector2d v(*this);
    return v.normalize(tol);
}

AcGeVector2d& AcGeVector2d::normalize(const AcGeTol&)
{
    double len = length();
    if (len > 0.0)
        *this = *this / len;
    return *this;
}

AcGeVector2d& AcGeVector2d::rotateBy(double angle)
{
    double c = std::cos(angle), s = std::sin(angle);
    return set(x * c - y * s, x * s + y * c);
}

double AcGeVector2d::angle() const
{
    return acge_detail::normalizeAngle(std::atan2(y, x));
}

double AcGeVector2d::angleTo(const AcGeVector2d& v) const
{
    return std::atan2(std::fabs(x * v.y - y * v.x), dotProduct(v));
}

bool AcGeVector2d::isParallelTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    AcGeVector2d a = normal(), b = v.normal();
    return std::fabs(a.x * b.y - a.y * b.x) <= tol.equalVector();
}

bool AcGeVector2d::isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    return std::fabs(normal().dotProduct(v.normal())) <= tol.equalVector();
}

bool AcGeVector2d::isEqualTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    return std::fabs(x - v.x) <= tol.equalVector() && std::fabs(y - v.y) <= tol.equalVector();
}

double AcGePoint2d::distanceTo(const AcGePoint2d& p) const
{
    return (*this - p).length();
}

bool AcGePoint2d::isEqualTo(const AcGePoint2d& p, const AcGeTol& tol) const
{
    return distanceTo(p) <= tol.equalPoint();
}

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& center)
{
    AcGeVector2d v = *this - center;
    v.rotateBy(angle);
    return *this = center + v;
}
