// SVdim: how a chain draws itself. One routine serves the screen, proxy
// graphics and explode; it reads only stored points, it never lays out.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cwctype>
#include <string>

#include "host/db/AcDbEntity.h"
#include "host/gi/AcGiTextStyle.h"
#include "host/gi/AcGiWorldDraw.h"
#include "host/rx/acutPrintf.h"
#include "options/GlobDimOptions.h"
#include "options/Maps.h"
#include "options/ParamTable.h"
#include "proxy/SVbasic.h"
#include "proxy/Util.h"
#include "services/Trace.h"

namespace {

constexpr int kTickNone = 0;
constexpr int kTickSlash = 1;
constexpr int kTickDot = 2;
constexpr int kTickCircle = 3;
constexpr int kTickArrow = 4;
constexpr int kTickCross = 5;

// General integers the drawing reads.
constexpr int kOptIntShowInputPoints = 2;
constexpr int kOptIntIgnoreUserTextTolerance = 6;
constexpr int kOptIntLeadersShow = 9;

// Parameter doubles of the tick sizes.
constexpr int kDblTickSize = 4;
constexpr int kDblExtendBeyondDimLine = 5;
constexpr int kDblExtendBeyondTick = 6;

// Markers of the elements that are no segment's.
constexpr Adesk::GsMarker kMarkerFirstText = 1001;

int OptInt(int iIndex)
{
    return pGlobDimOptions ? pGlobDimOptions->GetOptInt(iIndex) : 0;
}

// Traits go to the display only; entities take theirs when they are made.
void SetMarker(AcGiWorldDraw* pWd, Adesk::GsMarker marker)
{
    if (pWd)
        pWd->subEntityTraits().setSelectionMarker(marker);
}

void SetColor(AcGiWorldDraw* pWd, int iColor)
{
    if (pWd)
        pWd->subEntityTraits().setColor(static_cast<Adesk::UInt16>(iColor));
}

double TextHeight(const SVdim& chain)
{
    return chain.ToDrawing(chain.arrayDouble[SVdim::kDblTextHeight] / 10.0);
}

// The world direction texts run in: the text angle in chain coordinates,
// turned round when it would read upside down.
AcGeVector3d TextDirection(const SVdim& chain)
{
    double dAngle = 0.0;
    int iSide = 0;
    const_cast<SVdim&>(chain).GetSideSigns(0, dAngle, iSide);
    AcGeVector3d vDir(std::cos(dAngle), std::sin(dAngle), 0.0);
    chain.ChainToWcs(vDir);
    if (SVdim::DegRound(dAngle) > 90)
        vDir = -vDir;
    return vDir.normal();
}

bool IsTrueTypeStyle(const AcGiTextStyle& style)
{
    std::wstring typeface;
    bool bBold = false, bItalic = false;
    int iCharset = 0, iPitch = 0;
    if (style.font(typeface, bBold, bItalic, iCharset, iPitch) == Acad::eOk && !typeface.empty())
        return true;
    std::wstring file = style.fileName();
    const size_t dot = file.rfind(L'.');
    if (dot == std::wstring::npos)
        return false;
    std::wstring ext = file.substr(dot + 1);
    for (wchar_t& c : ext)
        c = static_cast<wchar_t>(std::towlower(c));
    return ext == L"ttf" || ext == L"ttc" || ext == L"otf";
}

// The colour of the chain's texts: the linear chains' height-to-colour map
// (a TrueType style has a row of its own), whatever mode the panel shows.
// A height the map does not know keeps the entity's colour.
int TextColor(const SVdim& chain, const AcGiTextStyle& style)
{
    if (!pGlobDimOptions)
        return chain.colorIndex();
    const double dHeight = IsTrueTypeStyle(style) ? 0.0 : chain.arrayDouble[SVdim::kDblTextHeight];
    const int iColor = GetColorOfTextHeight(dHeight, kModeLinear);
    return iColor > 0 ? iColor : chain.colorIndex();
}

// Explode: what was made since nFrom takes the chain's layer and the colour.
void TakeTraits(AcDbVoidPtrArray* pEnts, int nFrom, AcDbObjectId layerId, int iColor)
{
    if (!pEnts)
        return;
    for (int i = nFrom; i < pEnts->length(); ++i) {
        auto* pEnt = static_cast<AcDbEntity*>((*pEnts)[i]);
        if (!layerId.isNull())
            pEnt->setLayer(layerId);
        pEnt->setColorIndex(static_cast<Adesk::UInt16>(iColor));
    }
}

void DrawBox(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3dArray& corners)
{
    if (corners.length() < 4)
        return;
    for (int i = 0; i < 4; ++i)
        DrawLine(pWd, pEnts, corners[i], corners[(i + 1) % 4]);
}

// The strings of one text: the first and third at the text height, a raised
// digit in between at its own height.
void DrawTextParts(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const SVdim& chain, const AcGePoint3dArray& points,
                   const CStringArray& texts, const AcGeVector3d& vDir, const AcGiTextStyle& style, int iColor)
{
    const AcGeVector3d normal = chain.GetChainNormal();
    const double dHeight = TextHeight(chain);
    const int n = std::min(points.length(), static_cast<int>(texts.GetSize()));
    for (int j = 0; j < n; ++j) {
        if (texts[j].IsEmpty())
            continue;
        const double dPart = j == 1 ? chain.AdaptByTextHeight(8) : dHeight;
        DrawText(pWd, pEnts, points[j], normal, vDir, texts[j], dPart, &style, chain.m_textStyleId, iColor);
    }
}

// One tick at the dimension point of extension i.
void DrawTick(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const SVdim& chain, int iTick, int i, int nExt,
              const AcGePoint3d& ptDim, const AcGeVector3d& vDir, double t, int s)
{
    const double h = t / 2.0;
    const AcGeVector3d normal = chain.GetChainNormal();
    switch (iTick) {
    case kTickSlash: {
        // Across in the chain's own plane; s turns it back on a mirrored
        // chain, so that the slash reads the same way from above.
        const AcGeVector3d vAcross = normal.crossProduct(vDir).normal();
        const AcGeVector3d vHalf = vDir * h + vAcross * (s * h);
        DrawLine(pWd, pEnts, ptDim - vHalf, ptDim + vHalf);
        break;
    }
    case kTickDot:
    case kTickCircle:
        DrawCircle(pWd, pEnts, ptDim, t * 0.25, normal, iTick == kTickDot);
        break;
    case kTickArrow: {
        const bool bBoth = chain.arrayInt.GetSize() > SVdim::kIntArcAsCircle && chain.arrayInt[SVdim::kIntArcAsCircle];
        // Each arrow lies inside its segment and points at the extension line.
        if (bBoth || i < nExt - 1)
            DrawArrowHead(pWd, pEnts, ptDim, vDir, t, t / 10.0);
        if (bBoth || i > 0)
            DrawArrowHead(pWd, pEnts, ptDim, -vDir, t, t / 10.0);
        break;
    }
    case kTickCross:
        DrawCross(pWd, pEnts, ptDim, h, vDir, normal);
        break;
    case kTickNone:
    default:
        break;
    }
}

} // namespace

Adesk::Boolean SVdim::worldDraw(AcGiWorldDraw* pWd)
{
    assertReadEnabled();
    if (!pWd || !pGlobDimOptions || arrayDouble.GetSize() == 0 || arrayString.GetSize() == 0 ||
        arrayInt.GetSize() == 0)
        return Adesk::kTrue;
    if (pWd->regenAbort())
        return Adesk::kTrue;
    int iStatus = 0;
    switch (pWd->regenType()) {
    case kAcGiStandardDisplay:
    case kAcGiForExplode:
    case kAcGiSaveWorldDrawForProxy:
        iStatus = drawDimension(this, pWd, nullptr);
        break;
    case kAcGiHideOrShadeCommand:
    case kAcGiRenderCommand:
        iStatus = drawFacets();
        if (iStatus == 0)
            iStatus = drawDimension(this, pWd, nullptr);
        break;
    default:
        break;
    }
    if (iStatus != 0)
        acutPrintf(L"\nSVbasic(%d): drawing failed with %d", __LINE__, iStatus);
    // Always drawn here, so that the viewport pass has nothing to add.
    return Adesk::kTrue;
}

void SVdim::viewportDraw(AcGiViewportDraw*)
{
    Trace(L"\nSVdim::viewportDraw");
}

Acad::ErrorStatus SVdim::explode(AcDbVoidPtrArray& entitySet) const
{
    assertReadEnabled();
    // The pieces take the chain's layer and colours as they are made.
    drawDimension(this, nullptr, &entitySet);
    return Acad::eOk;
}

int SVdim::drawDimension(const SVdim* pDim, AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts)
{
    if (!pDim)
        return 3;
    const SVdim& chain = *pDim;
    const int nExt = chain.GetExtensions();
    if (nExt < 2)
        return 0;
    if (!pGlobDimOptions)
        return 3;

    const double t = chain.ToDrawing(chain.GlobalDouble(kDblTickSize));
    const double b = chain.ToDrawing(chain.GlobalDouble(kDblExtendBeyondDimLine));
    double e = chain.ToDrawing(chain.GlobalDouble(kDblExtendBeyondTick));
    const double h = t / 2.0;
    const AcGeVector3d normal = chain.GetChainNormal();
    const int s = normal.z < 0.0 ? -1 : 1;
    const int iColor = chain.colorIndex();
    const AcGeVector3d vDir = chain.m_vectorDim.isZeroLength() ? AcGeVector3d::kXAxis : chain.m_vectorDim.normal();
    const int nBefore = pEnts ? pEnts->length() : 0;
    SetMarker(pWd, 0);

    for (int i = 0; i < nExt; ++i) {
        const AcGePoint3d ptExt1 = chain.GetPointExt1(i);
        const AcGePoint3d ptDim = chain.GetPointDim(i);
        const int iTick = chain.GetTickType(i);

        AcGePoint3d ptExtEnd = ptDim;
        if (b != 0.0)
            SetExtendPoint(ptExtEnd, ptExt1, b);
        SetMarker(pWd, 3 * i + 2);
        if (chain.GetExtLineVisible(i))
            DrawLine(pWd, pEnts, ptExt1, ptExtEnd);

        SetMarker(pWd, 3 * (i + 1));
        SetColor(pWd, iColor);
        // An arrow leaves no room for an overshoot, here and further on.
        if (iTick == kTickArrow)
            e = 0.0;
        if (i > 0) {
            AcGePoint3d ptFrom = chain.GetPointDim(i - 1);
            AcGePoint3d ptTo = ptDim;
            // The overshoot runs outwards; a first or last segment of no
            // length takes the sense of the dimension line.
            const AcGeVector3d vSeg = ptTo - ptFrom;
            if (e != 0.0 && (i == 1 || i == nExt - 1)) {
                const AcGeVector3d vOver = (vSeg.isZeroLength() ? vDir : vSeg.normal()) * e;
                if (i == 1)
                    ptFrom -= vOver;
                if (i == nExt - 1)
                    ptTo += vOver;
            }
            DrawLine(pWd, pEnts, ptFrom, ptTo);
        }
        if (h != 0.0)
            DrawTick(pWd, pEnts, chain, iTick, i, nExt, ptDim, vDir, t, s);
    }

    // Made entities keep the look of the chain: its colour, not ByLayer.
    TakeTraits(pEnts, nBefore, chain.layerId(), iColor);

    const BOOL bOldWipeOut = pGlobDimOptions->m_bWipeOut;
    pGlobDimOptions->m_bWipeOut = chain.IsWipeOut();
    DrawDimTexts(pDim, pWd, pEnts, true);
    pGlobDimOptions->m_bWipeOut = bOldWipeOut;

    if (OptInt(kOptIntShowInputPoints)) {
        const int nCrosses = pEnts ? pEnts->length() : 0;
        for (int i = 0; i < nExt; ++i) {
            SetColor(pWd, iColor);
            SetMarker(pWd, 3 * i + 2);
            DrawCross(pWd, pEnts, chain.GetPointInput(i), t / 5.0, vDir, normal);
        }
        TakeTraits(pEnts, nCrosses, chain.layerId(), iColor);
    }
    return 0;
}

void SVdim::DrawDimTexts(const SVdim* pDim, AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, bool bDrawTexts)
{
    if (!pDim)
        return;
    const SVdim& chain = *pDim;
    const int nExt = chain.GetExtensions();
    const int nBefore = pEnts ? pEnts->length() : 0;
    const double dHeight = TextHeight(chain);
    AcGiTextStyle style;
    TextStyleToGi(style, chain.m_textStyleId);
    const int iTextColor = TextColor(chain, style);
    const AcGeVector3d vDir = TextDirection(chain);
    const bool bIgnoreTolerance = OptInt(kOptIntIgnoreUserTextTolerance) != 0;
    const bool bLeaders = OptInt(kOptIntLeadersShow) != 0;

    AcGePoint3dArray points;
    CStringArray texts;
    for (int k = 0; k <= nExt; ++k) {
        const bool bSum = k == nExt;
        if (bSum && (!chain.IsShowSum() || nExt == 2))
            continue;
        // Segment 0 only exists on open arc chains.
        if (k == 0)
            continue;
        chain.GetPointText(k, points, texts);
        if (texts.GetSize() == 0 || texts[0].IsEmpty())
            continue;
        // The sum is a display aid, never an entity of its own.
        if (bSum && !pWd)
            break;
        if (bDrawTexts) {
            SetMarker(pWd, k == 0 ? kMarkerFirstText : 3 * k + 1);
            SetColor(pWd, iTextColor);
            DrawTextParts(pWd, pEnts, chain, points, texts, vDir, style, iTextColor);
        }
        if (bSum) {
            AcGePoint3dArray corners;
            double dWidth = 0.0, dBoxHeight = 0.0;
            chain.GetTextCorners(k, dHeight / 5.0, corners, dWidth, dBoxHeight);
            DrawBox(pWd, pEnts, corners);
            continue;
        }
        if (bLeaders && chain.IsLeaderShown(k)) {
            AcGePoint3dArray leader;
            const int n = chain.GetLeaderPoints(k, leader);
            for (int j = 1; j < n; ++j)
                DrawLine(pWd, pEnts, leader[j - 1], leader[j]);
        }
        if (!bIgnoreTolerance && chain.IsUserTextOff(k)) {
            AcGePoint3d pt1, pt2;
            if (chain.GetPointsTextUser(k, pt1, pt2))
                DrawLine(pWd, pEnts, pt1, pt2);
        }
    }

    // Appended texts; an entry for a segment the chain no longer has goes.
    for (int j = static_cast<int>(chain.AppendTextList.GetSize()) - 1; j >= 0; --j) {
        auto* pAppend = static_cast<CAppendTextObject*>(chain.AppendTextList[j]);
        if (!pAppend || pAppend->strText.IsEmpty())
            continue;
        if (pAppend->iExt < 1 || pAppend->iExt > nExt - 1) {
            const_cast<SVdim&>(chain).SetAppendingText(pAppend->iExt, nullptr);
            continue;
        }
        const int bRaised = chain.GetPointText(pAppend->iExt, points, texts, pAppend, -1);
        if (texts.GetSize() == 0 || points.length() == 0)
            continue;
        SetMarker(pWd, 3 * pAppend->iExt + 1);
        SetColor(pWd, iTextColor);
        if (!bRaised && texts.GetSize() > 1)
            texts.SetSize(1);
        DrawTextParts(pWd, pEnts, chain, points, texts, vDir, style, iTextColor);
    }

    // The chain label, at one end or both.
    chain.GetPointText(-100, points, texts);
    if (chain.GetChainLabelCode() > 0 && texts.GetSize() > 0 && !texts[0].IsEmpty()) {
        SetColor(pWd, iTextColor);
        for (int j = 0; j < points.length() && j < 2; ++j)
            DrawText(pWd, pEnts, points[j], chain.GetChainNormal(), vDir, texts[0], dHeight, &style,
                     chain.m_textStyleId, iTextColor);
    }

    TakeTraits(pEnts, nBefore, chain.layerId(), iTextColor);
}

