// The test module loaded through the dynamic linker: the application messages in order,
// the reactors, guarded calls, and the module's commands driven by scripts.
#include "ApTestSupport.h"

#include <fstream>

#include "host/db/AcDbLine.h"

namespace {

using aptest::HostTest;

const std::wstring kModule = [] {
    const std::string p = SV_TEST_MODULE;
    return std::wstring(p.begin(), p.end());
}();

// The module's own lines ("[tm] ...") of a transcript, in order.
std::vector<std::wstring> moduleLines(const std::wstring& text)
{
    std::vector<std::wstring> out;
    size_t at = 0;
    while ((at = text.find(L"[tm] ", at)) != std::wstring::npos) {
        at += 5;
        const size_t end = text.find(L'\n', at);
        out.push_back(text.substr(at, end == std::wstring::npos ? end : end - at));
    }
    return out;
}

class ModuleTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        AcConsoleRecorder rec;
        ASSERT_TRUE(acrxDynamicLinker->loadModule(kModule.c_str(), false));
        m_loadLines = moduleLines(rec.Text());
    }
    std::vector<std::wstring> m_loadLines;
};

struct LinkerLog : AcRxDLinkerReactor {
    std::vector<std::wstring> events;
    void rxAppWillBeLoaded(const ACHAR* n) override { events.push_back(L"willLoad " + std::wstring(n)); }
    void rxAppLoaded(const ACHAR* n) override { events.push_back(L"loaded " + std::wstring(n)); }
    void rxAppLoadAborted(const ACHAR* n) override { events.push_back(L"aborted " + std::wstring(n)); }
    void rxAppWillBeUnloaded(const ACHAR* n) override { events.push_back(L"willUnload " + std::wstring(n)); }
    void rxAppUnloaded(const ACHAR* n) override { events.push_back(L"unloaded " + std::wstring(n)); }
};

TEST_F(ModuleTest, LoadSendsInitThenLoadDwgAndTheModuleUnlocksItself)
{
    ASSERT_EQ(m_loadLines.size(), 2u);
    EXPECT_EQ(m_loadLines[0], L"init unlock 1 mdi 1");
    EXPECT_EQ(m_loadLines[1], L"load dwg " + std::wstring(acDocManager->curDocument()->docTitle()));
    EXPECT_TRUE(acrxDynamicLinker->isMDIAware(kModule.c_str()));
    EXPECT_FALSE(acrxDynamicLinker->isApplicationLocked(kModule.c_str()));
    EXPECT_TRUE(acrxDynamicLinker->loadModule(kModule.c_str(), false)) << "a second load is a no-op";
    EXPECT_EQ(acrxDynamicLinker->loadedModules().size(), 1u);
}

TEST_F(ModuleTest, DocumentsOpenedAndClosedLaterReachTheModule)
{
    const std::wstring t = run(L"NEW\n\nCLOSE\nTM_LISP\n");
    const std::vector<std::wstring> lines = moduleLines(t);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0].rfind(L"load dwg Drawing", 0), 0u);
    EXPECT_EQ(lines[1].rfind(L"unload dwg Drawing", 0), 0u);
    // The remaining drawing still has the function the module defined for it.
    EXPECT_EQ(lines[2], L"lisp function 0");
}

TEST_F(ModuleTest, SaveMessageIsGuardedAndTheSaveGoesOn)
{
    bool ok = false;
    const std::wstring t = run(L"SAVEAS\n" + path("a.dxf") + L"\n", &ok);
    EXPECT_TRUE(ok);
    EXPECT_NE(t.find(L"[tm] save"), std::wstring::npos);
    EXPECT_NE(t.find(L"message 9 failed: saving is refused by the test module"), std::wstring::npos);
    EXPECT_TRUE(std::filesystem::exists(m_dir / "a.dxf"));
}

TEST_F(ModuleTest, UnloadSendsUnloadDwgThenUnloadAppAndReactorsHearIt)
{
    LinkerLog log;
    acrxDynamicLinker->addReactor(&log);
    AcConsoleRecorder rec;
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(kModule.c_str(), false));
    acrxDynamicLinker->fireAppLoaded(L"acmatch");
    acrxDynamicLinker->removeReactor(&log);
    const std::vector<std::wstring> lines = moduleLines(rec.Text());
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].rfind(L"unload dwg", 0), 0u);
    EXPECT_EQ(lines[1], L"unload app");
    const std::wstring name = kModule.substr(kModule.find_last_of(L'/') + 1);
    EXPECT_EQ(log.events, (std::vector<std::wstring>{L"willUnload " + name, L"unloaded " + name, L"loaded acmatch"}));
    EXPECT_EQ(acedRegCmds->lookupCmd(L"TM_JIG"), nullptr);
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(kModule.c_str(), false));
}

TEST(LinkerTest, MissingOrBrokenModulesAbortTheLoad)
{
    apHostStartup();
    LinkerLog log;
    acrxDynamicLinker->addReactor(&log);
    AcConsoleRecorder rec;
    EXPECT_FALSE(acrxDynamicLinker->loadModule(L"/no/such/module.so", true));
    // A file that is no shared library.
    const std::string bogus = (std::filesystem::temp_directory_path() / "sv_ap_bogus.so").string();
    { std::ofstream(bogus) << "not a library"; }
    EXPECT_FALSE(acrxDynamicLinker->loadModule(std::wstring(bogus.begin(), bogus.end()).c_str(), true));
    acrxDynamicLinker->removeReactor(&log);
    std::filesystem::remove(bogus);
    EXPECT_NE(rec.Text().find(L"Unable to load /no/such/module.so: no such file"), std::wstring::npos);
    ASSERT_EQ(log.events.size(), 4u);
    EXPECT_EQ(log.events[1], L"aborted module.so");
    EXPECT_EQ(log.events[3], L"aborted sv_ap_bogus.so");
}

// Every input kind of the module's TM_INPUT command: values, Enter, Esc, exhaustion.
TEST_F(ModuleTest, InputKindsGiveThePlatformResultCodes)
{
    run(L"LINE\n0,0\n10,0\n\n");
    const std::wstring line = handleOf(entities().front());
    struct Case {
        const wchar_t* name;
        std::wstring script;
        std::vector<std::wstring> expected;
        bool ok;
    };
    const Case cases[] = {
        {L"values",
         L"TM_INPUT\n1,2\n3.5\n90\n7\n2.25\nzwei Worte\nR\n@@pick " + line + L"\n",
         {L"point 5100 1.000000,2.000000", L"dist 5100 3.500000", L"angle 5100 1.570796", L"int 5100 7",
          L"real 5100 2.250000", L"string 5100 zwei Worte", L"kword 5100 Rechts", L"entsel 5100 " + line},
         true},
        {L"enter everywhere",
         L"TM_INPUT\n\n\n\n\n\n\n\n\n",
         {L"point 5000", L"dist 5000 0.000000", L"angle 5000 0.000000", L"int 5000 0", L"real 5000 0.000000",
          L"string 5100 ", L"kword 5000 ", L"entsel -5001"},
         true},
        {L"esc then exhausted",
         L"TM_INPUT\n@@esc\n",
         {L"point -5002", L"dist -5002 0.000000", L"angle 5000 0.000000", L"int 5000 0", L"real 5000 0.000000",
          L"string 5000 ", L"kword 5000 ", L"entsel -5001"},
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        bool ok = false;
        const std::wstring t = run(c.script, &ok);
        EXPECT_EQ(moduleLines(t), c.expected) << t;
        EXPECT_EQ(ok, c.ok);
    }
}

TEST_F(ModuleTest, JigSamplesMovesAndEndsByClickKeywordEnterOrEsc)
{
    struct Case {
        const wchar_t* name;
        const wchar_t* ending;
        int status;
        int samples;
        size_t lines;
    };
    const Case cases[] = {
        {L"click", L"@@click 10,5\n", 0, 3, 1},
        {L"keyword", L"Offset\n", 1, 2, 0},
        {L"enter", L"\n", -1, 2, 0},
        {L"esc", L"@@esc\n", -4, 2, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        resetHost();
        ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
        ASSERT_TRUE(acrxDynamicLinker->loadModule(kModule.c_str(), false));
        const std::wstring t = run(std::wstring(L"TM_JIG\n0,0\n@@move 1,1\n@@move 2,2\n@@move 2,2\n") + c.ending);
        const std::wstring expect = L"jig status " + std::to_wstring(c.status) + L" samples " +
                                    std::to_wstring(c.samples);
        EXPECT_NE(t.find(expect), std::wstring::npos) << t;
        EXPECT_EQ(entities().size(), c.lines);
    }
}

TEST_F(ModuleTest, SelectionAppliesTheFilterAndTakesThePickfirstSet)
{
    run(L"LINE\n0,0\n10,0\n\nCIRCLE\n5,20\n2\nARC\n20,0\n25,5\n30,0\n");
    const std::vector<AcDbObjectId> ids = entities();
    ASSERT_EQ(ids.size(), 3u);
    const std::wstring line = handleOf(ids[0]), circle = handleOf(ids[1]), arc = handleOf(ids[2]);
    struct Case {
        const wchar_t* name;
        std::wstring script;
        std::wstring expected;
    };
    const Case cases[] = {
        {L"all, filtered", L"TM_SELECT\nALL\n\n", L"select 2: " + line + L" " + arc},
        {L"pickfirst first", L"@@select " + circle + L" " + line + L"\nTM_SELECT\n", L"select 1: " + line},
        {L"window", L"TM_SELECT\n@@window -1,-1 11,21\n\n", L"select 1: " + line},
        {L"enter at once", L"TM_SELECT\n\n", L"select rc -5001 errno 52"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::wstring t = run(c.script);
        const std::vector<std::wstring> lines = moduleLines(t);
        ASSERT_FALSE(lines.empty()) << t;
        EXPECT_EQ(lines.back(), c.expected) << t;
    }
}

TEST_F(ModuleTest, RightClickOpensTheMenuFromTheTimerAndPostsTheCommand)
{
    const std::wstring t = run(L"@@rclick 10,10\n@@menu 102\n@@rclick 10,10\n@@menu dismiss\n");
    EXPECT_EQ(moduleLines(t), (std::vector<std::wstring>{L"right button down", L"menu 102", L"popup command",
                                                         L"right button down", L"menu 0"}))
        << t;
    EXPECT_NE(t.find(L"[x] 102 Zwei"), std::wstring::npos) << t;
}

TEST_F(ModuleTest, ACommandThatThrowsFailsAndTheHostGoesOn)
{
    bool ok = true;
    const std::wstring t = run(L"TM_THROW\nCIRCLE\n0,0\n1\n", &ok);
    EXPECT_FALSE(ok);
    EXPECT_NE(t.find(L"the test command failed on purpose"), std::wstring::npos);
    EXPECT_EQ(entities().size(), 1u);
}

} // namespace
