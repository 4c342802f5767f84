// AcGeVector3d: a free vector in 3D with the platform's tolerance-aware tests.
#pragma once

#include "host/ge/AcGeTol.h"

class AcGeMatrix3d;
class AcGePlane;
class AcGeVector2d;

class AcGeVector3d {
public:
    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGeVector3d kIdentity; // the zero vector
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    AcGeVector3d& set(double xx, double yy, double zz);
    AcGeVector3d& setToProduct(const AcGeMatrix3d& m, const AcGeVector3d& v);
    AcGeVector3d& setToSum(const AcGeVector3d& a, const AcGeVector3d& b);

    // Arithmetic
    AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { x += v.x; y += v.y; z += v.z; return *this; }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    AcGeVector3d& operator*=(double s) { x *= s; y *= s; z *= s; return *this; }
    AcGeVector3d& operator/=(double s) { x /= s; y /= s; z /= s; return *this; }
    double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }
    double& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }
    // Equality at the global tolerance.
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector3d& v) const { return !isEqualTo(v); }

    // Products and lengths
    double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    AcGeVector3d crossProduct(const AcGeVector3d& v) const;
    double length() const;
    double lengthSqrd() const { return x * x + y * y + z * z; }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;

    // Unit vector in the same direction; a zero-length vector comes back unchanged.
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector3d& negate();
    // Unit vector perpendicular to this one, by the arbitrary-axis rule:
    // for (0,0,1) it is (1,0,0), for in-plane vectors it is this turned +90 degrees.
    AcGeVector3d perpVector() const;

    // Angles
    double angleTo(const AcGeVector3d& v) const; // [0, pi]
    // Angle of the rotation counter-clockwise about ref that takes this to v, in [0, 2pi).
    double angleTo(const AcGeVector3d& v, const AcGeVector3d& ref) const;
    // Angle of the projection on the plane, from the plane's x axis about its normal, [0, 2pi).
    double angleOnPlane(const AcGePlane& plane) const;

    // Relations, by angle within the vector tolerance; zero-length vectors relate to nothing.
    bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    // Every component within the vector tolerance.
    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;

    // Transformations
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& m);
    AcGeVector3d& mirror(const AcGeVector3d& normalToPlane);
    AcGeVector3d orthoProject(const AcGeVector3d& planeNormal) const;
    AcGeVector2d convert2d(const AcGePlane& plane) const;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline AcGeVector3d operator*(double s, const AcGeVector3d& v) { return v * s; }
