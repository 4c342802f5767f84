// Recording world draws into display lists: every primitive, its traits, markers, transforms.
#include <gtest/gtest.h>

#include <cmath>

#include "host/ge/AcGePlane.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

void expectPoint(const AcGePoint3d& p, double x, double y, double z = 0.0)
{
    EXPECT_NEAR(p.x, x, 1e-9);
    EXPECT_NEAR(p.y, y, 1e-9);
    EXPECT_NEAR(p.z, z, 1e-9);
}

TEST(DisplayList, RecordsEveryPrimitiveWithItsTraits)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list, {.regenType = kAcGiSaveWorldDrawForProxy});
    AcGiSubEntityTraits& t = draw.subEntityTraits();
    AcGiWorldGeometry& g = draw.geometry();
    const AcGePoint3d line[2] = {{0, 0, 0}, {10, 0, 0}};
    const AcGePoint3d tri[3] = {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}};

    t.setSelectionMarker(2);
    t.setColor(1);
    t.setLayer(AcGiLayerKey{7});
    t.setLineWeight(35);
    EXPECT_FALSE(g.polyline(2, line));
    t.setFillType(kAcGiFillAlways);
    t.setSelectionMarker(3);
    g.polygon(3, tri);
    t.setFillType(kAcGiFillNever);
    t.setTrueColor(AcCmEntityColor(255, 255, 255));
    g.circle(AcGePoint3d(5, 5, 0), 2, AcGeVector3d::kZAxis);
    t.setColor(256);
    g.circularArc(AcGePoint3d(0, 0, 0), 3, AcGeVector3d::kZAxis, AcGeVector3d(0, 2, 0), kPi / 2, kAcGiArcSector);
    g.circularArc(AcGePoint3d(1, 0, 0), AcGePoint3d(0, 1, 0), AcGePoint3d(-1, 0, 0));
    g.xline(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    g.ray(AcGePoint3d(1, 0, 0), AcGePoint3d(2, 0, 0));
    t.setSelectionMarker(1001);
    g.text(AcGePoint3d(1, 2, 0), AcGeVector3d::kZAxis, AcGeVector3d(0, 3, 0), 2.5, 1.0, 0.0, L"1.23");

    EXPECT_EQ(draw.regenType(), kAcGiSaveWorldDrawForProxy);
    EXPECT_EQ(list.regenType, kAcGiSaveWorldDrawForProxy);
    ASSERT_EQ(list.size(), 8u);
    const auto& p = list.primitives;
    struct Expect {
        GiPrimitiveKind kind;
        Adesk::GsMarker marker;
        int colorIndex;
        AcGiFillType fill;
    } expected[] = {
        {GiPrimitiveKind::kPolyline, 2, 1, kAcGiFillNever}, {GiPrimitiveKind::kPolygon, 3, 1, kAcGiFillAlways},
        {GiPrimitiveKind::kCircle, 3, -1, kAcGiFillNever},  {GiPrimitiveKind::kArc, 3, 256, kAcGiFillNever},
        {GiPrimitiveKind::kArc, 3, 256, kAcGiFillNever},    {GiPrimitiveKind::kXline, 3, 256, kAcGiFillNever},
        {GiPrimitiveKind::kRay, 3, 256, kAcGiFillNever},    {GiPrimitiveKind::kText, 1001, 256, kAcGiFillNever},
    };
    for (std::size_t i = 0; i < p.size(); ++i) {
        EXPECT_EQ(p[i].kind, expected[i].kind) << i;
        EXPECT_EQ(p[i].traits.marker, expected[i].marker) << i;
        if (expected[i].colorIndex >= 0) {
            EXPECT_EQ(p[i].traits.color.colorIndex(), expected[i].colorIndex) << i;
        }
        EXPECT_EQ(p[i].traits.fill, expected[i].fill) << i;
        EXPECT_EQ(p[i].traits.layer, AcGiLayerKey{7}) << i;
        EXPECT_EQ(p[i].traits.lineWeight, 35) << i;
    }
    EXPECT_TRUE(p[2].traits.color.isByColor());
    EXPECT_EQ(p[2].traits.color.rgb(), 0xFFFFFFu);
    EXPECT_TRUE(p[1].isFilled());
    EXPECT_FALSE(p[3].isFilled());

    // The centre-and-sweep arc keeps its centre, a unit start vector and its type.
    expectPoint(p[3].arcStart(), 0, 3);
    expectPoint(p[3].arcEnd(), -3, 0);
    EXPECT_EQ(p[3].arcType, kAcGiArcSector);
    // The three-point arc becomes centre form and keeps its points.
    EXPECT_TRUE(p[4].threePoint);
    expectPoint(p[4].center, 0, 0);
    EXPECT_NEAR(p[4].radius, 1, 1e-12);
    EXPECT_NEAR(p[4].sweep, kPi, 1e-12);
    // The text keeps its string, a unit direction and the box measured in its style.
    ASSERT_TRUE(p[7].text);
    EXPECT_EQ(p[7].text->string, L"1.23");
    expectPoint(AcGePoint3d::kOrigin + p[7].text->direction, 0, 1);
    EXPECT_NEAR(p[7].text->boxMax.x, 3986.0 * 2.5 / 1409.0, 1e-12);
    EXPECT_DOUBLE_EQ(p[7].text->boxMax.y, 2.5);
}

TEST(DisplayList, ArcsThroughThreePoints)
{
    struct Case {
        AcGePoint3d a, b, c;
        double cx, cy, r, sweep, nz;
    } cases[] = {
        {{1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, 0, 0, 1, kPi, 1},
        {{-1, 0, 0}, {0, 1, 0}, {1, 0, 0}, 0, 0, 1, kPi, -1},                  // clockwise
        {{2, 0, 0}, {0, -2, 0}, {0, 2, 0}, 0, 0, 2, 1.5 * kPi, -1},            // the long way round
        {{10, 10, 0}, {12, 12, 0}, {14, 10, 0}, 12, 10, 2, kPi, -1},
    };
    for (const Case& c : cases) {
        GiPrimitive arc;
        ASSERT_TRUE(giArcThroughPoints(c.a, c.b, c.c, arc));
        EXPECT_NEAR(arc.center.x, c.cx, 1e-12);
        EXPECT_NEAR(arc.center.y, c.cy, 1e-12);
        EXPECT_NEAR(arc.radius, c.r, 1e-12);
        EXPECT_NEAR(arc.sweep, c.sweep, 1e-12);
        EXPECT_NEAR(arc.normal.z, c.nz, 1e-12);
        expectPoint(arc.arcEnd(), c.c.x, c.c.y);
    }
    GiPrimitive untouched;
    EXPECT_FALSE(giArcThroughPoints({0, 0, 0}, {1, 1, 0}, {2, 2, 0}, untouched));
    EXPECT_EQ(untouched.radius, 0.0);
}

TEST(DisplayList, CollinearArcBecomesALine)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    draw.geometry().circularArc(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(2, 0, 0));
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list.primitives[0].kind, GiPrimitiveKind::kPolyline);
    EXPECT_EQ(list.primitives[0].points.size(), 2u);
}

TEST(DisplayList, ModelTransformsGiveWorldCoordinates)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    AcGiWorldGeometry& g = draw.geometry();
    g.pushModelTransform(AcGeMatrix3d::translation(AcGeVector3d(10, 0, 0)));
    g.pushModelTransform(AcGeMatrix3d::scaling(2.0));
    const AcGePoint3d pts[2] = {{1, 1, 0}, {2, 1, 0}};
    g.polyline(2, pts);
    g.circle(AcGePoint3d(0, 0, 0), 1.5, AcGeVector3d::kZAxis);
    g.text(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, 1.0, 1.0, 0.0, L"A");
    EXPECT_FALSE(g.popModelTransform());
    EXPECT_FALSE(g.popModelTransform());
    EXPECT_TRUE(g.popModelTransform());  // nothing left to pop
    g.polyline(2, pts);
    // A mirror keeps arcs counter-clockwise about their recorded normal.
    g.pushModelTransform(AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis)));
    g.circularArc(AcGePoint3d(0, 0, 0), 1, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kPi / 2);
    g.popModelTransform();

    const auto& p = list.primitives;
    ASSERT_EQ(p.size(), 5u);
    expectPoint(p[0].points[0], 12, 2);
    expectPoint(p[0].points[1], 14, 2);
    expectPoint(p[1].center, 10, 0);
    EXPECT_NEAR(p[1].radius, 3.0, 1e-12);
    EXPECT_NEAR(p[2].text->style.textSize(), 2.0, 1e-12);
    expectPoint(p[2].text->position, 10, 0);
    expectPoint(p[3].points[0], 1, 1);
    expectPoint(p[4].arcStart(), -1, 0);
    expectPoint(p[4].arcPoint(kPi / 4), -std::sqrt(0.5), std::sqrt(0.5));
    expectPoint(p[4].arcEnd(), 0, 1);
}

TEST(DisplayList, ContextAbortAndViewportDraw)
{
    GiDisplayList list;
    AcDbDatabase* db = reinterpret_cast<AcDbDatabase*>(0x1234);
    GiRecordingWorldDraw draw(list, {.regenType = kAcGiForExplode, .plotGeneration = true, .database = db});
    EXPECT_EQ(draw.regenType(), kAcGiForExplode);
    EXPECT_TRUE(draw.isPlotGeneration());
    EXPECT_EQ(draw.context()->database(), db);
    EXPECT_FALSE(draw.regenAbort());
    draw.setRegenAbort(true);
    EXPECT_TRUE(draw.regenAbort());
    const AcGePoint3d pts[2] = {{0, 0, 0}, {1, 0, 0}};
    EXPECT_TRUE(draw.geometry().polyline(2, pts));  // taken, and the caller told to stop
    EXPECT_EQ(list.size(), 1u);
    draw.setRegenType(kAcGiStandardDisplay);
    EXPECT_EQ(list.regenType, kAcGiStandardDisplay);

    GiDisplayList vlist;
    GiRecordingViewportDraw vdraw(vlist);
    vdraw.geometry().polygon(2, pts);
    EXPECT_EQ(vlist.size(), 1u);
    EXPECT_TRUE(vdraw.viewport().viewDir().isEqualTo(AcGeVector3d::kZAxis));
    EXPECT_FALSE(vdraw.isPlotGeneration());
}

TEST(DisplayList, ExtentsOfArcsAndTexts)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    // A quarter arc from 12 o'clock to 9 o'clock about (0, 0), radius 2.
    draw.geometry().circularArc(AcGePoint3d(0, 0, 0), 2, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, kPi / 2);
    GiExtents e = list.extents();
    expectPoint(e.min, -2, 0);
    expectPoint(e.max, 0, 2);
    draw.geometry().text(AcGePoint3d(5, 5, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, 2.5, 1.0, 0.0, L"1.23");
    e = list.extents();
    EXPECT_NEAR(e.max.x, 5 + 3986.0 * 2.5 / 1409.0, 1e-12);
    EXPECT_NEAR(e.max.y, 7.5, 1e-12);
    EXPECT_FALSE(GiDisplayList().extents().isValid());
}

}  // namespace
