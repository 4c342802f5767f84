// AcGeScale3d: three axis scale factors, and their link to a matrix.
#pragma once

#include "host/ge/AcGeTol.h"

class AcGeMatrix3d;

class AcGeScale3d {
public:
    AcGeScale3d() = default;
    explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    static const AcGeScale3d kIdentity;

    AcGeScale3d operator*(const AcGeScale3d& s) const { return {sx * s.sx, sy * s.sy, sz * s.sz}; }
    AcGeScale3d operator*(double f) const { return {sx * f, sy * f, sz * f}; }
    double operator[](int i) const { return i == 0 ? sx : (i == 1 ? sy : sz); }
    double& operator[](int i) { return i == 0 ? sx : (i == 1 ? sy : sz); }
    bool operator==(const AcGeScale3d& s) const { return isEqualTo(s); }
    bool operator!=(const AcGeScale3d& s) const { return !isEqualTo(s); }

    AcGeScale3d& set(double x, double y, double z) { sx = x; sy = y; sz = z; return *this; }
    bool isEqualTo(const AcGeScale3d& s, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const;
    // The scaling matrix about the origin.
    AcGeMatrix3d& getMatrix(AcGeMatrix3d& m) const;
    // The lengths of the matrix's three axis columns.
    AcGeScale3d& extractScale(const AcGeMatrix3d& m);

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};
