// The current user coordinate system and conversions between world (WCS 0), user (UCS 1)
// and display (DCS 2) coordinates. The display is a plan view of the WCS here, so DCS
// equals WCS.
#pragma once

#include "host/db/adsdef.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"

class AcDbDatabase;

// The UCS-to-WCS matrix of the current UCS. Returns true.
bool acdbUcsMatrix(AcGeMatrix3d& mat, AcDbDatabase* db = nullptr);
// Point conversions (in place allowed). Return true.
bool acdbUcs2Wcs(const ads_point p, ads_point q, bool vec);
bool acdbWcs2Ucs(const ads_point p, ads_point q, bool vec);
bool acdbUcs2Wcs(const AcGePoint3d& p, AcGePoint3d& q);
bool acdbWcs2Ucs(const AcGePoint3d& p, AcGePoint3d& q);
// from/to: a resbuf RTSHORT 0 WCS, 1 UCS, 2 DCS, 3 PSDCS (as DCS), or RTENAME (the
// entity's coordinate system: WCS here). disp nonzero converts a vector. RTNORM, or
// RTERROR for an unknown code.
int acedTrans(const ads_point pt, const resbuf* from, const resbuf* to, int disp, ads_point result);

// Sets the current UCS: origin and axes in WCS. The axes are normalised; a y axis not
// perpendicular to x is made so. False (nothing changed) for parallel or zero axes.
bool acedSetCurrentUcs(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis);
void acedSetWorldUcs();
void acedGetCurrentUcs(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis);
bool acedIsWorldUcs();
