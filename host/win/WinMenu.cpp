// Popup menus: the item model, look-ups by command or position, and TrackPopupMenu.
#include "host/win/WinMenu.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <set>

#include "host/win/WinWindow.h"

namespace {

struct Item {
    UINT id = 0;
    std::wstring text;
    UINT flags = 0;  // MF_CHECKED, MF_GRAYED, MF_DISABLED, MF_SEPARATOR, MF_POPUP
    HMENU sub = nullptr;
};

struct Menu {
    std::vector<Item> items;
};

std::set<HMENU>& Live()
{
    static std::set<HMENU> live;
    return live;
}

Menu* M(HMENU h)
{
    return h && Live().count(h) ? reinterpret_cast<Menu*>(h) : nullptr;
}

HMENU NewMenu()
{
    HMENU h = reinterpret_cast<HMENU>(new Menu);
    Live().insert(h);
    return h;
}

// The item by command (searching sub-menus) or by position.
Item* Find(HMENU h, UINT key, UINT flags)
{
    Menu* m = M(h);
    if (!m)
        return nullptr;
    if (flags & MF_BYPOSITION)
        return key < m->items.size() ? &m->items[key] : nullptr;
    for (Item& it : m->items) {
        if (!(it.flags & MF_POPUP) && !(it.flags & MF_SEPARATOR) && it.id == key)
            return &it;
        if (it.flags & MF_POPUP)
            if (Item* sub = Find(it.sub, key, flags))
                return sub;
    }
    return nullptr;
}

Item MakeItem(UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem)
{
    Item it;
    it.flags = uFlags & (MF_CHECKED | MF_GRAYED | MF_DISABLED | MF_SEPARATOR | MF_POPUP | MF_DEFAULT);
    if (uFlags & MF_POPUP)
        it.sub = reinterpret_cast<HMENU>(uIDNewItem);
    else if (!(uFlags & MF_SEPARATOR))
        it.id = static_cast<UINT>(uIDNewItem);
    if (lpNewItem && !(uFlags & MF_SEPARATOR))
        it.text = lpNewItem;
    return it;
}

// Which menu holds the item at key, and its index there.
bool Locate(HMENU h, UINT key, UINT flags, HMENU& owner, size_t& index)
{
    Menu* m = M(h);
    if (!m)
        return false;
    if (flags & MF_BYPOSITION) {
        if (key >= m->items.size())
            return false;
        owner = h;
        index = key;
        return true;
    }
    for (size_t i = 0; i < m->items.size(); ++i) {
        const Item& it = m->items[i];
        if (!(it.flags & (MF_POPUP | MF_SEPARATOR)) && it.id == key) {
            owner = h;
            index = i;
            return true;
        }
        if ((it.flags & MF_POPUP) && Locate(it.sub, key, flags, owner, index))
            return true;
    }
    return false;
}

svwin::IPopupMenuSink*& Sink()
{
    static svwin::IPopupMenuSink* sink = nullptr;
    return sink;
}

svwin::MenuResourceLoader& Loader()
{
    static svwin::MenuResourceLoader loader;
    return loader;
}

} // namespace

HMENU CreatePopupMenu()
{
    return NewMenu();
}

HMENU CreateMenu()
{
    return NewMenu();
}

BOOL DestroyMenu(HMENU hMenu)
{
    Menu* m = M(hMenu);
    if (!m)
        return FALSE;
    Live().erase(hMenu);
    for (Item& it : m->items)
        if (it.flags & MF_POPUP)
            DestroyMenu(it.sub);
    delete m;
    return TRUE;
}

BOOL AppendMenuW(HMENU hMenu, UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem)
{
    Menu* m = M(hMenu);
    if (!m || ((uFlags & MF_POPUP) && !M(reinterpret_cast<HMENU>(uIDNewItem))))
        return FALSE;
    m->items.push_back(MakeItem(uFlags, uIDNewItem, lpNewItem));
    return TRUE;
}

BOOL InsertMenuW(HMENU hMenu, UINT uPosition, UINT uFlags, UINT_PTR uIDNewItem, LPCWSTR lpNewItem)
{
    if (!M(hMenu) || ((uFlags & MF_POPUP) && !M(reinterpret_cast<HMENU>(uIDNewItem))))
        return FALSE;
    HMENU owner = hMenu;
    size_t index = M(hMenu)->items.size();
    if ((uFlags & MF_BYPOSITION) && uPosition == static_cast<UINT>(-1)) {
        // -1 by position appends
    } else if (!Locate(hMenu, uPosition, uFlags & MF_BYPOSITION, owner, index)) {
        if (!(uFlags & MF_BYPOSITION))
            return FALSE;
        index = M(hMenu)->items.size();
    }
    Menu* m = M(owner);
    m->items.insert(m->items.begin() + static_cast<std::ptrdiff_t>(index),
                    MakeItem(uFlags & ~MF_BYPOSITION, uIDNewItem, lpNewItem));
    return TRUE;
}

BOOL RemoveMenu(HMENU hMenu, UINT uPosition, UINT uFlags)
{
    HMENU owner = nullptr;
    size_t index = 0;
    if (!Locate(hMenu, uPosition, uFlags, owner, index))
        return FALSE;
    Menu* m = M(owner);
    m->items.erase(m->items.begin() + static_cast<std::ptrdiff_t>(index));
    return TRUE;
}

BOOL DeleteMenu(HMENU hMenu, UINT uPosition, UINT uFlags)
{
    HMENU owner = nullptr;
    size_t index = 0;
    if (!Locate(hMenu, uPosition, uFlags, owner, index))
        return FALSE;
    Menu* m = M(owner);
    const Item it = m->items[index];
    m->items.erase(m->items.begin() + static_cast<std::ptrdiff_t>(index));
    if (it.flags & MF_POPUP)
        DestroyMenu(it.sub);
    return TRUE;
}

DWORD CheckMenuItem(HMENU hMenu, UINT uIDCheckItem, UINT uCheck)
{
    Item* it = Find(hMenu, uIDCheckItem, uCheck & MF_BYPOSITION);
    if (!it)
        return static_cast<DWORD>(-1);
    const DWORD before = it->flags & MF_CHECKED;
    it->flags = (it->flags & ~MF_CHECKED) | (uCheck & MF_CHECKED);
    return before;
}

BOOL EnableMenuItem(HMENU hMenu, UINT uIDEnableItem, UINT uEnable)
{
    Item* it = Find(hMenu, uIDEnableItem, uEnable & MF_BYPOSITION);
    if (!it)
        return -1;
    const BOOL before = static_cast<BOOL>(it->flags & (MF_GRAYED | MF_DISABLED));
    it->flags = (it->flags & ~(MF_GRAYED | MF_DISABLED)) | (uEnable & (MF_GRAYED | MF_DISABLED));
    return before;
}

UINT GetMenuState(HMENU hMenu, UINT uId, UINT uFlags)
{
    const Item* it = Find(hMenu, uId, uFlags & MF_BYPOSITION);
    return it ? it->flags : static_cast<UINT>(-1);
}

int GetMenuItemCount(HMENU hMenu)
{
    const Menu* m = M(hMenu);
    return m ? static_cast<int>(m->items.size()) : -1;
}

UINT GetMenuItemID(HMENU hMenu, int nPos)
{
    const Menu* m = M(hMenu);
    if (!m || nPos < 0 || static_cast<size_t>(nPos) >= m->items.size())
        return static_cast<UINT>(-1);
    const Item& it = m->items[static_cast<size_t>(nPos)];
    return (it.flags & MF_POPUP) ? static_cast<UINT>(-1) : it.id;
}

HMENU GetSubMenu(HMENU hMenu, int nPos)
{
    const Menu* m = M(hMenu);
    if (!m || nPos < 0 || static_cast<size_t>(nPos) >= m->items.size())
        return nullptr;
    const Item& it = m->items[static_cast<size_t>(nPos)];
    return (it.flags & MF_POPUP) ? it.sub : nullptr;
}

int GetMenuStringW(HMENU hMenu, UINT uIDItem, LPWSTR lpString, int cchMax, UINT flags)
{
    const Item* it = Find(hMenu, uIDItem, flags & MF_BYPOSITION);
    if (!it)
        return 0;
    if (lpString && cchMax > 0) {
        const size_t n = std::min(it->text.size(), static_cast<size_t>(cchMax - 1));
        std::wmemcpy(lpString, it->text.c_str(), n);
        lpString[n] = L'\0';
        return static_cast<int>(n);
    }
    return static_cast<int>(it->text.size());
}

HMENU LoadMenuW(HINSTANCE hInstance, LPCWSTR lpMenuName)
{
    if (!Loader())
        return nullptr;
    if (IS_INTRESOURCE(lpMenuName))
        return Loader()(hInstance, static_cast<UINT>(reinterpret_cast<ULONG_PTR>(lpMenuName)), std::wstring());
    return Loader()(hInstance, 0, lpMenuName ? lpMenuName : L"");
}

BOOL TrackPopupMenu(HMENU hMenu, UINT uFlags, int x, int y, int, HWND hWnd, const RECT*)
{
    if (!M(hMenu))
        return FALSE;
    UINT chosen = 0;
    if (svwin::IPopupMenuSink* sink = Sink())
        chosen = sink->Track(hMenu, uFlags, x, y, hWnd);
    if (uFlags & TPM_RETURNCMD)
        return static_cast<BOOL>(chosen);
    if (chosen && !(uFlags & TPM_NONOTIFY))
        SendMessageW(hWnd, WM_COMMAND, chosen, 0);
    return chosen ? TRUE : FALSE;
}

BOOL TrackPopupMenuEx(HMENU hMenu, UINT uFlags, int x, int y, HWND hWnd, const void*)
{
    return TrackPopupMenu(hMenu, uFlags, x, y, 0, hWnd, nullptr);
}

namespace svwin {

std::vector<MenuItemInfo> MenuItems(HMENU hMenu)
{
    std::vector<MenuItemInfo> out;
    if (const Menu* m = M(hMenu))
        for (const Item& it : m->items)
            out.push_back({it.id, it.text, (it.flags & MF_CHECKED) != 0, (it.flags & (MF_GRAYED | MF_DISABLED)) != 0,
                           (it.flags & MF_SEPARATOR) != 0, it.sub});
    return out;
}

bool MenuHasCommand(HMENU hMenu, UINT id)
{
    const Item* it = Find(hMenu, id, MF_BYCOMMAND);
    return id != 0 && it && !(it->flags & (MF_GRAYED | MF_DISABLED));
}

namespace {
void Describe(HMENU h, const std::wstring& indent, std::vector<std::wstring>& out)
{
    for (const MenuItemInfo& it : MenuItems(h)) {
        if (it.separator)
            out.push_back(indent + L"----");
        else if (it.subMenu) {
            out.push_back(indent + L"> " + it.text);
            Describe(it.subMenu, indent + L"  ", out);
        } else
            out.push_back(indent + (it.checked ? L"[x] " : L"[ ] ") + std::to_wstring(it.id) + L" " + it.text +
                          (it.grayed ? L" (grayed)" : L""));
    }
}
} // namespace

std::vector<std::wstring> DescribeMenu(HMENU hMenu)
{
    std::vector<std::wstring> out;
    Describe(hMenu, L"", out);
    return out;
}

bool IsMenu(HMENU hMenu)
{
    return M(hMenu) != nullptr;
}

int LiveMenuCount()
{
    return static_cast<int>(Live().size());
}

IPopupMenuSink* SetPopupMenuSink(IPopupMenuSink* pSink)
{
    IPopupMenuSink* before = Sink();
    Sink() = pSink;
    return before;
}

MenuResourceLoader SetMenuResourceLoader(MenuResourceLoader loader)
{
    MenuResourceLoader before = std::move(Loader());
    Loader() = std::move(loader);
    return before;
}

} // namespace svwin
