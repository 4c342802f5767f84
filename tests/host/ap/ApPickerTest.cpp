// The picker on real entities: picks with their markers and draw order, windows, crossings,
// fences, and what layers that are off, frozen or locked do to selection.
#include "ApTestSupport.h"

#include "host/ap/ApPicker.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbSortentsTable.h"

namespace {

using aptest::HostTest;

class PickerTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        // A polyline of three segments, a circle around (20,0), a line crossing the polyline.
        run(L"PLINE\n0,0\n10,0\n10,10\n0,10\n\nCIRCLE\n20,0\n2\nLINE\n5,-5\n5,5\n\n");
        const std::vector<AcDbObjectId> ids = entities();
        EXPECT_EQ(ids.size(), 3u);
        if (ids.size() == 3) {
            m_pline = ids[0];
            m_circle = ids[1];
            m_line = ids[2];
        }
    }
    static std::vector<AcDbObjectId> idsOf(const std::vector<AcEdPickHit>& hits)
    {
        std::vector<AcDbObjectId> out;
        for (const AcEdPickHit& h : hits)
            out.push_back(h.id);
        return out;
    }
    ApPicker m_picker;
    AcDbObjectId m_pline, m_circle, m_line;
};

TEST_F(PickerTest, PicksCarrySegmentMarkersAndFollowDrawOrder)
{
    std::vector<AcEdPickHit> hits = m_picker.pickAt(AcGePoint3d(10, 5, 0), 0.5);
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].id, m_pline);
    EXPECT_EQ(hits[0].marker, 2);  // the second segment
    EXPECT_TRUE(hits[0].point.isEqualTo(AcGePoint3d(10, 5, 0)));

    hits = m_picker.pickAt(AcGePoint3d(5, 0.1, 0), 0.5);
    EXPECT_EQ(idsOf(hits), (std::vector<AcDbObjectId>{m_pline, m_line}));

    // Bringing the polyline to the top makes it the last hit.
    AcDbBlockTableRecord* ms = nullptr;
    ASSERT_EQ(acdbOpenObject(ms, db()->modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    AcDbSortentsTable* sortents = nullptr;
    ASSERT_EQ(ms->getSortentsTable(sortents, AcDb::kForWrite, true), Acad::eOk);
    AcDbObjectIdArray top;
    top.append(m_pline);
    EXPECT_EQ(sortents->moveToTop(top), Acad::eOk);
    sortents->close();
    ms->close();
    hits = m_picker.pickAt(AcGePoint3d(5, 0.1, 0), 0.5);
    EXPECT_EQ(idsOf(hits), (std::vector<AcDbObjectId>{m_line, m_pline}));

    EXPECT_TRUE(m_picker.pickAt(AcGePoint3d(15, 5, 0), 0.5).empty());
}

TEST_F(PickerTest, WindowsCrossingsAndFences)
{
    struct Case {
        const char* name;
        std::vector<AcEdPickHit> hits;
        std::vector<AcDbObjectId> expected;
    };
    const Case cases[] = {
        {"window around all", m_picker.window({-1, -6, 0}, {23, 11, 0}, false), {m_pline, m_circle, m_line}},
        {"window around the circle", m_picker.window({17, -3, 0}, {23, 3, 0}, false), {m_circle}},
        {"window cutting the polyline", m_picker.window({-1, -6, 0}, {6, 11, 0}, false), {m_line}},
        {"crossing cutting the polyline", m_picker.window({-1, -6, 0}, {6, 11, 0}, true), {m_pline, m_line}},
        {"fence through line and circle", m_picker.fence({{3, 3, 0}, {7, 3, 0}}), {m_line}},
        {"fence through all three", m_picker.fence({{3, 3, 0}, {7, 3, 0}, {20, -5, 0}, {20, 5, 0}}),
         {m_pline, m_circle, m_line}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(idsOf(c.hits), c.expected);
    }
}

TEST_F(PickerTest, LayersThatAreOffOrFrozenHideEntitiesLockedOnesDoNot)
{
    bool ok = false;
    run(L"-LAYER\nNew\nA,B,C\n\n", &ok);
    ASSERT_TRUE(ok);
    const std::pair<AcDbObjectId, const wchar_t*> moves[] = {{m_pline, L"A"}, {m_circle, L"B"}, {m_line, L"C"}};
    for (const auto& [id, layer] : moves) {
        AcDbEntity* e = nullptr;
        ASSERT_EQ(acdbOpenAcDbEntity(e, id, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(e->setLayer(layer), Acad::eOk);
        e->close();
    }
    run(L"-LAYER\nOFF\nA\nFreeze\nB\nLOck\nC\n\n", &ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(m_picker.all(), (std::vector<AcDbObjectId>{m_line}));
    EXPECT_TRUE(m_picker.pickAt(AcGePoint3d(10, 5, 0), 0.5).empty());
    AcEdPickHit hit;
    EXPECT_FALSE(m_picker.pickEntity(m_circle, 0, hit));
    EXPECT_TRUE(m_picker.pickEntity(m_line, 0, hit));
    EXPECT_EQ(hit.id, m_line);
}

} // namespace
