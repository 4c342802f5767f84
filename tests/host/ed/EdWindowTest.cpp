// The window side: message filters on clicks, the pixel mapping, timers on the simulated
// clock, popup menus and message boxes answered by the script, and the transcript.
#include "EdTestSupport.h"

#include "host/win/WinMessageBox.h"

using namespace edtest;

namespace {

std::vector<std::pair<UINT, POINT>> g_seen;
bool g_swallow = false;

bool Filter(MSG* msg)
{
    g_seen.emplace_back(msg->message, msg->pt);
    return g_swallow && msg->message == WM_LBUTTONDOWN;
}

int g_timerFired = 0;
UINT g_menuChoice = 0;

void ShowMenu()
{
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 32822, L"Ausrichten");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, 32824, L"Vertikale");
    CheckMenuItem(menu, 32824, MF_BYCOMMAND | MF_CHECKED);
    AppendMenuW(menu, MF_STRING | MF_GRAYED, 32830, L"Gesperrt");
    g_menuChoice = static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD, 5, 5, 0, acedGetAcadDwgView(), nullptr));
    DestroyMenu(menu);
}

void TimerProc(HWND hwnd, UINT, UINT_PTR id, DWORD)
{
    ++g_timerFired;
    KillTimer(hwnd, id);
    ShowMenu();
}

bool RightClickFilter(MSG* msg)
{
    if (msg->message == WM_RBUTTONUP && !acedIsCommandActive())
        SetTimer(acedGetAcadDwgView(), 123456, 100, TimerProc);
    return false;
}

class EdWindowTest : public EdFixture {
protected:
    void SetUp() override
    {
        EdFixture::SetUp();
        g_seen.clear();
        g_swallow = false;
        g_timerFired = 0;
        g_menuChoice = 0;
        svwin::ResetSimClock();
    }
    void TearDown() override
    {
        acedRemoveFilterWinMsg(Filter);
        acedRemoveFilterWinMsg(RightClickFilter);
        EdFixture::TearDown();
    }
};

TEST_F(EdWindowTest, PixelMappingRoundTrips)
{
    const AcGePoint3d origin(0, 0, 0);
    POINT px = acedWorldToPixel(origin);
    EXPECT_EQ(px.x, 0);
    EXPECT_EQ(px.y, 800);
    AcEdViewState v;
    v.center = AcGePoint3d(1000, 1000, 0);
    v.unitsPerPixel = 10;
    ASSERT_TRUE(acedSetViewState(v));
    px = acedWorldToPixel(AcGePoint3d(1500, 500, 0));
    EXPECT_EQ(px.x, 550);
    EXPECT_EQ(px.y, 450);
    ads_point w;
    ASSERT_TRUE(acedCoordFromPixelToWorld(acedGetWinNum(px.x, px.y), px, w));
    EXPECT_DOUBLE_EQ(w[0], 1500);
    EXPECT_DOUBLE_EQ(w[1], 500);
    EXPECT_EQ(acedGetWinNum(-1, 0), 0);
    EXPECT_FALSE(acedCoordFromPixelToWorld(0, px, w));
    v.unitsPerPixel = 0;
    EXPECT_FALSE(acedSetViewState(v));
}

TEST_F(EdWindowTest, FiltersSeeEveryClickAndMaySwallowIt)
{
    ASSERT_TRUE(acedRegisterFilterWinMsg(Filter));
    EXPECT_FALSE(acedRegisterFilterWinMsg(Filter));
    std::vector<int> rcs;
    Body() = [&] {
        ads_point p;
        rcs.push_back(acedGetPoint(nullptr, L"\nP: ", p));
    };
    EXPECT_TRUE(Run(L"EDT\n@@click 10,20\n"));
    ASSERT_EQ(g_seen.size(), 2u);
    EXPECT_EQ(g_seen[0].first, static_cast<UINT>(WM_LBUTTONDOWN));
    EXPECT_EQ(g_seen[1].first, static_cast<UINT>(WM_LBUTTONUP));
    EXPECT_EQ(g_seen[0].second.x, 10);
    EXPECT_EQ(g_seen[0].second.y, 780);
    g_swallow = true;
    g_seen.clear();
    EXPECT_TRUE(Run(L"EDT\n@@click 1,1\n2,2\n"));  // the click never reaches the prompt
    EXPECT_EQ(rcs, (std::vector<int>{RTNORM, RTNORM}));
    EXPECT_EQ(g_seen.size(), 2u);
    EXPECT_TRUE(acedRemoveFilterWinMsg(Filter));
    EXPECT_FALSE(acedRemoveFilterWinMsg(Filter));
}

TEST_F(EdWindowTest, TimersFireOnTheSimulatedClock)
{
    int fired = 0;
    static int* counter = nullptr;
    counter = &fired;
    SetTimer(acedGetAcadDwgView(), 7, 100, [](HWND, UINT, UINT_PTR, DWORD) { ++*counter; });
    EXPECT_TRUE(Run(L"@@wait 99\n"));
    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(Run(L"@@wait 1\n"));
    EXPECT_EQ(fired, 1);
    EXPECT_TRUE(Run(L"@@wait 250\n"));
    EXPECT_EQ(fired, 3);
    // Each input moves the clock on a little too.
    const DWORD before = svwin::SimClockNow();
    Body() = [] {};
    Run(L"EDT\nEDT\nEDT\n");
    EXPECT_GE(svwin::SimClockNow() - before, 2 * eded::kInputStepMs);
    KillTimer(acedGetAcadDwgView(), 7);
}

TEST_F(EdWindowTest, RightClickTimerMenuAnsweredById)
{
    acedRegisterFilterWinMsg(RightClickFilter);
    EXPECT_TRUE(Run(L"@@rclick 10,10\n@@menu 32824\n"));
    EXPECT_EQ(g_timerFired, 1);
    EXPECT_EQ(g_menuChoice, 32824u);
    EXPECT_TRUE(session->transcript().contains(L"  [ ] 32822 Ausrichten\n  ----\n  [x] 32824 Vertikale\n"));
    EXPECT_TRUE(session->transcript().contains(L"-> 32824"));
    EXPECT_TRUE(Run(L"@@rclick 10,10\n@@menu dismiss\n"));
    EXPECT_EQ(g_menuChoice, 0u);
    // An id the menu does not have, or a grayed one, is an error and dismisses the menu.
    EXPECT_FALSE(Run(L"@@rclick 10,10\n@@menu 4711\n"));
    EXPECT_EQ(g_menuChoice, 0u);
    EXPECT_NE(session->errors().back().find(L"t.scr:2:"), std::wstring::npos);
    EXPECT_FALSE(Run(L"@@rclick 10,10\n@@menu 32830\n"));
    EXPECT_EQ(svwin::LiveMenuCount(), 0);
}

TEST_F(EdWindowTest, MenuAnswerWithoutAMenuIsAnError)
{
    EXPECT_FALSE(Run(L"@@menu 5\n"));
    EXPECT_EQ(session->errors().back(), L"t.scr:1: no popup menu opened for this answer");
}

TEST_F(EdWindowTest, MessageBoxesAreRecordedAndAnswered)
{
    std::vector<int> answers;
    Body() = [&] {
        answers.push_back(MessageBoxW(nullptr, L"Layer \"0\" ist verboten.", L"Sorvane", MB_OK));
        answers.push_back(MessageBoxW(nullptr, L"Wollen Sie fortsetzen?", L"Sorvane", MB_YESNO));
        answers.push_back(MessageBoxW(nullptr, L"Noch einmal?", L"Sorvane", MB_YESNO));
    };
    EXPECT_TRUE(Run(L"EDT\n@@msgbox yes\n"));
    EXPECT_EQ(answers, (std::vector<int>{IDOK, IDYES, IDNO}));
    EXPECT_TRUE(session->transcript().contains(L"[MessageBox Sorvane] Layer \"0\" ist verboten.\n  -> OK\n"));
    answers.clear();
    EXPECT_FALSE(Run(L"EDT\n@@msgbox retry\n"));  // OK-only box first: the next line is for the question
    EXPECT_EQ(answers, (std::vector<int>{IDOK, IDNO, IDNO}));
}

TEST_F(EdWindowTest, TranscriptShowsPromptsAnswersAndConsoleLines)
{
    Body() = [] {
        ads_point p;
        acedGetPoint(nullptr, L"\nErster Maßpunkt: ", p);
        acutPrintf(L"\nGültige Sorvane-Objekte: %d", 0);
        acedGetPoint(p, L"\nZweiter Maßpunkt: ", p);
    };
    EXPECT_TRUE(Run(L"; a comment\nEDT\n1,2\n@3,0\n"));
    EXPECT_EQ(session->transcript().text(),
              L"\nCommand: EDT\nErster Maßpunkt: 1,2\nGültige Sorvane-Objekte: 0\nZweiter Maßpunkt: @3,0");
}

TEST_F(EdWindowTest, KeysAndUcsAndBadDirectives)
{
    EXPECT_TRUE(Run(L"@@key ctrl down\n"));
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    EXPECT_TRUE(Run(L"@@key ctrl up\n@@ucs 5,0,0 0,1,0 -1,0,0\n"));
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    AcGePoint3d o;
    AcGeVector3d x, y;
    acedGetCurrentUcs(o, x, y);
    EXPECT_EQ(o, AcGePoint3d(5, 0, 0));
    EXPECT_TRUE(x.isEqualTo(AcGeVector3d::kYAxis));
    EXPECT_TRUE(Run(L"@@ucs world\n"));
    EXPECT_TRUE(acedIsWorldUcs());
    struct Bad {
        const wchar_t* line;
        const wchar_t* error;
    };
    const Bad bad[] = {
        {L"@@bogus 1", L"t.scr:1: unknown directive \"@@bogus 1\""},
        {L"@@key hyper down", L"t.scr:1: @@key expects a key (ctrl, shift, alt, a letter or a number) and down or up"},
        {L"@@ucs 1,1,0 1,0,0 2,0,0", L"t.scr:1: @@ucs: the axes are zero or parallel"},
        {L"@@wait soon", L"t.scr:1: @@wait expects milliseconds (0 to 3600000)"},
        {L"@@msgbox ok", L"t.scr:1: no message box is open for this answer"},
        {L"@@select FFFFF", L"t.scr:1: no entity with the handle \"FFFFF\""},
    };
    for (const Bad& b : bad) {
        EXPECT_FALSE(Run(std::wstring(b.line) + L"\n"));
        EXPECT_EQ(session->errors().back(), b.error);
    }
}

} // namespace
