// The curve conversions of Util: database arcs, circles and polyline arc
// segments to geometry arcs and back, and the ends of a picked segment.
#include "proxy/Util.h"

#include <memory>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbPolyline.h"
#include "host/rx/acutPrintf.h"
#include "services/Trace.h"

namespace {

// The last segment index, as the diagnostics name it.
int LastSegment(const AcDbPolyline* pPline)
{
    return static_cast<int>(pPline->numVerts()) - 1;
}

bool IsSegmentIndex(const AcDbPolyline* pPline, int iSubEnt)
{
    return iSubEnt >= 0 && iSubEnt <= static_cast<int>(pPline->numVerts()) - 2;
}

} // namespace

AcGeCircArc3d* Arc2GeArc(AcDbArc* pArc)
{
    if (!pArc)
        return nullptr;
    const AcGeVector3d normal = pArc->normal();
    return new AcGeCircArc3d(pArc->center(), normal, normal.perpVector(), pArc->radius(), pArc->startAngle(),
                             pArc->endAngle());
}

AcGeCircArc3d* Circle2GeArc(AcDbCircle* pCircle)
{
    if (!pCircle)
        return nullptr;
    return new AcGeCircArc3d(pCircle->center(), pCircle->normal(), pCircle->radius());
}

AcGeCircArc3d* Polyline2GeArc(AcDbPolyline* pPline, int iSubEnt)
{
    if (!pPline)
        return nullptr;
    if (!IsSegmentIndex(pPline, iSubEnt)) {
        acutPrintf(L"\nPolyline2GeArc Subent=%d total=%d", iSubEnt, LastSegment(pPline));
        return nullptr;
    }
    const AcDbPolyline::SegType type = pPline->segType(static_cast<unsigned int>(iSubEnt));
    if (type == AcDbPolyline::kLine) {
        TraceF(L"\n***Polyline2GeArc Subent=%d total=%d", iSubEnt, LastSegment(pPline));
        Trace(L" - CIARA - blbost ");
        return nullptr;
    }
    if (type != AcDbPolyline::kArc)
        return nullptr;
    AcGeCircArc3d arc3d;
    Acad::ErrorStatus es = pPline->getArcSegAt(static_cast<unsigned int>(iSubEnt), arc3d);
    if (es != Acad::eOk) {
        acutPrintf(L"\nFailed to get segment at %d.  e=%d", iSubEnt, static_cast<int>(es));
        TraceF(L"\n***3d Failed to get segment at %d.  e=%d", iSubEnt, static_cast<int>(es));
        return nullptr;
    }
    AcGeCircArc2d arc2d;
    es = pPline->getArcSegAt(static_cast<unsigned int>(iSubEnt), arc2d);
    if (es != Acad::eOk)
        TraceF(L"\n***2d Failed to get segment at %d.  e=%d", iSubEnt, static_cast<int>(es));
    auto* pResult = new AcGeCircArc3d(arc3d);
    // The 2D arc keeps the segment's own sense; the 3D one is always counter-clockwise.
    if (es == Acad::eOk && arc2d.isClockWise())
        pResult->reverseParam();
    return pResult;
}

AcGeCircArc3d* Polyline2GeArc(AcDbPolyline* pPline, const AcGePoint3d& pointStart, const AcGePoint3d& pointEnd)
{
    if (!pPline) {
        acutPrintf(L" !Polyline2GeArc ");
        return nullptr;
    }
    const int nSegments = static_cast<int>(pPline->numVerts()) - 1;
    int iStartLine = -1, iEndLine = -1, iStartArc = -1, iEndArc = -1;
    for (int i = 0; i < nSegments; ++i) {
        const auto index = static_cast<unsigned int>(i);
        const AcDbPolyline::SegType type = pPline->segType(index);
        if (type == AcDbPolyline::kLine) {
            AcGeLineSeg3d line;
            const Acad::ErrorStatus es = pPline->getLineSegAt(index, line);
            if (es != Acad::eOk) {
                acutPrintf(L"\nFailed to get segment at %d. e=%d", i, static_cast<int>(es));
                return nullptr;
            }
            if (line.isOn(pointStart))
                iStartLine = i;
            if (line.isOn(pointEnd))
                iEndLine = i;
        } else if (type == AcDbPolyline::kArc) {
            AcGeCircArc3d arc;
            const Acad::ErrorStatus es = pPline->getArcSegAt(index, arc);
            if (es != Acad::eOk) {
                acutPrintf(L"\nFailed to get segment at %d.  e=%d", i, static_cast<int>(es));
                return nullptr;
            }
            if (arc.isOn(pointStart))
                iStartArc = i;
            if (arc.isOn(pointEnd))
                iEndArc = i;
        }
    }
    if (iStartArc < 0 && iEndArc < 0 && iStartLine >= 0 && iEndLine >= 0) {
        const int iFrom = iStartLine < iEndLine ? iStartLine : iEndLine;
        const int iTo = iStartLine < iEndLine ? iEndLine : iStartLine;
        for (int i = iFrom; i <= iTo; ++i) {
            if (pPline->segType(static_cast<unsigned int>(i)) == AcDbPolyline::kArc) {
                iStartArc = iEndArc = i;
                break;
            }
        }
    }
    const int iChosen = iStartArc > iEndArc ? iStartArc : iEndArc;
    // Segment 0 is never taken: callers rely on that.
    if (iChosen < 1 || iChosen >= static_cast<int>(pPline->numVerts()) - 1)
        return nullptr;
    AcGeCircArc3d arc;
    if (pPline->getArcSegAt(static_cast<unsigned int>(iChosen), arc) != Acad::eOk)
        return nullptr;
    return new AcGeCircArc3d(arc);
}

AcGeCircArc3d* Curve2GeArc(AcDbCurve* pCurve, const AcGePoint3d& pointStart, const AcGePoint3d& pointEnd)
{
    if (!pCurve)
        return nullptr;
    try {
        if (auto* pArc = AcDbArc::cast(pCurve))
            return Arc2GeArc(pArc);
        if (auto* pCircle = AcDbCircle::cast(pCurve))
            return Circle2GeArc(pCircle);
        if (auto* pPline = AcDbPolyline::cast(pCurve))
            return Polyline2GeArc(pPline, pointStart, pointEnd);
    } catch (...) {
        acutPrintf(L"\n ERROR on GeArc getting...");
    }
    return nullptr;
}

AcGeCircArc3d* Curve2GeArc(AcDbCurve* pCurve, int iSubEnt)
{
    if (!pCurve) {
        Trace(L"\n***************** Curve2GeArc !pGeArc...");
        return nullptr;
    }
    try {
        if (auto* pArc = AcDbArc::cast(pCurve))
            return Arc2GeArc(pArc);
        if (auto* pPline = AcDbPolyline::cast(pCurve))
            return Polyline2GeArc(pPline, iSubEnt);
        if (auto* pCircle = AcDbCircle::cast(pCurve))
            return Circle2GeArc(pCircle);
        acutPrintf(L"\n Curve2GeArc - unsupported object ...");
    } catch (...) {
        acutPrintf(L"\n ERROR on GeArc getting...");
    }
    return nullptr;
}

AcDbArc* GeArc2Arc(const AcGeCircArc3d* pGeArc)
{
    // Three points in a row give an arc of no radius: there is no entity for it.
    if (!pGeArc || !(pGeArc->radius() > 0.0))
        return nullptr;
    const AcGePlane plane(pGeArc->center(), pGeArc->normal());
    const double dOffset = pGeArc->refVec().angleOnPlane(plane);
    return new AcDbArc(pGeArc->center(), pGeArc->normal(), pGeArc->radius(), pGeArc->startAng() + dOffset,
                       pGeArc->endAng() + dOffset);
}

int GetSegmentEnds(AcDbCurve* pCurve, int iSubEnt, AcGePoint3d& start, AcGePoint3d& end)
{
    if (!pCurve)
        return 0;
    auto* pPline = AcDbPolyline::cast(pCurve);
    if (!pPline) {
        pCurve->getStartPoint(start);
        pCurve->getEndPoint(end);
        return 1;
    }
    if (!IsSegmentIndex(pPline, iSubEnt)) {
        pPline->getStartPoint(start);
        pPline->getEndPoint(end);
        return 0;
    }
    const AcDbPolyline::SegType type = pPline->segType(static_cast<unsigned int>(iSubEnt));
    if (type == AcDbPolyline::kLine)
        return 0;
    if (type != AcDbPolyline::kArc)
        return 1;
    AcGeCircArc3d arc;
    const Acad::ErrorStatus es = pPline->getArcSegAt(static_cast<unsigned int>(iSubEnt), arc);
    if (es != Acad::eOk) {
        acutPrintf(L"\nFailed to get segment at %d.  e=%d", iSubEnt, static_cast<int>(es));
        return 0;
    }
    start = arc.startPoint();
    end = arc.endPoint();
    return 1;
}
