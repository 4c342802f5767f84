// Chain drawing through a recording world draw: markers, extension and
// dimension lines with their overshoots, every tick, the sum box, the
// wipeout, explode, leaders, text colours, and one picture of all ticks for
// a person to look at.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <vector>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/AcDbText.h"
#include "host/gi/GiRecordingDraw.h"
#include "host/gi/GiRenderer.h"
#include "options/ParamTable.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

// Default options in a drawing in metres at 1:100: 1 mm of paper is 0.1 unit.
constexpr double kTick = 0.4;    // TickSize 4
constexpr double kBeyond = 0.2;  // ExtendBeyondDimLine and ExtendBeyondTick 2
constexpr double kText = 0.5;    // TextHeight 50
constexpr double kTol = 1e-6;

class Drawing : public ChainFixture {
protected:
    // A horizontal chain: input points on y 0, extension lines from y 0.5,
    // the dimension line on y 2 (shifted by dY), measured texts centred.
    static std::unique_ptr<SVdim> Build(const std::vector<double>& xs, int iTick = 1, double dY = 0.0)
    {
        auto pChain = std::make_unique<SVdim>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(0, 2, 0),
                                              SVdim::kHorizontal, nullptr, AcDbObjectId::kNull, 0,
                                              &AcGeMatrix3d::kIdentity);
        SVdim& chain = *pChain;
        chain.m_points.setLogicalLength(0);
        for (double x : xs) {
            chain.m_points.append(AcGePoint3d(x, dY, 0));
            chain.m_points.append(AcGePoint3d(x, dY + 0.5, 0));
            chain.m_points.append(AcGePoint3d(x, dY + 2.0, 0));
            chain.m_points.append(AcGePoint3d(x, dY + 2.0, 0));
        }
        const int n = static_cast<int>(xs.size());
        chain.m_dimTexts.SetSize(n);
        chain.m_extFlags.SetSize(n);
        for (int i = 1; i < n; ++i) {
            chain.RefreshDimText(i);
            chain.SetDimTextPos(i, 8);
            chain.CenterPointText(i);
        }
        chain.SetTickType(-1, iTick);
        return pChain;
    }

    static GiDisplayList Draw(SVdim& chain, AcGiRegenType type = kAcGiStandardDisplay, bool bAbort = false)
    {
        GiDisplayList list;
        GiRecordingOptions options;
        options.regenType = type;
        GiRecordingWorldDraw wd(list, options);
        wd.setRegenAbort(bAbort);
        EXPECT_TRUE(chain.worldDraw(&wd));
        return list;
    }

    static std::vector<const GiPrimitive*> WithMarker(const GiDisplayList& list, Adesk::GsMarker marker)
    {
        std::vector<const GiPrimitive*> out;
        for (const GiPrimitive& p : list.primitives)
            if (p.traits.marker == marker)
                out.push_back(&p);
        return out;
    }

    static int Count(const std::vector<const GiPrimitive*>& prims, GiPrimitiveKind kind)
    {
        int n = 0;
        for (const GiPrimitive* p : prims)
            n += p->kind == kind;
        return n;
    }

    // The first two-point polyline among the primitives that runs along y = dY.
    static const GiPrimitive* HorizontalLine(const std::vector<const GiPrimitive*>& prims, double dY)
    {
        for (const GiPrimitive* p : prims)
            if (p->kind == GiPrimitiveKind::kPolyline && p->points.size() == 2 &&
                std::fabs(p->points[0].y - dY) < kTol && std::fabs(p->points[1].y - dY) < kTol)
                return p;
        return nullptr;
    }
};

TEST_F(Drawing, ThreeSegmentChainLinesAndMarkers)
{
    auto chain = Build({0, 2, 5, 9});
    const GiDisplayList list = Draw(*chain);

    // Extension lines (3i+2) from Ext1 past the dimension line by the overshoot.
    const double xs[] = {0, 2, 5, 9};
    for (int i = 0; i < 4; ++i) {
        const auto ext = WithMarker(list, 3 * i + 2);
        ASSERT_EQ(ext.size(), 1u) << i;
        EXPECT_TRUE(ext[0]->points[0].isEqualTo(AcGePoint3d(xs[i], 0.5, 0)));
        EXPECT_TRUE(ext[0]->points[1].isEqualTo(AcGePoint3d(xs[i], 2.0 + kBeyond, 0)));
    }
    // Tick of 0 alone; for 1..3 the dimension line to it and its tick.
    EXPECT_EQ(WithMarker(list, 3).size(), 1u);
    struct { Adesk::GsMarker marker; double x0, x1; } dims[] = {
        {6, 0 - kBeyond, 2}, {9, 2, 5}, {12, 5, 9 + kBeyond}};
    for (const auto& d : dims) {
        const auto prims = WithMarker(list, d.marker);
        EXPECT_EQ(prims.size(), 2u) << d.marker;
        const GiPrimitive* line = HorizontalLine(prims, 2.0);
        ASSERT_NE(line, nullptr) << d.marker;
        EXPECT_NEAR(line->points[0].x, d.x0, kTol) << d.marker;
        EXPECT_NEAR(line->points[1].x, d.x1, kTol) << d.marker;
    }
    // Value texts (3k+1) of segments 1..3; no sum on by default.
    for (int k = 1; k <= 3; ++k) {
        const auto texts = WithMarker(list, 3 * k + 1);
        ASSERT_GE(Count(texts, GiPrimitiveKind::kText), 1) << k;
        EXPECT_NEAR(texts[0]->text->style.textSize(), kText, kTol);
    }
    EXPECT_TRUE(WithMarker(list, 13).empty());
}

TEST_F(Drawing, HiddenExtensionLineKeepsTheRest)
{
    auto chain = Build({0, 2, 5});
    chain->SetExtLineVisible(1, FALSE);
    const GiDisplayList list = Draw(*chain);
    EXPECT_TRUE(WithMarker(list, 5).empty());
    EXPECT_EQ(WithMarker(list, 6).size(), 2u);  // dimension line and tick of 1
    EXPECT_EQ(WithMarker(list, 2).size(), 1u);
}

TEST_F(Drawing, NothingDrawnButSuccess)
{
    struct Case { const char* name; std::vector<double> xs; AcGiRegenType type; bool abort; bool drawn; };
    const Case cases[] = {
        {"one extension", {0}, kAcGiStandardDisplay, false, false},
        {"regen aborted", {0, 2}, kAcGiStandardDisplay, true, false},
        {"unknown regen type", {0, 2}, eAcGiRegenTypeInvalid, false, false},
        {"hide", {0, 2}, kAcGiHideOrShadeCommand, false, true},
        {"render", {0, 2}, kAcGiRenderCommand, false, true},
        {"explode", {0, 2}, kAcGiForExplode, false, true},
        {"proxy", {0, 2}, kAcGiSaveWorldDrawForProxy, false, true},
    };
    for (const Case& c : cases) {
        auto chain = Build(c.xs);
        EXPECT_EQ(Draw(*chain, c.type, c.abort).empty(), !c.drawn) << c.name;
    }
    SVdim empty;
    EXPECT_EQ(Draw(empty).size(), 0u);
    EXPECT_EQ(SVdim::drawDimension(nullptr, nullptr, nullptr), 3);
}

TEST_F(Drawing, EachTickType)
{
    using K = GiPrimitiveKind;
    struct Case { int tick; int lines; int circles; int polygons; bool filled; };
    // Primitives at the middle extension (marker 6), besides the dimension line.
    const Case cases[] = {
        {0, 0, 0, 0, false}, {1, 1, 0, 0, false}, {2, 0, 1, 0, true},
        {3, 0, 1, 0, false}, {4, 0, 0, 2, true},  {5, 2, 0, 0, false},
    };
    for (const Case& c : cases) {
        auto chain = Build({0, 2, 5}, c.tick);
        const GiDisplayList list = Draw(*chain);
        const auto prims = WithMarker(list, 6);
        int lines = 0;
        for (const GiPrimitive* p : prims)
            lines += p->kind == K::kPolyline && !(std::fabs(p->points[0].y - 2) < kTol && std::fabs(p->points[1].y - 2) < kTol);
        EXPECT_EQ(lines, c.lines) << c.tick;
        EXPECT_EQ(Count(prims, K::kCircle), c.circles) << c.tick;
        EXPECT_EQ(Count(prims, K::kPolygon), c.polygons) << c.tick;
        for (const GiPrimitive* p : prims) {
            if (p->kind == K::kCircle) {
                EXPECT_NEAR(p->radius, kTick * 0.25, kTol);
                EXPECT_EQ(p->isFilled(), c.filled) << c.tick;
            }
            if (p->kind == K::kPolygon) {  // arrow heads tip on the dimension point
                EXPECT_TRUE(p->points[0].isEqualTo(AcGePoint3d(2, 2, 0)));
            }
        }
    }
    // The slash: half the tick size each way at 45 degrees, leaning the same
    // way seen from above whether the chain is mirrored or not.
    for (bool bMirrored : {false, true}) {
        auto chain = Build({0, 2, 5}, 1);
        if (bMirrored)
            chain->m_yAxis = -chain->m_yAxis;  // normal (0,0,-1)
        const GiDisplayList list = Draw(*chain);
        int nSlashes = 0;
        for (const GiPrimitive* p : WithMarker(list, 6))
            nSlashes += p->points.size() == 2 && p->points[0].isEqualTo(AcGePoint3d(2 - kTick / 2, 2 - kTick / 2, 0)) &&
                        p->points[1].isEqualTo(AcGePoint3d(2 + kTick / 2, 2 + kTick / 2, 0));
        EXPECT_EQ(nSlashes, 1) << bMirrored;
    }
}

TEST_F(Drawing, ArrowsDropTheOvershootFromThereOn)
{
    struct Case { const char* name; int iArrowAt; double x0, x1; };
    const Case cases[] = {
        {"arrow first", 0, 0, 5},
        {"arrow last", 2, -kBeyond, 5},
        {"no arrow", -1, -kBeyond, 5 + kBeyond},
    };
    for (const Case& c : cases) {
        auto chain = Build({0, 2, 5}, 1);
        if (c.iArrowAt >= 0)
            chain->SetTickType(c.iArrowAt, 4);
        const GiDisplayList list = Draw(*chain);
        const GiPrimitive* first = HorizontalLine(WithMarker(list, 6), 2.0);
        const GiPrimitive* last = HorizontalLine(WithMarker(list, 9), 2.0);
        ASSERT_TRUE(first && last) << c.name;
        EXPECT_NEAR(first->points[0].x, c.x0, kTol) << c.name;
        EXPECT_NEAR(last->points[1].x, c.x1, kTol) << c.name;
    }
}

TEST_F(Drawing, SumWithItsBox)
{
    struct Case { std::vector<double> xs; bool shown; };
    for (const Case& c : {Case{{0, 2}, false}, Case{{0, 2, 5}, true}}) {
        auto chain = Build(c.xs);
        chain->arrayInt[SVdim::kIntSumStatus] = 1;
        const int n = static_cast<int>(c.xs.size());
        const GiDisplayList list = Draw(*chain);
        const auto sum = WithMarker(list, 3 * n + 1);
        if (!c.shown) {
            EXPECT_TRUE(sum.empty());
            continue;
        }
        ASSERT_EQ(Count(sum, GiPrimitiveKind::kText), 1);
        ASSERT_EQ(Count(sum, GiPrimitiveKind::kPolyline), 4);
        // The box stands a fifth of the text height off the text's start.
        const GiPrimitive* text = sum[0];
        const GiPrimitive* edge = sum[1];
        EXPECT_NEAR(edge->points[0].x, text->text->position.x - kText / 5, kTol);
        EXPECT_NEAR(edge->points[0].y, text->text->position.y - kText / 5, kTol);
        for (int j = 1; j <= 4; ++j)  // a closed loop
            EXPECT_TRUE(sum[j]->points[1].isEqualTo(sum[j % 4 + 1]->points[0]));
    }
}

TEST_F(Drawing, WipeOutUnderEveryTextOnlyForTheChain)
{
    for (UINT status : {0u, 1u}) {
        auto chain = Build({0, 2, 5});
        chain->arrayInt[SVdim::kIntWipeOutStatus] = status;
        const GiDisplayList list = Draw(*chain);
        const auto texts = WithMarker(list, 4);
        ASSERT_FALSE(texts.empty());
        const bool bWiped = texts[0]->kind == GiPrimitiveKind::kPolygon && texts[0]->points.size() == 4 &&
                            texts[0]->isFilled();
        EXPECT_EQ(bWiped, status == 1);
        EXPECT_FALSE(m_options.m_bWipeOut);  // the global is restored
    }
}

TEST_F(Drawing, ExplodeLeavesOutTheSumAndKeepsInputCrosses)
{
    auto chain = Build({0, 2, 5});
    chain->arrayInt[SVdim::kIntSumStatus] = 1;
    chain->setColorIndex(1);
    auto explode = [&] {
        AcDbVoidPtrArray set;
        EXPECT_EQ(chain->explode(set), Acad::eOk);
        int texts = 0;
        for (int i = 0; i < set.length(); ++i) {
            auto* p = static_cast<AcDbEntity*>(set[i]);
            const bool bText = AcDbText::cast(p) != nullptr;
            texts += bText;
            // Texts in the map's colour for height 50, the rest in the chain's.
            EXPECT_EQ(p->colorIndex(), bText ? 4 : 1) << i;
            delete p;
        }
        return std::pair<int, int>(set.length(), texts);
    };
    const auto plain = explode();
    EXPECT_EQ(plain.second, 2);  // two segments, no sum
    // 3 extension lines, 2 dimension lines, 3 slashes, 2 texts.
    EXPECT_EQ(plain.first, 10);
    m_options.arrayOptInt.SetAtGrow(2, 1);  // ShowInputPoints
    const auto crosses = explode();
    EXPECT_EQ(crosses.first, plain.first + 3 * 2);
}

TEST_F(Drawing, PictureOfEveryTick)
{
    std::vector<GiDisplayList> lists;
    m_options.arrayOptInt.SetAtGrow(9, 1);  // LeadersShow
    for (int tick = 0; tick <= 5; ++tick) {
        auto chain = Build({0, 1.5, 4, 4.8, 7}, tick, -3.0 * tick);
        chain->arrayInt[SVdim::kIntSumStatus] = 1;
        // The short segment's text stands up and aside, on a leader.
        chain->SetLeader(3, TRUE);
        chain->SetDimTextPos(3, 4);
        chain->SetPointText(3, chain->GetPointTextRef(3) + AcGeVector3d(0.8, 0.6, 0));
        lists.push_back(Draw(*chain));
    }
    std::vector<const GiDisplayList*> ptrs;
    for (const GiDisplayList& l : lists)
        ptrs.push_back(&l);
    GiRenderOptions options;
    std::filesystem::create_directories("build");
    std::string error;
    EXPECT_TRUE(giRenderToFile(ptrs, options, "build/chain-ticks.svg", &error)) << error;
    options.format = GiOutputFormat::kPng;
    EXPECT_TRUE(giRenderToFile(ptrs, options, "build/chain-ticks.png", &error)) << error;
}

// Text colours come from the linear chains' height map; lines keep the entity's.
TEST_F(Drawing, TextColourFollowsTheHeightMap)
{
    AcDbDatabase db(true, true);
    AcDbTextStyleTable* table = nullptr;
    ASSERT_EQ(db.getTextStyleTable(table, AcDb::kForWrite), Acad::eOk);
    auto* rec = new AcDbTextStyleTableRecord();
    rec->setName(L"Plan");
    rec->setFileName(L"arial.ttf");
    AcDbObjectId trueTypeId;
    ASSERT_EQ(table->add(trueTypeId, rec), Acad::eOk);
    rec->close();
    table->close();

    struct Case { const char* name; double height; bool trueType; int mode; int text; };
    const Case cases[] = {
        {"height 50", 50, false, kModeLinear, 4},
        {"height 35", 35, false, kModeLinear, 3},
        {"unknown height keeps the entity's", 36, false, kModeLinear, 1},
        {"TrueType row", 50, true, kModeLinear, 7},
        {"panel in another mode", 50, false, kModeSectionHeight, 4},
    };
    for (const Case& c : cases) {
        auto chain = Build({0, 2, 5});
        chain->setColorIndex(1);
        chain->arrayDouble[SVdim::kDblTextHeight] = c.height;
        if (c.trueType)
            chain->m_textStyleId = trueTypeId;
        m_options.m_iMode = c.mode;
        const GiDisplayList list = Draw(*chain);
        EXPECT_EQ(m_options.m_iMode, c.mode) << c.name;  // restored
        int nTexts = 0;
        for (const GiPrimitive& p : list.primitives) {
            if (p.kind != GiPrimitiveKind::kText)
                continue;
            ++nTexts;
            EXPECT_EQ(p.traits.color.colorIndex(), c.text) << c.name;
        }
        EXPECT_EQ(nTexts, 2) << c.name;
        const GiPrimitive* line = HorizontalLine(WithMarker(list, 6), 2.0);
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->traits.color.colorIndex(), 1) << c.name;
    }
    m_options.m_iMode = kModeLinear;
}

// Which texts get a leader: the bit, the global switch, and where the text stands.
TEST_F(Drawing, LeaderShownByBitSwitchAndPlace)
{
    struct Case { const char* name; bool bit; bool show; int code; bool moved; bool drawn; };
    const Case cases[] = {
        {"at its anchor", true, true, 8, false, true},
        {"moved, middle row", true, true, 8, true, false},
        {"moved, upper row", true, true, 4, true, true},
        {"moved, upper row 13", true, true, 13, true, true},
        {"moved, code 5", true, true, 5, true, false},
        {"no bit", false, true, 4, true, false},
        {"switch off", true, false, 4, true, false},
    };
    for (const Case& c : cases) {
        auto chain = Build({0, 4, 8});
        chain->SetLeader(1, c.bit);
        chain->SetDimTextPos(1, c.code);
        chain->CenterPointText(1);
        if (c.moved)
            chain->SetPointText(1, chain->GetPointTextRef(1) + AcGeVector3d(0.3, 3, 0));
        m_options.arrayOptInt.SetAtGrow(9, c.show ? 1 : 0);  // LeadersShow
        EXPECT_EQ(chain->IsLeaderShown(1), c.bit && (c.drawn || !c.show)) << c.name;
        const GiDisplayList list = Draw(*chain);
        const int nLines = Count(WithMarker(list, 4), GiPrimitiveKind::kPolyline);
        EXPECT_EQ(nLines > 0, c.drawn) << c.name;
        // The other segment never gets one.
        EXPECT_EQ(Count(WithMarker(list, 7), GiPrimitiveKind::kPolyline), 0) << c.name;
    }
    EXPECT_FALSE(Build({0, 4})->IsLeaderShown(5));
}

// The leader's path from the middle of the segment (2, 2) to a text moved by (dx, dy).
TEST_F(Drawing, LeaderPathToTheText)
{
    enum class Ends { kLowerEdge, kUpperEdge, kLeftSide, kRightSide };
    struct Case { const char* name; double dx, dy; int points; Ends end; };
    const Case cases[] = {
        {"straight above", 0, 3, 2, Ends::kLowerEdge},
        {"straight below", 0, -5, 2, Ends::kUpperEdge},
        {"above, to the right", 5, 3, 3, Ends::kLeftSide},
        {"above, to the left", -6, 3, 3, Ends::kRightSide},
        {"level, to the right", 5, 0, 2, Ends::kLeftSide},
    };
    const AcGePoint3d ptMid(2, 2, 0);
    for (const Case& c : cases) {
        auto chain = Build({0, 4, 8});
        chain->SetPointText(1, chain->GetPointTextRef(1) + AcGeVector3d(c.dx, c.dy, 0));
        if (c.dy == 0) {  // the middle of the text on the dimension line
            AcGePoint3dArray box;
            double w = 0, h = 0;
            chain->GetTextCorners(1, 0.0, box, w, h);
            chain->SetPointText(1, chain->GetPointTextRef(1) - AcGeVector3d(0, (box[0].y + box[3].y) / 2 - 2, 0));
        }
        AcGePoint3dArray box, leader;
        double w = 0, h = 0;
        chain->GetTextCorners(1, kText / 5, box, w, h);
        ASSERT_EQ(chain->GetLeaderPoints(1, leader), c.points) << c.name;
        ASSERT_EQ(leader.length(), c.points) << c.name;
        EXPECT_TRUE(leader[0].isEqualTo(ptMid)) << c.name;
        const AcGePoint3d& last = leader[c.points - 1];
        const double yMid = (box[0].y + box[3].y) / 2;
        switch (c.end) {
        case Ends::kLowerEdge:
        case Ends::kUpperEdge:
            EXPECT_NEAR(last.x, 2, kTol) << c.name;
            EXPECT_NEAR(last.y, c.end == Ends::kLowerEdge ? box[0].y : box[3].y, kTol) << c.name;
            break;
        case Ends::kLeftSide:
        case Ends::kRightSide:
            EXPECT_NEAR(last.x, c.end == Ends::kLeftSide ? box[0].x : box[1].x, kTol) << c.name;
            EXPECT_NEAR(last.y, yMid, kTol) << c.name;
            break;
        }
        if (c.points == 3) {  // the elbow: straight up, level with the text's middle
            EXPECT_NEAR(leader[1].x, 2, kTol) << c.name;
            EXPECT_NEAR(leader[1].y, yMid, kTol) << c.name;
        }
    }
    AcGePoint3dArray none;
    EXPECT_EQ(Build({0, 4})->GetLeaderPoints(0, none), 0);
}

} // namespace
