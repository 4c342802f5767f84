// AcGeCircArc3d: a circular arc or full circle in 3D. The parameter is the angle from
// the reference vector, counter-clockwise about the normal, running from startAng()
// to endAng() (endAng() > startAng(), a full circle is 0 to 2pi).
#pragma once

#include "host/ge/AcGeEntity3d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"

class AcGeLine3d;
class AcGeLinearEnt3d;
class AcGePlane;

class AcGeCircArc3d : public AcGeCurve3d {
public:
    AcGeCircArc3d(); // unit circle about the origin in the XY plane
    // Full circle; the reference vector is the arbitrary-axis x axis of the normal.
    AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& refVec,
                  double radius, double startAngle = 0.0, double endAngle = 6.28318530717958647692);
    // From start through pnt to end. Collinear points give a zero-radius arc at startPoint.
    AcGeCircArc3d(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint);

    AcGeCircArc3d& set(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcGeCircArc3d& set(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& refVec,
                       double radius, double startAngle, double endAngle);
    AcGeCircArc3d& set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint);
    AcGeCircArc3d& set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint,
                       AcGe::ErrorCondition& error);
    AcGeCircArc3d& setCenter(const AcGePoint3d& center);
    AcGeCircArc3d& setRadius(double radius);
    AcGeCircArc3d& setAngles(double startAngle, double endAngle);
    // New axes; refVec is made perpendicular to the normal. The angles stay numerically.
    AcGeCircArc3d& setAxes(const AcGeVector3d& normal, const AcGeVector3d& refVec);

    AcGe::EntityId type() const override { return AcGe::kCircArc3d; }
    bool isKindOf(AcGe::EntityId id) const override;
    AcGeCircArc3d* copy() const override { return new AcGeCircArc3d(*this); }
    AcGeCircArc3d& transformBy(const AcGeMatrix3d& m) override;

    AcGePoint3d center() const { return m_center; }
    double radius() const { return m_radius; }
    AcGeVector3d normal() const { return m_normal; }
    AcGeVector3d refVec() const { return m_refVec; }
    double startAng() const { return m_startAng; }
    double endAng() const { return m_endAng; }
    AcGePoint3d startPoint() const { return evalPoint(m_startAng); }
    AcGePoint3d endPoint() const { return evalPoint(m_endAng); }
    void getPlane(AcGePlane& plane) const;
    double length() const; // of the whole arc
    double length(double fromParam, double toParam) const;

    using AcGeCurve3d::isOn;
    // Angle of the point's projection, expressed within the arc's range where it can be;
    // off the arc, the representation nearest to the range.
    double paramOf(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGePoint3d evalPoint(double param) const override;
    AcGePoint3d closestPointTo(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool hasStartPoint(AcGePoint3d& pt) const override { pt = startPoint(); return true; }
    bool hasEndPoint(AcGePoint3d& pt) const override { pt = endPoint(); return true; }
    bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const override;
    // Flips the normal: the same points, now traversed from the old end to the old start.
    AcGeCircArc3d& reverseParam() override;
    // Unit tangent in the parameter's direction at a point on the arc.
    bool tangent(const AcGePoint3d& pt, AcGeLine3d& line, const AcGeTol& tol = AcGeContext::gTol) const;

    // Intersections, counted within both extents. A line that misses the circle by no
    // more than the point tolerance touches it once; two points come in the line's order.
    bool intersectWith(const AcGeLinearEnt3d& line, int& numInt, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeCircArc3d& arc, int& numInt, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;

private:
    AcGeVector3d yAxis() const { return m_normal.crossProduct(m_refVec); }
    // Angle of the point's projection from the reference vector, in [0, 2pi).
    double rawAngle(const AcGePoint3d& pt) const;
    bool angleInExtent(double angle, const AcGeTol& tol) const;
    // Meeting points of the whole circle with the infinite line through line.
    int circleHits(const AcGeLinearEnt3d& line, AcGePoint3d hits[2], const AcGeTol& tol) const;

    AcGePoint3d m_center;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    AcGeVector3d m_refVec{1.0, 0.0, 0.0};
    double m_radius = 1.0;
    double m_startAng = 0.0;
    double m_endAng = 6.28318530717958647692;
};
