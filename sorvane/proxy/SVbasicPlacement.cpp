// SVdim: where value texts stand. Position codes become points, texts become
// boxes, and texts that do not fit between their extension lines search a
// free place of their own.
#include <cmath>
#include <cstdlib>
#include <vector>

#include "host/gi/AcGiTextStyle.h"
#include "host/mfc/AfxMessageBox.h"
#include "options/GlobDimOptions.h"
#include "options/ParamTable.h"
#include "proxy/SVbasic.h"
#include "proxy/Util.h"

namespace {

// General option: new texts are placed automatically.
constexpr int kOptIntAutoPosition = 11;
// Where a linear chain's sum stands: outside right, in the row of the values.
constexpr int kSumCode = 14;

double TextHeight(const SVdim& chain)
{
    return chain.ToDrawing(chain.arrayDouble[SVdim::kDblTextHeight] / 10.0);
}

// The height a row leaves for its text: with "m/cm" the raised digit needs room.
double RowTextHeight(const SVdim& chain)
{
    const double dHeight = TextHeight(chain);
    if (chain.arrayString.GetSize() > 2 && chain.arrayString[2] == L"m/cm")
        return dHeight * 0.66 + chain.AdaptByTextHeight(8);
    return dHeight;
}

bool IsUpperRow(int iCode) { return iCode == 1 || iCode == 4 || iCode == 7 || iCode == 10 || iCode == 13; }
bool IsLowerRow(int iCode) { return iCode == 3 || iCode == 6 || iCode == 9 || iCode == 12 || iCode == 15; }
bool EndsAtAnchor(int iCode) { return (iCode >= 1 && iCode <= 3) || (iCode >= 10 && iCode <= 12); }
bool StartsAtAnchor(int iCode) { return (iCode >= 4 && iCode <= 6) || (iCode >= 13 && iCode <= 15); }
bool IsLeftOutside(int iCode) { return iCode >= 1 && iCode <= 3; }
bool IsRightOutside(int iCode) { return iCode >= 13 && iCode <= 15; }

// The sign and angle of the text direction. Only an arc chain changes: its
// rotation turns to the segment, as drawing does too.
int SideSigns(const SVdim& chain, int iExt, double& dAngle)
{
    int iSide = 0;
    return const_cast<SVdim&>(chain).GetSideSigns(iExt, dAngle, iSide);
}

// Width of a string in the style at the given height.
double TextWidth(AcGiTextStyle& style, const CString& strText, double dHeight)
{
    if (strText.IsEmpty())
        return 0.0;
    style.setTextSize(dHeight);
    return style.extents(strText, Adesk::kTrue, -1, Adesk::kFalse).x;
}

// An offset given in chain coordinates, as a world vector.
AcGeVector3d ToWorld(const SVdim& chain, double dX, double dY)
{
    AcGeVector3d vOffset(dX, dY, 0.0);
    chain.ChainToWcs(vOffset);
    return vOffset;
}

// Width and height of a text's box: main part and rest together at the
// text height, a raised digit at its own height on top.
void MeasureBox(const SVdim& chain, const CStringArray& texts, double& dWidth, double& dHeight)
{
    const double dText = TextHeight(chain);
    AcGiTextStyle style;
    TextStyleToGi(style, chain.m_textStyleId);
    CString strMain = texts.GetSize() > 0 ? texts[0] : CString();
    if (texts.GetSize() > 2)
        strMain += texts[2];
    strMain.Trim();
    dWidth = TextWidth(style, strMain, dText);
    dHeight = dText;
    if (texts.GetSize() > 1) {
        dWidth += TextWidth(style, texts[1], chain.AdaptByTextHeight(8));
        dHeight = 0.66 * dText + chain.AdaptByTextHeight(8);
    }
}

}  // namespace

AcGePoint3d SVdim::GetTextAnchor(int iExt, int iPos) const
{
    const int nExt = GetExtensions();
    if (iExt < 1 && !(m_dimType == kArc && arrayInt[kIntArcAsCircle]))
        return GetPointTextRef(0);
    if (iExt < 0)
        iExt = 0;

    AcGePoint3d ptAnchor;
    if (m_dimType == kArc && arrayInt[kIntArcAsCircle]) {
        // The circle's value stands beside its first dimension point, away
        // from the first input point.
        // Measured without placing: the box would ask for this anchor again.
        CStringArray texts;
        GetDisplayTexts(1, texts);
        double dWidth = 0.0, dHeight = 0.0;
        MeasureBox(*this, texts, dWidth, dHeight);
        const double dText = TextHeight(*this);
        const AcGePoint3d ptDim = GetPointDim(0);
        AcGePoint3d ptDimChain = ptDim, ptInputChain = GetPointInput(0);
        WcsToChain(ptDimChain);
        WcsToChain(ptInputChain);
        const double dSide = ptDimChain.x < ptInputChain.x ? -1.0 : 1.0;
        AcGeVector3d vDir = m_vectorDim.length() > 0.0 ? m_vectorDim.normal() : m_xAxis;
        ptAnchor = ptDim + vDir * (dSide * (dWidth / 2.0 + dText));
    } else if (m_dimType == kArc) {
        // The middle on the dimension arc comes with the arc chains; until
        // then the chord's middle stands in for it.
        ptAnchor = iExt >= nExt ? GetPointDim(nExt - 1)
                                : GetPointDim(iExt - 1) + (GetPointDim(iExt) - GetPointDim(iExt - 1)) / 2.0;
    } else if (iExt >= nExt) {
        // A linear chain's sum has no segment of its own: it stands beyond the
        // last extension line, in the row of the values, clear of the last one.
        ptAnchor = GetPointDim(nExt - 1);
    } else {
        ptAnchor = GetPointDim(iExt - 1) + (GetPointDim(iExt) - GetPointDim(iExt - 1)) / 2.0;
    }

    const bool bLinearSum = m_dimType != kArc && iExt >= nExt;
    const int iStored = bLinearSum ? kSumCode : GetDimTextPos(iExt);
    const int iCode = bLinearSum ? kSumCode : (iPos < 0 ? std::abs(iStored) : iPos);
    if (!bLinearSum && iCode >= 1 && iCode <= 6)
        ptAnchor = GetPointDim(iExt - 1);
    else if (!bLinearSum && iCode >= 10 && iCode <= 15)
        ptAnchor = GetPointDim(iExt);

    const double dGap = AdaptByTextHeight(7);
    double dSlide = 0.0;
    const bool bAuto = iStored < 0;
    if (EndsAtAnchor(iCode))
        dSlide = bAuto ? -ToDrawing(arrayDouble[kDblTextHeight] / 10.0 * 10.0 / 100.0) : -dGap;
    else if (StartsAtAnchor(iCode))
        dSlide = bAuto ? ToDrawing(arrayDouble[kDblTextHeight] / 10.0 * 20.0 / 100.0) : dGap;

    double dRow = dGap;
    const double dHeight = RowTextHeight(*this);
    if (IsUpperRow(iCode))
        dRow = 2.0 * dGap + dHeight;
    else if (IsLowerRow(iCode))
        dRow = -(dGap + dHeight);

    double dAngle = 0.0;
    const int iSign = SideSigns(*this, -iExt, dAngle);
    if (DegRound(dAngle) > 90) {
        ptAnchor += ToWorld(*this, std::sin(dAngle) * dRow, std::cos(kPi - dAngle) * dRow);
        ptAnchor += ToWorld(*this, std::cos(kPi - dAngle) * dSlide, -std::sin(kPi - dAngle) * dSlide);
    } else {
        ptAnchor += ToWorld(*this, -std::sin(dAngle) * dRow * iSign, std::cos(dAngle) * dRow);
        ptAnchor += ToWorld(*this, std::cos(dAngle) * dSlide * iSign, std::sin(dAngle) * dSlide);
    }
    return ptAnchor;
}

int SVdim::GetPointText(int iExt, AcGePoint3dArray& points, CStringArray& texts, CAppendTextObject* pAppend,
                        int iPos) const
{
    points.setLogicalLength(0);
    texts.RemoveAll();
    const int nExt = GetExtensions();
    const bool bLabel = iExt == -100;
    const bool bSum = iExt == nExt && !pAppend;
    if (!bLabel && !pAppend && (iExt < 0 || iExt > nExt))
        return 0;
    const bool bNormal = !bLabel && !bSum && !pAppend;

    AcGePoint3d ptBase;
    if (pAppend)
        ptBase = pAppend->ptText;
    else if (bNormal && iPos < 0)
        ptBase = GetPointTextRef(iExt);
    else if (!bLabel)
        ptBase = GetTextAnchor(iExt, bSum ? -100 : iPos);

    const int bRaised = GetDisplayTexts(iExt, texts, pAppend);
    if (texts.GetSize() == 0 || (texts.GetSize() == 1 && texts[0].IsEmpty()))
        return 0;

    const double dHeight = TextHeight(*this);
    AcGiTextStyle style;
    TextStyleToGi(style, m_textStyleId);
    const double dWidth = TextWidth(style, texts[0], dHeight);
    const double dWidth2 = texts.GetSize() > 1 ? TextWidth(style, texts[1], AdaptByTextHeight(8)) : 0.0;
    const double dWidth3 = texts.GetSize() > 2 ? TextWidth(style, texts[2], dHeight) : 0.0;

    double dAngle = 0.0;
    const int iSign = SideSigns(*this, -iExt, dAngle);
    if (DegRound(dAngle) == 180)
        dAngle = 0.0;
    const double dHalf = (dWidth + dWidth2 + dWidth3) / 2.0 * iSign;
    const AcGeVector3d vHalf = ToWorld(*this, std::cos(dAngle) * dHalf, std::sin(dAngle) * dHalf);

    if (bLabel) {
        // The label stands beyond the chain's ends, its text running on.
        const int iLabel = GetChainLabelCode();
        double dStep = dHeight / 2.0, dLift = AdaptByTextHeight(7);
        if (m_dRotation > kHalfPi) {
            dStep = -dStep;
            dLift = -dLift;
        }
        const AcGeVector3d vStep = ToWorld(*this, std::cos(dAngle) * dStep, std::sin(dAngle) * dStep);
        const AcGeVector3d vLift = ToWorld(*this, -std::sin(dAngle) * dLift, std::cos(dAngle) * dLift);
        if (iLabel == 1 || iLabel == 3)
            points.append(GetPointDim(0) - vHalf * 2.0 - vStep + vLift);
        if (iLabel == 2 || iLabel == 3)
            points.append(GetPointDim(nExt - 1) + vStep + vLift);
        return bRaised;
    }

    int iCode = iPos;
    if (bNormal && iPos < 0)
        iCode = std::abs(GetDimTextPos(iExt));
    // A linear chain's sum runs on from its anchor beyond the chain's end.
    const bool bCoded = bNormal || (bSum && m_dimType != kArc);
    if (!bNormal && bCoded)
        iCode = kSumCode;
    AcGePoint3d ptStart = ptBase;
    if (bCoded && EndsAtAnchor(iCode))
        ptStart -= vHalf * 2.0;
    else if (!(bCoded && StartsAtAnchor(iCode)))
        ptStart -= vHalf;
    points.append(ptStart);

    if (texts.GetSize() > 1) {
        const double dRise = 0.66 * dHeight;
        const AcGePoint3d ptSecond =
            ptStart + ToWorld(*this, (dWidth * std::cos(dAngle) - dRise * std::sin(dAngle)) * iSign,
                              (dWidth * std::sin(dAngle) + dRise * std::cos(dAngle)) * iSign);
        points.append(ptSecond);
        if (texts.GetSize() > 2)
            points.append(ptSecond + ToWorld(*this, (dWidth2 * std::cos(dAngle) + dRise * std::sin(dAngle)) * iSign,
                                             (dWidth2 * std::sin(dAngle) - dRise * std::cos(dAngle)) * iSign));
    }
    return bRaised;
}

int SVdim::GetTextCorners(int iExt, double dMargin, AcGePoint3dArray& corners, double& dWidth, double& dHeight,
                          CAppendTextObject* pAppend, int iPos) const
{
    corners.setLogicalLength(0);
    if (iExt == 0)
        iExt = 1;
    AcGePoint3dArray points;
    CStringArray texts;
    GetPointText(iExt, points, texts, pAppend, iPos);

    MeasureBox(*this, texts, dWidth, dHeight);

    double dAngle = 0.0;
    SideSigns(*this, -iExt, dAngle);
    AcGeVector3d vDir = ToWorld(*this, std::cos(dAngle), std::sin(dAngle));
    if (DegRound(dAngle) > 90)
        vDir = -vDir;
    const AcGeVector3d vUp = GetChainNormal().crossProduct(vDir).normal();

    const AcGePoint3d ptStart = points.length() > 0 ? points[0] : GetTextAnchor(iExt, iPos);
    const AcGePoint3d c0 = ptStart - vDir * dMargin - vUp * dMargin;
    const AcGePoint3d c1 = c0 + vDir * (dWidth + 2.0 * dMargin);
    corners.append(c0);
    corners.append(c1);
    corners.append(c1 + vUp * (dHeight + 2.0 * dMargin));
    corners.append(c0 + vUp * (dHeight + 2.0 * dMargin));
    return 1;
}

bool SVdim::BoxesOverlap(const AcGePoint3dArray& boxA, const AcGePoint3dArray& boxB)
{
    if (boxA.length() != 4 || boxB.length() != 4)
        return false;
    auto lines = [](const AcGePoint3dArray& box) {
        std::vector<AcGeLineSeg3d> segs;
        segs.emplace_back(box[0], box[1]);
        segs.emplace_back(box[2], box[3]);
        segs.emplace_back(box[0], box[3]);
        segs.emplace_back(box[1], box[2]);
        // The middle line catches a box that lies across the other one.
        segs.emplace_back(box[0] + (box[3] - box[0]) / 2.0, box[1] + (box[2] - box[1]) / 2.0);
        return segs;
    };
    const AcGeTol tol(1e-5, 1e-5);
    AcGePoint3d ptHit;
    for (const AcGeLineSeg3d& segA : lines(boxA))
        for (const AcGeLineSeg3d& segB : lines(boxB))
            if (segA.intersectWith(segB, ptHit, tol))
                return true;
    return false;
}

int SVdim::FindAutoTextPos(int iExt) const
{
    const int nExt = GetExtensions();
    if (iExt < 1 || iExt >= nExt || !pGlobDimOptions)
        return 8;

    const double dMargin = TextHeight(*this) / 10.0;
    AcGePoint3dArray box, other;
    double dW = 0.0, dWidth = 0.0, dHeight = 0.0;
    GetTextCorners(iExt, dMargin, box, dWidth, dHeight, nullptr, 0);
    dW = box[0].distanceTo(box[1]);
    auto segmentLength = [this](int i) { return GetPointDim(i - 1).distanceTo(GetPointDim(i)); };
    if (segmentLength(iExt) > dW)
        return 8;

    CUIntArray candidates;
    const CUIntArray& order = pGlobDimOptions->arrayAutoPosOrder;
    bool bEight = false;
    for (INT_PTR k = 0; k < order.GetSize(); ++k) {
        if (!bEight && (order[k] == 7 || order[k] == 9)) {
            candidates.Add(8);
            bEight = true;
        }
        candidates.Add(order[k]);
    }
    const AcGePoint3d ptMiddle = GetPointDim(iExt - 1) + (GetPointDim(iExt) - GetPointDim(iExt - 1)) / 2.0;
    if (pGlobDimOptions->GetOptInt(kOptIntAutoPosMirror) && iExt > 1 &&
        ptMiddle.distanceTo(GetPointDim(nExt - 1)) < ptMiddle.distanceTo(GetPointDim(0))) {
        candidates.RemoveAll();
        for (INT_PTR k = 0; k < order.GetSize(); ++k) {
            const UINT p = order[k];
            candidates.Add(p >= 13 ? p - 12 : (p <= 3 ? p + 12 : p));
        }
    }
    const bool bIgnoreExt = pGlobDimOptions->GetOptInt(kOptIntAutoPosIgnoreExt) != 0;
    const int iLabel = GetChainLabelCode();

    auto boxAt = [&](int k, int q) {
        GetTextCorners(k, dMargin, other, dWidth, dHeight, nullptr, q);
        return other;
    };
    auto passes = [&](int p) {
        GetTextCorners(iExt, dMargin, box, dWidth, dHeight, nullptr, p);
        if ((IsLeftOutside(p) && iExt == 1) || (IsRightOutside(p) && iExt == nExt - 1)) {
            if (p == 2 && (iLabel == 1 || iLabel == 3))
                return false;
            if (p == 14 && (iLabel == 2 || iLabel == 3))
                return false;
            if (IsLeftOutside(p))
                return true;
            return iExt < 2 || !BoxesOverlap(box, boxAt(iExt - 1, -1));
        }
        if (IsLeftOutside(p)) {
            if (segmentLength(iExt - 1) < dW || BoxesOverlap(box, boxAt(iExt - 1, -1)))
                return false;
            return iExt < 3 || !BoxesOverlap(box, boxAt(iExt - 2, -1));
        }
        if (IsRightOutside(p)) {
            if (segmentLength(iExt + 1) < dW)
                return false;
            const int iNext = GetDimTextPos(iExt + 1);
            return !BoxesOverlap(box, boxAt(iExt + 1, iNext < 0 ? 8 : iNext));
        }
        if (!bIgnoreExt) {
            AcGePoint3dArray lines;
            lines.append(GetPointDim(iExt - 1));
            lines.append(GetPointDim(iExt));
            lines.append(GetPointExt1(iExt));
            lines.append(GetPointExt1(iExt - 1));
            if (BoxesOverlap(box, lines))
                return false;
            if (iExt > 1 && BoxesOverlap(box, boxAt(iExt - 1, -1)))
                return false;
            return p != 8 || iExt + 1 >= nExt || !BoxesOverlap(box, boxAt(iExt + 1, 8));
        }
        if (iExt == 1 || BoxesOverlap(box, boxAt(iExt - 1, -1)))
            return false;
        if (iExt >= 3 && BoxesOverlap(box, boxAt(iExt - 2, -1)))
            return false;
        return !(p == 8 && iExt < nExt - 1 && segmentLength(iExt + 1) > dW &&
                 BoxesOverlap(box, boxAt(iExt + 1, 8)));
    };
    for (INT_PTR k = 0; k < candidates.GetSize(); ++k)
        if (passes(static_cast<int>(candidates[k])))
            return static_cast<int>(candidates[k]);
    return 8;
}

int SVdim::CenterPointText(int iExt)
{
    if (iExt < 0)
        return 0;
    try {
        int iCode = GetDimTextPos(iExt);
        if (iCode < 0) {
            iCode = FindAutoTextPos(iExt);
            SetDimTextPos(iExt, -iCode);
        }
        SetPointText(iExt, GetTextAnchor(iExt, iCode), 1);
    } catch (...) {
        CString strMessage;
        strMessage.Format(L"Any problem on CenterPointText %d ...", iExt);
        AfxMessageBox(strMessage);
    }
    return 1;
}

BOOL SVdim::AdjustTexts(int iMode)
{
    if (!pGlobDimOptions)
        return FALSE;
    if (iMode == 0)
        iMode = pGlobDimOptions->GetOptInt(kOptIntAutoPosition) && m_dimType != kArc ? 'A' : 'C';
    bool bUpgraded = false;
    if (isReadEnabled() && !isWriteEnabled()) {
        if (upgradeOpen() != Acad::eOk)
            return FALSE;
        bUpgraded = true;
    }
    const int nExt = GetExtensions();
    if (iMode == 'A' || iMode == 'C')
        for (int i = 1; i < nExt; ++i)
            SetDimTextPos(i, iMode == 'A' ? -8 : 8);
    for (int i = 1; i < nExt; ++i) {
        if (iMode == 'G' && GetPointTextRef(i).distanceTo(GetTextAnchor(i)) > 0.001)
            continue;
        CenterPointText(i);
        if (m_dimType == kArc)
            CenterPointText(i);  // the arc text's angle follows its point
    }
    if (m_dimType == kArc && arrayInt[kIntArcAsCircle] && m_points.length() > 3)
        m_points[3] = GetTextAnchor(0, -100);
    if (iMode == 'R')
        DimRefresh(1);
    recordGraphicsModified(1);
    if (bUpgraded)
        downgradeOpen();
    return TRUE;
}

int SVdim::SetPointText(int iExt, const AcGePoint3d& point, int bKeepAppended)
{
    if (iExt < 0 || 4 * iExt + 3 >= m_points.length())
        return 0;
    m_points[4 * iExt + 3] = ProjectToPlane(point, GetPointDim(0), GetChainNormal());
    CAppendTextObject* pText = nullptr;
    if (GetAppendingText(iExt, pText) >= 0 && !(bKeepAppended == 0 && pText->bAutoPos == 0))
        SetAppendingTextPos(iExt, pText);
    return 1;
}

BOOL SVdim::MoveText(int iExt, wchar_t cDirection, double dDistance)
{
    if (iExt < 0 || 4 * iExt + 3 >= m_points.length())
        return FALSE;
    double dAngle = 0.0;
    const int iSign = SideSigns(*this, iExt, dAngle);
    AcGeVector3d vAlong = ToWorld(*this, std::cos(dAngle) * iSign, std::sin(dAngle) * iSign);
    if (DegRound(dAngle) > 90)
        vAlong = ToWorld(*this, std::cos(kPi - dAngle), -std::sin(kPi - dAngle));
    const AcGeVector3d vAcross = GetChainNormal().crossProduct(vAlong).normal();
    AcGeVector3d vMove;
    switch (cDirection) {
    case L'E': case L'e': vMove = vAlong * dDistance; break;
    case L'W': case L'w': vMove = -vAlong * dDistance; break;
    case L'N': case L'n': vMove = vAcross * dDistance; break;
    case L'S': case L's': vMove = -vAcross * dDistance; break;
    default: return FALSE;
    }
    m_points[4 * iExt + 3] += vMove;
    return TRUE;
}

int SVdim::SetAppendingTextPos(int iExt, CAppendTextObject* pText) const
{
    if (iExt < 1)
        iExt = 1;
    if (!pText || 4 * iExt + 3 >= m_points.length())
        return 0;
    // Down past the line, by a gap more than the value text stands above it.
    const double dStep = -2.0 * AdaptByTextHeight(7) - 1.4 * TextHeight(*this);
    double dAngle = 0.0;
    const int iSign = SideSigns(*this, -iExt, dAngle);
    const AcGeVector3d vStep = DegRound(dAngle) > 90
                                   ? ToWorld(*this, std::sin(dAngle) * dStep, std::cos(kPi - dAngle) * dStep)
                                   : ToWorld(*this, -std::sin(dAngle) * dStep * iSign, std::cos(dAngle) * dStep);
    pText->ptText = GetPointTextRef(iExt) + vStep;
    return 1;
}
