// The drawing primitives in both forms: into a recorded world draw and as entities, the
// wipeout under texts, and the text-style helpers.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/AcDbXline.h"
#include "host/gi/GiRecordingDraw.h"
#include "options/GlobDimOptions.h"
#include "proxy/Util.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
using Kind = GiPrimitiveKind;

struct Made {
    GiDisplayList list;
    AcDbVoidPtrArray ents;
    ~Made()
    {
        for (void* e : ents)
            delete static_cast<AcDbEntity*>(e);
    }
    AcDbEntity* at(int i) const { return static_cast<AcDbEntity*>(ents[i]); }
};

// Runs a primitive once into a recorded world draw and once into an entity array.
void RunBoth(const std::function<int(AcGiWorldDraw*, AcDbVoidPtrArray*)>& call, Made& made,
             bool plot = false)
{
    GiRecordingOptions options;
    options.plotGeneration = plot;
    GiRecordingWorldDraw draw(made.list, options);
    AcDbVoidPtrArray unused;
    EXPECT_EQ(call(&draw, &unused), 1);
    EXPECT_EQ(unused.length(), 0);  // with a world draw the array stays untouched
    EXPECT_EQ(call(nullptr, &made.ents), 1);
    EXPECT_EQ(call(nullptr, nullptr), 1);
}

TEST(UtilDraw, PrimitivesDrawAndMakeEntities)
{
    const AcGePoint3d o(0, 0, 0), a(10, 0, 0), b(10, 10, 0), c(0, 10, 0);
    const AcGePoint3d quad[4] = {o, a, b, c};
    const AcGeVector3d z = AcGeVector3d::kZAxis;
    struct Case {
        const char* name;
        std::function<int(AcGiWorldDraw*, AcDbVoidPtrArray*)> call;
        std::vector<Kind> kinds;
        std::vector<AcRxClass*> classes;
    } cases[] = {
        {"line", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawLine(w, e, o, a); }, {Kind::kPolyline},
         {AcDbLine::desc()}},
        {"filled triangle", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawPolygon(w, e, quad, 3, true); },
         {Kind::kPolygon}, {AcDbSolid::desc()}},
        {"filled quadrilateral", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawPolygon(w, e, quad, 4, true); },
         {Kind::kPolygon}, {AcDbSolid::desc()}},
        {"open triangle: closing line first",
         [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawPolygon(w, e, quad, 3, false); }, {Kind::kPolygon},
         {AcDbLine::desc(), AcDbLine::desc(), AcDbLine::desc()}},
        {"two points: one line", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawPolygon(w, e, quad, 2, false); },
         {Kind::kPolygon}, {AcDbLine::desc()}},
        {"five filled points: the outline", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) {
             const AcGePoint3d five[5] = {o, a, b, c, AcGePoint3d(-5, 5, 0)};
             return DrawPolygon(w, e, five, 5, true);
         }, {Kind::kPolygon}, std::vector<AcRxClass*>(5, AcDbLine::desc())},
        {"three-point arc", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawArc3P(w, e, a, b, c); }, {Kind::kArc},
         {AcDbArc::desc()}},
        {"collinear arc makes no entity", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) {
             return DrawArc3P(nullptr, w ? nullptr : e, o, AcGePoint3d(5, 0, 0), a);
         }, {}, {}},
        {"circle", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawCircle(w, e, o, 2, z, true); }, {Kind::kCircle},
         {AcDbCircle::desc()}},
        {"sector", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) {
             return DrawFilledSector(w, e, o, 4, z, AcGeVector3d(1, 0, 0), kPi / 2);
         }, {Kind::kArc}, {AcDbPolyline::desc()}},
        {"arrow head", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) {
             return DrawArrowHead(w, e, o, AcGeVector3d(1, 0, 0), 3, 0.5);
         }, {Kind::kPolygon}, {AcDbSolid::desc()}},
        {"cross", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) {
             return DrawCross(w, e, o, 2, AcGeVector3d(1, 0, 0), z);
         }, {Kind::kPolyline, Kind::kPolyline}, {AcDbLine::desc(), AcDbLine::desc()}},
        {"xline", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) { return DrawXline(w, e, o, AcGeVector3d(0, 1, 0)); },
         {Kind::kXline, Kind::kPolyline}, {AcDbXline::desc()}},
        {"text", [&](AcGiWorldDraw* w, AcDbVoidPtrArray* e) {
             return DrawText(w, e, o, z, AcGeVector3d(1, 0, 0), L"12", 2.5, nullptr);
         }, {Kind::kText}, {AcDbText::desc()}},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        Made made;
        RunBoth(k.call, made);
        std::vector<Kind> kinds;
        for (const GiPrimitive& p : made.list.primitives)
            kinds.push_back(p.kind);
        EXPECT_EQ(kinds, k.kinds);
        ASSERT_EQ(made.ents.length(), static_cast<int>(k.classes.size()));
        for (int i = 0; i < made.ents.length(); ++i)
            EXPECT_EQ(made.at(i)->isA(), k.classes[static_cast<std::size_t>(i)]) << i;
    }
}

TEST(UtilDraw, PolygonEntityFormKeepsTheOrderOfItsSides)
{
    const AcGePoint3d pts[4] = {{0, 0, 0}, {4, 0, 0}, {4, 3, 0}, {0, 3, 0}};
    Made made;
    DrawPolygon(nullptr, &made.ents, pts, 3, false);
    ASSERT_EQ(made.ents.length(), 3);
    const AcDbLine* closing = AcDbLine::cast(made.at(0));
    EXPECT_TRUE(closing->startPoint().isEqualTo(pts[0]));
    EXPECT_TRUE(closing->endPoint().isEqualTo(pts[2]));
    EXPECT_TRUE(AcDbLine::cast(made.at(2))->endPoint().isEqualTo(pts[2]));

    Made solid;
    DrawPolygon(nullptr, &solid.ents, pts, 4, true);
    AcGePoint3d p;
    AcDbSolid::cast(solid.at(0))->getPointAt(2, p);
    EXPECT_TRUE(p.isEqualTo(pts[3]));  // a solid lists its corners 0 1 3 2

    // Filled in a viewport: fill on for the polygon, off afterwards.
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    DrawPolygon(&draw, nullptr, pts, 4, true);
    DrawFilledSector(&draw, nullptr, pts[0], 4, AcGeVector3d::kZAxis, AcGeVector3d(1, 0, 0), kPi / 2);
    EXPECT_EQ(list.primitives[0].traits.fill, kAcGiFillAlways);
    EXPECT_EQ(list.primitives[1].arcType, kAcGiArcSector);
    EXPECT_EQ(draw.subEntityTraits().fillType(), kAcGiFillNever);
}

TEST(UtilDraw, SectorEntityIsABandFromTheCentreToTheRim)
{
    Made made;
    DrawFilledSector(nullptr, &made.ents, AcGePoint3d(10, 10, 0), 4, AcGeVector3d::kZAxis, AcGeVector3d(1, 0, 0), kPi / 2);
    const AcDbPolyline* band = AcDbPolyline::cast(made.at(0));
    ASSERT_TRUE(band);
    ASSERT_EQ(band->numVerts(), 2u);
    AcGePoint3d v0, v1;
    band->getPointAt(0, v0);
    band->getPointAt(1, v1);
    EXPECT_TRUE(v0.isEqualTo(AcGePoint3d(12, 10, 0)));
    EXPECT_TRUE(v1.isEqualTo(AcGePoint3d(10, 12, 0)));
    for (unsigned int i = 0; i < 2; ++i) {
        double bulge = 0, w0 = 0, w1 = 0;
        band->getBulgeAt(i, bulge);
        band->getWidthsAt(i, w0, w1);
        EXPECT_DOUBLE_EQ(bulge, 0.4142);
        EXPECT_DOUBLE_EQ(w0, 4);
        EXPECT_DOUBLE_EQ(w1, 4);
    }
}

TEST(UtilDraw, CrossLinesStandAt45Degrees)
{
    Made cross;
    DrawCross(nullptr, &cross.ents, AcGePoint3d(0, 0, 0), 2, AcGeVector3d(1, 0, 0), AcGeVector3d::kZAxis);
    const AcDbLine* first = AcDbLine::cast(cross.at(0));
    const double d = 2 / std::sqrt(2.0);
    EXPECT_NEAR(first->startPoint().x, d, 1e-9);
    EXPECT_NEAR(first->startPoint().y, d, 1e-9);
    const AcDbLine* second = AcDbLine::cast(cross.at(1));
    EXPECT_NEAR(second->startPoint().x, -d, 1e-9);
    EXPECT_NEAR(second->startPoint().y, d, 1e-9);
}

class UtilDrawText : public ::testing::Test {
protected:
    void SetUp() override
    {
        saved = pGlobDimOptions;
        pGlobDimOptions = &options;
    }
    void TearDown() override { pGlobDimOptions = saved; }
    CGlobDimOptions options;
    CGlobDimOptions* saved = nullptr;
};

TEST_F(UtilDrawText, WipeOutPaintsTheBackgroundUnderTheText)
{
    const struct {
        const char* name;
        BOOL wipeOut;
        bool plot;
        std::size_t primitives;
        Adesk::UInt32 fill;
    } cases[] = {
        {"off", FALSE, false, 1, 0},
        {"on screen: the background colour", TRUE, false, 2, 0x203040},
        {"plotted: white", TRUE, true, 2, 0xFFFFFF},
    };
    AcGiTextStyle style;
    style.setTextSize(7);  // DrawText takes the height it is given, not the style's
    const double width = [] {
        AcGiTextStyle s;
        s.setTextSize(3);
        return s.extents(L"1,25", Adesk::kTrue, -1, Adesk::kFalse).x;
    }();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        options.m_bWipeOut = c.wipeOut;
        options.m_dwBackgroundColor = 0x203040;
        GiDisplayList list;
        GiRecordingOptions o;
        o.plotGeneration = c.plot;
        GiRecordingWorldDraw draw(list, o);
        draw.subEntityTraits().setColor(3);
        DrawText(&draw, nullptr, AcGePoint3d(10, 10, 0), AcGeVector3d::kZAxis, AcGeVector3d(1, 0, 0), L"1,25", 3.0, &style);
        ASSERT_EQ(list.size(), c.primitives);
        const GiPrimitive& text = list.primitives.back();
        EXPECT_EQ(text.kind, GiPrimitiveKind::kText);
        EXPECT_NEAR(text.text->style.textSize(), 3.0, 1e-12);
        EXPECT_EQ(text.traits.color.colorIndex(), 3);  // colour and fill are back
        EXPECT_EQ(text.traits.fill, kAcGiFillNever);
        if (c.primitives == 2) {
            const GiPrimitive& rect = list.primitives[0];
            EXPECT_EQ(rect.kind, GiPrimitiveKind::kPolygon);
            EXPECT_TRUE(rect.isFilled());
            EXPECT_EQ(rect.traits.color.rgb(), c.fill);
            const double m = 3.0 / 15.0;
            const GiExtents e = giPrimitiveExtents(rect);
            EXPECT_NEAR(e.min.x, 10 - m, 1e-9);
            EXPECT_NEAR(e.min.y, 10 - m, 1e-9);
            EXPECT_NEAR(e.max.x, 10 + width + m, 1e-9);
            EXPECT_NEAR(e.max.y, 10 + 3 + m, 1e-9);
        }
    }
}

TEST_F(UtilDrawText, EntityFormTakesRotationStyleAndColour)
{
    AcGiTextStyle style;
    style.setXScale(0.8);
    style.setObliquingAngle(0.2);
    options.m_bWipeOut = TRUE;  // no background entity is made
    const struct {
        AcGeVector3d dir;
        double rotation;
    } cases[] = {{{1, 0, 0}, 0.0}, {{0, 1, 0}, kPi / 2}, {{-1, 0, 0}, kPi}, {{0, -1, 0}, 3 * kPi / 2}};
    for (const auto& c : cases) {
        Made made;
        DrawText(nullptr, &made.ents, AcGePoint3d(1, 2, 0), AcGeVector3d::kZAxis, c.dir, L"A", 2.5, &style,
                 AcDbObjectId::kNull, 4);
        ASSERT_EQ(made.ents.length(), 1);
        const AcDbText* text = AcDbText::cast(made.at(0));
        EXPECT_NEAR(text->rotation(), c.rotation, 1e-9);
        EXPECT_NEAR(text->height(), 2.5, 1e-12);
        EXPECT_NEAR(text->widthFactor(), 0.8, 1e-12);
        EXPECT_NEAR(text->oblique(), 0.2, 1e-12);
        EXPECT_EQ(text->colorIndex(), 4);
    }
}

TEST(UtilTextStyle, SizeAndDrawingStyleComeFromTheRecord)
{
    AcDbDatabase db(true, true);
    AcDbTextStyleTable* table = nullptr;
    ASSERT_EQ(db.getTextStyleTable(table, AcDb::kForWrite), Acad::eOk);
    auto* rec = new AcDbTextStyleTableRecord();
    rec->setName(L"Plan");
    rec->setFileName(L"arial.ttf");
    rec->setXScale(0.9);
    rec->setObliquingAngle(0.25);
    rec->setTextSize(3.5);
    AcDbObjectId id;
    ASSERT_EQ(table->add(id, rec), Acad::eOk);
    rec->close();
    table->close();

    EXPECT_DOUBLE_EQ(GetTextStyleSize(id), 3.5);
    EXPECT_DOUBLE_EQ(GetTextStyleSize(AcDbObjectId::kNull), 0.0);
    EXPECT_EQ(SetTextStyleSize(id, 5.0), 1);
    EXPECT_DOUBLE_EQ(GetTextStyleSize(id), 5.0);
    EXPECT_EQ(SetTextStyleSize(AcDbObjectId::kNull, 5.0), 0);

    AcGiTextStyle style;
    TextStyleToGi(style, id);
    EXPECT_STREQ(style.styleName(), L"Plan");
    EXPECT_STREQ(style.fileName(), L"arial.ttf");
    EXPECT_DOUBLE_EQ(style.xScale(), 0.9);
    EXPECT_DOUBLE_EQ(style.obliquingAngle(), 0.25);
    EXPECT_DOUBLE_EQ(style.textSize(), 5.0);
    AcGiTextStyle untouched;
    TextStyleToGi(untouched, AcDbObjectId::kNull);
    EXPECT_STREQ(untouched.fileName(), L"txt");
}

}  // namespace
