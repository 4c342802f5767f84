// Shared behaviour of curves: on-curve tests and distances through closestPointTo.
#include "host/ge/AcGeEntity3d.h"

bool AcGeCurve3d::isClosed(const AcGeTol&) const
{
    return false;
}

bool AcGeCurve3d::isOn(const AcGePoint3d& pt, const AcGeTol& tol) const
{
    return closestPointTo(pt, tol).distanceTo(pt) <= tol.equalPoint();
}

bool AcGeCurve3d::isOn(const AcGePoint3d& pt, double& param, const AcGeTol& tol) const
{
    if (!isOn(pt, tol))
        return false;
    param = paramOf(pt, tol);
    return true;
}

double AcGeCurve3d::distanceTo(const AcGePoint3d& pt, const AcGeTol& tol) const
{
    return closestPointTo(pt, tol).distanceTo(pt);
}
