// Matrices: coordinate systems and their inverses, plane systems, mirrors, scale.
#include "GeTestUtil.h"

#include <cmath>

namespace {

TEST(AcGeMatrix3d, CoordSystemRoundTripAndInverse)
{
    AcGePoint3d o(10, -5, 2);
    AcGeVector3d x = AcGeVector3d(1, 1, 0).normal(), y = AcGeVector3d(-1, 1, 0).normal(), z(0, 0, 1);
    AcGeMatrix3d m;
    m.setCoordSystem(o, x, y, z);
    AcGePoint3d o2;
    AcGeVector3d x2, y2, z2;
    m.getCoordSystem(o2, x2, y2, z2);
    EXPECT_PT_NEAR(o2, o, 0.0);
    EXPECT_VEC_NEAR(x2, x, 0.0);
    EXPECT_VEC_NEAR(y2, y, 0.0);
    EXPECT_VEC_NEAR(z2, z, 0.0);
    // Local (1,0,0) lies one unit along x from the origin; the inverse takes it back.
    AcGePoint3d w = m * AcGePoint3d(1, 0, 0);
    EXPECT_PT_NEAR(w, o + x, 1e-12);
    EXPECT_PT_NEAR(m.inverse() * w, AcGePoint3d(1, 0, 0), 1e-12);
    EXPECT_TRUE((m * m.inverse()).isEqualTo(AcGeMatrix3d::kIdentity));
    // For an orthonormal system the inverse of the linear part is its transpose.
    AcGeVector3d v(0.5, 2, -1);
    AcGeMatrix3d t = m;
    t.transposeIt();
    EXPECT_VEC_NEAR(t * (m * v), v, 1e-12);
    AcGeMatrix3d back = t;
    back.invert();
    EXPECT_VEC_NEAR(back * v, m * v, 1e-12);
}

TEST(AcGeMatrix3d, SingularMatrixStaysAsItIs)
{
    AcGeMatrix3d m;
    m.setCoordSystem(AcGePoint3d(1, 2, 3), AcGeVector3d(1, 0, 0), AcGeVector3d(2, 0, 0), AcGeVector3d(0, 0, 1));
    EXPECT_TRUE(m.isSingular());
    EXPECT_DOUBLE_EQ(m.det(), 0.0);
    AcGeMatrix3d copy = m;
    EXPECT_TRUE(copy.invert().isEqualTo(m));
    EXPECT_TRUE(m.inverse().isEqualTo(m));
}

TEST(AcGeMatrix3d, AlignCoordSysMapsOneSystemOntoTheOther)
{
    AcGePoint3d fo(1, 1, 0), to(5, 0, 3);
    AcGeVector3d fx(1, 0, 0), fy(0, 1, 0), fz(0, 0, 1);
    AcGeVector3d tx(0, 1, 0), ty(-1, 0, 0), tz(0, 0, 1);
    AcGeMatrix3d m = AcGeMatrix3d::alignCoordSys(fo, fx, fy, fz, to, tx, ty, tz);
    EXPECT_PT_NEAR(m * fo, to, 1e-12);
    EXPECT_PT_NEAR(m * (fo + fx * 2), to + tx * 2, 1e-12);
    EXPECT_VEC_NEAR(m * fy, ty, 1e-12);
    EXPECT_NEAR(m.det(), 1.0, 1e-12);
}

TEST(AcGeMatrix3d, PlaneToWorldUsesArbitraryAxisAndInvertsWorldToPlane)
{
    const AcGeVector3d normals[] = {{0, 0, 1}, {0, 0, -1}, {0.01, 0.005, 1}, {1, 1, 1}, {0, -1, 0}};
    for (const AcGeVector3d& n : normals) {
        AcGeMatrix3d p2w = AcGeMatrix3d::planeToWorld(n);
        AcGeMatrix3d w2p = AcGeMatrix3d::worldToPlane(n);
        EXPECT_TRUE((p2w * w2p).isEqualTo(AcGeMatrix3d::kIdentity, AcGeTol(1e-10, 1e-12)));
        EXPECT_VEC_NEAR(p2w * AcGeVector3d(0, 0, 1), n.normal(), 1e-12);
        EXPECT_VEC_NEAR(p2w * AcGeVector3d(1, 0, 0), n.perpVector(), 1e-12);
        EXPECT_NEAR(p2w.det(), 1.0, 1e-12);
    }
    // The plane of normal -Z has the x axis (-1,0,0), as an entity's object system has.
    EXPECT_VEC_NEAR(AcGeMatrix3d::planeToWorld(AcGeVector3d(0, 0, -1)) * AcGeVector3d(1, 0, 0),
                    AcGeVector3d(-1, 0, 0), 1e-15);
    AcGePlane plane(AcGePoint3d(1, 2, 3), AcGeVector3d(0, 1, 1));
    AcGePoint3d onPlane = plane.evalPoint(AcGePoint2d(2, -1));
    AcGePoint3d local = AcGeMatrix3d::worldToPlane(plane) * onPlane;
    EXPECT_PT_NEAR(local, AcGePoint3d(2, -1, 0), 1e-12);
}

TEST(AcGeMatrix3d, MirrorsRotationsAndScaling)
{
    AcGePlane yz(AcGePoint3d(2, 0, 0), AcGeVector3d(1, 0, 0));
    AcGeMatrix3d mPlane = AcGeMatrix3d::mirroring(yz);
    AcGeMatrix3d mPoint = AcGeMatrix3d::mirroring(AcGePoint3d(1, 1, 1));
    AcGeMatrix3d mLine = AcGeMatrix3d::mirroring(AcGeLine3d(AcGePoint3d(0, 1, 0), AcGeVector3d(1, 0, 0)));
    EXPECT_NEAR(mPlane.det(), -1.0, 1e-12);
    EXPECT_NEAR(mPoint.det(), -1.0, 1e-12);
    EXPECT_NEAR(mLine.det(), 1.0, 1e-12);
    EXPECT_PT_NEAR(mPlane * AcGePoint3d(5, 1, 1), AcGePoint3d(-1, 1, 1), 1e-12);
    EXPECT_PT_NEAR(mPoint * AcGePoint3d(0, 0, 0), AcGePoint3d(2, 2, 2), 1e-12);
    EXPECT_PT_NEAR(mLine * AcGePoint3d(3, 2, 0), AcGePoint3d(3, 0, 0), 1e-12);

    AcGeMatrix3d rot = AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d(0, 0, 1), AcGePoint3d(1, 0, 0));
    EXPECT_PT_NEAR(rot * AcGePoint3d(2, 0, 0), AcGePoint3d(1, 1, 0), 1e-12);
    EXPECT_TRUE(rot.isUniScaledOrtho());
    AcGeMatrix3d sc = AcGeMatrix3d::scaling(3.0, AcGePoint3d(1, 1, 1));
    EXPECT_PT_NEAR(sc * AcGePoint3d(2, 1, 1), AcGePoint3d(4, 1, 1), 1e-12);
    EXPECT_DOUBLE_EQ(sc.scale(), 3.0);
    EXPECT_TRUE((rot * sc).isUniScaledOrtho());
    EXPECT_FALSE(AcGeMatrix3d::scaling(AcGeScale3d(1, 2, 1)).isUniScaledOrtho());
    EXPECT_VEC_NEAR((sc * AcGeMatrix3d::translation(AcGeVector3d(1, 0, 0))).getTranslation(),
                    AcGeVector3d(1, -2, -2), 1e-12);
    // preMultBy applies the new matrix after the old one.
    AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(1, 0, 0));
    m.preMultBy(AcGeMatrix3d::scaling(2.0));
    EXPECT_PT_NEAR(m * AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), 1e-12);
    m.setToIdentity().postMultBy(AcGeMatrix3d::translation(AcGeVector3d(0, 1, 0)));
    EXPECT_EQ(m(1, 3), 1.0);
}

} // namespace
