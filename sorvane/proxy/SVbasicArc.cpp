// SVdim: the source curve of an arc chain, the curve parameters of its
// points, and the dimension arc through a given point.
#include <cmath>
#include <memory>

#include "host/db/AcDbCircle.h"
#include "host/db/AcDbCurve.h"
#include "host/db/AcDbOpen.h"
#include "proxy/SVbasic.h"
#include "proxy/Util.h"
#include "services/Trace.h"

AcDbCurve* SVdim::GetDbArcInput() const
{
    if (m_arcObjectId.isNull() || !m_arcObjectId.isValid())
        return nullptr;
    AcDbObject* pObj = nullptr;
    const Acad::ErrorStatus es = acdbOpenObject(pObj, m_arcObjectId, AcDb::kForRead);
    if (es != Acad::eOk) {
        TraceF(L"\nGetDbArcInput: es=%d ", static_cast<int>(es));
        return nullptr;
    }
    AcDbCurve* pCurve = AcDbCurve::cast(pObj);
    if (!pCurve)
        pObj->close();
    return pCurve;
}

AcGeCircArc3d* SVdim::GetArcInput(bool bFull)
{
    const bool bFlag = arrayInt.GetSize() > kIntArcInputIsCircle;
    if (bFlag)
        arrayInt[kIntArcInputIsCircle] = 0;
    AcGeCircArc3d* pArc = nullptr;
    bool bCircle = false;
    if (AcDbCurve* pCurve = GetDbArcInput()) {
        bCircle = AcDbCircle::cast(pCurve) != nullptr;
        pArc = Curve2GeArc(pCurve, static_cast<int>(m_arcSegment));
        const int nExt = GetExtensions();
        if (!pArc && nExt >= 1)
            pArc = Curve2GeArc(pCurve, GetPointInput(0), GetPointInput(nExt - 1));
        pCurve->close();
    }
    if (bFlag && bCircle)
        arrayInt[kIntArcInputIsCircle] = 1;

    const int nExt = GetExtensions();
    if (!pArc && nExt >= 1) {
        // No source: a fictive arc about the crossing of the outer extension lines.
        const AcGePoint3d ptFirst = m_points[0];
        const AcGePoint3d ptLast = m_points[4 * (nExt - 1)];
        AcGePoint3d ptCenter;
        const AcGeVector3d vA = m_points[2] - ptFirst;
        const AcGeVector3d vB = m_points[4 * (nExt - 1) + 2] - ptLast;
        if (vA.length() == 0.0 || vB.length() == 0.0 || vA.isParallelTo(vB) ||
            !IntersectLines(AcGeLine3d(ptFirst, vA), AcGeLine3d(ptLast, vB), ptCenter))
            ptCenter = ptFirst + (ptLast - ptFirst) / 2.0;
        double dRadius = ptCenter.distanceTo(ptFirst);
        if (dRadius == 0.0)
            dRadius = ptFirst.distanceTo(m_points[2]) + 0.0001;
        const AcGeVector3d vNormal = GetChainNormal();
        AcGeVector3d vRef = ptFirst - ptCenter;
        if (vRef.length() == 0.0)
            vRef = vNormal.perpVector();
        const double dEnd = (ptLast - ptCenter).length() > 0.0 ? vRef.angleTo(ptLast - ptCenter, vNormal) : 0.0;
        pArc = new AcGeCircArc3d(ptCenter, vNormal, vRef, dRadius, 0.0, dEnd > 0.0 ? dEnd : kTwoPi);
    }
    if (!pArc)
        return nullptr;
    if (bCircle) {
        pArc->set(pArc->center(), pArc->normal(), pArc->radius());
        const int iMin = arrayInt.GetSize() > kIntArcMinPoint ? static_cast<int>(arrayInt[kIntArcMinPoint]) : -1;
        if (iMin >= 0 && iMin < nExt) {
            const AcGeVector3d vRef = m_points[4 * iMin] - pArc->center();
            if (vRef.length() > 0.0)
                pArc->setAxes(pArc->normal(), vRef);
        }
    } else if (bFull) {
        const double dGrow = (kTwoPi - std::fabs(pArc->endAng() - pArc->startAng())) / 2.0;
        pArc->setAngles(pArc->startAng() - dGrow, pArc->endAng() + dGrow);
    }
    if (m_arcPoints.length() < 7)
        m_arcPoints.setLogicalLength(7);
    m_arcPoints[3] = pArc->center();
    return pArc;
}

int SVdim::MakeParamArray()
{
    if (m_dimType != kArc) {
        m_arcParams.setLogicalLength(0);
        return 0;
    }
    if (m_arcPoints.length() < 7)
        m_arcPoints.setLogicalLength(7);
    const int nExt = GetExtensions();
    const bool bCircle = arrayInt.GetSize() > kIntArcInputIsCircle && arrayInt[kIntArcInputIsCircle];
    if (bCircle) {
        if (static_cast<int>(arrayInt[kIntArcMaxPoint]) > nExt - 1 && nExt > 0) {
            arrayInt[kIntArcMaxPoint] = static_cast<UINT>(nExt - 1);
            m_arcPoints[2] = m_points[4 * (nExt - 1) + 2];
            m_arcPoints[6] = m_points[4 * (nExt - 1)];
        }
    } else if (arrayInt.GetSize() > kIntArcMaxPoint) {
        arrayInt[kIntArcMinPoint] = 0;
        arrayInt[kIntArcMaxPoint] = 0;
    }
    m_arcParams.setLogicalLength(nExt);
    for (int i = 0; i < nExt; ++i)
        m_arcParams[i] = 0.0;
    std::unique_ptr<AcGeCircArc3d> pArc(GetArcInput(false));
    if (!pArc)
        return 0;
    const bool bCircleNow = arrayInt.GetSize() > kIntArcInputIsCircle && arrayInt[kIntArcInputIsCircle];
    const double dStart = pArc->startAng();
    const double dEnd = pArc->endAng();
    const double dLo = dStart < dEnd ? dStart : dEnd;
    const double dHi = dStart < dEnd ? dEnd : dStart;
    for (int i = 0; i < nExt; ++i) {
        const AcGePoint3d ptInput = m_points[4 * i];
        double dTol = 0.001;
        for (int k = 0; k < 100 && !pArc->isOn(ptInput, AcGeTol(dTol, dTol)); ++k)
            dTol *= 2.0;
        double dParam = pArc->paramOf(ptInput, AcGeTol(dTol, dTol));
        if (bCircleNow) {
            if (std::fabs(dParam - dEnd) < 1e-6)
                dParam = 0.0;
        } else {
            if (dParam <= dLo) {
                dParam = dLo;
                arrayInt[kIntArcMinPoint] = 1;
            }
            if (dParam >= dHi) {
                dParam = dHi;
                arrayInt[kIntArcMaxPoint] = 1;
            }
        }
        m_arcParams[i] = dParam;
    }
    return 1;
}

void SVdim::ChangePointMainDimArc(AcGePoint3d& point)
{
    std::unique_ptr<AcGeCircArc3d> pArc(GetArcInput(false));
    if (!pArc)
        return;
    const AcGePoint3d ptCenter = pArc->center();
    if (point.distanceTo(ptCenter) < 0.01)
        point.x += 0.05;
    m_points[2] = point;
    double dRadius = point.distanceTo(ptCenter);
    if (dRadius < 0.001)
        dRadius = 0.05;
    const int nExt = GetExtensions();
    for (int i = 0; i < nExt; ++i) {
        const AcGeVector3d vRadial = m_points[4 * i] - ptCenter;
        if (vRadial.length() == 0.0)
            continue;
        m_points[4 * i + 2] = ptCenter + vRadial.normal() * dRadius;
        // The extension line starts at the measured point only when asked to.
        const bool bAtInput = arrayInt.GetSize() > kIntExtLine && arrayInt[kIntExtLine] == 2;
        m_points[4 * i + 1] = bAtInput ? m_points[4 * i] : m_points[4 * i + 2];
    }
    MakeParamArray();
    m_arcPoints[0] = m_points[2];
    m_arcPoints[2] = m_points[4 * (nExt - 1) + 2];
    m_arcPoints[3] = ptCenter;
    m_arcPoints[4] = m_points[0];
    m_arcPoints[6] = m_points[4 * (nExt - 1)];
}
