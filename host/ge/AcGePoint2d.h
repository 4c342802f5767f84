// AcGePoint2d: a position in the plane.
#pragma once

#include "host/ge/AcGeTol.h"
#include "host/ge/AcGeVector2d.h"

class AcGePoint2d {
public:
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    AcGePoint2d& set(double xx, double yy) { x = xx; y = yy; return *this; }

    AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    AcGePoint2d operator*(double s) const { return {x * s, y * s}; }
    AcGePoint2d& operator+=(const AcGeVector2d& v) { x += v.x; y += v.y; return *this; }
    AcGePoint2d& operator-=(const AcGeVector2d& v) { x -= v.x; y -= v.y; return *this; }
    double operator[](int i) const { return i == 0 ? x : y; }
    double& operator[](int i) { return i == 0 ? x : y; }
    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint2d& p) const { return !isEqualTo(p); }

    double distanceTo(const AcGePoint2d& p) const;
    bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d asVector() const { return {x, y}; }
    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& center = kOrigin);

    double x = 0.0;
    double y = 0.0;
};
