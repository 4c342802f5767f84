// asPnt3d: a point given as three doubles (an ads_point, a resbuf's rpoint) as a geometry point.
#pragma once

#include "host/ge/AcGePoint3d.h"

// By value: the three doubles are copied, so the array may go away afterwards.
inline AcGePoint3d asPnt3d(const double* p)
{
    return AcGePoint3d(p[0], p[1], p[2]);
}
