// Straight curves: intersections within tolerance and extent, and the basic queries.
#include "GeTestUtil.h"

namespace {

// Intersection on a copy by value, as the module's forgiving helpers take their lines.
bool meet(AcGeLinearEnt3d a, AcGeLinearEnt3d b, AcGePoint3d& pt, const AcGeTol& tol)
{
    return a.intersectWith(b, pt, tol);
}

TEST(AcGeLinearEnt3d, IntersectWith)
{
    AcGeTol coarse(1e-3, 1e-3);
    const AcGeTol& fine = AcGeContext::gTol;
    struct Case {
        const char* name;
        AcGeLinearEnt3d a, b;
        const AcGeTol* tol;
        bool hit;
        AcGePoint3d at;
    };
    const Case cases[] = {
        {"crossing lines", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(3, -1, 0), AcGePoint3d(3, 1, 0)), &fine, true, {3, 0, 0}},
        {"parallel lines", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(0, 0.01, 0), AcGeVector3d(1, 0, 0)), &coarse, false, {}},
        {"identical lines", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(5, 0, 0), AcGeVector3d(-2, 0, 0)), &fine, false, {}},
        {"near-parallel within vector tol", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(0, 1, 0), AcGeVector3d(1, 5e-4, 0)), &coarse, false, {}},
        {"near-parallel beyond vector tol", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(0, 1, 0), AcGeVector3d(1, 0.01, 0)), &fine, true, {-100, 0, 0}},
        {"skew within point tol", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(2, -1, 0.0008), AcGeVector3d(0, 1, 0)), &coarse, true, {2, 0, 0.0004}},
        {"skew beyond point tol", AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(2, -1, 0.0008), AcGeVector3d(0, 1, 0)), &fine, false, {}},
        {"segments meeting", AcGeLineSeg3d(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 2, 0)),
         AcGeLineSeg3d(AcGePoint3d(0, 2, 0), AcGePoint3d(2, 0, 0)), &fine, true, {1, 1, 0}},
        {"segment short of the crossing", AcGeLineSeg3d(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0)),
         AcGeLine3d(AcGePoint3d(3, 0, 0), AcGeVector3d(0, 1, 0)), &fine, false, {}},
        {"segment ends at the crossing", AcGeLineSeg3d(AcGePoint3d(0, 0, 0), AcGePoint3d(3, 0, 0)),
         AcGeLine3d(AcGePoint3d(3, 5, 0), AcGeVector3d(0, 1, 0)), &fine, true, {3, 0, 0}},
        {"ray pointing away", AcGeRay3d(AcGePoint3d(0, 0, 0), AcGeVector3d(-1, 0, 0)),
         AcGeLine3d(AcGePoint3d(3, 0, 0), AcGeVector3d(0, 1, 0)), &fine, false, {}},
        {"ray pointing towards", AcGeRay3d(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0)),
         AcGeLine3d(AcGePoint3d(3, 0, 0), AcGeVector3d(0, 1, 0)), &fine, true, {3, 0, 0}},
    };
    for (const Case& c : cases) {
        AcGePoint3d pt(-7, -7, -7);
        EXPECT_EQ(meet(c.a, c.b, pt, *c.tol), c.hit) << c.name;
        if (c.hit)
            EXPECT_PT_NEAR(pt, c.at, 1e-9);
        else
            EXPECT_PT_NEAR(pt, AcGePoint3d(-7, -7, -7), 0.0); // untouched on a miss
    }
}

TEST(AcGeLinearEnt3d, CopyByValueKeepsTheExtent)
{
    AcGeLineSeg3d seg(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0));
    AcGeLinearEnt3d sliced = seg;
    EXPECT_EQ(sliced.type(), AcGe::kLineSeg3d);
    EXPECT_TRUE(sliced.isKindOf(AcGe::kLinearEnt3d));
    EXPECT_TRUE(sliced.isKindOf(AcGe::kCurve3d));
    EXPECT_FALSE(sliced.isOn(AcGePoint3d(3, 0, 0)));
    AcGeLinearEnt3d* c = sliced.copy();
    EXPECT_EQ(c->type(), AcGe::kLineSeg3d);
    EXPECT_NE(dynamic_cast<AcGeLineSeg3d*>(c), nullptr);
    delete c;
}

TEST(AcGeLinearEnt3d, QueriesOnLinesAndSegments)
{
    AcGeLineSeg3d seg(AcGePoint3d(1, 1, 0), AcGePoint3d(5, 4, 0));
    EXPECT_DOUBLE_EQ(seg.length(), 5.0);
    EXPECT_PT_NEAR(seg.midPoint(), AcGePoint3d(3, 2.5, 0), 1e-15);
    EXPECT_VEC_NEAR(seg.direction(), AcGeVector3d(0.8, 0.6, 0), 1e-15);
    EXPECT_NEAR(seg.paramOf(seg.endPoint()), 1.0, 1e-15);
    EXPECT_PT_NEAR(seg.evalPoint(0.5), seg.midPoint(), 1e-15);
    EXPECT_PT_NEAR(seg.closestPointTo(AcGePoint3d(10, 10, 0)), seg.endPoint(), 1e-15);
    EXPECT_PT_NEAR(seg.closestPointTo(AcGePoint3d(-10, 1, 0)), seg.startPoint(), 1e-15);
    EXPECT_TRUE(seg.isOn(AcGePoint3d(3, 2.5, 0)));
    EXPECT_FALSE(seg.isOn(AcGePoint3d(3, 2.5001, 0)));
    EXPECT_TRUE(seg.isOn(AcGePoint3d(3, 2.5001, 0), AcGeTol(1e-3, 1e-12)));
    AcGeLine3d line(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 2));
    EXPECT_DOUBLE_EQ(line.distanceTo(AcGePoint3d(3, 4, 100)), 5.0);
    EXPECT_TRUE(line.isOn(AcGePoint3d(0, 0, -1e6)));
    EXPECT_TRUE(line.isColinearTo(AcGeLine3d(AcGePoint3d(0, 0, 7), AcGeVector3d(0, 0, -1))));
    EXPECT_FALSE(line.isColinearTo(AcGeLine3d(AcGePoint3d(1, 0, 7), AcGeVector3d(0, 0, -1))));
    EXPECT_TRUE(line.isParallelTo(AcGeLine3d(AcGePoint3d(1, 0, 7), AcGeVector3d(0, 0, -1))));
    EXPECT_TRUE(line.isPerpendicularTo(seg));
    AcGePoint3d s;
    EXPECT_FALSE(line.hasStartPoint(s));
    EXPECT_TRUE(seg.hasEndPoint(s));
    seg.reverseParam();
    EXPECT_PT_NEAR(seg.startPoint(), AcGePoint3d(5, 4, 0), 1e-15);
}

TEST(AcGePlane, DistancesAndLineIntersection)
{
    AcGePlane plane(AcGePoint3d(0, 0, 1), AcGeVector3d(0, 0, 2));
    EXPECT_DOUBLE_EQ(plane.signedDistanceTo(AcGePoint3d(4, 4, -2)), -3.0);
    EXPECT_DOUBLE_EQ(plane.distanceTo(AcGePoint3d(4, 4, -2)), 3.0);
    EXPECT_TRUE(plane.isOn(AcGePoint3d(9, -9, 1)));
    AcGePoint3d pt;
    EXPECT_TRUE(plane.intersectWith(AcGeLine3d(AcGePoint3d(1, 1, 5), AcGeVector3d(1, 0, -1)), pt));
    EXPECT_PT_NEAR(pt, AcGePoint3d(5, 1, 1), 1e-12);
    EXPECT_FALSE(plane.intersectWith(AcGeLine3d(AcGePoint3d(1, 1, 5), AcGeVector3d(1, 1, 0)), pt));
    EXPECT_FALSE(plane.intersectWith(AcGeLineSeg3d(AcGePoint3d(0, 0, 5), AcGePoint3d(0, 0, 3)), pt));
    AcGePlane uv(AcGePoint3d(1, 0, 0), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1));
    EXPECT_VEC_NEAR(uv.normal(), AcGeVector3d(1, 0, 0), 1e-15);
    EXPECT_TRUE(uv.isCoplanarTo(AcGePlane(AcGePoint3d(1, 5, 5), AcGeVector3d(-1, 0, 0))));
    EXPECT_VEC_NEAR(AcGePlane::kXYPlane.normal(), AcGeVector3d(0, 0, 1), 0.0);
}

} // namespace
