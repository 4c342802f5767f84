// Menus: a small model of popup menus (items, ids, check marks, sub-menus) and
// TrackPopupMenu, which hands the menu to a replaceable sink. The editor's sink answers
// from the script; without one the menu is dismissed and recorded.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/win/WinMessages.h"

using HMENU = struct HMENU__*;

#define MF_INSERT 0x00000000L
#define MF_CHANGE 0x00000080L
#define MF_APPEND 0x00000100L
#define MF_DELETE 0x00000200L
#define MF_REMOVE 0x00001000L
#define MF_BYCOMMAND 0x00000000L
#define MF_BYPOSITION 0x00000400L
#define MF_SEPARATOR 0x00000800L
#define MF_ENABLED 0x00000000L
#define MF_GRAYED 0x00000001L
#define MF_DISABLED 0x00000002L
#define MF_UNCHECKED 0x00000000L
#define MF_CHECKED 0x00000008L
#define MF_STRING 0x00000000L
#define MF_POPUP 0x00000010L
#define MF_DEFAULT 0x00001000L

#define TPM_LEFTBUTTON 0x0000L
#define TPM_RIGHTBUTTON 0x0002L
#define TPM_LEFTALIGN 0x0000L
#define TPM_CENTERALIGN 0x0004L
#define TPM_RIGHTALIGN 0x0008L
#define TPM_TOPALIGN 0x0000L
#define TPM_VCENTERALIGN 0x0010L
#define TPM_BOTTOMALIGN 0x0020L
#define TPM_NONOTIFY 0x0080L
#define TPM_RETURNCMD 0x0100L

#define MAKEINTRESOURCEW(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))
#define MAKEINTRESOURCE(i) MAKEINTRESOURCEW(i)
#define IS_INTRESOURCE(r) ((((ULONG_PTR)(r)) >> 16) == 0)
using ULONG_PTR = std::uintptr_t;

HMENU CreatePopupMenu();
HMENU CreateMenu();
// Destroys the menu and its sub-menus; FALSE for an unknown handle.
BOOL DestroyMenu(HMENU hMenu);
// uIDNewItem is the command id, or the sub-menu's HMENU with MF_POPUP.
BOOL AppendMenuW(HMENU hMenu, UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem);
BOOL InsertMenuW(HMENU hMenu, UINT uPosition, UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem);
BOOL DeleteMenu(HMENU hMenu, UINT uPosition, UINT uFlags);  // destroys a sub-menu too
BOOL RemoveMenu(HMENU hMenu, UINT uPosition, UINT uFlags);  // keeps a sub-menu alive
// The previous check state (MF_CHECKED or MF_UNCHECKED), or (DWORD)-1 when not found. By
// command, sub-menus are searched too.
DWORD CheckMenuItem(HMENU hMenu, UINT uIDCheckItem, UINT uCheck);
// The previous state (MF_GRAYED | MF_DISABLED bits), or -1 when not found.
BOOL EnableMenuItem(HMENU hMenu, UINT uIDEnableItem, UINT uEnable);
// The item's flags (MF_CHECKED, MF_GRAYED, MF_POPUP, MF_SEPARATOR ...), or (UINT)-1.
UINT GetMenuState(HMENU hMenu, UINT uId, UINT uFlags);
int GetMenuItemCount(HMENU hMenu);  // -1 for an unknown menu
// The command id at the position; (UINT)-1 for a sub-menu or a bad position, 0 for a
// separator.
UINT GetMenuItemID(HMENU hMenu, int nPos);
HMENU GetSubMenu(HMENU hMenu, int nPos);
// Copies the item's text; returns its length (0 when not found).
int GetMenuStringW(HMENU hMenu, UINT uIDItem, LPWSTR lpString, int cchMax, UINT flags);
// Through the resource hook below; null (and nothing recorded) without one.
HMENU LoadMenuW(HINSTANCE hInstance, LPCWSTR lpMenuName);
inline HMENU LoadMenu(HINSTANCE hInstance, LPCWSTR lpMenuName) { return LoadMenuW(hInstance, lpMenuName); }
inline BOOL AppendMenu(HMENU hMenu, UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem) { return AppendMenuW(hMenu, uFlags, uIDNewItem, lpNewItem); }
inline BOOL InsertMenu(HMENU hMenu, UINT uPosition, UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem) { return InsertMenuW(hMenu, uPosition, uFlags, uIDNewItem, lpNewItem); }

// With TPM_RETURNCMD: the chosen command id, 0 when dismissed. Without it: the choice is
// sent to hWnd as WM_COMMAND and the result is nonzero when an item was chosen.
BOOL TrackPopupMenu(HMENU hMenu, UINT uFlags, int x, int y, int nReserved, HWND hWnd, const RECT* prcRect);
BOOL TrackPopupMenuEx(HMENU hMenu, UINT uFlags, int x, int y, HWND hWnd, const void* lptpm);

namespace svwin {

// One item as the sink sees it.
struct MenuItemInfo {
    UINT id = 0;           // 0 for separators and sub-menus
    std::wstring text;     // with '&' as written
    bool checked = false;
    bool grayed = false;   // MF_GRAYED or MF_DISABLED
    bool separator = false;
    HMENU subMenu = nullptr;
};
std::vector<MenuItemInfo> MenuItems(HMENU hMenu);
// True when the id is a selectable (not grayed, not separator) command of the menu or
// one of its sub-menus.
bool MenuHasCommand(HMENU hMenu, UINT id);
// The menu as lines, sub-menus indented by two blanks: "[x] 32822 Text" for a checked item,
// "[ ] ..." otherwise, "(grayed)" appended for a disabled item, "----" for a separator,
// "> Text" for a sub-menu.
std::vector<std::wstring> DescribeMenu(HMENU hMenu);
bool IsMenu(HMENU hMenu);
int LiveMenuCount();

// Answers TrackPopupMenu: the chosen id or 0 to dismiss.
class IPopupMenuSink {
public:
    virtual ~IPopupMenuSink() = default;
    virtual UINT Track(HMENU hMenu, UINT uFlags, int x, int y, HWND hWnd) = 0;
};
// Installs a sink (not owned), returns the previous one; null: menus are dismissed.
IPopupMenuSink* SetPopupMenuSink(IPopupMenuSink* pSink);

// Makes the menu of a resource id; installed by the resource layer.
using MenuResourceLoader = std::function<HMENU(HINSTANCE hInstance, UINT uId, const std::wstring& strName)>;
MenuResourceLoader SetMenuResourceLoader(MenuResourceLoader loader);

} // namespace svwin
