// The current UCS and the conversions between world, user and display coordinates.
#include "host/ed/AcEdUcs.h"

#include <cmath>

#include "host/ed/EdCore.h"
#include "host/ge/geassign.h"

using namespace eded;

bool acdbUcsMatrix(AcGeMatrix3d& mat, AcDbDatabase*)
{
    const State& st = state();
    mat.setCoordSystem(st.ucsOrigin, st.ucsX, st.ucsY, st.ucsX.crossProduct(st.ucsY));
    return true;
}

bool acdbUcs2Wcs(const ads_point p, ads_point q, bool vec)
{
    AcGePoint3d r;
    if (vec) {
        const AcGeVector3d v = ucsToWcs(AcGeVector3d(p[0], p[1], p[2]));
        r = AcGePoint3d(v.x, v.y, v.z);
    } else {
        r = ucsToWcs(asPnt3d(p));
    }
    q[0] = r.x;
    q[1] = r.y;
    q[2] = r.z;
    return true;
}

bool acdbWcs2Ucs(const ads_point p, ads_point q, bool vec)
{
    AcGePoint3d r;
    if (vec) {
        const AcGeVector3d v = wcsToUcs(AcGeVector3d(p[0], p[1], p[2]));
        r = AcGePoint3d(v.x, v.y, v.z);
    } else {
        r = wcsToUcs(asPnt3d(p));
    }
    q[0] = r.x;
    q[1] = r.y;
    q[2] = r.z;
    return true;
}

bool acdbUcs2Wcs(const AcGePoint3d& p, AcGePoint3d& q)
{
    q = ucsToWcs(p);
    return true;
}

bool acdbWcs2Ucs(const AcGePoint3d& p, AcGePoint3d& q)
{
    q = wcsToUcs(p);
    return true;
}

namespace {
// 0 WCS, 1 UCS (2 and 3, display systems, are the WCS in the plan view); -1 unknown.
int SystemOf(const resbuf* rb)
{
    if (!rb)
        return -1;
    if (rb->restype == RTENAME)
        return 0;
    if (rb->restype != RTSHORT)
        return -1;
    switch (rb->resval.rint) {
    case 0:
    case 2:
    case 3:
        return 0;
    case 1:
        return 1;
    default:
        return -1;
    }
}
} // namespace

int acedTrans(const ads_point pt, const resbuf* from, const resbuf* to, int disp, ads_point result)
{
    const int a = SystemOf(from), b = SystemOf(to);
    if (a < 0 || b < 0 || !pt || !result)
        return RTERROR;
    ads_point tmp = {pt[0], pt[1], pt[2]};
    if (a == 1)
        acdbUcs2Wcs(tmp, tmp, disp != 0);
    if (b == 1)
        acdbWcs2Ucs(tmp, tmp, disp != 0);
    result[0] = tmp[0];
    result[1] = tmp[1];
    result[2] = tmp[2];
    return RTNORM;
}

bool acedSetCurrentUcs(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis)
{
    const double lx = xAxis.length();
    if (lx < 1e-12)
        return false;
    const AcGeVector3d x = xAxis * (1.0 / lx);
    AcGeVector3d y = yAxis - x * yAxis.dotProduct(x);
    const double ly = y.length();
    if (ly < 1e-12)
        return false;
    y = y * (1.0 / ly);
    State& st = state();
    st.ucsOrigin = origin;
    st.ucsX = x;
    st.ucsY = y;
    return true;
}

void acedSetWorldUcs()
{
    acedSetCurrentUcs(AcGePoint3d(), AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);
}

void acedGetCurrentUcs(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis)
{
    const State& st = state();
    origin = st.ucsOrigin;
    xAxis = st.ucsX;
    yAxis = st.ucsY;
}

bool acedIsWorldUcs()
{
    const State& st = state();
    return st.ucsOrigin.asVector().length() < 1e-12 && (st.ucsX - AcGeVector3d::kXAxis).length() < 1e-12 &&
           (st.ucsY - AcGeVector3d::kYAxis).length() < 1e-12;
}
