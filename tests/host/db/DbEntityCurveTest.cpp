// Native curves: polyline segments and bulges, parameters, transformations, intersections.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <memory>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbXline.h"
#include "host/ge/AcGePlane.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
const double kQuarterBulge = std::tan(kPi / 8.0);

void expectNear(const AcGePoint3d& a, const AcGePoint3d& b, const char* what)
{
    EXPECT_LT(a.distanceTo(b), 1e-9) << what << ": (" << a.x << "," << a.y << "," << a.z << ") vs (" << b.x << ","
                                     << b.y << "," << b.z << ")";
}

AcGePoint3d p3(double x, double y) { return AcGePoint3d(x, y, 0.0); }

std::unique_ptr<AcDbPolyline> polyline(std::initializer_list<std::array<double, 3>> verts, bool closed = false)
{
    auto pl = std::make_unique<AcDbPolyline>();
    unsigned i = 0;
    for (const auto& v : verts)
        pl->addVertexAt(i++, AcGePoint2d(v[0], v[1]), v[2]);
    pl->setClosed(closed);
    return pl;
}

struct BulgeCase {
    const char* name;
    AcGePoint2d p1, p2;
    double bulge;
    AcGePoint2d center;
    double radius;
    bool clockwise;
    AcGePoint3d arc3dStart, arc3dEnd;  // counter-clockwise about the normal
    AcGePoint2d mid;                   // a point half way along the segment
};

TEST(DbEntityCurve, PolylineArcSegmentsFollowTheBulge)
{
    const double h = std::sqrt(0.5);
    const BulgeCase cases[] = {
        {"half ccw", {0, 0}, {2, 0}, 1.0, {1, 0}, 1.0, false, p3(0, 0), p3(2, 0), {1, -1}},
        {"half cw", {0, 0}, {2, 0}, -1.0, {1, 0}, 1.0, true, p3(2, 0), p3(0, 0), {1, 1}},
        {"quarter ccw", {1, 0}, {0, 1}, kQuarterBulge, {0, 0}, 1.0, false, p3(1, 0), p3(0, 1), {h, h}},
        {"quarter cw", {0, 1}, {1, 0}, -kQuarterBulge, {0, 0}, 1.0, true, p3(1, 0), p3(0, 1), {h, h}},
        {"three quarters cw", {1, 0}, {0, 1}, -1.0 / kQuarterBulge, {0, 0}, 1.0, true, p3(0, 1), p3(1, 0), {-h, -h}},
    };
    for (const BulgeCase& c : cases) {
        SCOPED_TRACE(c.name);
        auto pl = polyline({{c.p1.x, c.p1.y, c.bulge}, {c.p2.x, c.p2.y, 0.0}});
        ASSERT_EQ(pl->segType(0), AcDbPolyline::kArc);

        AcGeCircArc2d a2;
        ASSERT_EQ(pl->getArcSegAt(0, a2), Acad::eOk);
        EXPECT_TRUE(a2.center().isEqualTo(c.center, AcGeTol(1e-9, 1e-9)));
        EXPECT_NEAR(a2.radius(), c.radius, 1e-9);
        EXPECT_EQ(a2.isClockWise(), c.clockwise);
        EXPECT_TRUE(a2.startPoint().isEqualTo(c.p1, AcGeTol(1e-9, 1e-9)));
        EXPECT_TRUE(a2.endPoint().isEqualTo(c.p2, AcGeTol(1e-9, 1e-9)));
        EXPECT_TRUE(a2.evalPoint(0.5 * (a2.startAng() + a2.endAng())).isEqualTo(c.mid, AcGeTol(1e-9, 1e-9)));

        AcGeCircArc3d a3;
        ASSERT_EQ(pl->getArcSegAt(0, a3), Acad::eOk);
        EXPECT_TRUE(a3.normal().isEqualTo(AcGeVector3d::kZAxis));
        expectNear(a3.center(), p3(c.center.x, c.center.y), "3d centre");
        expectNear(a3.startPoint(), c.arc3dStart, "3d start");
        expectNear(a3.endPoint(), c.arc3dEnd, "3d end");
        // Reversed where the 2D arc runs clockwise, the 3D arc follows the polyline.
        if (a2.isClockWise())
            a3.reverseParam();
        expectNear(a3.startPoint(), p3(c.p1.x, c.p1.y), "polyline sense start");
        expectNear(a3.endPoint(), p3(c.p2.x, c.p2.y), "polyline sense end");

        AcGePoint3d mid;
        ASSERT_EQ(pl->getPointAtParam(0.5, mid), Acad::eOk);
        expectNear(mid, p3(c.mid.x, c.mid.y), "parameter 0.5");
    }
}

TEST(DbEntityCurve, PolylineSegmentTypes)
{
    auto one = polyline({{1, 1, 0}});
    auto open = polyline({{0, 0, 0}, {0, 0, 0}, {1, 0, 0.5}, {2, 0, 0}});
    auto closed = polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0.3}}, true);
    struct Case {
        const AcDbPolyline* pl;
        unsigned index;
        AcDbPolyline::SegType type;
    } cases[] = {
        {one.get(), 0, AcDbPolyline::kPoint}, {one.get(), 1, AcDbPolyline::kEmpty},
        {open.get(), 0, AcDbPolyline::kCoincident}, {open.get(), 1, AcDbPolyline::kLine},
        {open.get(), 2, AcDbPolyline::kArc}, {open.get(), 3, AcDbPolyline::kEmpty},
        {closed.get(), 2, AcDbPolyline::kArc},  // the closing segment exists
        {closed.get(), 3, AcDbPolyline::kEmpty},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.pl->segType(c.index), c.type) << "segment " << c.index;
    AcGeLineSeg3d seg;
    EXPECT_EQ(open->getLineSegAt(3, seg), Acad::eInvalidIndex);
    AcGeCircArc3d arc;
    EXPECT_EQ(open->getArcSegAt(1, arc), Acad::eNotApplicable);
}

TEST(DbEntityCurve, ParameterRoundTrips)
{
    std::vector<std::pair<const char*, std::shared_ptr<AcDbCurve>>> curves = {
        {"line", std::make_shared<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 6, 3))},
        {"arc", std::make_shared<AcDbArc>(AcGePoint3d(1, 1, 0), 2.0, 5.5, 1.0)},  // across angle 0
        {"tilted arc", std::make_shared<AcDbArc>(AcGePoint3d(0, 0, 1), AcGeVector3d(1, 1, 1), 3.0, 0.5, 2.5)},
        {"circle", std::make_shared<AcDbCircle>(AcGePoint3d(2, 0, 0), AcGeVector3d(0, 1, 0), 1.5)},
        {"polyline", std::shared_ptr<AcDbPolyline>(polyline({{0, 0, 0}, {4, 0, -0.7}, {4, 3, 0}, {0, 3, 0.2}}, true))},
    };
    for (auto& [name, curve] : curves) {
        SCOPED_TRACE(name);
        double s = 0, e = 0;
        ASSERT_EQ(curve->getStartParam(s), Acad::eOk);
        ASSERT_EQ(curve->getEndParam(e), Acad::eOk);
        ASSERT_GT(e, s);
        for (int k = 0; k <= 8; ++k) {
            double p = s + (e - s) * k / 8.0, back = -1;
            AcGePoint3d pt;
            ASSERT_EQ(curve->getPointAtParam(p, pt), Acad::eOk);
            ASSERT_EQ(curve->getParamAtPoint(pt, back), Acad::eOk) << "k=" << k;
            AcGePoint3d again;
            curve->getPointAtParam(back, again);
            EXPECT_LT(again.distanceTo(pt), 1e-9) << "k=" << k;
            double d = 0, p2 = 0;
            ASSERT_EQ(curve->getDistAtParam(p, d), Acad::eOk);
            ASSERT_EQ(curve->getParamAtDist(d, p2), Acad::eOk);
            curve->getPointAtParam(p2, again);
            EXPECT_LT(again.distanceTo(pt), 1e-9) << "distance k=" << k;
        }
        AcGePoint3d mid, off;
        curve->getPointAtParam(0.5 * (s + e), mid);
        double dummy = 0;
        off = mid + AcGeVector3d(0.01, 0.02, 0.03);
        EXPECT_EQ(curve->getParamAtPoint(off, dummy), Acad::eInvalidInput);
        if (!curve->isPeriodic()) {
            EXPECT_EQ(curve->getPointAtParam(e + 1.0, off), Acad::eInvalidInput);
        }
    }
    AcDbPolyline square;
    for (unsigned i = 0; i < 4; ++i)
        square.addVertexAt(i, AcGePoint2d(i == 1 || i == 2 ? 2 : 0, i >= 2 ? 2 : 0));
    square.setClosed(true);
    double len = 0, area = 0, e = 0;
    square.getEndParam(e);
    square.getDistAtParam(e, len);
    square.getArea(area);
    EXPECT_DOUBLE_EQ(len, 8.0);
    EXPECT_DOUBLE_EQ(area, 4.0);
}

TEST(DbEntityCurve, TransformsKeepTheShape)
{
    const AcGeMatrix3d mirrorX = AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis));
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2.0, AcGeVector3d::kZAxis, AcGePoint3d(1, 1, 0));
    const AcGeMatrix3d stretch = AcGeMatrix3d::scaling(AcGeScale3d(2.0, 1.0, 1.0));
    const AcGeMatrix3d grow = AcGeMatrix3d::scaling(3.0, AcGePoint3d(1, 0, 0));

    std::vector<std::pair<const char*, std::function<AcDbCurve*()>>> makers = {
        {"line", [] { return new AcDbLine(AcGePoint3d(1, 0, 0), AcGePoint3d(3, 2, 1)); }},
        {"arc", [] { return new AcDbArc(AcGePoint3d(2, 0, 0), 1.0, 0.0, kPi / 2.0); }},
        {"polyline", [] { return polyline({{0, 0, 0}, {2, 0, 0.5}, {2, 2, -0.3}, {0, 3, 0}}).release(); }},
    };
    struct Xf { const char* name; AcGeMatrix3d m; };
    const Xf xforms[] = {{"mirror", mirrorX}, {"turn", turn}, {"grow", grow}};
    for (auto& [name, make] : makers) {
        for (const Xf& xf : xforms) {
            SCOPED_TRACE(std::string(name) + " " + xf.name);
            std::unique_ptr<AcDbCurve> before(make()), after(make());
            ASSERT_EQ(after->transformBy(xf.m), Acad::eOk);
            // The point set is the image: start, end and the middle map onto each other.
            double s = 0, e = 0, s2 = 0, e2 = 0;
            before->getStartParam(s);
            before->getEndParam(e);
            after->getStartParam(s2);
            after->getEndParam(e2);
            AcGePoint3d a, b, c, d;
            before->getStartPoint(a);
            before->getEndPoint(b);
            after->getStartPoint(c);
            after->getEndPoint(d);
            bool same = (xf.m * a).isEqualTo(c, AcGeTol(1e-9, 1e-9)) && (xf.m * b).isEqualTo(d, AcGeTol(1e-9, 1e-9));
            bool swapped = (xf.m * a).isEqualTo(d, AcGeTol(1e-9, 1e-9)) && (xf.m * b).isEqualTo(c, AcGeTol(1e-9, 1e-9));
            EXPECT_TRUE(same || swapped);
            for (int k = 1; k < 8; ++k) {
                AcGePoint3d p, onImage;
                before->getPointAtParam(s + (e - s) * k / 8.0, p);
                EXPECT_EQ(after->getClosestPointTo(xf.m * p, onImage), Acad::eOk);
                EXPECT_LT(onImage.distanceTo(xf.m * p), 1e-9) << "k=" << k;
            }
        }
    }
    // A mirrored arc keeps a +Z normal and swaps its ends.
    AcDbArc arc(AcGePoint3d(2, 0, 0), 1.0, 0.0, kPi / 2.0);
    ASSERT_EQ(arc.transformBy(mirrorX), Acad::eOk);
    EXPECT_TRUE(arc.normal().isEqualTo(AcGeVector3d::kZAxis));
    AcGePoint3d st, en;
    arc.getStartPoint(st);
    arc.getEndPoint(en);
    expectNear(st, p3(-2, 1), "mirrored arc start");
    expectNear(en, p3(-3, 0), "mirrored arc end");
    // Non-uniform scaling is refused by circles and arcs, and leaves them as they were.
    AcDbCircle circle(AcGePoint3d(1, 1, 0), AcGeVector3d::kZAxis, 2.0);
    EXPECT_EQ(circle.transformBy(stretch), Acad::eCannotScaleNonUniformly);
    EXPECT_DOUBLE_EQ(circle.radius(), 2.0);
    AcDbArc arc2(AcGePoint3d(0, 0, 0), 1.0, 0.0, 1.0);
    EXPECT_EQ(arc2.transformBy(stretch), Acad::eCannotScaleNonUniformly);
    AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    EXPECT_EQ(line.transformBy(stretch), Acad::eOk);
    expectNear(line.endPoint(), p3(2, 1), "stretched line");
}

TEST(DbEntityCurve, IntersectionTable)
{
    auto lineA = std::make_shared<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0));
    auto lineShort = std::make_shared<AcDbLine>(AcGePoint3d(6, -1, 0), AcGePoint3d(6, 1, 0));
    auto lineCross = std::make_shared<AcDbLine>(AcGePoint3d(2, -1, 0), AcGePoint3d(2, 1, 0));
    auto circle = std::make_shared<AcDbCircle>(AcGePoint3d(2, 0, 0), AcGeVector3d::kZAxis, 1.0);
    auto upperArc = std::make_shared<AcDbArc>(AcGePoint3d(2, 0.5, 0), 1.0, 0.0, kPi);
    auto lowerArc = std::make_shared<AcDbArc>(AcGePoint3d(2, 0.5, 0), 1.0, kPi, 0.0);
    auto farCircle = std::make_shared<AcDbCircle>(AcGePoint3d(5, 0, 0), AcGeVector3d::kZAxis, 1.0);
    // A line up at x = 0.5, across, then a clockwise half circle round (3.5, 0) through (5.5, 0).
    auto pl = std::shared_ptr<AcDbPolyline>(polyline({{0.5, -2, 0}, {0.5, 2, 0}, {3.5, 2, -1.0}, {3.5, -2, 0}}));
    auto xl = std::make_shared<AcDbXline>();
    xl->setBasePoint(AcGePoint3d(0, 5, 0));
    xl->setUnitDir(AcGeVector3d(1, -1, 0));
    struct Case {
        const char* name;
        std::shared_ptr<AcDbCurve> a, b;
        AcDb::Intersect mode;
        int count;
    } cases[] = {
        {"crossing lines", lineA, lineCross, AcDb::kOnBothOperands, 1},
        {"lines apart", lineA, lineShort, AcDb::kOnBothOperands, 0},
        {"extend this", lineA, lineShort, AcDb::kExtendThis, 1},
        {"extend arg only", lineA, lineShort, AcDb::kExtendArg, 0},
        {"line through circle", lineA, circle, AcDb::kOnBothOperands, 2},
        {"line and upper arc", lineA, upperArc, AcDb::kOnBothOperands, 0},
        {"line and arc extended", lineA, upperArc, AcDb::kExtendArg, 2},
        {"circle and upper arc", circle, upperArc, AcDb::kOnBothOperands, 0},
        {"circle and lower arc", circle, lowerArc, AcDb::kOnBothOperands, 2},
        {"polyline and line", pl, lineA, AcDb::kOnBothOperands, 1},
        {"polyline and near circle", pl, circle, AcDb::kOnBothOperands, 0},
        {"polyline arc and far circle", pl, farCircle, AcDb::kOnBothOperands, 2},
        {"xline and line", xl, lineA, AcDb::kOnBothOperands, 0},
        {"xline and extended line", xl, lineA, AcDb::kExtendArg, 1},
    };
    for (const Case& c : cases) {
        AcGePoint3dArray pts;
        EXPECT_EQ(c.a->intersectWith(c.b.get(), c.mode, pts), Acad::eOk) << c.name;
        EXPECT_EQ(pts.length(), c.count) << c.name;
        for (int i = 0; i < pts.length(); ++i) {
            AcGePoint3d onA, onB;
            c.a->getClosestPointTo(pts[i], onA, c.mode == AcDb::kExtendThis || c.mode == AcDb::kExtendBoth);
            c.b->getClosestPointTo(pts[i], onB, c.mode == AcDb::kExtendArg || c.mode == AcDb::kExtendBoth);
            EXPECT_LT(onA.distanceTo(pts[i]), 1e-9) << c.name;
            EXPECT_LT(onB.distanceTo(pts[i]), 1e-9) << c.name;
        }
    }
}

TEST(DbEntityCurve, ExplodeAndExtents)
{
    auto pl = polyline({{0, 0, 0}, {2, 0, -1.0}, {2, 2, 0}});
    AcDbVoidPtrArray parts;
    ASSERT_EQ(pl->explode(parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 2);
    auto* line = AcDbLine::cast(static_cast<AcRxObject*>(parts[0]));
    auto* arc = AcDbArc::cast(static_cast<AcRxObject*>(parts[1]));
    ASSERT_TRUE(line && arc);
    expectNear(line->endPoint(), p3(2, 0), "line end");
    AcGePoint3d s, e;
    arc->getStartPoint(s);
    arc->getEndPoint(e);
    // A clockwise segment becomes a counter-clockwise arc from its end to its start.
    expectNear(s, p3(2, 2), "arc start");
    expectNear(e, p3(2, 0), "arc end");
    for (int i = 0; i < parts.length(); ++i)
        delete static_cast<AcDbEntity*>(parts[i]);

    AcDbArc quarter(AcGePoint3d(1, 1, 0), 2.0, kPi / 4.0, 3.0 * kPi / 4.0);
    AcDbExtents ext;
    ASSERT_EQ(quarter.getGeomExtents(ext), Acad::eOk);
    const double r = 2.0 * std::sqrt(0.5);
    expectNear(ext.minPoint(), AcGePoint3d(1 - r, 1 + r, 0), "extents min");
    expectNear(ext.maxPoint(), AcGePoint3d(1 + r, 3, 0), "extents max (top of the arc)");
}

}  // namespace
