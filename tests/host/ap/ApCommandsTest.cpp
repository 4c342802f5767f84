// The built-in commands driven by scripts, end to end: drawing, editing, undo, layers, grips,
// and a drawing saved, closed and opened again.
#include "ApTestSupport.h"

#include "host/ap/AcDbMatchProperties.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbText.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxService.h"

namespace {

using aptest::HostTest;

class CommandsTest : public HostTest {
protected:
    // Start and end of the line with that id.
    static bool lineEnds(AcDbObjectId id, AcGePoint3d& s, AcGePoint3d& e)
    {
        AcDbLine* line = nullptr;
        if (acdbOpenObject(line, id, AcDb::kForRead) != Acad::eOk)
            return false;
        s = line->startPoint();
        e = line->endPoint();
        line->close();
        return true;
    }
    static int countOf(const std::vector<AcDbObjectId>& ids, AcRxClass* cls)
    {
        int n = 0;
        for (AcDbObjectId id : ids)
            n += id.objectClass() && id.objectClass()->isDerivedFrom(cls) ? 1 : 0;
        return n;
    }
};

TEST_F(CommandsTest, DrawMoveCopyUndoThenSaveAndReopenGivesTheSameDrawing)
{
    bool ok = false;
    run(L"LINE\n0,0\n10,0\n\n"
        L"CIRCLE\n5,20\n2\n"
        L"PLINE\n30,0\n@5,0\n@0,5\nClose\n"
        L"TEXT\n0,-5\n0.5\n0\nErdgeschoss\n\n"
        L"MOVE\n5,0\n\n0,0\n0,3\n"
        L"COPY\n7,20\n\n0,0\n20,0\n40,0\n\n"
        L"UNDO\n1\n",
        &ok);
    ASSERT_TRUE(ok) << (m_errors.empty() ? L"" : m_errors.front());
    const std::vector<AcDbObjectId> ids = entities();
    EXPECT_EQ(countOf(ids, AcDbLine::desc()), 1);
    EXPECT_EQ(countOf(ids, AcDbCircle::desc()), 1);  // the copies were undone
    EXPECT_EQ(countOf(ids, AcDbPolyline::desc()), 1);
    EXPECT_EQ(countOf(ids, AcDbText::desc()), 1);
    AcGePoint3d s, e;
    ASSERT_TRUE(lineEnds(ids.front(), s, e));
    EXPECT_TRUE(s.isEqualTo(AcGePoint3d(0, 3, 0)));
    EXPECT_TRUE(e.isEqualTo(AcGePoint3d(10, 3, 0)));

    const std::wstring before = dump();
    const std::wstring file = path("plan.dxf");
    run(L"SAVEAS\n" + file + L"\nCLOSE\n", &ok);
    ASSERT_TRUE(ok) << (m_errors.empty() ? L"" : m_errors.front());
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(db(), nullptr);
    run(L"OPEN\n" + file + L"\n", &ok);
    ASSERT_TRUE(ok);
    ASSERT_NE(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(dump(), before);
}

// One line from (0,0) to (10,0), one command; the last entity's ends afterwards.
struct EditCase {
    const wchar_t* name;
    std::wstring script;
    int lines;  // lines in model space after
    AcGePoint3d start, end;
};

TEST_F(CommandsTest, EditingCommandsMoveTheLineAsExpected)
{
    const EditCase cases[] = {
        {L"MOVE", L"MOVE\n5,0\n\n0,0\n@2,1\n", 1, {2, 1, 0}, {12, 1, 0}},
        {L"ROTATE", L"ROTATE\n5,0\n\n0,0\n90\n", 1, {0, 0, 0}, {0, 10, 0}},
        {L"SCALE", L"SCALE\n5,0\n\n0,0\n2\n", 1, {0, 0, 0}, {20, 0, 0}},
        {L"MIRROR kept", L"MIRROR\n5,0\n\n0,5\n10,5\n\n", 2, {0, 10, 0}, {10, 10, 0}},
        {L"MIRROR erased", L"MIRROR\n5,0\n\n0,5\n10,5\nYes\n", 1, {0, 10, 0}, {10, 10, 0}},
        {L"STRETCH", L"STRETCH\n9,-1\n11,1\n0,0\n0,5\n", 1, {0, 0, 0}, {10, 5, 0}},
        {L"STRETCH all inside", L"STRETCH\n-1,-1\n11,1\n0,0\n0,5\n", 1, {0, 5, 0}, {10, 5, 0}},
        {L"GRIP_STRETCH typed", L"GRIP_STRETCH\n5,0\n2\n10,4\n", 1, {0, 0, 0}, {10, 4, 0}},
        {L"COPY twice", L"COPY\n5,0\n\n0,0\n0,1\n0,2\n\n", 3, {0, 2, 0}, {10, 2, 0}},
        {L"ERASE then U", L"ERASE\n5,0\n\nU\n", 1, {0, 0, 0}, {10, 0, 0}},
    };
    for (const EditCase& c : cases) {
        SCOPED_TRACE(c.name);
        resetHost();
        ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
        bool ok = false;
        run(L"LINE\n0,0\n10,0\n\n" + c.script, &ok);
        EXPECT_TRUE(ok) << (m_errors.empty() ? L"" : m_errors.front());
        const std::vector<AcDbObjectId> ids = entities();
        ASSERT_EQ(countOf(ids, AcDbLine::desc()), c.lines);
        AcGePoint3d s, e;
        ASSERT_TRUE(lineEnds(ids.back(), s, e));
        EXPECT_TRUE(s.isEqualTo(c.start)) << s.x << "," << s.y;
        EXPECT_TRUE(e.isEqualTo(c.end)) << e.x << "," << e.y;
    }
}

TEST_F(CommandsTest, GripDirectiveRunsGripStretchAsACommand)
{
    run(L"LINE\n0,0\n10,0\n\n");
    const AcDbObjectId line = entities().front();
    struct Names : AcEditorReactor {
        std::vector<std::wstring> started;
        void commandWillStart(const ACHAR* name) override { started.push_back(name); }
    } names;
    acedEditor->addReactor(&names);
    bool ok = false;
    run(L"@@grip " + handleOf(line) + L" 0 3,3\n", &ok);
    acedEditor->removeReactor(&names);
    EXPECT_TRUE(ok);
    ASSERT_EQ(names.started.size(), 1u);
    EXPECT_EQ(names.started.front(), L"GRIP_STRETCH");
    AcGePoint3d s, e;
    ASSERT_TRUE(lineEnds(line, s, e));
    EXPECT_TRUE(s.isEqualTo(AcGePoint3d(3, 3, 0)));
}

TEST_F(CommandsTest, ExplodeReplacesThePolylineByItsSegments)
{
    bool ok = false;
    run(L"PLINE\n0,0\n10,0\n10,10\n\nEXPLODE\n5,0\n\n", &ok);
    EXPECT_TRUE(ok);
    const std::vector<AcDbObjectId> ids = entities();
    EXPECT_EQ(countOf(ids, AcDbPolyline::desc()), 0);
    EXPECT_EQ(countOf(ids, AcDbLine::desc()), 2);
}

TEST_F(CommandsTest, LayerOptionsAndHiddenLayersInSelections)
{
    bool ok = false;
    run(L"-LAYER\nMake\nWAENDE\nColor\n3\nWAENDE\n\nLINE\n0,0\n10,0\n\n"
        L"-LAYER\nSet\n0\nOFF\nWAENDE\n\nERASE\n5,0\n\n",
        &ok);
    // The pick found nothing on the layer that is off, so the selection was empty.
    EXPECT_EQ(entities().size(), 1u);
    run(L"-LAYER\nON\nWAENDE\nLOck\nWAENDE\n\nERASE\n5,0\n\n", &ok);
    EXPECT_EQ(entities().size(), 1u) << "a locked layer's entity is selectable but not writable";
    run(L"-LAYER\nUnlock\nW*\n\nERASE\n5,0\n\n", &ok);
    EXPECT_TRUE(entities().empty());
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(db()->getLayerTable(table, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(table->getAt(L"WAENDE", layer, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(layer->color().colorIndex(), 3);
    layer->close();
    table->close();
}

TEST_F(CommandsTest, MatchPropCopiesCommonPropertiesAndLoadsTheProvider)
{
    struct Catcher : AcRxDLinkerReactor {
        std::vector<std::wstring> loaded;
        void rxAppLoaded(const ACHAR* name) override { loaded.push_back(name); }
    } catcher;
    acrxDynamicLinker->addReactor(&catcher);
    bool ok = false;
    run(L"-LAYER\nMake\nACHSEN\n\nLINE\n0,0\n10,0\n\n-LAYER\nSet\n0\n\nLINE\n0,10\n10,10\n\n"
        L"MATCHPROP\n5,0\n5,10\n\n",
        &ok);
    acrxDynamicLinker->removeReactor(&catcher);
    EXPECT_TRUE(ok) << (m_errors.empty() ? L"" : m_errors.front());
    const std::vector<AcDbObjectId> ids = entities();
    ASSERT_EQ(ids.size(), 2u);
    AcDbEntity* target = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(target, ids.back(), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(target->layerName(), L"ACHSEN");
    target->close();
    EXPECT_TRUE(apMatchPropProviderLoaded());
    EXPECT_TRUE(acrxServiceIsRegistered(AP_MATCHPROP_SERVICE));
    if (!catcher.loaded.empty()) {  // only the first MATCHPROP of a process loads it
        EXPECT_EQ(catcher.loaded.front(), AP_MATCHPROP_APP);
    }
}

// Commands that fail make the run fail and name the line.
TEST_F(CommandsTest, FailingFileCommandsFailTheRun)
{
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"OPEN\n" + path("missing.dxf") + L"\n", L"t:2"},
        {L"SETVAR\nNOSUCHVAR\n", L"t:2"},
        {L"PLOT\n" + path("plot.txt") + L"\n", L"t:2"},
    };
    for (const auto& [script, where] : cases) {
        SCOPED_TRACE(script);
        bool ok = true;
        run(script, &ok);
        EXPECT_FALSE(ok);
        ASSERT_FALSE(m_errors.empty());
        EXPECT_NE(m_errors.front().find(where), std::wstring::npos) << m_errors.front();
    }
}

TEST_F(CommandsTest, PlotWritesAPdfAndCloseAsksBeforeLosingChanges)
{
    bool ok = false;
    const std::wstring pdf = path("plan.pdf");
    const std::wstring t = run(L"CIRCLE\n0,0\n1\nPLOT\n" + pdf + L"\nCLOSE\nNo\n", &ok);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(std::filesystem::exists(m_dir / "plan.pdf"));
    EXPECT_NE(t.find(L"Save changes to Drawing"), std::wstring::npos);
    EXPECT_EQ(acDocManager->documentCount(), 0);
}

} // namespace
