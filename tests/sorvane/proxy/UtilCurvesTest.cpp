// The curve conversions: polyline arc segments by points and by index, the dispatch by
// class, segment ends, and arcs to geometry and back.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbPolyline.h"
#include "proxy/Util.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// Vertices along x every 10 with the given bulges (one per segment).
std::unique_ptr<AcDbPolyline> Pline(std::initializer_list<double> bulges)
{
    auto pl = std::make_unique<AcDbPolyline>();
    unsigned int i = 0;
    for (double b : bulges) {
        pl->addVertexAt(i, AcGePoint2d(10.0 * i, 0), b);
        ++i;
    }
    pl->addVertexAt(i, AcGePoint2d(10.0 * i, 0));
    return pl;
}

TEST(UtilCurves, PolylineArcByPointsNeverAnswersTheFirstSegment)
{
    // Half circles of bulge 1 bulge below the chord: their lowest point is 5 below its middle.
    const struct {
        const char* name;
        std::initializer_list<double> bulges;
        AcGePoint3d p1, p2;
        bool found;
        AcGePoint3d center;
    } cases[] = {
        {"arc first: null", {1.0, 0.0}, {5, -5, 0}, {10, 0, 0}, false, {}},
        {"arc second", {0.0, 1.0}, {15, -5, 0}, {20, 0, 0}, true, {15, 0, 0}},
        {"points on lines around an arc take the arc", {0.0, 1.0, 0.0}, {5, 0, 0}, {25, 0, 0}, true, {15, 0, 0}},
        {"points on lines without an arc between", {0.0, 0.0, 1.0}, {5, 0, 0}, {15, 0, 0}, false, {}},
        {"the later arc wins", {0.0, 1.0, 1.0}, {15, -5, 0}, {25, -5, 0}, true, {25, 0, 0}},
        {"points off the polyline", {0.0, 1.0}, {5, 7, 0}, {50, 50, 0}, false, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto pl = Pline(c.bulges);
        std::unique_ptr<AcGeCircArc3d> arc(Polyline2GeArc(pl.get(), c.p1, c.p2));
        ASSERT_EQ(arc != nullptr, c.found);
        if (arc) {
            EXPECT_TRUE(arc->center().isEqualTo(c.center));
        }
    }
    EXPECT_EQ(Polyline2GeArc(nullptr, AcGePoint3d(), AcGePoint3d()), nullptr);
}

TEST(UtilCurves, PolylineArcByIndexFollowsThePolylinesDirection)
{
    auto pl = Pline({1.0, 0.0, -1.0});
    std::unique_ptr<AcGeCircArc3d> first(Polyline2GeArc(pl.get(), 0));
    ASSERT_TRUE(first);  // by index the first segment is answered
    EXPECT_TRUE(first->startPoint().isEqualTo(AcGePoint3d(0, 0, 0)));
    EXPECT_TRUE(first->evalPoint((first->startAng() + first->endAng()) / 2).isEqualTo(AcGePoint3d(5, -5, 0)));

    // Clockwise bulge: the 3D arc runs counter-clockwise from the end vertex; the answer runs
    // from the start vertex, against that default.
    AcGeCircArc3d ccw;
    ASSERT_EQ(pl->getArcSegAt(2, ccw), Acad::eOk);
    EXPECT_TRUE(ccw.startPoint().isEqualTo(AcGePoint3d(30, 0, 0)));
    std::unique_ptr<AcGeCircArc3d> cw(Polyline2GeArc(pl.get(), 2));
    ASSERT_TRUE(cw);
    EXPECT_TRUE(cw->startPoint().isEqualTo(AcGePoint3d(20, 0, 0)));
    EXPECT_TRUE(cw->endPoint().isEqualTo(AcGePoint3d(30, 0, 0)));

    for (int bad : {1, -1, 3, 99})  // a line segment, and indexes that name none
        EXPECT_EQ(Polyline2GeArc(pl.get(), bad), nullptr) << bad;
    EXPECT_EQ(Polyline2GeArc(static_cast<AcDbPolyline*>(nullptr), 0), nullptr);
}

TEST(UtilCurves, Curve2GeArcDispatchesByClass)
{
    AcDbArc arc(AcGePoint3d(1, 2, 0), 3, 0, kPi / 2);
    AcDbCircle circle(AcGePoint3d(4, 5, 0), AcGeVector3d::kZAxis, 6);
    auto pl = Pline({0.0, 1.0});
    AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    const struct {
        const char* name;
        AcDbCurve* curve;
        double radiusByIndex;     // 0: null expected
        double radiusByPoints;
        int index;
    } cases[] = {
        {"arc", &arc, 3, 3, 7},
        {"circle", &circle, 6, 6, 0},
        {"polyline", pl.get(), 5, 5, 1},
        {"line: unsupported", &line, 0, 0, 0},
        {"null", nullptr, 0, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<AcGeCircArc3d> byIndex(Curve2GeArc(c.curve, c.index));
        std::unique_ptr<AcGeCircArc3d> byPoints(Curve2GeArc(c.curve, AcGePoint3d(15, -5, 0), AcGePoint3d(20, 0, 0)));
        ASSERT_EQ(byIndex != nullptr, c.radiusByIndex > 0);
        ASSERT_EQ(byPoints != nullptr, c.radiusByPoints > 0);
        if (byIndex) {
            EXPECT_DOUBLE_EQ(byIndex->radius(), c.radiusByIndex);
        }
        if (byPoints) {
            EXPECT_DOUBLE_EQ(byPoints->radius(), c.radiusByPoints);
        }
    }
}

TEST(UtilCurves, GetSegmentEnds)
{
    auto pl = Pline({0.0, 1.0});
    AcDbLine line(AcGePoint3d(1, 1, 0), AcGePoint3d(2, 2, 0));
    const AcGePoint3d untouched(-7, -7, -7);
    const struct {
        const char* name;
        AcDbCurve* curve;
        int index;
        int result;
        AcGePoint3d start, end;
    } cases[] = {
        {"null", nullptr, 0, 0, untouched, untouched},
        {"not a polyline: its ends", &line, 5, 1, {1, 1, 0}, {2, 2, 0}},
        {"line segment: untouched", pl.get(), 0, 0, untouched, untouched},
        {"arc segment", pl.get(), 1, 1, {10, 0, 0}, {20, 0, 0}},
        {"bad index: the whole polyline", pl.get(), 2, 0, {0, 0, 0}, {20, 0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        AcGePoint3d s = untouched, e = untouched;
        EXPECT_EQ(GetSegmentEnds(c.curve, c.index, s, e), c.result);
        EXPECT_TRUE(s.isEqualTo(c.start));
        EXPECT_TRUE(e.isEqualTo(c.end));
    }
}

TEST(UtilCurves, ArcsRoundTripThroughGeometry)
{
    AcDbArc arc(AcGePoint3d(1, 2, 3), 4, 0.3, 2.0);
    std::unique_ptr<AcGeCircArc3d> ge(Arc2GeArc(&arc));
    ASSERT_TRUE(ge);
    std::unique_ptr<AcDbArc> back(GeArc2Arc(ge.get()));
    ASSERT_TRUE(back);
    EXPECT_TRUE(back->center().isEqualTo(arc.center()));
    EXPECT_DOUBLE_EQ(back->radius(), 4);
    EXPECT_NEAR(back->startAngle(), 0.3, 1e-12);
    EXPECT_NEAR(back->endAngle(), 2.0, 1e-12);

    // A three-point arc whose reference vector is not the x axis keeps its end points.
    const AcGeCircArc3d threePoint(AcGePoint3d(0, 5, 0), AcGePoint3d(-5, 0, 0), AcGePoint3d(0, -5, 0));
    std::unique_ptr<AcDbArc> made(GeArc2Arc(&threePoint));
    ASSERT_TRUE(made);
    AcGePoint3d s, e;
    made->getStartPoint(s);
    made->getEndPoint(e);
    EXPECT_TRUE(s.isEqualTo(AcGePoint3d(0, 5, 0)));
    EXPECT_TRUE(e.isEqualTo(AcGePoint3d(0, -5, 0)));

    std::unique_ptr<AcGeCircArc3d> full(Circle2GeArc(nullptr));
    EXPECT_FALSE(full);
    EXPECT_EQ(Arc2GeArc(nullptr), nullptr);
    EXPECT_EQ(GeArc2Arc(nullptr), nullptr);
}

}  // namespace
