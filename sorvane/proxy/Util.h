// Util: free functions the entities lean on. The geometry helpers make the
// platform's intersections forgiving: a miss at the default tolerance is
// retried at coarser tolerances before it counts as a failure. The curve
// conversions turn database curves into geometry arcs and back, and the
// drawing primitives either draw into a viewport or make entities, so that
// worldDraw and explode share one drawing routine.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGe.h"
#include "host/rx/Adesk.h"

class AcDbArc;
class AcDbCircle;
class AcDbCurve;
class AcDbPolyline;
class AcGiTextStyle;
class AcGiWorldDraw;

// Line against the whole circle of the arc (its limits play no part). A
// single touching point is returned in both p1 and p2.
Adesk::Boolean IntersectCircle(const AcGeCircArc3d& arc, const AcGeLinearEnt3d& line, AcGePoint3d& p1,
                               AcGePoint3d& p2);

// Two lines (or rays, or segments) that come within 0.001 of each other meet;
// parallel lines never do. The lines are taken as copies.
Adesk::Boolean IntersectLines(AcGeLinearEnt3d lineA, AcGeLinearEnt3d lineB, AcGePoint3d& result);
inline Adesk::Boolean MyIntersect(AcGeLinearEnt3d lineA, AcGeLinearEnt3d lineB, AcGePoint3d& result)
{
    return IntersectLines(lineA, lineB, result);
}

// The circle-line hit nearer to nearPoint (the second on a tie). With
// restrictTo, a hit that alone lies on that curve wins even if farther.
// Returns 1, or 0 with result unchanged when the line misses the circle.
int MyIntersect(const AcGeCircArc3d& arc, const AcGeLinearEnt3d& line, AcGePoint3d& result,
                const AcGePoint3d& nearPoint, const AcGeCurve3d* restrictTo = nullptr);

// Moves point away from fromPoint along their joining line by distance, in
// plan. 0 if the two points coincide, 1 otherwise.
int SetExtendPoint(AcGePoint3d& point, const AcGePoint3d& fromPoint, double distance);

// Projects point onto the line A-B and clamps it to the stretch between the
// circle of radiusA about A and the circle of radiusB about B. 0 if A and B
// coincide, 1 otherwise.
int SetBoundaryPoint(AcGePoint3d& point, const AcGePoint3d& pointA, double radiusA, const AcGePoint3d& pointB,
                     double radiusB);

// Orthogonal projection of the point onto the plane.
AcGePoint3d ProjectToPlane(const AcGePoint3d& point, const AcGePoint3d& planeOrigin,
                           const AcGeVector3d& planeNormal);

// 0 if in x or y one value lies below -0.001 while the other is 0 or above;
// 1 otherwise. Deliberately lopsided round zero.
int SameQuadrant(const double* vectorA, const double* vectorB);

// Curve conversion ---------------------------------------------------------
// Each answers a new arc the caller deletes, or null.

// The arc with reference vector normal.perpVector() and the arc's angles as stored.
AcGeCircArc3d* Arc2GeArc(AcDbArc* pArc);
// The full circle.
AcGeCircArc3d* Circle2GeArc(AcDbCircle* pCircle);
// The arc segment that two picked points lie on: the later of the segments
// holding them, or, when both lie on lines, the first arc between those lines.
// Segment 0 is never answered: an arc that starts the polyline gives null.
AcGeCircArc3d* Polyline2GeArc(AcDbPolyline* pPline, const AcGePoint3d& pointStart, const AcGePoint3d& pointEnd);
// The arc of segment iSubEnt; its parameter runs the way the polyline does
// (against the counter-clockwise default on a clockwise bulge). Null for a
// line segment or an index that names no segment.
AcGeCircArc3d* Polyline2GeArc(AcDbPolyline* pPline, int iSubEnt);
// By the curve's class: arc, circle or polyline; any other gives null.
AcGeCircArc3d* Curve2GeArc(AcDbCurve* pCurve, const AcGePoint3d& pointStart, const AcGePoint3d& pointEnd);
AcGeCircArc3d* Curve2GeArc(AcDbCurve* pCurve, int iSubEnt);
// A new arc entity (not in a database) for the geometry arc; null for null
// or for an arc of no radius (three points in a row).
AcDbArc* GeArc2Arc(const AcGeCircArc3d* pGeArc);
// Start and end of a curve, or of an arc segment iSubEnt of a polyline.
// 1 when the points were given from an arc segment or a non-polyline curve;
// 0 for a null curve, a line segment (points untouched) or a bad index
// (the whole polyline's ends are given).
int GetSegmentEnds(AcDbCurve* pCurve, int iSubEnt, AcGePoint3d& start, AcGePoint3d& end);

// Text styles ----------------------------------------------------------------

// The record's fixed text size; 0.0 when it cannot be opened.
double GetTextStyleSize(AcDbObjectId styleId);
// Writes the size only when it differs (no undo record for an equal value).
// 0 when the record cannot be opened for write, 1 otherwise.
int SetTextStyleSize(AcDbObjectId styleId, double dSize);
// Copies name, font file, big font, typeface, size, x scale and obliquing
// angle of the record. Opens the record: resolve once per entity, not per text.
void TextStyleToGi(AcGiTextStyle& textStyle, AcDbObjectId styleId);

// Drawing primitives -----------------------------------------------------------
// Each takes a world draw and an entity array first. With a world draw it
// draws and ignores the array; without one it appends new entities (the
// caller owns them) to the array; with neither it does nothing. Each returns
// 1. None of them opens a database object.

int DrawLine(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& pt1, const AcGePoint3d& pt2);
// A filled polygon of 3 or 4 points becomes a solid; any other, its outline
// as lines, the closing line first (n >= 3), then the sides in order.
int DrawPolygon(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d* pPoints, int nPoints,
                bool bFilled);
int DrawArc3P(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptStart, const AcGePoint3d& ptOnArc,
              const AcGePoint3d& ptEnd);
// As an entity the circle is never filled.
int DrawCircle(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptCenter, double dRadius,
               const AcGeVector3d& normal, bool bFilled);
// As an entity a sector is a two-vertex polyline band of the radius' width,
// a quarter turn from half the radius out along vStart.
int DrawFilledSector(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptCenter, double dRadius,
                     const AcGeVector3d& normal, const AcGeVector3d& vStart, double dSweep);
// A filled triangle from the tip back along vDir by dLength, dHalfWidth to each side.
int DrawArrowHead(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptTip, const AcGeVector3d& vDir,
                  double dLength, double dHalfWidth);
// Two lines through the centre at 45 degrees to vDir, each 2 * dHalfLength long.
int DrawCross(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptCenter, double dHalfLength,
              const AcGeVector3d& vDir, const AcGeVector3d& normal);
int DrawXline(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptBase, const AcGeVector3d& vDir);
// The text at dHeight in pTextStyle (a default style when null). On screen
// and with the option WipeOut on, a filled rectangle in the background colour
// (white when plotting) is painted under it first. As an entity: an AcDbText
// with height, rotation, styleId and the style's width factor and oblique;
// iColor 0..256 sets its colour (-1 keeps the database default).
int DrawText(AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, const AcGePoint3d& ptPosition, const AcGeVector3d& normal,
             const AcGeVector3d& vDir, const wchar_t* pText, double dHeight, const AcGiTextStyle* pTextStyle,
             AcDbObjectId styleId = AcDbObjectId::kNull, int iColor = -1);
