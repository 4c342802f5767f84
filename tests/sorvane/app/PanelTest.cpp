// The panel's life: Position and ShowAppWindow in "General Info", StartApp and
// EndApp, and how the panel gives way round a pick.
#include "AppFixture.h"

#include "app/DlgMain.h"
#include "app/Panel.h"

namespace {

using apptest::AppTest;

RECT Rect(int x, int y, int w, int h)
{
    return RECT{x, y, x + w, y + h};
}

bool SameRect(const RECT& a, const RECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

TEST_F(AppTest, PositionIsAppliedOnlyWhenItFitsTheScreen)
{
    Load();
    ASSERT_EQ(StartApp(0), 1);
    struct Case {
        const wchar_t* text;
        bool applied;
        RECT rect;  // where the panel stands afterwards
        bool zoomed;
    } const cases[] = {
        {L"100,200,300,400,0", true, Rect(100, 200, 300, 400), false},
        {L"1200,200,300,400,0", false, Rect(7, 7, 250, 250), false},   // x off the screen
        {L"100,1000,300,400,0", false, Rect(7, 7, 250, 250), false},   // y off the screen
        {L"100,200,20,400,0", false, Rect(7, 7, 250, 250), false},     // too narrow
        {L"100,200,300,2000,0", false, Rect(7, 7, 250, 250), false},   // too high
        {L"-50,200,21,1999,0", true, Rect(-50, 200, 21, 1999), false}, // the limits themselves
        {L"1,2,3,4", false, Rect(7, 7, 250, 250), false},              // four fields
        {L"", false, Rect(7, 7, 250, 250), false},
        {L"5,5,300,400,1", true, Rect(7, 7, 250, 250), true},          // maximised
    };
    for (const Case& c : cases) {
        dlgMyApp->MoveWindow(7, 7, 250, 250);
        dlgMyApp->ShowWindow(SW_RESTORE);
        EXPECT_EQ(ApplyPanelPosition(c.text) != FALSE, c.applied) << c.text;
        RECT r;
        dlgMyApp->GetWindowRect(&r);
        EXPECT_TRUE(SameRect(r, c.rect)) << c.text;
        EXPECT_EQ(dlgMyApp->IsZoomed() != FALSE, c.zoomed) << c.text;
    }
}

TEST_F(AppTest, EndAppWritesVisibilityAndPlacement)
{
    Load();
    struct Case {
        const char* name;
        int showCmd;  // -1: no panel
        int destroy, keep;
        const wchar_t* showAppWindow;
        const wchar_t* position;
    } const cases[] = {
        {"visible", SW_SHOW, 1, 1, L"1", L"10,20,300,400,0"},
        {"maximised", SW_SHOWMAXIMIZED, 1, 1, L"1", L"10,20,300,400,1"},
        {"iconic", SW_MINIMIZE, 1, 1, L"1", L"<none>"},
        {"hidden", SW_HIDE, 1, 1, L"0", L"<none>"},
        {"no panel", -1, 1, 1, L"0", L"<none>"},
        {"state not kept", SW_SHOW, 1, 0, L"<none>", L"10,20,300,400,0"},
        {"only hidden", SW_SHOW, 0, 1, L"<none>", L"<none>"},
    };
    for (const Case& c : cases) {
        std::filesystem::remove(std::filesystem::path(IniPath()));
        if (c.showCmd >= 0) {
            ASSERT_EQ(StartApp(0), 1);
            dlgMyApp->MoveWindow(10, 20, 300, 400);
            dlgMyApp->ShowWindow(c.showCmd);
        }
        EndApp(c.destroy, c.keep);
        EXPECT_EQ(ReadIni(L"General Info", L"ShowAppWindow"), c.showAppWindow) << c.name;
        EXPECT_EQ(ReadIni(L"General Info", L"Position"), c.position) << c.name;
        EXPECT_EQ(dlgMyApp == nullptr, c.destroy != 0) << c.name;
        if (!c.destroy) {
            EXPECT_FALSE(dlgMyApp->IsWindowVisible()) << c.name;
            EndApp(1, 0);
        }
    }
}

TEST_F(AppTest, ThePanelComesBackWhereItWasLeft)
{
    WriteIni(L"General Info", L"ShowAppWindow", L"1");
    WriteIni(L"General Info", L"Position", L"40,50,260,600,0");
    Load();
    ASSERT_NE(dlgMyApp, nullptr);
    EXPECT_TRUE(dlgMyApp->IsWindowVisible());
    EXPECT_EQ(FormatPanelPosition(), L"40,50,260,600,0");
    Unload();
    EXPECT_EQ(ReadIni(L"General Info", L"ShowAppWindow"), L"1");
    EXPECT_EQ(ReadIni(L"General Info", L"Position"), L"40,50,260,600,0");

    WriteIni(L"General Info", L"ShowAppWindow", L"0");
    Load();
    EXPECT_EQ(dlgMyApp, nullptr);
}

TEST_F(AppTest, ThePanelGivesWayRoundAPick)
{
    Load();
    ASSERT_EQ(StartApp(1), 1);
    dlgMyApp->ShowWindow(SW_SHOW);
    HideDlgMain();
    EXPECT_FALSE(dlgMyApp->IsWindowVisible());
    EXPECT_EQ(pGlobDimOptions->m_iRunningCommand, 1);
    EXPECT_EQ(GetFocus(), adsw_acadMainWnd());
    ShowDlgMain();
    EXPECT_TRUE(dlgMyApp->IsWindowVisible());
    EXPECT_EQ(pGlobDimOptions->m_iRunningCommand, 0);

    // A panel that was hidden stays hidden.
    dlgMyApp->ShowWindow(SW_HIDE);
    HideDlgMain();
    ShowDlgMain();
    EXPECT_FALSE(dlgMyApp->IsWindowVisible());
}

} // namespace
