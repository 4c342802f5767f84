// Util: free functions the entities lean on. The geometry helpers make the
// platform's intersections forgiving: a miss at the default tolerance is
// retried at coarser tolerances before it counts as a failure.
//
// The curve conversions (Arc2GeArc, Polyline2GeArc, Curve2GeArc, GeArc2Arc,
// GetSegmentEnds), the text-style helpers and the drawing primitives join
// this header once the database and the display are in place.
#pragma once

#include "host/ge/AcGe.h"
#include "host/rx/Adesk.h"

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
