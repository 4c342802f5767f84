// AcGeVector2d: a free vector in the plane.
#pragma once

#include "host/ge/AcGeTol.h"

class AcGeVector2d {
public:
    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity;
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    AcGeVector2d& set(double xx, double yy) { x = xx; y = yy; return *this; }

    AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-() const { return {-x, -y}; }
    AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
    AcGeVector2d operator/(double s) const { return {x / s, y / s}; }
    AcGeVector2d& operator+=(const AcGeVector2d& v) { x += v.x; y += v.y; return *this; }
    AcGeVector2d& operator-=(const AcGeVector2d& v) { x -= v.x; y -= v.y; return *this; }
    AcGeVector2d& operator*=(double s) { x *= s; y *= s; return *this; }
    double operator[](int i) const { return i == 0 ? x : y; }
    double& operator[](int i) { return i == 0 ? x : y; }
    bool operator==(const AcGeVector2d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector2d& v) const { return !isEqualTo(v); }

    double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
    double length() const;
    double lengthSqrd() const { return x * x + y * y; }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector2d& negate() { x = -x; y = -y; return *this; }
    AcGeVector2d perpVector() const { return {-y, x}; } // turned +90 degrees
    AcGeVector2d& rotateBy(double angle);

    double angle() const;                          // from the x axis, [0, 2pi)
    double angleTo(const AcGeVector2d& v) const;   // [0, pi]
    bool isParallelTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;

    double x = 0.0;
    double y = 0.0;
};

inline AcGeVector2d operator*(double s, const AcGeVector2d& v) { return v * s; }
