// The geometry library's array types.
#pragma once

#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector2d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/rx/AcArray.h"

using AcGePoint3dArray = AcArray<AcGePoint3d>;
using AcGeVector3dArray = AcArray<AcGeVector3d>;
using AcGePoint2dArray = AcArray<AcGePoint2d>;
using AcGeVector2dArray = AcArray<AcGeVector2d>;
using AcGeDoubleArray = AcArray<double>;
using AcGeIntArray = AcArray<int>;
