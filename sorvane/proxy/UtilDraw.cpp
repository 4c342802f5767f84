// The drawing primitives of Util: each draws into a world draw or, for
// explode, makes entities, so that both come from one drawing routine.
#include "proxy/Util.h"

#include <vector>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbXline.h"
#include "host/gi/AcGiTextStyle.h"
#include "host/gi/AcGiWorldDraw.h"
#include "options/GlobDimOptions.h"

namespace {

// The constants the chain's figures were drawn with; kept as they are so
// that pictures do not move.
constexpr double kSectorBulge = 0.4142;
constexpr double kCrossTurn = 0.785398163375;
constexpr double kRightAngle = 1.57079632675;
constexpr double kFullTurn = 6.283185307;
constexpr double kXlineReach = 1000000.0;
constexpr double kWipeOutMarginDivisor = 15.0;

void SetFill(AcGiWorldDraw* pWd, bool bOn)
{
    pWd->subEntityTraits().setFillType(bOn ? kAcGiFillAlways : kAcGiFillNever);
}

AcCmEntityColor RgbColor(DWORD dwRgb)
{
    return AcCmEntityColor(static_cast<Adesk::UInt8>(dwRgb >> 16), static_cast<Adesk::UInt8>(dwRgb >> 8),
                           static_cast<Adesk::UInt8>(dwRgb));
}

// The background under a text, painted in the fill colour and with the
// traits put back as they were.
void DrawWipeOut(AcGiWorldDraw* pWd, const AcGePoint3d& ptPosition, const AcGeVector3d& vX, const AcGeVector3d& vY,
                 double dWidth, double dHeight)
{
    const double m = dHeight / kWipeOutMarginDivisor;
    const AcGePoint3d ptStart = ptPosition - vX * m - vY * m;
    const AcGeVector3d vAlong = vX * (dWidth + 2.0 * m);
    const AcGeVector3d vUp = vY * (dHeight + 2.0 * m);
    const AcGePoint3d pts[4] = {ptStart, ptStart + vAlong, ptStart + vAlong + vUp, ptStart + vUp};

    AcGiSubEntityTraits& traits = pWd->subEntityTraits();
    const AcCmEntityColor colorBefore = traits.trueColor();
    const AcGiFillType fillBefore = traits.fillType();
    traits.setFillType(kAcGiFillAlways);
    traits.setTrueColor(pWd->isPlotGeneration() ? AcCmEntityColor(255, 255, 255)
                                                : RgbColor(pGlobDimOptions->m_dwBackgroundColor));
    pWd->geometry().polygon(4, pts);
    traits.setTrueColor(colorBefore);
    traits.setFillType(fillBefore);
}

} // namespace

int DrawLine(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& pt1, const AcGePoint3d& pt2)
{
    if (pWd) {
        const AcGePoint3d pts[2] = {pt1, pt2};
        pWd->geometry().polyline(2, pts);
    } else if (pEnts) {
        pEnts->append(new AcDbLine(pt1, pt2));
    }
    return 1;
}

int DrawPolygon(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d* pPoints, int nPoints,
                bool bFilled)
{
    if (!pPoints || nPoints <= 0)
        return 1;
    if (pWd) {
        if (bFilled)
            SetFill(pWd, true);
        pWd->geometry().polygon(static_cast<Adesk::UInt32>(nPoints), pPoints);
        if (bFilled)
            SetFill(pWd, false);
        return 1;
    }
    if (!pEnts)
        return 1;
    if (bFilled && nPoints == 3) {
        pEnts->append(new AcDbSolid(pPoints[0], pPoints[1], pPoints[2]));
        return 1;
    }
    if (bFilled && nPoints == 4) {
        // A solid's third and fourth points are swapped against the outline.
        pEnts->append(new AcDbSolid(pPoints[0], pPoints[1], pPoints[3], pPoints[2]));
        return 1;
    }
    if (nPoints >= 3)
        pEnts->append(new AcDbLine(pPoints[0], pPoints[nPoints - 1]));
    for (int i = 0; i + 1 < nPoints; ++i)
        pEnts->append(new AcDbLine(pPoints[i], pPoints[i + 1]));
    return 1;
}

int DrawArc3P(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptStart, const AcGePoint3d& ptOnArc,
              const AcGePoint3d& ptEnd)
{
    if (pWd) {
        pWd->geometry().circularArc(ptStart, ptOnArc, ptEnd, kAcGiArcSimple);
    } else if (pEnts) {
        const AcGeCircArc3d geArc(ptStart, ptOnArc, ptEnd);
        if (AcDbArc* pArc = GeArc2Arc(&geArc))
            pEnts->append(pArc);
    }
    return 1;
}

int DrawCircle(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptCenter, double dRadius,
               const AcGeVector3d& normal, bool bFilled)
{
    if (pWd) {
        if (bFilled)
            SetFill(pWd, true);
        pWd->geometry().circle(ptCenter, dRadius, normal);
        if (bFilled)
            SetFill(pWd, false);
    } else if (pEnts) {
        pEnts->append(new AcDbCircle(ptCenter, normal, dRadius));
    }
    return 1;
}

int DrawFilledSector(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptCenter, double dRadius,
                     const AcGeVector3d& normal, const AcGeVector3d& vStart, double dSweep)
{
    if (pWd) {
        SetFill(pWd, true);
        pWd->geometry().circularArc(ptCenter, dRadius, normal, vStart, dSweep, kAcGiArcSector);
        SetFill(pWd, false);
        return 1;
    }
    if (!pEnts)
        return 1;
    // A band as wide as the radius along the arc at half the radius covers
    // the sector from the centre to the rim.
    const AcGeVector3d v = vStart * (dRadius / 2.0);
    const AcGePoint3d pt0 = ptCenter + v;
    const AcGePoint3d pt1 = ptCenter + AcGeVector3d(v).rotateBy(dSweep, AcGeVector3d::kZAxis);
    auto* pPline = new AcDbPolyline(2);
    pPline->setNormal(normal);
    const AcGeMatrix3d toPlane = AcGeMatrix3d::planeToWorld(normal).inverse();
    const AcGePoint3d o0 = toPlane * pt0, o1 = toPlane * pt1;
    pPline->addVertexAt(0, AcGePoint2d(o0.x, o0.y), kSectorBulge, dRadius, dRadius);
    pPline->addVertexAt(1, AcGePoint2d(o1.x, o1.y), kSectorBulge, dRadius, dRadius);
    pPline->setElevation(o0.z);
    pEnts->append(pPline);
    return 1;
}

int DrawArrowHead(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptTip, const AcGeVector3d& vDir,
                  double dLength, double dHalfWidth)
{
    const AcGePoint3d ptBase = ptTip + vDir * dLength;
    const AcGeVector3d vSide = vDir.perpVector() * dHalfWidth;
    const AcGePoint3d pts[3] = {ptTip, ptBase + vSide, ptBase - vSide};
    return DrawPolygon(pWd, pEnts, pts, 3, true);
}

int DrawCross(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptCenter, double dHalfLength,
              const AcGeVector3d& vDir, const AcGeVector3d& normal)
{
    AcGeVector3d v = vDir.normal() * dHalfLength;
    v.rotateBy(kCrossTurn, normal);
    DrawLine(pWd, pEnts, ptCenter + v, ptCenter - v);
    v.rotateBy(kRightAngle, normal);
    DrawLine(pWd, pEnts, ptCenter + v, ptCenter - v);
    return 1;
}

int DrawXline(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptBase, const AcGeVector3d& vDir)
{
    if (pWd) {
        pWd->geometry().xline(ptBase, ptBase + vDir);
        // Viewers that drop infinite lines still show a long stretch of it.
        const AcGePoint3d pts[2] = {ptBase - vDir * kXlineReach, ptBase + vDir * kXlineReach};
        pWd->geometry().polyline(2, pts);
    } else if (pEnts) {
        auto* pXline = new AcDbXline();
        pXline->setBasePoint(ptBase);
        pXline->setUnitDir(vDir);
        pEnts->append(pXline);
    }
    return 1;
}

int DrawText(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptPosition, const AcGeVector3d& normal,
             const AcGeVector3d& vDir, const wchar_t* pText, double dHeight, const AcGiTextStyle* pTextStyle,
             AcDbObjectId styleId, int iColor)
{
    if (!pText)
        return 1;
    if (pWd) {
        AcGiTextStyle style = pTextStyle ? *pTextStyle : AcGiTextStyle();
        style.setTextSize(dHeight);
        if (pGlobDimOptions && pGlobDimOptions->m_bWipeOut) {
            const AcGePoint2d ext = style.extents(pText, Adesk::kTrue, -1, Adesk::kFalse, pWd);
            const AcGeVector3d vX = vDir.normal();
            const AcGeVector3d vY = normal.crossProduct(vX).normal();
            DrawWipeOut(pWd, ptPosition, vX, vY, ext.x, dHeight);
        }
        if (pTextStyle)
            pWd->geometry().text(ptPosition, normal, vDir, pText, -1, Adesk::kFalse, style);
        else
            pWd->geometry().text(ptPosition, normal, vDir, dHeight, 1.0, 0.0, pText);
        return 1;
    }
    if (!pEnts)
        return 1;
    // The angle counter-clockwise from the x axis, so the text reads as drawn.
    const double dAngle = AcGeVector3d::kXAxis.angleTo(vDir, AcGeVector3d::kZAxis);
    auto* pDbText = new AcDbText(ptPosition, pText, styleId, dHeight, 0.0);
    if (pTextStyle) {
        pDbText->setWidthFactor(pTextStyle->xScale());
        pDbText->setOblique(pTextStyle->obliquingAngle());
    }
    pDbText->setRotation(dAngle > 0.0 && dAngle < kFullTurn ? dAngle : 0.0);
    if (iColor >= 0 && iColor <= 256)
        pDbText->setColorIndex(static_cast<Adesk::UInt16>(iColor));
    pEnts->append(pDbText);
    return 1;
}
