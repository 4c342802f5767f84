// MyPointJig and GetPoint: a point input with a line along the UCS x axis
// through the cursor, answered with the ADS result codes.
#include "app/PointJig.h"

#include <iterator>

#include "host/db/adsdef.h"
#include "host/ed/AcEdUcs.h"
#include "host/ge/AcGeMatrix3d.h"
#include "services/Messages.h"

MyPointJig::MyPointJig(const AcGeVector3d& xAxis, CursorType cursor) : m_cursor(cursor)
{
    if (m_xline.setUnitDir(xAxis) != Acad::eOk)
        m_xline.setUnitDir(AcGeVector3d::kXAxis);
}

AcEdJig::DragStatus MyPointJig::sampler()
{
    setSpecialCursorType(m_cursor);
    setUserInputControls(static_cast<UserInputControls>(kNullResponseAccepted | kDontEchoCancelForCtrlC |
                                                        kDontUpdateLastPoint | kAccept3dCoordinates));
    const AcGePoint3d ptOld = m_ptAcquired;
    m_xline.setBasePoint(ptOld);
    DragStatus status;
    try {
        status = acquirePoint(m_ptAcquired);
    } catch (...) {
        MessageBoxText(L"Any problem on 'acquirePoint'...");
        status = kCancel;
    }
    if (status == kNormal && m_ptAcquired.isEqualTo(ptOld))
        return kNoChange;
    return status;
}

Adesk::Boolean MyPointJig::update()
{
    m_xline.setBasePoint(m_ptAcquired);
    return Adesk::kTrue;
}

AcDbEntity* MyPointJig::entity() const
{
    return &m_xline;
}

int GetPoint(AcGePoint3d& point, const wchar_t* pszPrompt, int iCursor)
{
    static const AcEdJig::CursorType kCursors[] = {AcEdJig::kNoSpecialCursor, AcEdJig::kCrosshair,
                                                   AcEdJig::kPkfirstOrGrips, AcEdJig::kEntitySelect};
    if (!pszPrompt || !*pszPrompt)
        return RTERROR;
    if (iCursor >= static_cast<int>(std::size(kCursors)))
        return RTERROR;
    const AcEdJig::CursorType cursor = iCursor < 0 ? AcEdJig::kNoSpecialCursor : kCursors[iCursor];

    AcGeMatrix3d ucs;
    acdbUcsMatrix(ucs);
    AcGePoint3d origin;
    AcGeVector3d xAxis, yAxis, zAxis;
    ucs.getCoordSystem(origin, xAxis, yAxis, zAxis);

    MyPointJig jig(xAxis, cursor);
    jig.setDispPrompt(L"%s", pszPrompt);
    AcEdJig::DragStatus status;
    try {
        status = jig.drag();
    } catch (...) {
        MessageBoxText(L"Any problem on f. drag...");
        return RTCAN;
    }
    switch (status) {
    case AcEdJig::kNormal:
    case AcEdJig::kOther:
        point = jig.m_ptAcquired;
        return RTNORM;
    case AcEdJig::kCancel:
    case AcEdJig::kNoChange:
        return RTCAN;
    case AcEdJig::kNull:
        return RTNONE;
    default:
        return status < 0 ? RTERROR : RTCAN;
    }
}
