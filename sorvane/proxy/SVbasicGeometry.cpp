// SVdim: the geometry of the points. Adding and re-measuring extensions, the
// start of the extension lines, moving the dimension line, and the sides.
#include <cmath>
#include <stdexcept>

#include "host/mfc/AfxMessageBox.h"
#include "host/mfc/CException.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "proxy/Util.h"
#include "services/Trace.h"

namespace {

constexpr int kDblExtendBeyondDimLine = 5;
constexpr int kDblOffsetFromOrigin = 11;
constexpr int kOptAutoPosition = 11;
constexpr int kAutoTextPos = -8;

bool Between90And180(double dAngle)
{
    const double dDeg = SVdim::DegRound(dAngle);
    return dDeg > 90 && dDeg < 180;
}

}  // namespace

void SVdim::FitRecords()
{
    const int nExt = GetExtensions();
    if (m_dimTexts.GetSize() != nExt)
        m_dimTexts.SetSize(nExt);
    if (m_extFlags.GetSize() != nExt)
        m_extFlags.SetSize(nExt);
}

double SVdim::GlobalDouble(int iIndex) const
{
    if (pGlobDimOptions) {
        const CParamSet& set = pGlobDimOptions->GetSet(kModeLinear);
        if (iIndex < set.arrayDouble.GetSize())
            return set.arrayDouble[iIndex];
    }
    return iIndex < arrayDouble.GetSize() ? arrayDouble[iIndex] : 0.0;
}

int SVdim::GlobalOptInt(int iIndex)
{
    return pGlobDimOptions ? pGlobDimOptions->GetOptInt(iIndex) : 0;
}

int SVdim::ParamInt(int iIndex) const
{
    return iIndex < arrayInt.GetSize() ? static_cast<int>(arrayInt[iIndex]) : 0;
}

bool SVdim::IsExtFixed() const
{
    return ParamInt(kIntExtLine) == 1;
}

AcGePoint3d SVdim::FixedExtStart(const AcGePoint3d& ptDim, double dAngle, int iSign, int iSide,
                                 double dLength) const
{
    AcGeVector3d vOffset(std::sin(dAngle) * iSide * dLength, -std::cos(dAngle) * iSign * iSide * dLength, 0.0);
    ChainToWcs(vOffset);
    if (iSign < 0)
        vOffset = -vOffset;
    return ptDim + vOffset;
}

AcGeVector3d SVdim::TowardsInput(int iExt, double dAngle) const
{
    const AcGeVector3d vLine = m_points[4 * iExt] - m_points[4 * iExt + 2];
    if (vLine.length() > 1e-9)
        return vLine.normal();
    // An input point on the dimension line counts as lying above it.
    AcGeVector3d vUp(-std::sin(dAngle), std::cos(dAngle), 0.0);
    ChainToWcs(vUp);
    return vUp.normal();
}

// --- lines and distances ---------------------------------------------------------

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
    const int nExt = GetExtensions();
    const int i = std::abs(iExt);
    const AcGePoint3d ptInput = i < nExt ? m_points[4 * i] : AcGePoint3d::kOrigin;
    // Arc chains: the radial line. The full rule (centre from the source when
    // none is stored) comes with the arc forms.
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
    if (!vExtend.isPerpendicularTo(m_vectorDim) || vExtend.length() == 0.0)
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
    // Arc chains: measured along the arc; the full form comes with the arc forms.
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
    double dRotation = kPi - vLine.angleTo(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    const double dReverse = kPi - (-vLine).angleTo(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    if (dReverse < dRotation)
        dRotation = dReverse;
    SnapAngle(dRotation);
    if (dRotation < 0.0)
        dRotation += kTwoPi;
    if (DegRound(dRotation) >= 180)
        dRotation -= kPi;
    m_dRotation = SnapAngle(dRotation);
    m_vectorDim = AcGeVector3d::kXAxis;
    m_vectorDim.rotateBy(m_dRotation, AcGeVector3d::kZAxis);
    if (bUpgraded)
        downgradeOpen();
}

// --- sides -------------------------------------------------------------------------

int SVdim::GetPlaneSide(int iExt, double dAngle, const AcGePoint3d* pPoint) const
{
    const int nExt = GetExtensions();
    const int i = std::abs(iExt);
    if (i >= nExt)
        return 1;
    AcGePoint3d ptInput = m_points[4 * i];
    AcGePoint3d ptDim = m_points[4 * i + 2];
    if (pPoint) {
        ptInput = ProjectToPlane(*pPoint, ptDim, GetChainNormal());
        ptDim = PointToDimLine(ptInput);
    }
    WcsToChain(ptInput);
    WcsToChain(ptDim);
    AcGeVector3d vDiff = ptDim - ptInput;
    vDiff.rotateBy(-dAngle, AcGeVector3d::kZAxis);
    if (std::fabs(vDiff.x) < 0.001)
        return vDiff.y < 0.001 ? -1 : 1;
    if (std::fabs(vDiff.y) > 0.001)
        return vDiff.x < 0.001 ? 1 : -1;
    return 1;
}

int SVdim::GetSideSigns(int iExt, double& dAngle, int& iSide)
{
    const int nExt = GetExtensions();
    // Arc chains first turn m_dRotation to the extension's tangent; that
    // comes with the arc forms.
    int i = iExt < 0 ? 0 : iExt;
    if (i >= nExt)
        i = nExt > 0 ? nExt - 1 : 0;
    AcGeVector3d vText = AcGeVector3d::kXAxis;
    vText.rotateBy(m_dRotation, AcGeVector3d::kZAxis);
    WcsToChain(vText);
    double dText = kPi - vText.angleTo(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    if (dText < 0.0)
        dText += kTwoPi;
    if (dText >= kPi)
        dText -= kPi;
    SnapAngle(dText);
    const double dDeg = DegRound(dText);
    const int iSign = (dDeg > 90 && dDeg < 180) || (dDeg > 270 && dDeg < 360) ? -1 : 1;
    dAngle = dText;
    if (dDeg > 180) {
        dAngle = kTwoPi - dText;
        SnapAngle(dAngle);
    }
    iSide = GetPlaneSide(i, dAngle);
    return iSign;
}

// --- adding and re-measuring ---------------------------------------------------------

int SVdim::AddPointInput(AcGePoint3d& point, bool bForce)
{
    const int nExt = GetExtensions();
    if (nExt >= 1)
        point = ProjectToPlane(point, m_points[2], GetChainNormal());
    if (m_dimType != kArc && !bForce && nExt >= 1) {
        for (int i = 0; i < nExt; ++i) {
            if (PointToDimLine(point).distanceTo(m_points[4 * i + 2]) > 0.0001)
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
    if (iNew + 1 > 2)
        m_points[4 * iNew + 2] = AcGePoint3d::kOrigin;
    if (iNew + 1 < 3)
        return iNew;

    int iPlaced = iNew;
    try {
        iPlaced = SetPointInput(iNew, point, 0);
        if (GlobalOptInt(kOptAutoPosition) && m_dimType != kArc && iPlaced >= 0) {
            const int iSeg = iPlaced == 0 ? 1 : iPlaced;
            SetDimTextPos(iSeg, kAutoTextPos);
            CenterPointText(iSeg);
        }
        const int iFlag = iPlaced < 0 ? iNew : iPlaced;
        m_extFlags.InsertAt(iFlag < m_extFlags.GetSize() ? iFlag : m_extFlags.GetSize(), 0u);
        m_extFlags.SetSize(GetExtensions());
    } catch (CException* pError) {
        pError->Delete();
    } catch (const std::exception&) {
    }
    return iPlaced;
}

void SVdim::CollectTexts(int iFirst, int nCount, int iMode, CUIntArray& segments) const
{
    const int nExt = GetExtensions();
    for (int i = iFirst; i < iFirst + nCount; ++i) {
        if (i < 1 || i > nExt - 1)
            continue;
        bool bKnown = false;
        for (INT_PTR k = 0; k < segments.GetSize() && !bKnown; ++k)
            bKnown = static_cast<int>(segments[k]) == i;
        if (bKnown)
            continue;
        // A text moved by hand no longer stands at its anchor and stays.
        if (iMode != 0 && m_points[4 * i + 3].distanceTo(GetTextAnchor(i)) > 0.001)
            continue;
        segments.Add(static_cast<UINT>(i));
    }
}

int SVdim::SetPointInput(int iExt, AcGePoint3d& point, int iMode)
{
    const int nExt = GetExtensions();
    if (iExt < 0 || iExt >= nExt || nExt < 2) {
        TraceF(L"\nSetPointInput(%d) extensions=%d ", iExt, nExt);
        return -1;
    }
    point = ProjectToPlane(point, m_points[2], GetChainNormal());
    // Arc chains take the arc form here once it exists; until then they are
    // re-measured no further than the stored input point.
    if (m_dimType == kArc) {
        m_points[4 * iExt] = point;
        return iExt;
    }
    int iNew = iExt;
    try {
        CUIntArray segments;
        CollectTexts(iExt, 2, iMode, segments);

        const AcGePoint3d ptRef = m_points[iExt != 0 ? 2 : 6];
        const AcGePoint3d ptOldDim = m_points[4 * iExt + 2];

        m_points[4 * iExt] = point;
        double dAngle = 0.0;
        int iSide = 1;
        int iSign = GetSideSigns(iExt, dAngle, iSide);
        const bool bFixed = IsExtFixed();
        const double dLength = bFixed ? ToDrawing(arrayDouble[kDblExtLineLength]) : 0.0;

        const double dAlong = (point - ptRef).dotProduct(m_vectorDim);
        const AcGePoint3d ptFoot = ptRef + m_vectorDim * dAlong;
        AcGePoint3d ptDim;
        if (!MyIntersect(AcGeLine3d(ptFoot, m_vectorDim), GetLineExt(iExt), ptDim)) {
            m_points[4 * iExt + 1] = point;
            return iExt;
        }
        m_points[4 * iExt + 2] = ptDim;

        if (Between90And180(dAngle))
            iSign = -iSign;
        AcGePoint3d ptStart = bFixed ? FixedExtStart(ptDim, dAngle, iSign, iSide, dLength) : point;
        if (iMode != 0)
            ptStart = m_points[4 * iExt + 1];
        AcGePoint3d ptOnExt;
        if (MyIntersect(AcGeLine3d(ptStart, m_vectorDim), GetLineExt(iExt), ptOnExt))
            SetPoint(iExt, ptOnExt, 0);
        else {
            AcGePoint3d ptInput = point;
            SetPoint(iExt, ptInput, 0);
        }

        if (iMode == 100)
            m_points[4 * iExt + 3] += ptDim - ptOldDim;

        if (nExt >= 3 && iMode != 100) {
            iNew = RearrangeExtensions(iExt);
            if (iNew < 0)
                iNew = iExt;
            if (iNew != iExt && iMode != 0 && GlobalOptInt(kOptAutoPosition)) {
                CollectTexts(iNew, 2, iMode, segments);
                if (iNew != 0 && iNew != 1 && iNew != nExt - 1)
                    CollectTexts(iNew - 1, 1, iMode, segments);
            }
        }
        if (iNew != iExt) {
            RefreshDimText(iExt);
            RefreshDimText(iExt + 1);
        }
        RefreshDimText(iNew);
        if (iMode != 0)
            RefreshDimText(iNew + 1);
        if (iMode == 0) {
            segments.RemoveAll();
            CollectTexts(iNew, 2, 0, segments);
        }
        for (INT_PTR k = 0; k < segments.GetSize(); ++k)
            CenterPointText(static_cast<int>(segments[k]));
    } catch (CException* pError) {
        pError->Delete();
        AfxMessageBox(L"Any problem on SetPointInput...");
    } catch (const std::exception&) {
        AfxMessageBox(L"Any problem on SetPointInput...");
    }
    return iNew;
}

BOOL SVdim::SetPoint(int iExt, AcGePoint3d& point, int bFix)
{
    const int nExt = GetExtensions();
    if (iExt < 0 || iExt >= nExt)
        return FALSE;
    const AcGePoint3d ptDim = m_points[4 * iExt + 2];
    if (m_dimType == kArc) {
        // Arc chains keep the start they are given until the arc forms exist.
        m_points[4 * iExt + 1] = point;
        return TRUE;
    }
    const AcGePoint3d ptInput = m_points[4 * iExt];
    const double dExt = ToDrawing(GlobalDouble(kDblExtendBeyondDimLine));
    const double dOff = ToDrawing(GlobalDouble(kDblOffsetFromOrigin));

    AcGePoint3d pt = ProjectToPlane(point, ptDim, GetChainNormal());
    pt = ProjectToPlane(pt, ptDim, m_vectorDim);
    const AcGeVector3d vMirror = ptDim - pt;
    double dAngle = 0.0;
    int iSide = 1;
    GetSideSigns(iExt, dAngle, iSide);
    // Corrections run across the dimension line: negative towards the input.
    const AcGeVector3d vAcross = -TowardsInput(iExt, dAngle);
    const AcGeLine3d lineExt = GetLineExt(iExt);

    double dCorrect = 0.0;
    for (int iRound = 0; iRound < 5; ++iRound) {
        if (dCorrect != 0.0) {
            pt += vAcross * dCorrect;
            dCorrect = 0.0;
        }
        AcGePoint3d ptOn;
        if (!MyIntersect(AcGeLine3d(pt, m_vectorDim), lineExt, ptOn))
            return FALSE;
        pt = ptOn;
        if (GetPlaneSide(iExt, dAngle, &pt) == iSide) {
            const double dToDim = pt.distanceTo(ptDim);
            const double dInput = ptInput.distanceTo(ptDim);
            if (dExt > dToDim + 0.01) {
                pt = ptDim;
                dCorrect = -dExt;
            } else if (dToDim + dOff - 0.01 > dInput && dInput > dExt) {
                pt = ptInput;
                dCorrect = dOff;
            }
            if (dCorrect == 0.0)
                break;
        } else {
            if (bFix) {
                pt = ptDim;
                dCorrect = -dExt;
            } else
                pt = ptDim + vMirror;
            if (iRound >= 3)
                break;
        }
    }
    m_points[4 * iExt + 1] = pt;
    point = pt;
    return TRUE;
}

void SVdim::SetExtFixed(int iExt)
{
    if (!IsExtFixed())
        return;
    const int iDirection = ParamInt(19);
    if (iExt > 0 && iDirection != 1 && iDirection != 2)
        return;
    const double dLength = ToDrawing(arrayDouble[kDblExtLineLength]);
    AcGeVector3d vFixed = m_vectorDim;
    vFixed.rotateBy(iDirection == 2 ? -kHalfPi : kHalfPi, GetChainNormal());
    vFixed *= dLength;
    const int nExt = GetExtensions();
    const int iFirst = iExt >= 0 ? iExt : 0;
    const int iLast = iExt >= 0 ? iExt : nExt - 1;
    for (int i = iFirst; i <= iLast && i < nExt; ++i) {
        AcGeVector3d vExt = vFixed;
        if (iDirection == 0) {
            const AcGeVector3d vOwn = m_points[4 * i] - m_points[4 * i + 2];
            vExt = vOwn.length() > 0.0 ? vOwn.normal() * dLength : AcGeVector3d(0, 0, 0);
        }
        m_points[4 * i + 1] = m_points[4 * i + 2] + vExt;
    }
}

// --- the dimension line ----------------------------------------------------------------

int SVdim::ChangePointMainDim(AcGePoint3d& point, int iMode)
{
    const int nExt = GetExtensions();
    if (nExt < 2) {
        TraceF(L"\nChangePointMainDim: extensions=%d ", nExt);
        return 0;
    }
    const AcGePoint3d ptOldFirst = GetPointDim(0);
    if (m_dimType == kArc) {
        ChangePointMainDimArc(point);
    } else {
        point = ProjectToPlane(point, ptOldFirst, GetChainNormal());
        m_points[3] = point;
        const AcGeLine3d lineDim(point, m_vectorDim.length() > 0.0 ? m_vectorDim : m_xAxis);
        const bool bFixed = IsExtFixed();
        const double dLength = bFixed ? ToDrawing(arrayDouble[kDblExtLineLength]) : 0.0;
        double dAngle = 0.0;
        int iSide = 1;
        int iSign = GetSideSigns(0, dAngle, iSide);
        if (Between90And180(dAngle))
            iSign = -iSign;
        for (int i = 0; i < nExt; ++i) {
            const AcGeLine3d lineExt = GetLineExt(i);
            const AcGePoint3d ptOldDim = m_points[4 * i + 2];
            const AcGePoint3d ptOldStart = m_points[4 * i + 1];
            AcGePoint3d ptDim;
            if (MyIntersect(lineExt, lineDim, ptDim))
                m_points[4 * i + 2] = ptDim;
            else
                ptDim = ptOldDim;
            if (iMode != 0) {
                if (std::fabs(ptOldStart.distanceTo(ptOldDim) - dLength) > 0.01) {
                    AcGePoint3d ptStart = ptOldStart;
                    SetPoint(i, ptStart, iMode);
                } else
                    m_points[4 * i + 1] = ptOldStart + (ptDim - ptOldDim);
            } else if (bFixed) {
                const int iOwnSide = GetPlaneSide(i, dAngle);
                const AcGePoint3d ptWanted = FixedExtStart(ptDim, dAngle, iSign, iOwnSide, dLength);
                AcGePoint3d ptStart;
                if (!MyIntersect(AcGeLine3d(ptWanted, m_vectorDim), lineExt, ptStart))
                    ptStart = ptOldStart;
                SetPoint(i, ptStart, 0);
            }
        }
    }
    const AcGeVector3d vFirst = GetPointDim(0) - ptOldFirst;
    if (vFirst.length() > 0.0001)
        for (int i = 1; i < nExt; ++i)
            SetPointText(i, m_points[4 * i + 3] + vFirst, 1);
    return 0;
}

BOOL SVdim::SetPointDim(int iExt, const AcGePoint3d& point, int iMode)
{
    const int nExt = GetExtensions();
    if (iExt < 0 || iExt >= nExt)
        return FALSE;
    AcGePoint3d ptLine = point;
    ChangePointMainDim(ptLine, iMode);
    if (iMode == 0 || m_dimType == kArc)
        AdjustTexts('R');
    return TRUE;
}
