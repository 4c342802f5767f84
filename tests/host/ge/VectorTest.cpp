// Vectors and points: signed angles, the arbitrary axis, and the tolerance tests.
#include "GeTestUtil.h"

#include <cmath>

namespace {

AcGeVector3d polar(double deg)
{
    double a = deg * kPi / 180.0;
    return {std::cos(a), std::sin(a), 0.0};
}

TEST(AcGeVector3d, AngleToAboutReference)
{
    // {from degrees, to degrees, reference z, expected degrees}
    struct Case { double from, to, refZ, expected; };
    const Case cases[] = {
        {0, 90, 1, 90},   {90, 0, 1, 270},  {0, 90, -1, 270}, {30, 0, 1, 330},
        {200, 0, 1, 160}, {0, 0, 1, 0},     {0, 180, 1, 180}, {0, 180, -1, 180},
        {350, 10, 1, 20}, {10, 350, 1, 340},
    };
    for (const Case& c : cases) {
        double a = polar(c.from).angleTo(polar(c.to), AcGeVector3d(0, 0, c.refZ));
        EXPECT_NEAR(a * 180.0 / kPi, c.expected, 1e-9) << c.from << " -> " << c.to << " about z " << c.refZ;
        EXPECT_GE(a, 0.0);
        EXPECT_LT(a, 2 * kPi);
    }
    // Without a reference the angle is unsigned.
    EXPECT_NEAR(polar(90).angleTo(polar(0)), kPi / 2, 1e-12);
    EXPECT_NEAR(polar(0).angleTo(polar(180)), kPi, 1e-12);
}

TEST(AcGeVector3d, PerpVectorFollowsArbitraryAxisRule)
{
    EXPECT_VEC_NEAR(AcGeVector3d::kZAxis.perpVector(), AcGeVector3d(1, 0, 0), 1e-15);
    EXPECT_VEC_NEAR(AcGeVector3d(0, 0, -1).perpVector(), AcGeVector3d(-1, 0, 0), 1e-15);
    EXPECT_VEC_NEAR(AcGeVector3d(3, 0, 0).perpVector(), AcGeVector3d(0, 1, 0), 1e-15);
    AcGeVector3d v(0.3, -2, 5);
    EXPECT_TRUE(v.perpVector().isPerpendicularTo(v));
    EXPECT_TRUE(v.perpVector().isUnitLength());
    EXPECT_TRUE(AcGeVector3d().perpVector().isZeroLength());
}

TEST(AcGeVector3d, ToleranceTests)
{
    AcGeTol loose;
    loose.setEqualVector(1e-3);
    AcGeVector3d x(1, 0, 0);
    EXPECT_TRUE(x.isParallelTo(AcGeVector3d(-5, 0, 0)));
    EXPECT_TRUE(x.isParallelTo(AcGeVector3d(1, 5e-4, 0), loose));
    EXPECT_FALSE(x.isParallelTo(AcGeVector3d(1, 5e-4, 0)));
    EXPECT_FALSE(x.isCodirectionalTo(AcGeVector3d(-1, 0, 0)));
    EXPECT_TRUE(x.isCodirectionalTo(AcGeVector3d(7, 0, 0)));
    EXPECT_TRUE(x.isPerpendicularTo(AcGeVector3d(0, 0, 2)));
    EXPECT_FALSE(x.isPerpendicularTo(AcGeVector3d(1e-3, 1, 0)));
    EXPECT_FALSE(x.isPerpendicularTo(AcGeVector3d())); // zero relates to nothing
    EXPECT_FALSE(x.isParallelTo(AcGeVector3d()));
    EXPECT_TRUE(x.isEqualTo(AcGeVector3d(1 + 1e-13, 0, 0)));
    EXPECT_FALSE(x.isEqualTo(AcGeVector3d(2, 0, 0))); // same direction, other length
    EXPECT_TRUE(AcGePoint3d(1, 2, 3).isEqualTo(AcGePoint3d(1, 2, 3 + 5e-11)));
    EXPECT_FALSE(AcGePoint3d(1, 2, 3).isEqualTo(AcGePoint3d(1, 2, 3 + 5e-10)));
}

TEST(AcGeVector3d, RotateProjectAndAngleOnPlane)
{
    AcGeVector3d v(1, 0, 0);
    v.rotateBy(kPi / 2, AcGeVector3d(0, 0, 1));
    EXPECT_VEC_NEAR(v, AcGeVector3d(0, 1, 0), 1e-15);
    v.rotateBy(kPi / 2, AcGeVector3d(0, 0, -1));
    EXPECT_VEC_NEAR(v, AcGeVector3d(1, 0, 0), 1e-15);
    EXPECT_VEC_NEAR(AcGeVector3d(1, 2, 3).orthoProject(AcGeVector3d(0, 0, 5)), AcGeVector3d(1, 2, 0), 1e-15);
    // On a plane with normal -Z the axes are (-1,0,0) and (0,1,0), angles clockwise seen from +Z.
    AcGePlane down(AcGePoint3d(), AcGeVector3d(0, 0, -1));
    EXPECT_NEAR(AcGeVector3d(-1, 0, 0).angleOnPlane(down), 0.0, 1e-12);
    EXPECT_NEAR(AcGeVector3d(0, 1, 0).angleOnPlane(down), kPi / 2, 1e-12);
    EXPECT_NEAR(AcGeVector3d(0, -1, 0).angleOnPlane(down), 1.5 * kPi, 1e-12);
    EXPECT_NEAR(AcGeVector3d(0, 1, 7).angleOnPlane(AcGePlane::kXYPlane), kPi / 2, 1e-12);
}

TEST(AcGePoint3d, ProjectionsOnPlanes)
{
    AcGePlane plane(AcGePoint3d(0, 0, 2), AcGeVector3d(0, 0, 1));
    AcGePoint3d p(1, 1, 5);
    EXPECT_PT_NEAR(p.orthoProject(plane), AcGePoint3d(1, 1, 2), 1e-12);
    EXPECT_PT_NEAR(p.project(plane, AcGeVector3d(1, 0, -1)), AcGePoint3d(4, 1, 2), 1e-12);
    EXPECT_PT_NEAR(p.project(plane, AcGeVector3d(1, 0, 0)), p, 0.0); // parallel: unchanged
    AcGePoint2d uv = AcGePoint3d(3, 4, 9).convert2d(plane);
    EXPECT_NEAR(uv.x, 3, 1e-12);
    EXPECT_NEAR(uv.y, 4, 1e-12);
    EXPECT_DOUBLE_EQ(AcGePoint3d(0, 3, 0).distanceTo(AcGePoint3d(4, 0, 0)), 5.0);
}

TEST(AcGeTol, GlobalDefaultsAndSetters)
{
    EXPECT_EQ(AcGeContext::gTol.equalPoint(), 1e-10);
    EXPECT_EQ(AcGeContext::gTol.equalVector(), 1e-12);
    AcGeTol t;
    t.setEqualPoint(0.001);
    t.setEqualVector(0.002);
    EXPECT_EQ(t.equalPoint(), 0.001);
    EXPECT_EQ(t.equalVector(), 0.002);
}

} // namespace
