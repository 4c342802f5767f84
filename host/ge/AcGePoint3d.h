// AcGePoint3d: a position in 3D; equality is by distance within the point tolerance.
#pragma once

#include "host/ge/AcGeTol.h"
#include "host/ge/AcGeVector3d.h"

class AcGeMatrix3d;
class AcGePlane;
class AcGePoint2d;

class AcGePoint3d {
public:
    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGePoint3d kOrigin;

    AcGePoint3d& set(double xx, double yy, double zz);
    AcGePoint3d& setToProduct(const AcGeMatrix3d& m, const AcGePoint3d& p);
    AcGePoint3d& setToSum(const AcGePoint3d& p, const AcGeVector3d& v);

    // Arithmetic with vectors and scalars
    AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    AcGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
    AcGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
    AcGePoint3d& operator+=(const AcGeVector3d& v) { x += v.x; y += v.y; z += v.z; return *this; }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    AcGePoint3d& operator*=(double s) { x *= s; y *= s; z *= s; return *this; }
    AcGePoint3d& operator/=(double s) { x /= s; y /= s; z /= s; return *this; }
    double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }
    double& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }
    // Equality at the global tolerance.
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint3d& p) const { return !isEqualTo(p); }

    double distanceTo(const AcGePoint3d& p) const;
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d asVector() const { return {x, y, z}; }

    AcGePoint3d& transformBy(const AcGeMatrix3d& m);
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& center = kOrigin);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& center = kOrigin);
    AcGePoint3d& mirror(const AcGePlane& plane);

    // Foot of the perpendicular on the plane.
    AcGePoint3d orthoProject(const AcGePlane& plane) const;
    // Along dir onto the plane; a direction parallel to the plane leaves the point as it is.
    AcGePoint3d project(const AcGePlane& plane, const AcGeVector3d& dir) const;
    // Coordinates in the plane's own (u, v) axes after orthogonal projection.
    AcGePoint2d convert2d(const AcGePlane& plane) const;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline AcGePoint3d operator*(double s, const AcGePoint3d& p) { return p * s; }
