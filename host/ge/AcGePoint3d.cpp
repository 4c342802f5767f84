// AcGePoint3d: distances, transformations and projections on planes.
#include "host/ge/AcGePoint3d.h"

#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"
#include "host/ge/AcGePoint2d.h"

const AcGePoint3d AcGePoint3d::kOrigin(0.0, 0.0, 0.0);

AcGePoint3d& AcGePoint3d::set(double xx, double yy, double zz)
{
    x = xx;
    y = yy;
    z = zz;
    return *this;
}

AcGePoint3d& AcGePoint3d::setToProduct(const AcGeMatrix3d& m, const AcGePoint3d& p)
{
    return *this = m * p;
}

AcGePoint3d& AcGePoint3d::setToSum(const AcGePoint3d& p, const AcGeVector3d& v)
{
    return *this = p + v;
}

double AcGePoint3d::distanceTo(const AcGePoint3d& p) const
{
    return (*this - p).length();
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& p, const AcGeTol& tol) const
{
    return distanceTo(p) <= tol.equalPoint();
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m)
{
    return *this = m * *this;
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    return transformBy(AcGeMatrix3d::rotation(angle, axis, center));
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& center)
{
    return *this = center + (*this - center) * factor;
}

AcGePoint3d& AcGePoint3d::mirror(const AcGePlane& plane)
{
    return *this = *this - plane.normal() * (2.0 * plane.signedDistanceTo(*this));
}

AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const
{
    return plane.closestPointTo(*this);
}

AcGePoint3d AcGePoint3d::project(const AcGePlane& plane, const AcGeVector3d& dir) const
{
    AcGePoint3d result;
    plane.project(*this, dir, result);
    return result;
}

AcGePoint2d AcGePoint3d::convert2d(const AcGePlane& plane) const
{
    return plane.paramOf(*this);
}
