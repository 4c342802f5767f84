// Chains laid out in their own coordinates, in the three linear types and in
// rotated coordinate systems, for the geometry tests.
#pragma once

#include <cmath>

#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace geomtest {


inline AcGeMatrix3d UcsAt(double dDegrees)
{
    const double a = dDegrees * SVdim::kPi / 180.0;
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(AcGePoint3d(10, 20, 0), AcGeVector3d(std::cos(a), std::sin(a), 0),
                          AcGeVector3d(-std::sin(a), std::cos(a), 0), AcGeVector3d::kZAxis);
    return matrix;
}

// A hand-made chain in world coordinates.
inline void WorldAxes(SVdim& chain)
{
    chain.m_xAxis = AcGeVector3d::kXAxis;
    chain.m_yAxis = AcGeVector3d::kYAxis;
    chain.m_zAxis = AcGeVector3d::kZAxis;
}

// A chain described in its own coordinates: along u, dimension line 3 units
// across, measured points at t along u and -depth across.
struct Layout {
    AcGeMatrix3d matrix;
    AcGeVector3d u;
    AcGeVector3d Across() const { return AcGeVector3d(-u.y, u.x, 0); }
    AcGePoint3d Input(double t, double dDepth) const { return World(AcGePoint3d::kOrigin + u * t - Across() * dDepth); }
    AcGePoint3d Dim(double t) const { return World(AcGePoint3d::kOrigin + u * t + Across() * 3.0); }
    AcGePoint3d World(AcGePoint3d point) const { return point.transformBy(matrix); }
    AcGeVector3d WorldDir() const { return AcGeVector3d(u).transformBy(matrix); }
};

struct ChainCase {
    const char* name;
    int iType;
    double dUcs;  // degrees
    AcGeVector3d u;
};

inline const ChainCase kChains[] = {
    {"horizontal", SVdim::kHorizontal, 0, {1, 0, 0}},
    {"vertical", SVdim::kVertical, 0, {0, 1, 0}},
    {"aligned", SVdim::kAligned, 0, {0.6, 0.8, 0}},
    {"horizontal in a UCS at 30", SVdim::kHorizontal, 30, {1, 0, 0}},
    {"vertical in a UCS at 30", SVdim::kVertical, 30, {0, 1, 0}},
    {"aligned in a UCS at 200", SVdim::kAligned, 200, {0.6, 0.8, 0}},
};

inline SVdim* MakeChain(const ChainCase& c, const Layout& lay, double t1, double t2)
{
    const AcGeVector3d vDir = lay.WorldDir();
    return new SVdim(lay.Input(t1, 1), lay.Input(t2, 2), lay.Dim(0), c.iType,
                     c.iType == SVdim::kAligned ? &vDir : nullptr, AcDbObjectId::kNull, 0, &lay.matrix);
}

}  // namespace geomtest
