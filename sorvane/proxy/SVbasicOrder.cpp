// SVdim: the order of the extensions along the dimension line, and removing
// extensions and empty segments.
#include <cwchar>

#include "host/db/adsdef.h"
#include "host/ed/AcEdSysVar.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"

namespace {

constexpr int kOptExtNewPosition = 1;

// TRUE while the running command is exactly STRETCH: a stretch must not
// re-number the grips it holds.
bool IsStretchRunning()
{
    resbuf rb{};
    if (acedGetVar(L"CMDNAMES", &rb) != RTNORM || rb.restype != RTSTR)
        return false;
    const bool bStretch = rb.resval.rstring && std::wcscmp(rb.resval.rstring, L"STRETCH") == 0;
    delete[] rb.resval.rstring;
    return bStretch;
}

bool HoldsPair(const AcGePoint3dArray& points, int k, const AcGePoint3d& ptDim, const AcGePoint3d& ptInput)
{
    return points[4 * k + 2].isEqualTo(ptDim) && points[4 * k].isEqualTo(ptInput);
}

}  // namespace

int SVdim::RearrangeExtensions(int iExt)
{
    if (IsStretchRunning())
        return iExt;
    const int nExt = GetExtensions();
    if (m_dimType == kArc && iExt >= 0)
        MakeParamArray();
    const bool bArcKeys = m_dimType == kArc && m_arcParams.length() == nExt;
    bool bByY = false;
    if (iExt >= 0 && nExt > 0) {
        double dAngle = 0.0;
        int iSide = 1;
        GetSideSigns(iExt, dAngle, iSide);
        bByY = DegRound(dAngle) == 90;
    }
    // A record list of another length is cut to one less than the count;
    // the last segment then reads as missing until its text is refreshed.
    if (m_dimTexts.GetSize() != nExt)
        m_dimTexts.SetSize(nExt > 0 ? nExt - 1 : 0);

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

    const bool bFollow = iExt >= 0 && iExt < nExt;
    const AcGePoint3d ptFollowDim = bFollow ? m_points[4 * iExt + 2] : AcGePoint3d::kOrigin;
    const AcGePoint3d ptFollowInput = bFollow ? m_points[4 * iExt] : AcGePoint3d::kOrigin;
    for (INT_PTR t = 0; t < AppendTextList.GetSize(); ++t) {
        auto* pText = static_cast<CAppendTextObject*>(AppendTextList[t]);
        if (pText->iExt >= 0 && pText->iExt < nExt)
            pText->ptRef = m_points[4 * pText->iExt + 3];
    }
    // A restarting exchange sort: equal keys never swap, so it is stable and ends.
    int iFollow = iExt;
    for (int k = 1; k < nExt;) {
        if (keys[k - 1] <= keys[k]) {
            ++k;
            continue;
        }
        if (bFollow) {
            if (HoldsPair(m_points, k, ptFollowDim, ptFollowInput))
                iFollow = k - 1;
            else if (HoldsPair(m_points, k - 1, ptFollowDim, ptFollowInput))
                iFollow = k;
        }
        // Slot 3 of extension 0 is the chain's reference text point and stays.
        for (int s = 0; s < 4; ++s) {
            if (k == 1 && s == 3)
                continue;
            m_points.swap(4 * k + s, 4 * (k - 1) + s);
        }
        keys.swap(k, k - 1);
        if (bArcKeys)
            m_arcParams.swap(k, k - 1);
        if (k > 1 && k < m_dimTexts.GetSize()) {
            const CString strSwap = m_dimTexts[k];
            m_dimTexts[k] = m_dimTexts[k - 1];
            m_dimTexts[k - 1] = strSwap;
        }
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
    if (m_dimType == kArc && ParamInt(kIntArcInputIsCircle) && nExt > 0 && m_arcPoints.length() >= 7) {
        arrayInt[kIntArcMinPoint] = 0;
        arrayInt[kIntArcMaxPoint] = static_cast<UINT>(nExt - 1);
        m_arcPoints[0] = m_points[2];
        m_arcPoints[4] = m_points[0];
        m_arcPoints[2] = m_points[4 * (nExt - 1) + 2];
        m_arcPoints[6] = m_points[4 * (nExt - 1)];
    }
    for (int i = 1; i < nExt; ++i)
        RefreshDimText(i);
    if (m_dimType == kArc && ParamInt(kIntArcAsCircle))
        RefreshDimText(0);
    return iFollow;
}

int SVdim::RemoveDimExt(int iExt)
{
    const int nExt = GetExtensions();
    if (nExt <= 2 || iExt < 0 || iExt >= nExt)
        return 0;
    for (INT_PTR t = AppendTextList.GetSize() - 1; t >= 0; --t) {
        auto* pText = static_cast<CAppendTextObject*>(AppendTextList[t]);
        if (pText->iExt == iExt || pText->iExt == iExt + 1) {
            delete pText;
            AppendTextList.RemoveAt(t);
        } else if (pText->iExt > iExt) {
            --pText->iExt;
        }
    }
    if (m_dimTexts.GetSize() != nExt)
        m_dimTexts.SetSize(nExt);
    m_dimTexts.RemoveAt(iExt == 0 ? 1 : iExt);
    if (m_points.length() >= 4 * iExt + 4)
        for (int s = 0; s < 4; ++s)
            m_points.removeAt(4 * iExt);
    const int nLeft = GetExtensions();
    if (m_dimType == kArc) {
        MakeParamArray();
        m_points[3] = m_points[2];
        if (pGlobDimOptions && pGlobDimOptions->arrayOptInt.GetSize() > kOptExtNewPosition)
            pGlobDimOptions->arrayOptInt[kOptExtNewPosition] = 0;
        Regenerate(1);
    }
    // Flags are only cut at the tail: those behind the removed extension keep
    // their old places.
    if (iExt == 0 || iExt == nExt - 1) {
        m_extFlags.SetSize(nLeft);
        return nLeft;
    }
    if (m_dimType != kArc) {
        AcGePoint3d ptInput = m_points[4 * iExt];
        SetPointInput(iExt, ptInput, 1);
    }
    CenterPointText(iExt);
    m_extFlags.SetSize(nLeft);
    return nLeft;
}

int SVdim::RemoveEmptySegments()
{
    int nRemoved = 0;
    for (int i = 1; i < GetExtensions();) {
        int nShared = 0;
        for (int j = 0; j < GetExtensions(); ++j)
            if (m_points[4 * j].isEqualTo(m_points[4 * i]))
                ++nShared;
        if (nShared < 2 && GetDistance(i) != 0.0) {
            ++i;
            continue;
        }
        if (RemoveDimExt(i) == 0)
            break;
        ++nRemoved;
    }
    return nRemoved;
}
