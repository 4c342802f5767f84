// AcGeMatrix3d: products, inversion and the standard transformations.
#include "host/ge/AcGeMatrix3d.h"

#include "host/ge/AcGeLinearEnt3d.h"
#include "host/ge/AcGePlane.h"

#include <algorithm>
#include <cmath>
#include <utility>

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

namespace {

AcGeVector3d column(const AcGeMatrix3d& m, int c)
{
    return {m.entry[0][c], m.entry[1][c], m.entry[2][c]};
}

void setColumn(AcGeMatrix3d& m, int c, const AcGeVector3d& v)
{
    m.entry[0][c] = v.x;
    m.entry[1][c] = v.y;
    m.entry[2][c] = v.z;
}

// Gauss-Jordan elimination with partial pivoting; false when a pivot falls to tol.
bool invert4(const double in[4][4], double out[4][4], double tol)
{
    double a[4][8];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            a[r][c] = in[r][c];
            a[r][c + 4] = r == c ? 1.0 : 0.0;
        }
    for (int c = 0; c < 4; ++c) {
        int pivot = c;
        for (int r = c + 1; r < 4; ++r)
            if (std::fabs(a[r][c]) > std::fabs(a[pivot][c]))
                pivot = r;
        if (std::fabs(a[pivot][c]) <= tol)
            return false;
        if (pivot != c)
            for (int k = 0; k < 8; ++k)
                std::swap(a[c][k], a[pivot][k]);
        double p = a[c][c];
        for (int k = 0; k < 8; ++k)
            a[c][k] /= p;
        for (int r = 0; r < 4; ++r) {
            if (r == c || a[r][c] == 0.0)
                continue;
            double f = a[r][c];
            for (int k = 0; k < 8; ++k)
                a[r][k] -= f * a[c][k];
        }
    }
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out[r][c] = a[r][c + 4];
    return true;
}

} // namespace

AcGeMatrix3d::AcGeMatrix3d()
{
    setToIdentity();
}

AcGeMatrix3d& AcGeMatrix3d::setToIdentity()
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            entry[r][c] = r == c ? 1.0 : 0.0;
    return *this;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (std::fabs(entry[r][c] - m.entry[r][c]) > tol.equalVector())
                return false;
    return true;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& m) const
{
    AcGeMatrix3d p;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double s = 0.0;
            for (int k = 0; k < 4; ++k)
                s += entry[r][k] * m.entry[k][c];
            p.entry[r][c] = s;
        }
    return p;
}

AcGeMatrix3d& AcGeMatrix3d::operator*=(const AcGeMatrix3d& m)
{
    return *this = *this * m;
}

AcGeMatrix3d& AcGeMatrix3d::setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b)
{
    return *this = a * b;
}

AcGeMatrix3d& AcGeMatrix3d::preMultBy(const AcGeMatrix3d& left)
{
    return *this = left * *this;
}

AcGeMatrix3d& AcGeMatrix3d::postMultBy(const AcGeMatrix3d& right)
{
    return *this = *this * right;
}

bool AcGeMatrix3d::inverse(AcGeMatrix3d& result, double tol) const
{
    AcGeMatrix3d inv;
    if (!invert4(entry, inv.entry, tol))
        return false;
    result = inv;
    return true;
}

AcGeMatrix3d AcGeMatrix3d::inverse() const
{
    AcGeMatrix3d result(*this);
    inverse(result, 0.0);
    return result;
}

AcGeMatrix3d& AcGeMatrix3d::invert()
{
    inverse(*this, 0.0);
    return *this;
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const
{
    return std::fabs(det()) <= tol.equalVector();
}

AcGeMatrix3d& AcGeMatrix3d::transposeIt()
{
    for (int r = 0; r < 4; ++r)
        for (int c = r + 1; c < 4; ++c)
            std::swap(entry[r][c], entry[c][r]);
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::transpose() const
{
    AcGeMatrix3d t(*this);
    return t.transposeIt();
}

double AcGeMatrix3d::det() const
{
    // Elimination on a copy; the sign follows the row swaps.
    double a[4][4];
    std::copy(&entry[0][0], &entry[0][0] + 16, &a[0][0]);
    double d = 1.0;
    for (int c = 0; c < 4; ++c) {
        int pivot = c;
        for (int r = c + 1; r < 4; ++r)
            if (std::fabs(a[r][c]) > std::fabs(a[pivot][c]))
                pivot = r;
        if (a[pivot][c] == 0.0)
            return 0.0;
        if (pivot != c) {
            for (int k = 0; k < 4; ++k)
                std::swap(a[c][k], a[pivot][k]);
            d = -d;
        }
        d *= a[c][c];
        for (int r = c + 1; r < 4; ++r) {
            double f = a[r][c] / a[c][c];
            for (int k = c; k < 4; ++k)
                a[r][k] -= f * a[c][k];
        }
    }
    return d;
}

double AcGeMatrix3d::scale() const
{
    return std::max({column(*this, 0).length(), column(*this, 1).length(), column(*this, 2).length()});
}

bool AcGeMatrix3d::isScaledOrtho(const AcGeTol& tol) const
{
    AcGeVector3d x = column(*this, 0), y = column(*this, 1), z = column(*this, 2);
    return x.isPerpendicularTo(y, tol) && y.isPerpendicularTo(z, tol) && z.isPerpendicularTo(x, tol);
}

bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const
{
    if (!isScaledOrtho(tol))
        return false;
    double lx = column(*this, 0).length(), ly = column(*this, 1).length(), lz = column(*this, 2).length();
    // Compared relative to the scale, so that the test means the same at any size.
    double e = tol.equalVector() * std::max(1.0, lx);
    return std::fabs(lx - ly) <= e && std::fabs(lx - lz) <= e;
}

AcGeVector3d AcGeMatrix3d::getTranslation() const
{
    return column(*this, 3);
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& v)
{
    setColumn(*this, 3, v);
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis)
{
    setToIdentity();
    setColumn(*this, 0, xAxis);
    setColumn(*this, 1, yAxis);
    setColumn(*this, 2, zAxis);
    setColumn(*this, 3, origin.asVector());
    return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const
{
    xAxis = column(*this, 0);
    yAxis = column(*this, 1);
    zAxis = column(*this, 2);
    AcGeVector3d t = column(*this, 3);
    origin.set(t.x, t.y, t.z);
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& v)
{
    setToIdentity();
    return setTranslation(v);
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    setToIdentity();
    // The images of the unit axes are the columns.
    for (int c = 0; c < 3; ++c) {
        AcGeVector3d e(c == 0, c == 1, c == 2);
        setColumn(*this, c, e.rotateBy(angle, axis));
    }
    AcGeVector3d cv = center.asVector();
    return setTranslation(cv - *this * cv);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center)
{
    return setToScaling(AcGeScale3d(factor), center);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(const AcGeScale3d& s, const AcGePoint3d& center)
{
    setToIdentity();
    for (int i = 0; i < 3; ++i)
        entry[i][i] = s[i];
    AcGeVector3d cv = center.asVector();
    return setTranslation(cv - *this * cv);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePlane& plane)
{
    // Householder reflection I - 2nn^T about the plane through its point.
    AcGeVector3d n = plane.normal().normal();
    setToIdentity();
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            entry[r][c] -= 2.0 * n[r] * n[c];
    AcGeVector3d p = plane.pointOnPlane().asVector();
    return setTranslation(p - *this * p);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePoint3d& point)
{
    return setToScaling(-1.0, point);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGeLine3d& line)
{
    // Reflection in a line is the half turn about it.
    const double kPi = 3.14159265358979323846;
    return setToRotation(kPi, line.direction(), line.pointOnLine());
}

AcGeMatrix3d& AcGeMatrix3d::setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                               const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                               const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                               const AcGeVector3d& toY, const AcGeVector3d& toZ)
{
    AcGeMatrix3d from, to;
    from.setCoordSystem(fromOrigin, fromX, fromY, fromZ);
    to.setCoordSystem(toOrigin, toX, toY, toZ);
    return *this = to * from.inverse();
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal)
{
    AcGeVector3d z = normal.normal();
    AcGeVector3d x = z.perpVector();
    AcGeVector3d y = z.crossProduct(x).normal();
    return setCoordSystem(AcGePoint3d::kOrigin, x, y, z);
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGePlane& plane)
{
    AcGePoint3d origin;
    AcGeVector3d u, v;
    plane.getCoordSystem(origin, u, v);
    return setCoordSystem(origin, u.normal(), v.normal(), plane.normal());
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal)
{
    return setToPlaneToWorld(normal).invert();
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGePlane& plane)
{
    return setToPlaneToWorld(plane).invert();
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& v)
{
    return AcGeMatrix3d().setToTranslation(v);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    return AcGeMatrix3d().setToRotation(angle, axis, center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center)
{
    return AcGeMatrix3d().setToScaling(factor, center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(const AcGeScale3d& s, const AcGePoint3d& center)
{
    return AcGeMatrix3d().setToScaling(s, center);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePlane& plane)
{
    return AcGeMatrix3d().setToMirroring(plane);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& point)
{
    return AcGeMatrix3d().setToMirroring(point);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGeLine3d& line)
{
    return AcGeMatrix3d().setToMirroring(line);
}

AcGeMatrix3d AcGeMatrix3d::alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                         const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                         const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                         const AcGeVector3d& toY, const AcGeVector3d& toZ)
{
    return AcGeMatrix3d().setToAlignCoordSys(fromOrigin, fromX, fromY, fromZ, toOrigin, toX, toY, toZ);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal)
{
    return AcGeMatrix3d().setToWorldToPlane(normal);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGePlane& plane)
{
    return AcGeMatrix3d().setToWorldToPlane(plane);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal)
{
    return AcGeMatrix3d().setToPlaneToWorld(normal);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGePlane& plane)
{
    return AcGeMatrix3d().setToPlaneToWorld(plane);
}

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p)
{
    double r[4];
    for (int i = 0; i < 4; ++i)
        r[i] = m.entry[i][0] * p.x + m.entry[i][1] * p.y + m.entry[i][2] * p.z + m.entry[i][3];
    // Affine matrices keep w at 1; a projective one is divided through.
    if (r[3] != 1.0 && r[3] != 0.0)
        return {r[0] / r[3], r[1] / r[3], r[2] / r[3]};
    return {r[0], r[1], r[2]};
}

AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v)
{
    return {m.entry[0][0] * v.x + m.entry[0][1] * v.y + m.entry[0][2] * v.z,
            m.entry[1][0] * v.x + m.entry[1][1] * v.y + m.entry[1][2] * v.z,
            m.entry[2][0] * v.x + m.entry[2][1] * v.y + m.entry[2][2] * v.z};
}
