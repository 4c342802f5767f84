// The simulated Windows side the editor builds on: the menu model, timers on the clock,
// focus and message delivery; and the keyword parser every prompt uses.
#include <gtest/gtest.h>

#include "host/ed/EdKeywords.h"
#include "host/win/WinMenu.h"
#include "host/win/WinTimer.h"
#include "host/win/WinWindow.h"

namespace {

TEST(EdMenuModelTest, ItemsChecksAndSubMenus)
{
    HMENU top = CreateMenu();
    HMENU sub = CreatePopupMenu();
    AppendMenuW(sub, MF_STRING, 101, L"Eins");
    AppendMenuW(sub, MF_STRING, 103, L"Drei");
    InsertMenuW(sub, 103, MF_BYCOMMAND | MF_STRING, 102, L"Zwei");  // before 103
    AppendMenuW(top, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), L"Datei");
    AppendMenuW(top, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(top, MF_STRING, 200, L"Hilfe");

    EXPECT_EQ(GetMenuItemCount(top), 3);
    EXPECT_EQ(GetSubMenu(top, 0), sub);
    EXPECT_EQ(GetMenuItemID(top, 0), static_cast<UINT>(-1));  // a sub-menu
    EXPECT_EQ(GetMenuItemID(top, 1), 0u);                      // a separator
    EXPECT_EQ(GetMenuItemID(sub, 1), 102u);
    EXPECT_EQ(CheckMenuItem(top, 102, MF_CHECKED), static_cast<DWORD>(MF_UNCHECKED));  // found in the sub-menu
    EXPECT_EQ(CheckMenuItem(top, 102, MF_UNCHECKED), static_cast<DWORD>(MF_CHECKED));
    EXPECT_EQ(CheckMenuItem(top, 999, MF_CHECKED), static_cast<DWORD>(-1));
    CheckMenuItem(sub, 0, MF_BYPOSITION | MF_CHECKED);
    EXPECT_EQ(EnableMenuItem(top, 200, MF_GRAYED), 0);
    EXPECT_FALSE(svwin::MenuHasCommand(top, 200));
    EXPECT_TRUE(svwin::MenuHasCommand(top, 103));
    wchar_t text[16];
    EXPECT_EQ(GetMenuStringW(top, 101, text, 16, MF_BYCOMMAND), 4);
    EXPECT_STREQ(text, L"Eins");
    EXPECT_EQ(svwin::DescribeMenu(top), (std::vector<std::wstring>{L"> Datei", L"  [x] 101 Eins", L"  [ ] 102 Zwei",
                                                                  L"  [ ] 103 Drei", L"----", L"[ ] 200 Hilfe (grayed)"}));
    EXPECT_TRUE(DeleteMenu(top, 0, MF_BYPOSITION));  // destroys the sub-menu too
    EXPECT_FALSE(svwin::IsMenu(sub));
    EXPECT_TRUE(DestroyMenu(top));
    EXPECT_FALSE(DestroyMenu(top));
    EXPECT_EQ(TrackPopupMenu(top, TPM_RETURNCMD, 0, 0, 0, nullptr, nullptr), 0);
}

TEST(EdMenuModelTest, LoadMenuGoesThroughTheResourceHook)
{
    EXPECT_EQ(LoadMenuW(nullptr, MAKEINTRESOURCEW(130)), nullptr);
    UINT asked = 0;
    svwin::MenuResourceLoader before = svwin::SetMenuResourceLoader([&](HINSTANCE, UINT id, const std::wstring&) {
        asked = id;
        HMENU m = CreateMenu();
        HMENU p = CreatePopupMenu();
        AppendMenuW(p, MF_STRING, 32822, L"X");
        AppendMenuW(m, MF_POPUP, reinterpret_cast<UINT_PTR>(p), L"");
        return m;
    });
    HMENU m = LoadMenuW(nullptr, MAKEINTRESOURCEW(130));
    EXPECT_EQ(asked, 130u);
    EXPECT_EQ(GetMenuItemID(GetSubMenu(m, 0), 0), 32822u);
    DestroyMenu(m);
    svwin::SetMenuResourceLoader(before);
}

std::vector<std::pair<UINT_PTR, DWORD>> g_fired;

void Record(HWND hwnd, UINT, UINT_PTR id, DWORD now)
{
    g_fired.emplace_back(id, now);
    if (id == 2)
        KillTimer(hwnd, id);  // one-shot by killing itself
}

TEST(EdTimerTest, FireInTimeOrderAndStopWhenKilled)
{
    svwin::ResetSimClock();
    g_fired.clear();
    HWND w = svwin::CreateSimWindow(L"w");
    SetTimer(w, 1, 30, Record);
    SetTimer(w, 2, 20, Record);
    EXPECT_EQ(svwin::AdvanceSimClock(65), 3);  // 2@20, 1@30, 1@60
    EXPECT_EQ(g_fired, (std::vector<std::pair<UINT_PTR, DWORD>>{{2, 20}, {1, 30}, {1, 60}}));
    EXPECT_EQ(svwin::ActiveTimerCount(), 1);
    SetTimer(w, 1, 100, Record);  // restarts from now
    EXPECT_EQ(svwin::AdvanceSimClock(99), 0);
    EXPECT_TRUE(KillTimer(w, 1));
    EXPECT_FALSE(KillTimer(w, 1));
    EXPECT_EQ(svwin::SimClockNow(), 164u);
    svwin::DestroySimWindow(w);
}

TEST(EdTimerTest, WithoutProcedureTheWindowGetsWmTimer)
{
    svwin::ResetSimClock();
    std::vector<WPARAM> got;
    HWND w = svwin::CreateSimWindow(L"w", [&](HWND, UINT msg, WPARAM wp, LPARAM) {
        if (msg == WM_TIMER)
            got.push_back(wp);
        return LRESULT(0);
    });
    SetTimer(w, 9, 10, nullptr);
    svwin::AdvanceSimClock(25);
    EXPECT_EQ(got, (std::vector<WPARAM>{9, 9}));
    KillTimer(w, 9);
    svwin::DestroySimWindow(w);
}

TEST(EdWindowStateTest, FocusIsRecordedAndPostedMessagesWait)
{
    svwin::ClearWindowCallLog();
    HWND a = svwin::CreateSimWindow(L"a");
    int delivered = 0;
    HWND b = svwin::CreateSimWindow(L"b", [&](HWND, UINT, WPARAM, LPARAM) { return LRESULT(++delivered); });
    SetFocus(a);
    EXPECT_EQ(SetFocus(b), a);
    EXPECT_EQ(EnableWindow(a, FALSE), FALSE);
    EXPECT_EQ(EnableWindow(a, TRUE), TRUE);  // it was disabled
    EXPECT_TRUE(PostMessageW(b, WM_USER, 0, 0));
    EXPECT_EQ(delivered, 0);
    EXPECT_EQ(svwin::DispatchPostedMessages(), 1);
    EXPECT_EQ(delivered, 1);
    const std::vector<std::wstring> log = svwin::WindowCallLog();
    ASSERT_GE(log.size(), 4u);
    EXPECT_EQ(log[0], L"SetFocus(a)");
    EXPECT_EQ(log[2], L"EnableWindow(a, FALSE)");
    svwin::DestroySimWindow(a);
    svwin::DestroySimWindow(b);
}

TEST(EdKeywordTest, ParseAndMatchTable)
{
    const auto kws = eded::parseKeywords(L"Entfernen Remove eXit Lagepunkt,L _ Delete Remove Exit Position");
    ASSERT_EQ(kws.size(), 4u);
    EXPECT_EQ(kws[0].shortForm, L"E");
    EXPECT_EQ(kws[2].shortForm, L"X");
    EXPECT_EQ(kws[3].shortForm, L"L");
    EXPECT_EQ(kws[0].global, L"Delete");
    struct Row {
        const wchar_t* typed;
        int index;
    };
    const Row rows[] = {
        {L"E", 0},  {L"entfernen", 0}, {L"entf", 0},  {L"R", 1},      {L"x", 2},  {L"EXIT", 2},
        {L"ex", 2}, {L"L", 3},         {L"lage", 3},  {L"_delete", 0}, {L"_P", 3}, {L"Q", -1},
        {L"", -1},  {L"Entfernenx", -1}, {L"_Entfernen", -1},
    };
    for (const Row& r : rows)
        EXPECT_EQ(eded::matchKeyword(kws, r.typed), r.index) << "typed \"" << r.typed << "\"";
}

} // namespace
