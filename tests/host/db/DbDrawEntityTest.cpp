// worldDraw of the native entities: one parsed SVG per kind, polyline markers, text
// alignments, MText runs, block inserts and proxy graphics.
#include <algorithm>
#include <cmath>
#include <functional>

#include "DbDrawFixture.h"
#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbPoint.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbProxyEntity.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbViewport.h"
#include "host/db/AcDbXline.h"
#include "host/gi/GiHitTest.h"
#include "host/gi/GiProxyGraphics.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

using namespace dbdraw;
using Kind = GiPrimitiveKind;

class DbDrawEntity : public Drawing {};

AcDbPolyline* MixedPolyline()
{
    // Segment 0 straight, 1 a half circle bulging down, 2 wide and straight, 3 and 4 straight.
    auto* pl = new AcDbPolyline();
    pl->addVertexAt(0, AcGePoint2d(10, 50));
    pl->addVertexAt(1, AcGePoint2d(30, 50), 1.0);
    pl->addVertexAt(2, AcGePoint2d(50, 50), 0.0, 2.0, 4.0);
    pl->addVertexAt(3, AcGePoint2d(70, 50));
    pl->addVertexAt(4, AcGePoint2d(90, 50));
    pl->addVertexAt(5, AcGePoint2d(90, 70));
    return pl;
}

TEST_F(DbDrawEntity, EachKindDrawsItsPrimitivesAndPicture)
{
    struct Case {
        const char* name;
        std::function<AcDbEntity*()> make;
        std::vector<Kind> kinds;  // of the display list, in order
        std::size_t paths;        // drawn SVG paths
        std::size_t filled;       // of them filled
        std::size_t glyphs;
        std::function<void(const GiDisplayList&, const Svg&)> check;
    } cases[] = {
        {"line", [] { return new AcDbLine(AcGePoint3d(10, 10, 0), AcGePoint3d(90, 50, 0)); }, {Kind::kPolyline}, 1, 0, 0,
         [](const GiDisplayList&, const Svg& s) {
             const std::vector<double> expected = {10 * kPt, 90 * kPt, 90 * kPt, 50 * kPt};
             ASSERT_EQ(s.paths[0].numbers.size(), 4u);
             for (int i = 0; i < 4; ++i)
                 EXPECT_NEAR(s.paths[0].numbers[i], expected[i], 1e-2);
         }},
        {"circle", [] { return new AcDbCircle(AcGePoint3d(50, 50, 0), AcGeVector3d::kZAxis, 20); }, {Kind::kCircle}, 1, 0, 0,
         [](const GiDisplayList& l, const Svg& s) {
             EXPECT_NEAR(l.primitives[0].radius, 20, 1e-12);
             const auto& n = s.paths[0].numbers;
             double lo = 1e9, hi = -1e9;
             for (std::size_t i = 0; i < n.size(); i += 2)
                 lo = std::min(lo, n[i]), hi = std::max(hi, n[i]);
             EXPECT_NEAR(lo, 30 * kPt, 0.05);
             EXPECT_NEAR(hi, 70 * kPt, 0.05);
         }},
        {"arc", [] { return new AcDbArc(AcGePoint3d(50, 50, 0), 20, 0, kPi / 2); }, {Kind::kArc}, 1, 0, 0,
         [](const GiDisplayList& l, const Svg& s) {
             EXPECT_TRUE(l.primitives[0].arcStart().isEqualTo(AcGePoint3d(70, 50, 0)));
             EXPECT_TRUE(l.primitives[0].arcEnd().isEqualTo(AcGePoint3d(50, 70, 0)));
             EXPECT_NEAR(s.paths[0].numbers[0], 70 * kPt, 1e-2);
             EXPECT_NEAR(s.paths[0].numbers[1], 50 * kPt, 1e-2);
         }},
        {"polyline with a bulge and a wide segment", [] { return MixedPolyline(); },
         {Kind::kPolyline, Kind::kArc, Kind::kPolygon, Kind::kPolyline}, 4, 1, 0,
         [](const GiDisplayList& l, const Svg&) {
             // The bulge of 1 is a half circle through (40, 40): it bulges to the right.
             GiExtents e = giPrimitiveExtents(l.primitives[1]);
             EXPECT_NEAR(e.min.y, 40, 1e-9);
             // The band is 2 wide at its start and 4 at its end.
             e = giPrimitiveExtents(l.primitives[2]);
             EXPECT_NEAR(e.max.y - e.min.y, 4, 1e-9);
             EXPECT_EQ(l.primitives[3].points.size(), 3u);  // two straight segments in one run
         }},
        {"2d polyline", [] {
             auto* pl = new AcDb2dPolyline();
             pl->appendVertex(new AcDb2dVertex(AcGePoint3d(10, 10, 0)));
             pl->appendVertex(new AcDb2dVertex(AcGePoint3d(90, 10, 0)));
             pl->appendVertex(new AcDb2dVertex(AcGePoint3d(90, 90, 0)));
             pl->makeClosed();
             return pl;
         }, {Kind::kPolyline}, 1, 0, 0,
         [](const GiDisplayList& l, const Svg&) { EXPECT_EQ(l.primitives[0].points.size(), 4u); }},
        {"point", [] { return new AcDbPoint(AcGePoint3d(25, 75, 0)); }, {Kind::kPolyline}, 1, 0, 0,
         [](const GiDisplayList& l, const Svg& s) {
             EXPECT_TRUE(l.primitives[0].points[0].isEqualTo(l.primitives[0].points[1]));
             EXPECT_NEAR(s.paths[0].numbers[0], 25 * kPt, 1e-2);
         }},
        {"solid", [] {
             return new AcDbSolid(AcGePoint3d(10, 10, 0), AcGePoint3d(50, 10, 0), AcGePoint3d(10, 50, 0),
                                  AcGePoint3d(50, 50, 0));
         }, {Kind::kPolygon}, 1, 1, 0,
         [](const GiDisplayList& l, const Svg&) {
             // Stored 0 1 2 3 goes round as 0 1 3 2.
             const auto& p = l.primitives[0].points;
             ASSERT_EQ(p.size(), 4u);
             EXPECT_TRUE(p[2].isEqualTo(AcGePoint3d(50, 50, 0)));
             EXPECT_TRUE(p[3].isEqualTo(AcGePoint3d(10, 50, 0)));
         }},
        {"xline", [] {
             auto* x = new AcDbXline();
             x->setBasePoint(AcGePoint3d(50, 50, 0));
             x->setUnitDir(AcGeVector3d(1, 1, 0));
             return x;
         }, {Kind::kXline}, 1, 0, 0, nullptr},
        {"text", [] { return new AcDbText(AcGePoint3d(10, 10, 0), L"Abc 12", AcDbObjectId::kNull, 5.0); },
         {Kind::kText}, 0, 0, 6,
         [](const GiDisplayList& l, const Svg& s) {
             EXPECT_EQ(l.primitives[0].text->string, L"Abc 12");
             EXPECT_NEAR(s.glyphs[0].first, 10 * kPt, 0.5);
         }},
        {"mtext", [] {
             auto* m = new AcDbMText();
             m->setLocation(AcGePoint3d(10, 90, 0));
             m->setTextHeight(5.0);
             m->setContents(L"one\\Ptwo");
             return m;
         }, {Kind::kText, Kind::kText}, 0, 0, 6,
         [](const GiDisplayList& l, const Svg&) {
             EXPECT_NEAR(l.primitives[0].text->position.y, 85, 1e-9);
             EXPECT_NEAR(l.primitives[1].text->position.y, 85 - 5.0 * 5.0 / 3.0, 1e-9);
         }},
        {"viewport", [] {
             auto* v = new AcDbViewport();
             v->setCenterPoint(AcGePoint3d(50, 50, 0));
             v->setWidth(40);
             v->setHeight(20);
             return v;
         }, {Kind::kPolyline}, 1, 0, 0,
         [](const GiDisplayList& l, const Svg&) {
             const GiExtents e = giPrimitiveExtents(l.primitives[0]);
             EXPECT_TRUE(e.min.isEqualTo(AcGePoint3d(30, 40, 0)));
             EXPECT_TRUE(e.max.isEqualTo(AcGePoint3d(70, 60, 0)));
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        add(c.make());
        const GiDisplayList list = draw();
        std::vector<Kind> kinds;
        for (const GiPrimitive& p : list.primitives)
            kinds.push_back(p.kind);
        EXPECT_EQ(kinds, c.kinds);
        const Svg s = svg();
        EXPECT_EQ(s.paths.size(), c.paths);
        EXPECT_EQ(std::count_if(s.paths.begin(), s.paths.end(), [](const SvgPath& p) { return p.filled(); }),
                  static_cast<long>(c.filled));
        EXPECT_EQ(s.glyphs.size(), c.glyphs);
        if (c.check && kinds == c.kinds && s.paths.size() == c.paths)
            c.check(list, s);
    }
}

TEST_F(DbDrawEntity, PolylineSegmentsCarryMarkersOneAboveTheirIndex)
{
    add(MixedPolyline());
    const GiDisplayList list = draw();
    ASSERT_EQ(list.size(), 4u);
    EXPECT_EQ(list.primitives[0].markerOf(0), 1);
    EXPECT_EQ(list.primitives[1].traits.marker, 2);
    EXPECT_EQ(list.primitives[2].traits.marker, 3);
    EXPECT_EQ(list.primitives[3].markerOf(0), 4);
    EXPECT_EQ(list.primitives[3].markerOf(1), 5);
    // Picking reports the same numbers.
    const struct {
        AcGePoint2d at;
        Adesk::GsMarker marker;
    } picks[] = {{{20, 50}, 1}, {{40, 40}, 2}, {{60, 50}, 3}, {{80, 50}, 4}, {{90, 60}, 5}};
    for (const auto& pick : picks) {
        const std::vector<GiHit> hits = giHitPoint(list, pick.at, 0.5);
        ASSERT_FALSE(hits.empty()) << pick.at.x;
        EXPECT_EQ(hits.back().marker, pick.marker) << pick.at.x;
    }
}

TEST_F(DbDrawEntity, TextAlignmentsPlaceTheBaselineStart)
{
    const double h = 2.5;
    AcGiTextStyle style;
    style.setTextSize(h);
    AcGePoint2d lo, hi;
    style.extentsBox(L"ABC", Adesk::kTrue, -1, Adesk::kFalse, lo, hi);
    const double w = hi.x - lo.x;
    ASSERT_GT(w, 0.0);
    const struct {
        const char* name;
        int hmode, vmode;
        double x, y;        // expected start
        double height;      // expected drawn height
        double xScale;
    } cases[] = {
        {"left baseline", 0, 0, 10, 10, h, 1},
        {"centre", 1, 0, 50 - w / 2, 50, h, 1},
        {"right", 2, 0, 50 - w, 50, h, 1},
        {"middle", 4, 0, 50 - w / 2, 50 - h / 2, h, 1},
        {"left top", 0, 3, 50, 50 - h, h, 1},
        {"centre middle", 1, 2, 50 - w / 2, 50 - h / 2, h, 1},
        {"right bottom", 2, 1, 50 - w, 50 + 0.3 * h, h, 1},
        {"aligned: twice as long, twice as high", 3, 0, 10, 10, 2 * h, 1},
        {"fit: twice as long, twice as wide", 5, 0, 10, 10, h, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        auto* text = new AcDbText(AcGePoint3d(10, 10, 0), L"ABC", AcDbObjectId::kNull, h);
        text->setHorizontalMode(c.hmode);
        text->setVerticalMode(c.vmode);
        text->setAlignmentPoint(c.hmode >= 3 && c.hmode != 4 ? AcGePoint3d(10 + 2 * w, 10, 0) : AcGePoint3d(50, 50, 0));
        add(text);
        const GiDisplayList list = draw();
        ASSERT_EQ(list.size(), 1u);
        const GiTextData& t = *list.primitives[0].text;
        EXPECT_NEAR(t.position.x, c.x, 1e-9);
        EXPECT_NEAR(t.position.y, c.y, 1e-9);
        EXPECT_NEAR(t.style.textSize(), c.height, 1e-9);
        EXPECT_NEAR(t.style.xScale(), c.xScale, 1e-9);
    }
}

TEST_F(DbDrawEntity, MTextRunsFollowTheFormatCodes)
{
    const double h = 2.5;
    auto* m = new AcDbMText();
    m->setLocation(AcGePoint3d(0, 0, 0));
    m->setTextHeight(h);
    m->setAttachment(AcDbMText::kBottomLeft);
    m->setContents(L"\\A1;1,23{\\H0.7x;\\S5^;}{\\C1;x}y");
    add(m);
    const GiDisplayList list = draw();
    ASSERT_EQ(list.size(), 4u);
    const GiTextData& main = *list.primitives[0].text;
    const GiTextData& raised = *list.primitives[1].text;
    EXPECT_EQ(main.string, L"1,23");
    EXPECT_EQ(raised.string, L"5");
    EXPECT_NEAR(main.position.y, 0, 1e-9);
    EXPECT_NEAR(raised.style.textSize(), 0.7 * h, 1e-9);
    EXPECT_NEAR(raised.position.y, 0.66 * h, 1e-9);
    EXPECT_NEAR(raised.position.x, main.boxMax.x, 1e-9);
    // The colour switch holds for its group only.
    EXPECT_EQ(list.primitives[2].traits.color.colorIndex(), 1);
    EXPECT_EQ(list.primitives[3].traits.color.colorIndex(), 256);
}

TEST_F(DbDrawEntity, MTextWrapsAtWordsAndKeepsItsAttachment)
{
    AcGiTextStyle style;
    style.setTextSize(2.0);
    const double twoWords = style.extents(L"aaa bbb", Adesk::kTrue, -1, Adesk::kTrue).x;
    const struct {
        const char* name;
        AcDbMText::AttachmentPoint attachment;
        double width;
        std::size_t lines;
    } cases[] = {
        {"no width: one line", AcDbMText::kTopLeft, 0.0, 1},
        {"room for two words", AcDbMText::kTopLeft, twoWords * 1.01, 2},
        {"room for one word", AcDbMText::kMiddleCenter, twoWords * 0.6, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        auto* m = new AcDbMText();
        m->setLocation(AcGePoint3d(50, 50, 0));
        m->setTextHeight(2.0);
        m->setWidth(c.width);
        m->setAttachment(c.attachment);
        m->setContents(L"aaa bbb ccc");
        add(m);
        const GiDisplayList list = draw();
        EXPECT_EQ(list.size(), c.lines);
        const GiExtents e = list.extents();
        if (c.attachment == AcDbMText::kTopLeft) {
            EXPECT_NEAR(e.min.x, 50, 1e-9);
            EXPECT_NEAR(e.max.y, 50, 1e-9);
        } else {
            EXPECT_NEAR((e.min.x + e.max.x) / 2, 50, 0.5);
        }
    }
}

TEST_F(DbDrawEntity, BlockInsertsDrawTheirBlockWithByBlockAndLayerZeroTakingTheInserts)
{
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(db->getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    auto* rec = new AcDbBlockTableRecord();
    rec->setName(L"B");
    AcDbObjectId blockId;
    ASSERT_EQ(table->add(blockId, rec), Acad::eOk);
    rec->close();
    table->close();

    const AcDbObjectId wallsId = layer(L"Walls", 5, false, false);

    auto* byBlock = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    byBlock->setColorIndex(0);
    add(byBlock, blockId);
    auto* red = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 1, 0));
    red->setColorIndex(1);
    add(red, blockId);
    // A block that holds an insert of itself stops at a fixed depth instead of running away.
    add(new AcDbBlockReference(AcGePoint3d(5, 0, 0), blockId), blockId);

    auto* insert = new AcDbBlockReference(AcGePoint3d(10, 20, 0), blockId);
    insert->setScaleFactors(AcGeScale3d(2, 2, 2));
    insert->setColorIndex(3);
    insert->setLayer(wallsId);
    add(insert);

    const GiDisplayList list = draw();
    ASSERT_GE(list.size(), 4u);
    const GiPrimitive& first = list.primitives[0];
    EXPECT_TRUE(first.points[1].isEqualTo(AcGePoint3d(12, 20, 0)));
    EXPECT_EQ(first.traits.color.colorIndex(), 3);
    EXPECT_EQ(first.traits.layer, static_cast<AcGiLayerKey>(wallsId.asOldId()));
    EXPECT_EQ(list.primitives[1].traits.color.colorIndex(), 1);
    // The nested insert is one block to the right at twice the scale.
    EXPECT_TRUE(list.primitives[2].points[0].isEqualTo(AcGePoint3d(20, 20, 0)));
    EXPECT_LE(list.size(), 2u * 16u);
}

TEST_F(DbDrawEntity, ProxyEntitiesDrawTheirStoredGraphics)
{
    GiDisplayList original;
    {
        GiRecordingWorldDraw rec(original);
        const AcGePoint3d pts[2] = {{1, 2, 0}, {3, 4, 0}};
        rec.subEntityTraits().setColor(5);
        rec.geometry().polyline(2, pts);
        rec.geometry().circle(AcGePoint3d(5, 5, 0), 2, AcGeVector3d::kZAxis);
    }
    auto* proxy = new AcDbProxyEntity();
    proxy->setGraphicsMetafile(giEncodeProxyGraphics(original));
    add(proxy);
    const GiDisplayList list = draw();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list.primitives[0].kind, Kind::kPolyline);
    EXPECT_TRUE(list.primitives[0].points[1].isEqualTo(AcGePoint3d(3, 4, 0)));
    EXPECT_EQ(list.primitives[0].traits.color.colorIndex(), 5);
    EXPECT_EQ(list.primitives[1].kind, Kind::kCircle);
}

}  // namespace
