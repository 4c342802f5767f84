// The forgiving geometry helpers of Util: intersections with tolerance
// retries, and point placement along lines and between circles.
#include "proxy/Util.h"

#include "host/rx/acutPrintf.h"
#include "services/Trace.h"

namespace {

// Retries pass a local AcGeTol to the platform, so AcGeContext::gTol is never changed.
constexpr int kRetryRounds = 100;
constexpr double kCircleRetryStep = 0.0001;
constexpr double kLineRetryStep = 0.00001;
constexpr double kOnCurveTolerance = 0.001;
constexpr double kQuadrantZero = -0.001;

AcGeTol RetryTolerance(int iRound, double dStep)
{
    const double dTol = iRound * dStep;
    return AcGeTol(dTol, dTol);
}

} // namespace

Adesk::Boolean IntersectCircle(const AcGeCircArc3d& arc, const AcGeLinearEnt3d& line, AcGePoint3d& p1,
                               AcGePoint3d& p2)
{
    const AcGeCircArc3d circle(arc.center(), arc.normal(), arc.radius());
    int nCount = 0;
    Adesk::Boolean bHit = circle.intersectWith(line, nCount, p1, p2);
    for (int i = 1; !bHit && i <= kRetryRounds; ++i)
        bHit = circle.intersectWith(line, nCount, p1, p2, RetryTolerance(i, kCircleRetryStep));
    if (nCount == 1)
        p2 = p1;
    return bHit;
}

Adesk::Boolean IntersectLines(AcGeLinearEnt3d lineA, AcGeLinearEnt3d lineB, AcGePoint3d& result)
{
    AcGeTol tol = AcGeContext::gTol;
    Adesk::Boolean bHit = lineA.intersectWith(lineB, result, tol);
    for (int i = 1; !bHit && i <= kRetryRounds; ++i) {
        tol = RetryTolerance(i, kLineRetryStep);
        bHit = lineA.intersectWith(lineB, result, tol);
    }
    if (!bHit) {
        if (lineA.isParallelTo(lineB, tol))
            Trace(L"\n*******lineDim isParallelTo lineExt ");
        else
            Trace(L"\n********Unknown Intersect Error ");
    }
    return bHit;
}

int MyIntersect(const AcGeCircArc3d& arc, const AcGeLinearEnt3d& line, AcGePoint3d& result,
                const AcGePoint3d& nearPoint, const AcGeCurve3d* restrictTo)
{
    AcGePoint3d p1, p2;
    if (!IntersectCircle(arc, line, p1, p2)) {
        Trace(L"\n **** MyIntersect ***");
        return 0;
    }
    AcGePoint3d chosen = p2.distanceTo(nearPoint) > p1.distanceTo(nearPoint) ? p1 : p2;
    if (restrictTo && !p1.isEqualTo(p2)) {
        AcGeTol onCurve;
        onCurve.setEqualPoint(kOnCurveTolerance);
        const bool bOn1 = restrictTo->isOn(p1, onCurve);
        const bool bOn2 = restrictTo->isOn(p2, onCurve);
        if (bOn1 != bOn2)
            chosen = bOn1 ? p1 : p2;
    }
    result = chosen;
    return 1;
}

int SetExtendPoint(AcGePoint3d& point, const AcGePoint3d& fromPoint, double distance)
{
    if (point.isEqualTo(fromPoint))
        return 0;
    const AcGeLine3d line(point, fromPoint);
    // Plan geometry: the circle always lies in the world XY plane.
    const AcGeCircArc3d circle(point, AcGeVector3d::kZAxis, distance);
    AcGePoint3d p1, p2;
    if (IntersectCircle(circle, line, p1, p2))
        point = p1.distanceTo(fromPoint) > p2.distanceTo(fromPoint) ? p1 : p2;
    else
        TraceF(L"\n************** SetExtendPoint %f !intersects ", distance);
    return 1;
}

int SetBoundaryPoint(AcGePoint3d& point, const AcGePoint3d& pointA, double radiusA, const AcGePoint3d& pointB,
                     double radiusB)
{
    if (pointA.isEqualTo(pointB))
        return 0;

    const AcGeLine3d lineMain(pointA, pointB);
    const AcGeVector3d direction = lineMain.direction();
    // A vertical line spans no plane with the Z axis; its point stays as it is.
    bool bProjected = false;
    if (!direction.isParallelTo(AcGeVector3d::kZAxis)) {
        const AcGePlane plane(pointA, direction, AcGeVector3d::kZAxis);
        const AcGePoint3d planePoint = point.orthoProject(plane);
        if (lineMain.isOn(planePoint)) {
            point = planePoint;
            bProjected = true;
        }
    }
    if (!bProjected)
        acutPrintf(L"\n !lineMain.isOn( planePoint ) ");

    const AcGeCircArc3d circleA(pointA, AcGeVector3d::kZAxis, radiusA);
    const AcGeCircArc3d circleB(pointB, AcGeVector3d::kZAxis, radiusB);
    AcGePoint3d boundary1 = AcGePoint3d::kOrigin;
    AcGePoint3d boundary2 = AcGePoint3d::kOrigin;
    if (!MyIntersect(circleA, lineMain, boundary1, pointB))
        TraceF(L"\n ********SetBoundaryPoint1 %f !intersects ", radiusA);
    if (!MyIntersect(circleB, lineMain, boundary2, pointA))
        TraceF(L"\n ********SetBoundaryPoint2 %f !intersects ", radiusB);

    const double d12 = boundary1.distanceTo(boundary2);
    const double d1 = point.distanceTo(boundary1);
    const double d2 = point.distanceTo(boundary2);
    if (d1 > d2 && d1 > d12)
        point = boundary2; // past boundary 2
    else if (d2 > d1 && d2 > d12)
        point = boundary1; // past boundary 1
    return 1;
}

AcGePoint3d ProjectToPlane(const AcGePoint3d& point, const AcGePoint3d& planeOrigin,
                           const AcGeVector3d& planeNormal)
{
    if (planeNormal.isZeroLength())
        return point; // no plane to project on
    return point.orthoProject(AcGePlane(planeOrigin, planeNormal));
}

int SameQuadrant(const double* vectorA, const double* vectorB)
{
    if (!vectorA || !vectorB)
        return 0;
    for (int i = 0; i < 2; ++i) {
        const bool bOpposite = (vectorA[i] < kQuadrantZero && vectorB[i] >= 0.0) ||
                               (vectorB[i] < kQuadrantZero && vectorA[i] >= 0.0);
        if (bOpposite)
            return 0;
    }
    return 1;
}
