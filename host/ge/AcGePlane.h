// AcGePlane: an unbounded plane with an origin and two in-plane axes.
// A plane made from a normal takes the arbitrary-axis x axis of that normal,
// the same axes an entity's object coordinate system uses.
#pragma once

#include "host/ge/AcGeEntity3d.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"

class AcGeLinearEnt3d;

class AcGePlane : public AcGeEntity3d {
public:
    AcGePlane(); // the XY plane
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal);
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis);
    // Through three points: origin, then one point along each axis.
    AcGePlane(const AcGePoint3d& pntU, const AcGePoint3d& origin, const AcGePoint3d& pntV);
    // The plane a*x + b*y + c*z + d = 0.
    AcGePlane(double a, double b, double c, double d);

    static const AcGePlane kXYPlane;
    static const AcGePlane kYZPlane;
    static const AcGePlane kZXPlane;

    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& normal);
    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis);

    AcGe::EntityId type() const override { return AcGe::kPlane; }
    bool isKindOf(AcGe::EntityId id) const override;
    AcGePlane* copy() const override { return new AcGePlane(*this); }
    bool isOn(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGePlane& transformBy(const AcGeMatrix3d& m) override;

    AcGeVector3d normal() const { return m_normal; }
    AcGePoint3d pointOnPlane() const { return m_origin; }
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const;
    // The coefficients of a*x + b*y + c*z + d = 0 with a unit normal.
    void getCoefficients(double& a, double& b, double& c, double& d) const;

    double signedDistanceTo(const AcGePoint3d& pt) const; // positive on the normal's side
    double distanceTo(const AcGePoint3d& pt) const;
    AcGePoint3d closestPointTo(const AcGePoint3d& pt) const;
    // Along dir onto the plane; false (and projected = pt) when dir runs parallel to the plane.
    bool project(const AcGePoint3d& pt, const AcGeVector3d& dir, AcGePoint3d& projected,
                 const AcGeTol& tol = AcGeContext::gTol) const;
    // Plane coordinates of a point, in the plane's (u, v) axes, and back.
    AcGePoint2d paramOf(const AcGePoint3d& pt) const;
    AcGePoint3d evalPoint(const AcGePoint2d& uv) const;

    bool intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& pt,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGePlane& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCoplanarTo(const AcGePlane& other, const AcGeTol& tol = AcGeContext::gTol) const;

private:
    AcGePoint3d m_origin;
    AcGeVector3d m_u{1.0, 0.0, 0.0};
    AcGeVector3d m_v{0.0, 1.0, 0.0};
    AcGeVector3d m_normal{0.0, 0.0, 1.0}; // unit, u x v
};
