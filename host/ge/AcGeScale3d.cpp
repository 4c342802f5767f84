// AcGeScale3d: comparison and conversion to and from matrices.
#include "host/ge/AcGeScale3d.h"

#include "host/ge/AcGeMatrix3d.h"

#include <cmath>

const AcGeScale3d AcGeScale3d::kIdentity(1.0, 1.0, 1.0);

bool AcGeScale3d::isEqualTo(const AcGeScale3d& s, const AcGeTol& tol) const
{
    double e = tol.equalVector();
    return std::fabs(sx - s.sx) <= e && std::fabs(sy - s.sy) <= e && std::fabs(sz - s.sz) <= e;
}

bool AcGeScale3d::isProportional(const AcGeTol& tol) const
{
    double e = tol.equalVector();
    return std::fabs(sx - sy) <= e && std::fabs(sx - sz) <= e;
}

AcGeMatrix3d& AcGeScale3d::getMatrix(AcGeMatrix3d& m) const
{
    return m.setToScaling(*this);
}

AcGeScale3d& AcGeScale3d::extractScale(const AcGeMatrix3d& m)
{
    for (int c = 0; c < 3; ++c)
        (*this)[c] = AcGeVector3d(m.entry[0][c], m.entry[1][c], m.entry[2][c]).length();
    return *this;
}
