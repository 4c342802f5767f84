// Circular arcs: parameter sense, three-point construction, reversal and intersections.
#include "GeTestUtil.h"

#include <cmath>

namespace {

const AcGePoint3d kC(1, 2, 0);

AcGePoint3d onCircle(double deg, double r = 2.0)
{
    double a = deg * kPi / 180.0;
    return kC + AcGeVector3d(std::cos(a), std::sin(a), 0) * r;
}

TEST(AcGeCircArc3d, ParametersRunCounterClockwiseAboutTheNormal)
{
    // {normal z, reference vector, world angle of the point, expected parameter in degrees}
    struct Case { double nz; AcGeVector3d ref; double worldDeg, paramDeg; };
    const Case cases[] = {
        {1, {1, 0, 0}, 30, 30},    {1, {1, 0, 0}, 300, 300}, {1, {0, 1, 0}, 0, 270},
        {-1, {1, 0, 0}, 30, 330},  {-1, {1, 0, 0}, 90, 270}, {-1, {0, 1, 0}, 0, 90},
        {1, {1, 1, 5}, 45, 0},     // the reference vector is projected into the plane
    };
    for (const Case& c : cases) {
        AcGeCircArc3d circle(kC, AcGeVector3d(0, 0, c.nz), c.ref, 2.0);
        double p = circle.paramOf(onCircle(c.worldDeg));
        EXPECT_NEAR(p * 180 / kPi, c.paramDeg, 1e-9) << "normal z " << c.nz << " world " << c.worldDeg;
        EXPECT_PT_NEAR(circle.evalPoint(p), onCircle(c.worldDeg), 1e-12);
    }
    // A full circle without a reference uses the arbitrary axis: (-1,0,0) for normal -Z.
    AcGeCircArc3d down(kC, AcGeVector3d(0, 0, -1), 2.0);
    EXPECT_PT_NEAR(down.startPoint(), onCircle(180), 1e-12);
    EXPECT_TRUE(down.isClosed());
    EXPECT_NEAR(down.length(), 4 * kPi, 1e-12);
}

TEST(AcGeCircArc3d, ThreePointArcInBothOrientations)
{
    AcGeCircArc3d ccw(onCircle(0), onCircle(90), onCircle(180));
    EXPECT_PT_NEAR(ccw.center(), kC, 1e-12);
    EXPECT_NEAR(ccw.radius(), 2.0, 1e-12);
    EXPECT_VEC_NEAR(ccw.normal(), AcGeVector3d(0, 0, 1), 1e-12);
    EXPECT_NEAR(ccw.startAng(), 0.0, 1e-12);
    EXPECT_NEAR(ccw.endAng(), kPi, 1e-12);
    EXPECT_TRUE(ccw.isOn(onCircle(45)));
    EXPECT_FALSE(ccw.isOn(onCircle(270)));

    AcGeCircArc3d cw(onCircle(0), onCircle(270), onCircle(180));
    EXPECT_VEC_NEAR(cw.normal(), AcGeVector3d(0, 0, -1), 1e-12);
    EXPECT_PT_NEAR(cw.startPoint(), onCircle(0), 1e-12);
    EXPECT_PT_NEAR(cw.endPoint(), onCircle(180), 1e-12);
    EXPECT_TRUE(cw.isOn(onCircle(300)));
    EXPECT_FALSE(cw.isOn(onCircle(60)));
    EXPECT_LT(cw.paramOf(onCircle(315)), cw.paramOf(onCircle(225)));

    // A major arc keeps the middle point inside.
    AcGeCircArc3d major(onCircle(0), onCircle(180), onCircle(90));
    EXPECT_NEAR(major.endAng() - major.startAng(), 1.5 * kPi, 1e-12);
    EXPECT_NEAR(major.length(), 3 * kPi, 1e-12);

    AcGe::ErrorCondition err;
    AcGeCircArc3d flat;
    flat.set(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(2, 0, 0), err);
    EXPECT_EQ(err, AcGe::kLinearlyDependentArg1Arg2Arg3);
    EXPECT_EQ(flat.radius(), 0.0);
}

TEST(AcGeCircArc3d, ReverseParamSwapsStartAndEnd)
{
    AcGeCircArc3d arc(kC, AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0), 2.0, kPi / 6, kPi / 2);
    AcGePoint3d s = arc.startPoint(), e = arc.endPoint(), mid = onCircle(60);
    double pMid = arc.paramOf(mid);
    arc.reverseParam();
    EXPECT_PT_NEAR(arc.startPoint(), e, 1e-12);
    EXPECT_PT_NEAR(arc.endPoint(), s, 1e-12);
    EXPECT_VEC_NEAR(arc.normal(), AcGeVector3d(0, 0, -1), 0.0);
    EXPECT_TRUE(arc.isOn(mid));
    EXPECT_NEAR(arc.paramOf(mid), arc.startAng() + (kPi / 2 - pMid), 1e-12);
    EXPECT_NEAR(arc.length(), 2 * kPi / 3, 1e-12);

    // On a full circle the parameters of two points change order.
    AcGeCircArc3d circle(kC, AcGeVector3d(0, 0, 1), 2.0);
    double a = circle.paramOf(onCircle(200)), b = circle.paramOf(onCircle(100));
    EXPECT_GT(a, b);
    circle.reverseParam();
    EXPECT_LT(circle.paramOf(onCircle(200)), circle.paramOf(onCircle(100)));
    EXPECT_NEAR(circle.startAng(), 0.0, 1e-15);
    EXPECT_NEAR(circle.endAng(), 2 * kPi, 1e-15);
}

TEST(AcGeCircArc3d, ClosestPointAndParamOffTheArc)
{
    AcGeCircArc3d arc(kC, AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0), 2.0, 0.0, kPi / 2);
    EXPECT_PT_NEAR(arc.closestPointTo(onCircle(45, 5) + AcGeVector3d(0, 0, 3)), onCircle(45), 1e-12);
    EXPECT_PT_NEAR(arc.closestPointTo(onCircle(100)), arc.endPoint(), 1e-12);
    EXPECT_PT_NEAR(arc.closestPointTo(onCircle(-20)), arc.startPoint(), 1e-12);
    EXPECT_NEAR(arc.paramOf(onCircle(-20)), -20 * kPi / 180, 1e-12); // nearer to the start
    EXPECT_NEAR(arc.paramOf(onCircle(120)), 120 * kPi / 180, 1e-12);
    EXPECT_TRUE(arc.isOn(onCircle(90) + AcGeVector3d(0, 0, 5e-4), AcGeTol(1e-3, 1e-12)));
    AcGeLine3d tangent;
    ASSERT_TRUE(arc.tangent(onCircle(90), tangent));
    EXPECT_VEC_NEAR(tangent.direction(), AcGeVector3d(-1, 0, 0), 1e-12);
    AcGePlane plane;
    arc.getPlane(plane);
    EXPECT_TRUE(plane.isOn(kC));
    EXPECT_VEC_NEAR(plane.normal(), AcGeVector3d(0, 0, 1), 1e-15);
}

TEST(AcGeCircArc3d, IntersectWithLines)
{
    AcGeCircArc3d circle(kC, AcGeVector3d(0, 0, 1), 2.0);
    AcGeCircArc3d upper(kC, AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0), 2.0, 0.0, kPi);
    AcGeTol coarse(1e-3, 1e-3);
    struct Case {
        const char* name;
        const AcGeCircArc3d* arc;
        AcGeLinearEnt3d line;
        const AcGeTol* tol;
        int n;
        AcGePoint3d p1, p2;
    };
    const AcGeTol* fine = &AcGeContext::gTol;
    const Case cases[] = {
        {"through the centre", &circle, AcGeLine3d(kC, AcGeVector3d(1, 0, 0)), fine, 2, onCircle(180), onCircle(0)},
        {"reversed line order", &circle, AcGeLine3d(kC, AcGeVector3d(-1, 0, 0)), fine, 2, onCircle(0), onCircle(180)},
        {"tangent", &circle, AcGeLine3d(onCircle(90), AcGeVector3d(1, 0, 0)), fine, 1, onCircle(90), {}},
        {"miss within tol", &circle, AcGeLine3d(onCircle(90) + AcGeVector3d(0, 5e-4, 0), AcGeVector3d(1, 0, 0)),
         &coarse, 1, onCircle(90) + AcGeVector3d(0, 5e-4, 0), {}},
        {"miss beyond tol", &circle, AcGeLine3d(onCircle(90) + AcGeVector3d(0, 5e-3, 0), AcGeVector3d(1, 0, 0)),
         &coarse, 0, {}, {}},
        {"arc keeps its half", &upper, AcGeLine3d(kC, AcGeVector3d(0, 1, 0)), fine, 1, onCircle(90), {}},
        {"segment inside the circle", &circle, AcGeLineSeg3d(kC, onCircle(30, 1.0)), fine, 0, {}, {}},
        {"segment to the rim", &circle, AcGeLineSeg3d(kC, onCircle(30, 3.0)), fine, 1, onCircle(30), {}},
        {"piercing the plane", &circle, AcGeLine3d(onCircle(45) + AcGeVector3d(0, 0, 1), AcGeVector3d(0, 0, 1)),
         fine, 1, onCircle(45), {}},
        {"above the plane", &circle, AcGeLine3d(kC + AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0)), fine, 0, {}, {}},
    };
    for (const Case& c : cases) {
        int n = -1;
        AcGePoint3d p1, p2;
        EXPECT_EQ(c.arc->intersectWith(c.line, n, p1, p2, *c.tol), c.n > 0) << c.name;
        EXPECT_EQ(n, c.n) << c.name;
        if (c.n >= 1)
            EXPECT_PT_NEAR(p1, c.p1, 1e-9);
        if (c.n == 2)
            EXPECT_PT_NEAR(p2, c.p2, 1e-9);
    }
}

TEST(AcGeCircArc3d, IntersectWithArcs)
{
    AcGeCircArc3d a(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 1.0);
    int n = 0;
    AcGePoint3d p1, p2;
    EXPECT_TRUE(a.intersectWith(AcGeCircArc3d(AcGePoint3d(1, 0, 0), AcGeVector3d(0, 0, 1), 1.0), n, p1, p2));
    EXPECT_EQ(n, 2);
    EXPECT_NEAR(p1.x, 0.5, 1e-12);
    EXPECT_NEAR(std::fabs(p1.y), std::sqrt(0.75), 1e-12);
    EXPECT_NEAR(p1.y, -p2.y, 1e-12);
    EXPECT_TRUE(a.intersectWith(AcGeCircArc3d(AcGePoint3d(2, 0, 0), AcGeVector3d(0, 0, -1), 1.0), n, p1, p2));
    EXPECT_EQ(n, 1);
    EXPECT_PT_NEAR(p1, AcGePoint3d(1, 0, 0), 1e-12);
    EXPECT_FALSE(a.intersectWith(AcGeCircArc3d(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 1.0), n, p1, p2));
    EXPECT_FALSE(a.intersectWith(AcGeCircArc3d(AcGePoint3d(0, 0, 1), AcGeVector3d(0, 0, 1), 1.0), n, p1, p2));
    // A circle standing upright through the x axis meets the flat one at (+-1, 0, 0).
    AcGeCircArc3d upright(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 1, 0), 1.0);
    EXPECT_TRUE(a.intersectWith(upright, n, p1, p2));
    EXPECT_EQ(n, 2);
    EXPECT_NEAR(std::fabs(p1.x), 1.0, 1e-12);
    // Only the part of the arc within its extent counts.
    AcGeCircArc3d right(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), AcGeVector3d(0, -1, 0), 1.0, 0.0, kPi);
    EXPECT_TRUE(right.intersectWith(upright, n, p1, p2));
    EXPECT_EQ(n, 1);
    EXPECT_PT_NEAR(p1, AcGePoint3d(1, 0, 0), 1e-12);
}

TEST(AcGeCircArc3d, MirrorKeepsTheArcAndFlipsTheNormal)
{
    AcGeCircArc3d arc(onCircle(0), onCircle(45), onCircle(90));
    AcGeCircArc3d m = arc;
    m.transformBy(AcGeMatrix3d::mirroring(AcGePlane(kC, AcGeVector3d(1, 0, 0))));
    EXPECT_VEC_NEAR(m.normal(), AcGeVector3d(0, 0, -1), 1e-12);
    EXPECT_PT_NEAR(m.startPoint(), onCircle(180), 1e-12);
    EXPECT_PT_NEAR(m.endPoint(), onCircle(90), 1e-12);
    m.transformBy(AcGeMatrix3d::scaling(2.0, kC));
    EXPECT_NEAR(m.radius(), 4.0, 1e-12);
}

TEST(AcGeCircArc2d, SenseOfThreePointArcs)
{
    AcGeCircArc2d ccw(AcGePoint2d(1, 0), AcGePoint2d(0, 1), AcGePoint2d(-1, 0));
    AcGeCircArc2d cw(AcGePoint2d(1, 0), AcGePoint2d(0, -1), AcGePoint2d(-1, 0));
    EXPECT_FALSE(ccw.isClockWise());
    EXPECT_TRUE(cw.isClockWise());
    for (const AcGeCircArc2d* arc : {&ccw, &cw}) {
        EXPECT_NEAR(arc->radius(), 1.0, 1e-12);
        EXPECT_NEAR(arc->length(), kPi, 1e-12);
        EXPECT_TRUE(arc->startPoint().isEqualTo(AcGePoint2d(1, 0)));
        EXPECT_TRUE(arc->endPoint().isEqualTo(AcGePoint2d(-1, 0)));
    }
    EXPECT_TRUE(cw.isOn(AcGePoint2d(0, -1)));
    EXPECT_FALSE(cw.isOn(AcGePoint2d(0, 1)));
    cw.reverseParam();
    EXPECT_FALSE(cw.isClockWise());
    EXPECT_TRUE(cw.startPoint().isEqualTo(AcGePoint2d(-1, 0)));
    EXPECT_TRUE(cw.isOn(AcGePoint2d(0, -1)));
}

} // namespace
