// SVdimJig: the dimension line follows the cursor until a click places it
// (or picks a chain to hang the new one from); then each click adds a point.
#include "app/DimJig.h"

#include <cmath>

#include "app/MessageFilter.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdInput.h"
#include "host/ed/AcEdUcs.h"
#include "host/ed/AcEdWindow.h"
#include "host/ge/geassign.h"
#include "host/rx/acutPrintf.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "services/Messages.h"
#include "services/Trace.h"

int iLastClickX = -1;
int iLastClickY = -1;

namespace {

constexpr int kIntAutoPosition = 11;
constexpr int kDblDimLineDist = 13;
constexpr int kAdjustRegenerated = 82;  // AdjustTexts: texts of a freshly measured chain
constexpr int kTextPosAuto = -8;
constexpr double kFollowOffset = 0.01;  // the new point starts this far along the chain

bool bClickSeen = false;

} // namespace

bool ClickRecorder(MSG* pMsg)
{
    if (pMsg && pMsg->message == WM_LBUTTONDOWN) {
        iLastClickX = pMsg->pt.x;
        iLastClickY = pMsg->pt.y;
        bClickSeen = true;
    }
    return false;
}

void ArmClickRecorder()
{
    iLastClickX = iLastClickY = -1;
    bClickSeen = false;
    acedRegisterFilterWinMsg(ClickRecorder);
}

void DisarmClickRecorder()
{
    acedRemoveFilterWinMsg(ClickRecorder);
}

bool HasRecordedClick()
{
    return bClickSeen;
}

int TakeLineFromPickedChain(SVdim* pSVdim, const POINT& pixel, AcGePoint3d& ptResult)
{
    if (!pSVdim)
        return 0;
    const AcDbObjectId id = GetObjectAtPixel(pixel);
    if (id.isNull())
        return 0;
    SVdim* pPicked = nullptr;
    if (acdbOpenObject(pPicked, id, AcDb::kForRead) != Acad::eOk || !pPicked)
        return 0;
    // The parallel line and the side question belong to the chain itself.
    const BOOL bDone = pSVdim->GetOffsetDimPoint(pPicked);
    pPicked->close();
    if (!bDone)
        return 0;
    ptResult = pSVdim->GetPointDim(0);
    return 1;
}

// --- the jig ----------------------------------------------------------------------

SVdimJig::SVdimJig(const AcGePoint3d& pt1, const AcGePoint3d& pt2, int iType, AcDbObjectId arcId,
                   int iArcSegment)
{
    AcGePoint3d ptMid = pt1 + (pt2 - pt1) * 0.5;
    m_pSVdim = new SVdim(pt1, pt2, ptMid, iType, nullptr, arcId, iArcSegment);
    if (iType != SVdim::kArc) {
        m_pSVdim->ChangePointMainDim(ptMid);
        m_pSVdim->AdjustTexts(kAdjustRegenerated);
    }
}

SVdimJig::~SVdimJig()
{
    delete m_pSVdim;
}

AcDbEntity* SVdimJig::entity() const
{
    return m_pSVdim;
}

Adesk::Boolean SVdimJig::update()
{
    return AcEdJig::update();
}

double SVdimJig::DimLineDist() const
{
    if (!m_pSVdim || m_pSVdim->arrayDouble.GetSize() <= kDblDimLineDist)
        return 0.0;
    return m_pSVdim->arrayDouble[kDblDimLineDist];
}

void SVdimJig::SetPlacementPrompt()
{
    const SVdim* p = m_pSVdim;
    const bool bArc = p->m_dimType == SVdim::kArc;
    const bool bLeader = bArc && p->arrayInt.GetSize() > SVdim::kIntArcAsCircle &&
                         p->arrayInt[SVdim::kIntArcAsCircle] && p->GetExtensions() <= 2 &&
                         p->GetPointInput(0).isEqualTo(p->GetPointInput(1));
    // NaN counts as set: the comparison with 0 is false.
    const bool bKeyword = !bArc && !(DimLineDist() == 0.0);
    if (bLeader)
        setDispPrompt(L"\nEndpunkt der Führungslinie:");
    else if (bKeyword)
        setDispPrompt(L"\nMaßkette wählen oder die Position der Maßlinie bestimmen oder [Lagepunkt]:  ");
    else
        setDispPrompt(L"\nMaßkette wählen oder die Position der Maßlinie bestimmen: ");
    // The editor reads the keywords when the drag starts, before any sample.
    setKeywordList(bKeyword ? L"Lagepunkt,L L" : L"");
}

bool SVdimJig::dragAcquire()
{
    if (!m_pSVdim)
        return false;
    bool bDone = false, bAppend = false, bFollowing = false;
    DragStatus status = kCancel;
    while (!bDone && m_pSVdim->GetExtensions() < kMaxPoints) {
        if (!m_bPlaced) {
            SetPlacementPrompt();
            ArmClickRecorder();
        } else {
            AcGePoint3d ptNew = m_ptAcquired + m_pSVdim->m_vectorDim * kFollowOffset;
            const int iNew = m_pSVdim->AddPointInput(ptNew, true);
            if (iNew < 0)
                break;
            m_iPointIndex = iNew;
            bFollowing = true;
            setKeywordList(L"");
            setDispPrompt(L"\n%d. Maßpunkt: ", m_pSVdim->GetExtensions());
        }
        try {
            status = drag();
        } catch (...) {
            MessageBoxText(L"Any problem on f. drag...");
            status = kCancel;
        }
        if (!m_bPlaced) {
            DisarmClickRecorder();
            if (status == kNormal && HasRecordedClick()) {
                AcGePoint3d ptLine;
                if (TakeLineFromPickedChain(m_pSVdim, POINT{iLastClickX, iLastClickY}, ptLine))
                    m_ptAcquired = ptLine;
            }
        }
        if (status != kNormal) {
            if (m_bPlaced)
                break;
            bDone = true;
            continue;
        }
        bFollowing = false;  // the click fixed it
        m_bPlaced = 1;
        bAppend = true;
        if (m_pSVdim->m_dimType == SVdim::kArc)
            bDone = true;  // arc chains take further points from the menu
    }
    if (bFollowing)
        m_pSVdim->RemoveDimExt(m_iPointIndex);
    Finish(bAppend);
    return status == kNormal || status == kOther;
}

void SVdimJig::Finish(bool bAppend)
{
    SVdim* p = m_pSVdim;
    p->RemoveEmptySegments();
    p->RemoveEmptySegments();
    p->Regenerate(-1);
    if (p->m_dimType == SVdim::kArc) {
        for (int i = 0; i < 2; ++i) {
            AcGePoint3d pt = p->GetPointInput(i);
            p->SetPointInput(i, pt);
        }
    } else if (pGlobDimOptions && pGlobDimOptions->GetOptInt(kIntAutoPosition) && p->GetExtensions() >= 2) {
        for (int i = 1; i < p->GetExtensions(); ++i)
            p->SetDimTextPos(i, kTextPosAuto);
    }
    p->AdjustTexts(kAdjustRegenerated);
    if (bAppend) {
        try {
            m_dimObjId = append();
        } catch (...) {
            acutPrintf(L"\n******* PROBLEM ON APPEND *******");
        }
        if (m_dimObjId.isNull())
            delete p;  // not taken by the drawing
    } else {
        delete p;
    }
    m_pSVdim = nullptr;
}

AcEdJig::DragStatus SVdimJig::sampler()
{
    if (!m_pSVdim)
        return kCancel;
    const bool bArc = m_pSVdim->m_dimType == SVdim::kArc;
    bool bKeyword = false;
    if (m_bPlaced) {
        setSpecialCursorType(kCrosshair);
    } else if (!bArc) {
        setSpecialCursorType(kPkfirstOrGrips);
        bKeyword = !(DimLineDist() == 0.0);
        if (bKeyword)
            setKeywordList(L"Lagepunkt,L L");
    }
    int iControls = kNullResponseAccepted | kDontUpdateLastPoint | kAccept3dCoordinates;
    if (bKeyword)
        iControls |= kAcceptOtherInputString;
    setUserInputControls(static_cast<UserInputControls>(iControls));

    const AcGePoint3d ptOld = m_ptAcquired;
    DragStatus status;
    try {
        status = acquirePoint(m_ptAcquired, ptOld);
    } catch (...) {
        MessageBoxText(L"Any problem on 'acquirePoint'...");
        status = kCancel;
    }
    if (status >= kKW2 && status <= kKW9)
        status = kKW1;
    if (status != kNormal && status != kKW1)
        return status;
    if (status != kKW1 && m_ptAcquired.isEqualTo(ptOld))
        return kNoChange;

    if (m_bPlaced) {
        const int iNew = m_pSVdim->SetPointInput(m_iPointIndex, m_ptAcquired, 0);
        if (iNew >= 0)
            m_iPointIndex = iNew;
        return status;
    }
    if (status == kKW1) {
        status = AskPositionPoint();
        if (status != kNormal)
            return status;
    }
    m_pSVdim->ChangePointMainDim(m_ptAcquired, 0);
    if (bArc) {
        for (int i = 1; i >= 0; --i) {
            AcGePoint3d pt = m_pSVdim->GetPointInput(i);
            m_pSVdim->SetPointInput(i, pt, 1);
        }
    }
    return status;
}

AcEdJig::DragStatus SVdimJig::AskPositionPoint()
{
    ads_point a = {0, 0, 0}, b = {0, 0, 0};
    if (acedGetPoint(nullptr, L"\n Lagepunkt:", a) != RTNORM)
        return kCancel;
    if (acedGetPoint(a, L"\n Maßkette plazieren:", b) != RTNORM)
        return kCancel;
    AcGeVector3d vAcross = m_pSVdim->m_vectorDim;
    vAcross.rotateBy(SVdim::kHalfPi, m_pSVdim->GetChainNormal());
    vAcross *= m_pSVdim->ToDrawing(DimLineDist());
    AcGePoint3d ptA, ptB;
    acdbUcs2Wcs(asPnt3d(a), ptA);
    acdbUcs2Wcs(asPnt3d(b), ptB);
    // The line keeps the fixed distance on the side the second point shows.
    m_ptAcquired = ptA + vAcross;
    if ((ptA - vAcross).distanceTo(ptB) < m_ptAcquired.distanceTo(ptB))
        m_ptAcquired = ptA - vAcross;
    return kNormal;
}
