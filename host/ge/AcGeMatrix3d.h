// AcGeMatrix3d: a 4x4 affine transformation acting on column vectors (p' = M p).
#pragma once

#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeScale3d.h"
#include "host/ge/AcGeTol.h"
#include "host/ge/AcGeVector3d.h"

class AcGeLine3d;
class AcGePlane;

class AcGeMatrix3d {
public:
    AcGeMatrix3d(); // identity

    static const AcGeMatrix3d kIdentity;

    // entry[row][col]; column 3 holds the translation.
    double entry[4][4];
    double operator()(int row, int col) const { return entry[row][col]; }
    double& operator()(int row, int col) { return entry[row][col]; }

    AcGeMatrix3d& setToIdentity();
    bool isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix3d& m) const { return isEqualTo(m); }
    bool operator!=(const AcGeMatrix3d& m) const { return !isEqualTo(m); }

    // Products: (a * b) applies b first.
    AcGeMatrix3d operator*(const AcGeMatrix3d& m) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& m);
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b);
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left);   // this = left * this
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right); // this = this * right

    // Inversion. A singular matrix is left as it is (inverse() returns a copy).
    AcGeMatrix3d inverse() const;
    bool inverse(AcGeMatrix3d& result, double tol) const;
    AcGeMatrix3d& invert();
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix3d& transposeIt();
    AcGeMatrix3d transpose() const;
    double det() const;

    // Properties of the linear part.
    double scale() const; // the largest axis scale factor
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d getTranslation() const;
    AcGeMatrix3d& setTranslation(const AcGeVector3d& v);

    // Coordinate systems: the axes are the columns, the origin the translation.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;

    // Setters for the standard transformations.
    AcGeMatrix3d& setToTranslation(const AcGeVector3d& v);
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(const AcGeScale3d& s, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToMirroring(const AcGePlane& plane);
    AcGeMatrix3d& setToMirroring(const AcGePoint3d& point);
    AcGeMatrix3d& setToMirroring(const AcGeLine3d& line);
    // Takes the "from" system onto the "to" system.
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                     const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                     const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                     const AcGeVector3d& toY, const AcGeVector3d& toZ);
    // Plane (object) coordinates to world and back. The plane's x axis follows the
    // arbitrary-axis rule of the normal; a plane object brings its own axes and origin.
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
    AcGeMatrix3d& setToWorldToPlane(const AcGePlane& plane);
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);
    AcGeMatrix3d& setToPlaneToWorld(const AcGePlane& plane);

    static AcGeMatrix3d translation(const AcGeVector3d& v);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(const AcGeScale3d& s, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePlane& plane);
    static AcGeMatrix3d mirroring(const AcGePoint3d& point);
    static AcGeMatrix3d mirroring(const AcGeLine3d& line);
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                      const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                      const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                      const AcGeVector3d& toY, const AcGeVector3d& toZ);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
    static AcGeMatrix3d worldToPlane(const AcGePlane& plane);
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d planeToWorld(const AcGePlane& plane);
};

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p);
AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v);
