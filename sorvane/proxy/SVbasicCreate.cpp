// SVdim: the working constructor. A new chain gets its coordinate system, its
// direction and rotation, its parameters, and two extension lines with the
// dimension line through the given point.
#include <cmath>
#include <memory>

#include "host/db/AcDbCircle.h"
#include "host/db/AcDbCurve.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/ed/acedads.h"
#include "host/ge/geassign.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "services/Trace.h"

SVdim::SVdim(const AcGePoint3d& pt1, const AcGePoint3d& pt2, const AcGePoint3d& ptDim, int iType,
             const AcGeVector3d* pVectorDim, AcDbObjectId arcId, int iArcSegment, const AcGeMatrix3d* pMatrix)
    : SVdim()
{
    AcGePoint3d point1 = pt1;
    AcGePoint3d point2 = pt2;
    m_dimType = iType;
    StoreCoordSystem(pMatrix);
    if (!arcId.isNull()) {
        m_arcObjectId = arcId;
        m_arcSegment = static_cast<Adesk::UInt32>(iArcSegment);
    }
    InitDirection(point1, point2, pVectorDim, pMatrix == nullptr);

    Initialize(0);
    setDatabaseDefaults();

    const bool bArc = m_dimType == kArc;
    if (bArc)
        InitArcSource(point1, point2);
    const bool bCircleMark =
        bArc && arrayInt.GetSize() > kIntArcInputIsCircle && arrayInt[kIntArcInputIsCircle] && point1.isEqualTo(point2);

    const int iFirst = AddPointInput(point1, true);
    if (iFirst >= 0) {
        AcGePoint3d ptFirstDim = ptDim;
        if (bCircleMark)
            ptFirstDim = point1 + AcGeVector3d(0.05, 0, 0);
        else
            ptFirstDim = PointToDimLine(ptFirstDim);
        m_points[4 * iFirst + 2] = ptFirstDim;
        m_points[3] = ptFirstDim;
    }
    AddPointInput(point2, true);
    if (bArc) {
        m_arcPoints[4] = GetPointDim(0);
        m_arcPoints[6] = GetPointDim(1);
        if (bCircleMark || (arrayInt.GetSize() > kIntArcInputIsCircle && arrayInt[kIntArcInputIsCircle])) {
            arrayInt[kIntArcMinPoint] = 0;
            arrayInt[kIntArcMaxPoint] = 1;
        }
    }
    FitRecords();
    AcGePoint3d ptLine = ptDim;
    ChangePointMainDim(ptLine, 0);
    RearrangeExtensions(0);
}

void SVdim::InitDirection(const AcGePoint3d& pt1, const AcGePoint3d& pt2, const AcGeVector3d* pVectorDim,
                          bool bAskObject)
{
    if (pVectorDim) {
        m_vectorDim = *pVectorDim;
        m_dRotation = LineRotation(m_vectorDim);
        return;
    }
    if (m_dimType == kAligned) {
        AcGePoint3d ptFrom = pt1;
        AcGePoint3d ptTo = pt2;
        if (bAskObject)
            PickAlignment(ptFrom, ptTo);
        AcGeVector3d vLine = ptTo - ptFrom;
        if (vLine.length() == 0.0)
            vLine = m_xAxis;
        m_dRotation = LineRotation(vLine);
        m_vectorDim = AcGeVector3d::kXAxis;
        m_vectorDim.rotateBy(m_dRotation, AcGeVector3d::kZAxis);
        return;
    }
    // Types 0 and 1 (and arc chains, which start like type 0) follow the x axis.
    double dRotation = 0.0;
    const double dAxis = m_xAxis.angleTo(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    if (dAxis != 0.0) {
        dRotation = kTwoPi - dAxis;
        if (DegRound(dRotation) > 180)
            dRotation -= kPi;
    }
    if (m_dimType == kVertical)
        dRotation += kHalfPi;
    m_vectorDim = AcGeVector3d::kXAxis;
    m_vectorDim.rotateBy(dRotation, AcGeVector3d::kZAxis);
    if (m_dimType == kVertical) {
        if (DegRound(dRotation) == 90)
            m_vectorDim = AcGeVector3d(0, 1, 0);
        else if (DegRound(dRotation) > 180) {
            dRotation -= kPi;
            m_vectorDim = AcGeVector3d::kXAxis;
            m_vectorDim.rotateBy(dRotation, AcGeVector3d::kZAxis);
        }
    }
    m_dRotation = SnapAngle(dRotation);
}

BOOL SVdim::PickAlignment(AcGePoint3d& ptFrom, AcGePoint3d& ptTo) const
{
    ads_name ename;
    ads_point ptPick;
    ads_matrix xform;
    if (acedNEntSelP(L"\nObjekt zur Ausrichtung der Maßkette zeigen:", ename, ptPick, 0, xform, nullptr) != RTNORM)
        return FALSE;
    AcDbObjectId id;
    AcDbEntity* pEnt = nullptr;
    if (acdbGetObjectId(id, ename) != Acad::eOk || acdbOpenAcDbEntity(pEnt, id, AcDb::kForRead) != Acad::eOk)
        return FALSE;
    BOOL bFound = FALSE;
    if (SVdim* pChain = SVdim::cast(pEnt)) {
        if (pChain->GetExtensions() >= 2) {
            ptFrom = pChain->GetPointDim(0);
            ptTo = pChain->GetPointDim(1);
            bFound = TRUE;
        }
    } else if (AcDbPolyline* pPline = AcDbPolyline::cast(pEnt)) {
        AcGePoint3d ptWcs;
        acdbUcs2Wcs(asPnt3d(ptPick), ptWcs);
        double dUnits = pGlobDimOptions ? pGlobDimOptions->GetSet(kModeLinear).arrayDouble[kDblAcadUnits] : 0.0;
        if (dUnits == 0.0)
            dUnits = 0.001;
        const unsigned int nVerts = pPline->numVerts();
        const unsigned int nSegs = pPline->isClosed() ? nVerts : (nVerts > 0 ? nVerts - 1 : 0);
        // The pick box grows until a segment lies within it.
        for (int k = 1; k <= 100 && !bFound; ++k) {
            const double dTol = 75.0 * dUnits * k;
            for (unsigned int i = 0; i < nSegs && !bFound; ++i) {
                AcGePoint3d ptA, ptB;
                pPline->getPointAt(i, ptA);
                pPline->getPointAt((i + 1) % nVerts, ptB);
                if (ptA.isEqualTo(ptB))
                    continue;
                if (AcGeLineSeg3d(ptA, ptB).distanceTo(ptWcs) <= dTol) {
                    ptFrom = ptA;
                    ptTo = ptB;
                    bFound = TRUE;
                }
            }
        }
    }
    pEnt->close();
    return bFound;
}

void SVdim::InitArcSource(AcGePoint3d& pt1, AcGePoint3d& pt2)
{
    m_arcPoints.setLogicalLength(7);
    std::unique_ptr<AcGeCircArc3d> pArc(GetArcInput(false));
    const bool bCircle = arrayInt.GetSize() > kIntArcInputIsCircle && arrayInt[kIntArcInputIsCircle];
    if (pArc && !bCircle && pArc->paramOf(pt1) > pArc->paramOf(pt2)) {
        const AcGePoint3d ptSwap = pt1;
        pt1 = pt2;
        pt2 = ptSwap;
    }
    if (bCircle && pt1.isEqualTo(pt2) && arrayInt.GetSize() > kIntArcAsCircle)
        arrayInt[kIntArcAsCircle] = 1;
    m_arcPoints[4] = pt1;
    m_arcPoints[6] = pt2;
}
