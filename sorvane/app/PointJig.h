// MyPointJig: a point input that shows a construction line along the UCS x
// axis through the cursor, and GetPoint, its wrapper with ADS result codes.
#pragma once

#include "host/db/AcDbXline.h"
#include "host/ed/AcEdJig.h"

class MyPointJig : public AcEdJig {
public:
    // The line runs along xAxis (WCS); cursor is the special cursor shown.
    MyPointJig(const AcGeVector3d& xAxis, CursorType cursor);

    DragStatus sampler() override;
    Adesk::Boolean update() override;
    AcDbEntity* entity() const override;

    AcGePoint3d m_ptAcquired;  // WCS

private:
    mutable AcDbXline m_xline;
    CursorType m_cursor;
};

// Asks for a point with pszPrompt. iCursor: 0 no special cursor, 1 crosshair,
// 2 pickfirst-or-grips, 3 entity select, negative the default. RTNORM with the
// point (WCS); RTNONE on Enter; RTCAN on Esc; RTERROR for an empty or missing
// prompt, another cursor number, or a failed drag.
int GetPoint(AcGePoint3d& point, const wchar_t* pszPrompt, int iCursor);
