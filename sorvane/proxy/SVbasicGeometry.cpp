// SVdim: the geometry a chain needs from its first moment: appending
// extensions, the dimension line and the extension lines, the measured
// distances, the direction from the points, and moving the dimension line.
#include <cmath>

#include "proxy/SVbasic.h"
#include "proxy/Util.h"
#include "services/Trace.h"

void SVdim::FitRecords()
{
    const int nExt = GetExtensions();
    if (m_dimTexts.GetSize() != nExt)
        m_dimTexts.SetSize(nExt);
    if (m_extFlags.GetSize() != nExt)
        m_extFlags.SetSize(nExt);
}

int SVdim::AddPointInput(AcGePoint3d& point, bool bForce)
{
    const int nExt = GetExtensions();
    if (nExt >= 1)
        point = ProjectToPlane(point, GetPointDim(0), GetChainNormal());
    if (m_dimType != kArc && !bForce && nExt >= 1) {
        for (int i = 0; i < nExt; ++i) {
            if (PointToDimLine(point).distanceTo(GetPointDim(i)) > 0.0001)
                continue;
            if (nExt >= 2)
                return -1;
            // A single extension: the new one stands a hair beside it.
            point += m_vectorDim / 1e6;
        }
    }
    const int iNew = nExt;
    for (int k = 0; k < 4; ++k)
        m_points.append(point);
    if (m_dimTexts.GetSize() <= iNew)
        m_dimTexts.SetSize(iNew + 1);
    if (iNew + 1 < 3)
        return iNew;

    // A later point stands on the dimension line at once and takes its place
    // in the order; re-measuring its neighbours is the full re-measure's job.
    const AcGePoint3d ptDim = m_dimType == kArc ? point : PointToDimLine(point);
    m_points[4 * iNew + 1] = point;
    m_points[4 * iNew + 2] = ptDim;
    m_points[4 * iNew + 3] = ptDim;
    const int iPlaced = RearrangeExtensions(iNew);
    m_extFlags.InsertAt(iPlaced < m_extFlags.GetSize() ? iPlaced : m_extFlags.GetSize(), 0u);
    m_extFlags.SetSize(GetExtensions());
    return iPlaced;
}

AcGeLine3d SVdim::GetDimLine() const
{
    const AcGeVector3d vDir = m_vectorDim.length() > 0.0 ? m_vectorDim : m_xAxis;
    return AcGeLine3d(GetPointDim(0), vDir);
}

AcGePoint3d SVdim::PointToDimLine(const AcGePoint3d& point) const
{
    return GetDimLine().closestPointTo(point);
}

AcGeLine3d SVdim::GetLineExt(int iExt) const
{
    const AcGePoint3d ptInput = GetPointInput(iExt);
    if (m_dimType == kArc && m_arcPoints.length() > 3) {
        const AcGePoint3d ptCenter = m_arcPoints[3];
        if (!ptCenter.isEqualTo(AcGePoint3d::kOrigin)) {
            AcGePoint3d ptOn = ptInput;
            if (ptOn.distanceTo(ptCenter) < 0.001)
                ptOn.x += 1.0;
            return AcGeLine3d(ptCenter, ptOn);
        }
    }
    AcGeVector3d vExtend = m_vectorDim.crossProduct(m_zAxis);
    if (!vExtend.isPerpendicularTo(m_vectorDim))
        vExtend = m_vectorDim.crossProduct(AcGeVector3d::kZAxis);
    if (vExtend.length() == 0.0)
        vExtend = AcGeVector3d(0, 1, 0);
    return AcGeLine3d(ptInput, vExtend);
}

double SVdim::GetDistance(int iExt) const
{
    const int nExt = GetExtensions();
    if (nExt < 2)
        return 0.0;
    if (m_dimType == kArc && m_arcParams.length() == nExt && m_arcPoints.length() > 3) {
        const int i = iExt < 0 ? 0 : (iExt < nExt ? iExt : nExt - 1);
        const int j = i == 0 ? nExt - 1 : i - 1;
        const double dRadius = m_arcPoints[3].distanceTo(GetPointInput(0));
        return std::fabs(m_arcParams[i] - m_arcParams[j]) * dRadius;
    }
    int i = iExt < 1 ? 1 : iExt;
    if (i >= nExt)
        i = nExt - 1;
    return GetPointDim(i).distanceTo(GetPointDim(i - 1));
}

void SVdim::RecalcVectorDim()
{
    const int nExt = GetExtensions();
    if (nExt < 2)
        return;
    const AcGeVector3d vLine = GetPointDim(nExt - 1) - GetPointDim(0);
    if (vLine.length() == 0.0)
        return;
    const bool bUpgraded = isDatabaseResident() && !isWriteEnabled() && upgradeOpen() == Acad::eOk;
    m_dRotation = LineRotation(vLine);
    m_vectorDim = AcGeVector3d::kXAxis;
    m_vectorDim.rotateBy(m_dRotation, AcGeVector3d::kZAxis);
    if (bUpgraded)
        downgradeOpen();
}

int SVdim::ChangePointMainDim(AcGePoint3d& point, int iMode)
{
    const int nExt = GetExtensions();
    if (nExt < 2) {
        TraceF(L"\nChangePointMainDim: extensions=%d ", nExt);
        return 0;
    }
    const AcGePoint3d ptOldFirst = GetPointDim(0);
    if (m_dimType == kArc)
        ChangePointMainDimArc(point);
    else {
        point = ProjectToPlane(point, ptOldFirst, GetChainNormal());
        m_points[3] = point;
        const AcGeLine3d lineDim(point, m_vectorDim.length() > 0.0 ? m_vectorDim : m_xAxis);
        const bool bFixed = arrayInt.GetSize() > kIntExtLine && arrayInt[kIntExtLine] == 1;
        const double dLength = bFixed ? ToDrawing(arrayDouble[kDblExtLineLength]) : 0.0;
        for (int i = 0; i < nExt; ++i) {
            const AcGeLine3d lineExt = GetLineExt(i);
            AcGePoint3d ptDim;
            if (!IntersectLines(lineExt, lineDim, ptDim))
                continue;
            const AcGeVector3d vMove = ptDim - m_points[4 * i + 2];
            m_points[4 * i + 2] = ptDim;
            if (iMode != 0) {
                m_points[4 * i + 1] += vMove;
            } else if (bFixed) {
                // The extension line starts at its fixed length from the
                // dimension line, on the side of the measured point.
                AcGeVector3d vSide = m_points[4 * i] - ptDim;
                if (vSide.length() == 0.0)
                    vSide = lineExt.direction();
                m_points[4 * i + 1] = ptDim + vSide.normal() * dLength;
            }
        }
    }
    const AcGeVector3d vFirst = GetPointDim(0) - ptOldFirst;
    if (vFirst.length() > 0.0001)
        for (int i = 1; i < nExt; ++i)
            m_points[4 * i + 3] += vFirst;
    return 0;
}

int SVdim::RearrangeExtensions(int iExt)
{
    const int nExt = GetExtensions();
    if (m_dimType == kArc && iExt >= 0)
        MakeParamArray();
    const bool bArcKeys = m_dimType == kArc && m_arcParams.length() == nExt;
    AcGeVector3d vChainDir = m_vectorDim;
    WcsToChain(vChainDir);
    const bool bByY = iExt >= 0 && DegRound(LineRotation(vChainDir)) == 90;
    AcGeDoubleArray keys;
    for (int i = 0; i < nExt; ++i) {
        AcGePoint3d ptDim = m_points[4 * i + 2];
        WcsToChain(ptDim);
        keys.append(bArcKeys ? m_arcParams[i] : (bByY ? ptDim.y : ptDim.x));
    }
    bool bSorted = true;
    for (int i = 1; i < nExt && bSorted; ++i)
        bSorted = keys[i] >= keys[i - 1];
    if (bSorted)
        return iExt;

    for (INT_PTR t = 0; t < AppendTextList.GetSize(); ++t) {
        auto* pText = static_cast<CAppendTextObject*>(AppendTextList[t]);
        if (pText->iExt >= 0 && pText->iExt < nExt)
            pText->ptRef = m_points[4 * pText->iExt + 3];
    }
    // A restarting exchange sort: equal keys never swap, so it is stable.
    int iFollow = iExt;
    for (int k = 1; k < nExt;) {
        if (keys[k - 1] <= keys[k]) {
            ++k;
            continue;
        }
        // Slot 3 of extension 0 is the chain's reference text point and stays.
        for (int s = 0; s < 4; ++s) {
            if (k == 1 && s == 3)
                continue;
            const AcGePoint3d ptSwap = m_points[4 * k + s];
            m_points[4 * k + s] = m_points[4 * (k - 1) + s];
            m_points[4 * (k - 1) + s] = ptSwap;
        }
        const double dKey = keys[k];
        keys[k] = keys[k - 1];
        keys[k - 1] = dKey;
        if (bArcKeys) {
            const double dParam = m_arcParams[k];
            m_arcParams[k] = m_arcParams[k - 1];
            m_arcParams[k - 1] = dParam;
        }
        if (k > 1 && k < m_dimTexts.GetSize()) {
            const CString strSwap = m_dimTexts[k];
            m_dimTexts[k] = m_dimTexts[k - 1];
            m_dimTexts[k - 1] = strSwap;
        }
        if (iFollow == k)
            iFollow = k - 1;
        else if (iFollow == k - 1)
            iFollow = k;
        k = 1;
    }
    for (INT_PTR t = 0; t < AppendTextList.GetSize(); ++t) {
        auto* pText = static_cast<CAppendTextObject*>(AppendTextList[t]);
        for (int i = 0; i < nExt; ++i)
            if (m_points[4 * i + 3].isEqualTo(pText->ptRef)) {
                pText->iExt = i;
                break;
            }
    }
    return iFollow;
}
