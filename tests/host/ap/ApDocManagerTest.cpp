// The document manager: the current drawing and the working database, lock counting as the
// module's lock helpers use it, application context, and the reactor sequence.
#include "ApTestSupport.h"

#include <fstream>

namespace {

using aptest::HostTest;

class DocManagerTest : public HostTest {};

TEST_F(DocManagerTest, WorkingDatabaseFollowsTheCurrentDocument)
{
    AcApDocument* first = acDocManager->curDocument();
    ASSERT_NE(first, nullptr);
    ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    AcApDocument* second = acDocManager->curDocument();
    EXPECT_NE(first, second);
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_EQ(db(), second->database());
    EXPECT_EQ(acDocManager->mdiActiveDocument(), second);

    ASSERT_EQ(acDocManager->activateDocument(first), Acad::eOk);
    EXPECT_EQ(db(), first->database());
    EXPECT_EQ(acDocManager->document(second->database()), second);

    ASSERT_EQ(acDocManager->closeDocument(first), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), second);
    EXPECT_EQ(db(), second->database());
    ASSERT_EQ(acDocManager->closeDocument(second), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(db(), nullptr);
    EXPECT_EQ(acDocManager->closeDocument(second), Acad::eInvalidInput);
}

TEST_F(DocManagerTest, NewDrawingsUseTheMetricTemplate)
{
    EXPECT_EQ(db()->insunits(), AcDb::kUnitsMeters);
    EXPECT_EQ(db()->measurement(), AcDb::kMetric);
    EXPECT_DOUBLE_EQ(db()->textsize(), 0.25);
    EXPECT_TRUE(acDocManager->curDocument()->isNew());
    EXPECT_EQ(db()->dbmod(), 0);
}

// The lock helpers of the module: lock three times, release by looping while the newest lock
// is an explicit write lock.
TEST_F(DocManagerTest, LocksCountPerDocumentAndOnlyExplicitWriteLocksCount)
{
    AcApDocument* doc = acDocManager->curDocument();
    EXPECT_EQ(doc->myLockMode(), AcAp::kNotLocked);
    struct Step {
        bool lock;
        AcAp::DocLockMode mode;
        Acad::ErrorStatus result;
        AcAp::DocLockMode myModeAfter;
        int countAfter;
    };
    const Step steps[] = {
        {true, AcAp::kAutoWrite, Acad::eOk, AcAp::kAutoWrite, 1},
        {true, AcAp::kWrite, Acad::eOk, AcAp::kWrite, 2},
        {true, AcAp::kWrite, Acad::eOk, AcAp::kWrite, 3},
        {true, AcAp::kNone, Acad::eInvalidInput, AcAp::kWrite, 3},
        {false, AcAp::kNone, Acad::eOk, AcAp::kWrite, 2},
        {false, AcAp::kNone, Acad::eOk, AcAp::kAutoWrite, 1},
        {false, AcAp::kNone, Acad::eOk, AcAp::kNotLocked, 0},
        {false, AcAp::kNone, Acad::eNotApplicable, AcAp::kNotLocked, 0},
    };
    int i = 0;
    for (const Step& s : steps) {
        SCOPED_TRACE(i++);
        const Acad::ErrorStatus es = s.lock ? acDocManager->lockDocument(doc, s.mode) : acDocManager->unlockDocument(doc);
        EXPECT_EQ(es, s.result);
        EXPECT_EQ(doc->myLockMode(), s.myModeAfter);
        EXPECT_EQ(doc->lockCount(), s.countAfter);
    }
}

TEST_F(DocManagerTest, ACommandHoldsAnAutomaticWriteLockAndRunsInDocumentContext)
{
    static AcAp::DocLockMode seen = AcAp::kNone;
    static bool appContext = true;
    static bool quiescent = true;
    acedRegCmds->addCommand(L"SV_APTEST", L"APT_LOCK", L"APT_LOCK", ACRX_CMD_MODAL, [] {
        AcApDocument* d = acDocManager->curDocument();
        seen = d->myLockMode();
        appContext = acDocManager->isApplicationContext();
        quiescent = d->isQuiescent();
    });
    run(L"APT_LOCK\n");
    acedRegCmds->removeGroup(L"SV_APTEST");
    EXPECT_EQ(seen, AcAp::kAutoWrite);
    EXPECT_FALSE(appContext);
    EXPECT_FALSE(quiescent);
    EXPECT_EQ(acDocManager->curDocument()->myLockMode(), AcAp::kNotLocked);
    EXPECT_TRUE(acDocManager->isApplicationContext());
}

TEST_F(DocManagerTest, ReactorsHearCreationSwitchesAndClosingInOrder)
{
    struct Log : AcApDocManagerReactor {
        std::vector<std::wstring> events;
        void documentCreated(AcApDocument*) override { events.push_back(L"created"); }
        void documentToBeDestroyed(AcApDocument*) override { events.push_back(L"toBeDestroyed"); }
        void documentDestroyed(const ACHAR*) override { events.push_back(L"destroyed"); }
        void documentBecameCurrent(AcApDocument*) override { events.push_back(L"current"); }
        void documentActivated(AcApDocument*) override { events.push_back(L"activated"); }
        void documentToBeDeactivated(AcApDocument*) override { events.push_back(L"deactivate"); }
    } log;
    struct EdLog : AcEditorReactor {
        std::vector<std::wstring> events;
        void beginClose(AcDbDatabase*) override { events.push_back(L"beginClose"); }
        void beginSave(AcDbDatabase*, const ACHAR*) override { events.push_back(L"beginSave"); }
        void saveComplete(AcDbDatabase*, const ACHAR*) override { events.push_back(L"saveComplete"); }
        void beginDwgOpen(const ACHAR*) override { events.push_back(L"beginDwgOpen"); }
        void endDwgOpen(const ACHAR*, AcDbDatabase*) override { events.push_back(L"endDwgOpen"); }
    } edLog;
    acDocManager->addReactor(&log);
    acedEditor->addReactor(&edLog);
    const std::wstring file = path("r.dxf");
    bool ok = false;
    run(L"SAVEAS\n" + file + L"\nNEW\n\nOPEN\n" + file + L"\nCLOSE\n", &ok);
    acDocManager->removeReactor(&log);
    acedEditor->removeReactor(&edLog);
    EXPECT_TRUE(ok);
    // OPEN of a drawing that is open already only activates it.
    EXPECT_EQ(log.events, (std::vector<std::wstring>{L"deactivate", L"current", L"activated", L"created",
                                                     L"deactivate", L"current", L"activated", L"toBeDestroyed",
                                                     L"destroyed", L"current", L"activated"}));
    EXPECT_EQ(edLog.events, (std::vector<std::wstring>{L"beginSave", L"saveComplete", L"beginClose"}));
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(DocManagerTest, OpenReportsUnreadableFilesAndKeepsTheCurrentDrawing)
{
    AcApDocument* doc = acDocManager->curDocument();
    { std::ofstream(m_dir / "bad.dxf") << "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nabc\n"; }
    EXPECT_NE(acDocManager->appContextOpenDocument(path("bad.dxf").c_str()), Acad::eOk);
    EXPECT_NE(acDocManager->lastError().find(L"bad.dxf"), std::wstring::npos) << acDocManager->lastError();
    EXPECT_NE(acDocManager->appContextOpenDocument(path("none.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), doc);
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(DocManagerTest, ExecuteInApplicationContextDuringACommand)
{
    static bool inside = false;
    acedRegCmds->addCommand(L"SV_APTEST", L"APT_CTX", L"APT_CTX", ACRX_CMD_MODAL, [] {
        acDocManager->executeInApplicationContext([](void* p) { *static_cast<bool*>(p) = acDocManager->isApplicationContext(); },
                                                  &inside);
    });
    run(L"APT_CTX\n");
    acedRegCmds->removeGroup(L"SV_APTEST");
    EXPECT_TRUE(inside);
}

} // namespace
