// The whole geometry library in one include.
#pragma once

#include "host/ge/AcGeArrays.h"
#include "host/ge/AcGeCircArc2d.h"
#include "host/ge/AcGeCircArc3d.h"
#include "host/ge/AcGeEntity3d.h"
#include "host/ge/AcGeEnums.h"
#include "host/ge/AcGeLinearEnt3d.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeScale3d.h"
#include "host/ge/AcGeTol.h"
#include "host/ge/AcGeVector2d.h"
#include "host/ge/AcGeVector3d.h"
