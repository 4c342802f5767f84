// Dimensions drawn from their variables: parts, markers, arrows or ticks, the label and its
// formatting, the other kinds, and explode into lines, solids and texts.
#include <algorithm>
#include <functional>

#include "DbDrawFixture.h"
#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbDrawDimension.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbText.h"

namespace {

using namespace dbdraw;
using Kind = GiPrimitiveKind;

// Metric sizes set as overrides, so that the test does not hang on the drawing's defaults.
void Metric(AcDbDimension* dim)
{
    dim->setDimscale(1.0);
    dim->setDimasz(2.5);
    dim->setDimtxt(2.5);
    dim->setDimexo(0.625);
    dim->setDimexe(1.25);
    dim->setDimgap(0.625);
    dim->setDimtad(1);
    dim->setDimtih(false);
    dim->setDimdec(2);
    dim->setDimdsep(L',');
    dim->setDimzin(0);
    dim->setDimtsz(0.0);
    dim->setDimdle(0.0);
}

AcDbRotatedDimension* Horizontal()
{
    auto* dim = new AcDbRotatedDimension(0.0, AcGePoint3d(10, 10, 0), AcGePoint3d(60, 10, 0), AcGePoint3d(30, 30, 0));
    Metric(dim);
    return dim;
}

std::vector<const GiPrimitive*> WithMarker(const GiDisplayList& list, Adesk::GsMarker marker)
{
    std::vector<const GiPrimitive*> out;
    for (const GiPrimitive& p : list.primitives)
        if (p.traits.marker == marker)
            out.push_back(&p);
    return out;
}

class DbDrawDimension : public Drawing {};

TEST_F(DbDrawDimension, RotatedDimensionDrawsExtensionLinesDimensionLineArrowsAndLabel)
{
    add(Horizontal());
    const GiDisplayList list = draw();
    const auto ext1 = WithMarker(list, kAcDbDimMarkerExtLine1);
    const auto ext2 = WithMarker(list, kAcDbDimMarkerExtLine2);
    ASSERT_EQ(ext1.size(), 1u);
    ASSERT_EQ(ext2.size(), 1u);
    EXPECT_TRUE(ext1[0]->points[0].isEqualTo(AcGePoint3d(10, 10.625, 0)));
    EXPECT_TRUE(ext1[0]->points[1].isEqualTo(AcGePoint3d(10, 31.25, 0)));
    EXPECT_TRUE(ext2[0]->points[1].isEqualTo(AcGePoint3d(60, 31.25, 0)));

    const auto line = WithMarker(list, kAcDbDimMarkerDimLine);
    ASSERT_EQ(line.size(), 3u);  // the line (above it stands the text) and two arrows
    EXPECT_TRUE(line[0]->points[0].isEqualTo(AcGePoint3d(10, 30, 0)));
    EXPECT_TRUE(line[0]->points[1].isEqualTo(AcGePoint3d(60, 30, 0)));
    for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(line[i]->kind, Kind::kPolygon);
        EXPECT_TRUE(line[i]->isFilled());
        const GiExtents e = giPrimitiveExtents(*line[i]);
        EXPECT_NEAR(e.max.x - e.min.x, 2.5, 1e-9);  // DIMASZ long
    }
    EXPECT_TRUE(line[1]->points[0].isEqualTo(AcGePoint3d(10, 30, 0)));

    const auto text = WithMarker(list, kAcDbDimMarkerText);
    ASSERT_EQ(text.size(), 1u);
    EXPECT_EQ(text[0]->text->string, L"50,00");
    AcGePoint3d box[4];
    text[0]->text->corners(box);
    EXPECT_NEAR((box[0].x + box[1].x) / 2, 35, 1e-9);
    EXPECT_NEAR(box[0].y, 30.625, 1e-9);  // above the line by the gap
}

TEST_F(DbDrawDimension, VariablesChangeThePicture)
{
    struct Case {
        const char* name;
        std::function<void(AcDbRotatedDimension*)> set;
        std::function<void(const GiDisplayList&)> check;
    } cases[] = {
        {"ticks instead of arrows, the line running on past them",
         [](AcDbRotatedDimension* d) { d->setDimtsz(1.0); d->setDimdle(1.5); },
         [](const GiDisplayList& l) {
             const auto line = WithMarker(l, kAcDbDimMarkerDimLine);
             ASSERT_EQ(line.size(), 3u);
             EXPECT_TRUE(line[0]->points[0].isEqualTo(AcGePoint3d(8.5, 30, 0)));
             for (int i = 1; i <= 2; ++i) {
                 EXPECT_EQ(line[i]->kind, Kind::kPolyline);
                 const GiExtents e = giPrimitiveExtents(*line[i]);
                 EXPECT_NEAR(e.max.x - e.min.x, 1.0, 1e-9);
                 EXPECT_NEAR(e.max.y - e.min.y, 1.0, 1e-9);
             }
         }},
        {"centred text breaks the line", [](AcDbRotatedDimension* d) { d->setDimtad(0); },
         [](const GiDisplayList& l) {
             const auto line = WithMarker(l, kAcDbDimMarkerDimLine);
             ASSERT_EQ(line.size(), 4u);
             EXPECT_LT(line[0]->points[1].x, 35);
             EXPECT_GT(line[1]->points[0].x, 35);
         }},
        {"suppressed extension lines", [](AcDbRotatedDimension* d) { d->setDimse1(true); d->setDimse2(true); },
         [](const GiDisplayList& l) {
             EXPECT_TRUE(WithMarker(l, kAcDbDimMarkerExtLine1).empty());
             EXPECT_TRUE(WithMarker(l, kAcDbDimMarkerExtLine2).empty());
         }},
        {"user text around the value", [](AcDbRotatedDimension* d) { d->setDimensionText(L"ca. <> m"); },
         [](const GiDisplayList& l) { EXPECT_EQ(WithMarker(l, 4)[0]->text->string, L"ca. 50,00 m"); }},
        {"a blank text shows none", [](AcDbRotatedDimension* d) { d->setDimensionText(L" "); },
         [](const GiDisplayList& l) { EXPECT_TRUE(WithMarker(l, 4).empty()); }},
        {"the text stands where the user put it",
         [](AcDbRotatedDimension* d) { d->setTextPosition(AcGePoint3d(80, 80, 0)); d->useSetTextPosition(); },
         [](const GiDisplayList& l) {
             AcGePoint3d box[4];
             WithMarker(l, 4)[0]->text->corners(box);
             EXPECT_NEAR((box[0].x + box[2].x) / 2, 80, 1e-9);
             EXPECT_NEAR((box[0].y + box[2].y) / 2, 80, 1e-9);
         }},
        {"scale, factor, rounding and post text",
         [](AcDbRotatedDimension* d) { d->setDimscale(2); d->setDimlfac(0.01); d->setDimrnd(0.05); d->setDimpost(L"<> m"); d->setDimzin(8); },
         [](const GiDisplayList& l) {
             const GiPrimitive* t = WithMarker(l, 4)[0];
             EXPECT_EQ(t->text->string, L"0,5 m");
             EXPECT_NEAR(t->text->style.textSize(), 5.0, 1e-9);
         }},
        {"arrows outside when they do not fit",
         [](AcDbRotatedDimension* d) { d->setXLine2Point(AcGePoint3d(15, 10, 0)); },
         [](const GiDisplayList& l) {
             const auto line = WithMarker(l, kAcDbDimMarkerDimLine);
             ASSERT_GE(line.size(), 3u);
             const GiExtents e = giPrimitiveExtents(*line[line.size() - 2]);
             EXPECT_NEAR(e.max.x, 10, 1e-9);  // the first arrow lies left of its tip
         }},
        {"colour of the dimension line", [](AcDbRotatedDimension* d) { AcCmColor c; c.setColorIndex(1); d->setDimclrd(c); },
         [](const GiDisplayList& l) {
             EXPECT_EQ(WithMarker(l, kAcDbDimMarkerDimLine)[0]->traits.color.colorIndex(), 1);
             EXPECT_TRUE(WithMarker(l, kAcDbDimMarkerText)[0]->traits.color.isByLayer());
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        AcDbRotatedDimension* dim = Horizontal();
        c.set(dim);
        add(dim);
        c.check(draw());
    }
}

TEST_F(DbDrawDimension, OtherKindsDrawTheirShapes)
{
    struct Case {
        const char* name;
        std::function<AcDbDimension*()> make;
        std::size_t arcs, arrows;
        std::wstring textStart;
    } cases[] = {
        {"radius", [] { return new AcDbRadialDimension(AcGePoint3d(50, 50, 0), AcGePoint3d(70, 50, 0), 5); }, 0, 1, L"R20"},
        {"diameter", [] { return new AcDbDiametricDimension(AcGePoint3d(70, 50, 0), AcGePoint3d(30, 50, 0), 5); }, 0, 2,
         std::wstring(1, L'\u2300') + L"40"},
        {"angle", [] {
             return new AcDb2LineAngularDimension(AcGePoint3d(10, 10, 0), AcGePoint3d(60, 10, 0), AcGePoint3d(10, 10, 0),
                                                  AcGePoint3d(60, 60, 0), AcGePoint3d(40, 20, 0));
         }, 1, 2, L"45"},
        {"arc length", [] {
             return new AcDbArcDimension(AcGePoint3d(50, 50, 0), AcGePoint3d(70, 50, 0), AcGePoint3d(50, 70, 0),
                                         AcGePoint3d(70, 70, 0));
         }, 1, 2, L"31"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        AcDbDimension* dim = c.make();
        Metric(dim);
        dim->setDimdec(0);
        add(dim);
        const GiDisplayList list = draw();
        const auto line = WithMarker(list, kAcDbDimMarkerDimLine);
        EXPECT_EQ(std::count_if(line.begin(), line.end(), [](const GiPrimitive* p) { return p->kind == Kind::kArc; }),
                  static_cast<long>(c.arcs));
        EXPECT_EQ(std::count_if(line.begin(), line.end(), [](const GiPrimitive* p) { return p->kind == Kind::kPolygon; }),
                  static_cast<long>(c.arrows));
        const auto text = WithMarker(list, kAcDbDimMarkerText);
        ASSERT_FALSE(text.empty());
        EXPECT_EQ(text[0]->text->string.substr(0, c.textStart.size()), c.textStart);
    }
}

TEST(DbDrawDimensionFormat, NumbersFollowDecimalsRoundingSeparatorAndZeroBits)
{
    const struct {
        double value;
        int decimals;
        double roundTo;
        wchar_t separator;
        int zeroBits;
        const wchar_t* expected;
    } cases[] = {
        {1.5, 2, 0, L'.', 0, L"1.50"},     {1.5, 2, 0, L',', 8, L"1,5"},    {2.0, 3, 0, L',', 8, L"2"},
        {0.5, 2, 0, L'.', 4, L".50"},      {0.5, 2, 0, L'.', 12, L".5"},    {1.13, 2, 0.25, L'.', 0, L"1.25"},
        {-0.001, 2, 0, L'.', 0, L"0.00"},  {12.345, 0, 0, L'.', 0, L"12"},  {-0.5, 1, 0, L'.', 4, L"-.5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(acdbDimFormatNumber(c.value, c.decimals, c.roundTo, c.separator, c.zeroBits), c.expected)
            << c.value << " " << c.zeroBits;
    EXPECT_EQ(acdbDimLabelContents(L"", L"5"), L"5");
    EXPECT_EQ(acdbDimLabelContents(L" ", L"5"), L"");
    EXPECT_EQ(acdbDimLabelContents(L"<> / <>", L"5"), L"5 / 5");
    EXPECT_EQ(acdbDimLabelContents(L"fixed", L"5"), L"fixed");
}

TEST_F(DbDrawDimension, ExplodeGivesLinesSolidsAndTexts)
{
    AcDbRotatedDimension* dim = Horizontal();
    dim->setColorIndex(2);
    AcDbVoidPtrArray set;
    ASSERT_EQ(dim->explode(set), Acad::eOk);
    int lines = 0, solids = 0, texts = 0;
    std::wstring shown;
    for (void* p : set) {
        auto* e = static_cast<AcDbEntity*>(p);
        EXPECT_EQ(e->colorIndex(), 2);
        if (AcDbLine::cast(e))
            ++lines;
        else if (AcDbSolid::cast(e))
            ++solids;
        else if (auto* t = AcDbText::cast(e)) {
            ++texts;
            shown = t->textStringConst();
            EXPECT_NEAR(t->height(), 2.5, 1e-9);
        }
        delete e;
    }
    delete dim;
    EXPECT_EQ(lines, 3);
    EXPECT_EQ(solids, 2);
    EXPECT_EQ(texts, 1);
    EXPECT_EQ(shown, L"50,00");
}

}  // namespace
