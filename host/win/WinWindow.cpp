// Simulated windows: handles, focus and activation, key states, message delivery, call log.
#include "host/win/WinWindow.h"

#include <cstdio>
#include <cwchar>
#include <deque>
#include <map>

#include "host/win/CaseFold.h"

namespace {

struct SimWindow {
    std::wstring name;
    WinMessageHandler handler;
    bool enabled = true;
};

struct Posted {
    HWND hWnd;
    UINT msg;
    WPARAM wParam;
    LPARAM lParam;
};

struct WindowState {
    std::map<HWND, SimWindow> windows;
    std::uintptr_t next = 0x1000;
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND foreground = nullptr;
    POINT cursor;
    std::map<int, SHORT> keys;
    std::deque<Posted> posted;
    std::vector<std::wstring> log;
    std::function<void(const std::wstring&)> observer;
};

WindowState& W()
{
    static WindowState s;
    return s;
}

void Log(const std::wstring& line)
{
    WindowState& w = W();
    if (w.log.size() >= 10000)
        w.log.erase(w.log.begin(), w.log.begin() + 5000);
    w.log.push_back(line);
    if (w.observer)
        w.observer(line);
}

std::wstring Name(HWND h)
{
    return svwin::SimWindowName(h);
}

} // namespace

HWND SetFocus(HWND hWnd)
{
    const HWND before = W().focus;
    W().focus = hWnd;
    Log(L"SetFocus(" + Name(hWnd) + L")");
    return before;
}

HWND GetFocus()
{
    return W().focus;
}

HWND SetActiveWindow(HWND hWnd)
{
    const HWND before = W().active;
    W().active = hWnd;
    Log(L"SetActiveWindow(" + Name(hWnd) + L")");
    return before;
}

HWND GetActiveWindow()
{
    return W().active;
}

BOOL SetForegroundWindow(HWND hWnd)
{
    W().foreground = hWnd;
    Log(L"SetForegroundWindow(" + Name(hWnd) + L")");
    return hWnd ? TRUE : FALSE;
}

HWND GetForegroundWindow()
{
    return W().foreground;
}

BOOL EnableWindow(HWND hWnd, BOOL bEnable)
{
    Log(std::wstring(L"EnableWindow(") + Name(hWnd) + (bEnable ? L", TRUE)" : L", FALSE)"));
    auto it = W().windows.find(hWnd);
    if (it == W().windows.end())
        return FALSE;
    const bool wasDisabled = !it->second.enabled;
    it->second.enabled = bEnable != FALSE;
    return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND hWnd)
{
    auto it = W().windows.find(hWnd);
    return it != W().windows.end() && it->second.enabled ? TRUE : FALSE;
}

BOOL IsWindow(HWND hWnd)
{
    return W().windows.count(hWnd) ? TRUE : FALSE;
}

BOOL GetCursorPos(LPPOINT lpPoint)
{
    if (!lpPoint)
        return FALSE;
    *lpPoint = W().cursor;
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    W().cursor.x = x;
    W().cursor.y = y;
    return TRUE;
}

BOOL ScreenToClient(HWND, LPPOINT lpPoint)
{
    return lpPoint ? TRUE : FALSE;
}

BOOL ClientToScreen(HWND, LPPOINT lpPoint)
{
    return lpPoint ? TRUE : FALSE;
}

LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    wchar_t buf[96];
    std::swprintf(buf, 96, L", 0x%04X, %llu, 0x%llX)", Msg, static_cast<unsigned long long>(wParam),
                  static_cast<unsigned long long>(static_cast<std::uintptr_t>(lParam)));
    Log(L"SendMessage(" + Name(hWnd) + buf);
    auto it = W().windows.find(hWnd);
    if (it == W().windows.end() || !it->second.handler)
        return 0;
    WinMessageHandler handler = it->second.handler;  // the handler may replace itself
    return handler(hWnd, Msg, wParam, lParam);
}

BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    if (!W().windows.count(hWnd))
        return FALSE;
    W().posted.push_back({hWnd, Msg, wParam, lParam});
    return TRUE;
}

SHORT GetKeyState(int nVirtKey)
{
    auto it = W().keys.find(nVirtKey);
    return it == W().keys.end() ? SHORT(0) : it->second;
}

SHORT GetAsyncKeyState(int vKey)
{
    return (GetKeyState(vKey) & 0x8000) ? SHORT(0x8000) : SHORT(0);
}

namespace svwin {

HWND CreateSimWindow(const std::wstring& name, WinMessageHandler handler)
{
    WindowState& w = W();
    const HWND h = reinterpret_cast<HWND>(w.next);
    w.next += 0x10;
    w.windows[h] = SimWindow{name, std::move(handler), true};
    return h;
}

void DestroySimWindow(HWND hWnd)
{
    WindowState& w = W();
    w.windows.erase(hWnd);
    if (w.focus == hWnd)
        w.focus = nullptr;
    if (w.active == hWnd)
        w.active = nullptr;
}

void SetSimWindowHandler(HWND hWnd, WinMessageHandler handler)
{
    auto it = W().windows.find(hWnd);
    if (it != W().windows.end())
        it->second.handler = std::move(handler);
}

std::wstring SimWindowName(HWND hWnd)
{
    if (!hWnd)
        return L"(null)";
    auto it = W().windows.find(hWnd);
    if (it != W().windows.end())
        return it->second.name;
    wchar_t buf[32];
    std::swprintf(buf, 32, L"%llX", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(hWnd)));
    return buf;
}

int DispatchPostedMessages()
{
    int n = 0;
    // Handlers may post again; those wait for the next call so this always ends.
    std::deque<Posted> batch;
    batch.swap(W().posted);
    for (const Posted& p : batch) {
        SendMessageW(p.hWnd, p.msg, p.wParam, p.lParam);
        ++n;
    }
    return n;
}

void SetKeyDown(int vKey, bool bDown)
{
    SHORT& s = W().keys[vKey];
    const SHORT toggle = s & 1;
    if (bDown)
        s = static_cast<SHORT>(0x8000 | (toggle ^ 1));
    else
        s = toggle;
    Log(std::wstring(L"Key(") + std::to_wstring(vKey) + (bDown ? L", down)" : L", up)"));
}

bool VirtualKeyFromName(const std::wstring& nameIn, int& vKey)
{
    const std::wstring name = FoldCase(nameIn);
    static const std::map<std::wstring, int> names = {
        {L"ctrl", 0x11}, {L"control", 0x11}, {L"shift", 0x10}, {L"alt", 0x12}, {L"menu", 0x12},
        {L"esc", 0x1B},  {L"escape", 0x1B},  {L"enter", 0x0D}, {L"return", 0x0D}, {L"space", 0x20},
        {L"tab", 0x09},  {L"lbutton", 0x01}, {L"rbutton", 0x02},
    };
    auto it = names.find(name);
    if (it != names.end()) {
        vKey = it->second;
        return true;
    }
    if (name.size() == 1 && ((name[0] >= L'a' && name[0] <= L'z') || (name[0] >= L'0' && name[0] <= L'9'))) {
        vKey = static_cast<int>(ToUpperChar(name[0]));
        return true;
    }
    wchar_t* end = nullptr;
    const long v = std::wcstol(name.c_str(), &end, 0);
    if (!name.empty() && end && *end == L'\0' && v > 0 && v < 256) {
        vKey = static_cast<int>(v);
        return true;
    }
    return false;
}

void ReleaseAllKeys()
{
    W().keys.clear();
}

std::vector<std::wstring> WindowCallLog()
{
    return W().log;
}

void ClearWindowCallLog()
{
    W().log.clear();
}

void SetWindowCallObserver(std::function<void(const std::wstring&)> observer)
{
    W().observer = std::move(observer);
}

void ResetSimWindows()
{
    WindowState& w = W();
    w.windows.clear();
    w.focus = w.active = w.foreground = nullptr;
    w.cursor = POINT();
    w.keys.clear();
    w.posted.clear();
    w.log.clear();
}

} // namespace svwin
