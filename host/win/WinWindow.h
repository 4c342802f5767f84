// Simulated windows: handles, focus, activation, enabling, the cursor position, key
// states and message delivery. Nothing is drawn; every call that changes window state is
// written to a call log so that tests and transcripts can see what the module asked for.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/win/WinMessages.h"

// A window's message handler; SendMessage returns its result (0 for a window without one).
using WinMessageHandler = std::function<LRESULT(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)>;

HWND SetFocus(HWND hWnd);  // returns the window that had the focus
HWND GetFocus();
HWND SetActiveWindow(HWND hWnd);  // returns the previously active window
HWND GetActiveWindow();
BOOL SetForegroundWindow(HWND hWnd);
HWND GetForegroundWindow();
// Returns nonzero when the window was disabled before the call, as Windows does.
BOOL EnableWindow(HWND hWnd, BOOL bEnable);
BOOL IsWindowEnabled(HWND hWnd);
BOOL IsWindow(HWND hWnd);

// The cursor in screen pixels. Client and screen pixels coincide: every simulated window
// sits at the screen origin.
BOOL GetCursorPos(LPPOINT lpPoint);
BOOL SetCursorPos(int x, int y);
BOOL ScreenToClient(HWND hWnd, LPPOINT lpPoint);
BOOL ClientToScreen(HWND hWnd, LPPOINT lpPoint);

// Delivered at once to the window's handler. PostMessage delivers at the next
// svwin::DispatchPostedMessages (the editor calls it before each input it reads).
LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
inline LRESULT SendMessage(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) { return SendMessageW(hWnd, Msg, wParam, lParam); }
inline BOOL PostMessage(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) { return PostMessageW(hWnd, Msg, wParam, lParam); }

// Key states as set by svwin::SetKeyDown: the high bit (negative value) when the key is
// down, the low bit toggled at each press.
SHORT GetKeyState(int nVirtKey);
SHORT GetAsyncKeyState(int vKey);

namespace svwin {

// A new window handle with a name for the log; the handler may be empty.
HWND CreateSimWindow(const std::wstring& name, WinMessageHandler handler = {});
void DestroySimWindow(HWND hWnd);
void SetSimWindowHandler(HWND hWnd, WinMessageHandler handler);
// The name given at creation, or the handle in hex for an unknown one ("(null)" for null).
std::wstring SimWindowName(HWND hWnd);

// Delivers the messages posted so far, oldest first; returns how many.
int DispatchPostedMessages();

void SetKeyDown(int vKey, bool bDown);
// "ctrl"/"control", "shift", "alt"/"menu", "esc", "enter", "space", a letter or digit, a
// decimal or 0x-hex code. Case is ignored.
bool VirtualKeyFromName(const std::wstring& name, int& vKey);
void ReleaseAllKeys();

// Every focus, activation, enabling and message call, as "SetFocus(main)" and so on.
std::vector<std::wstring> WindowCallLog();
void ClearWindowCallLog();
// Also hands each new log line to the observer (empty: none).
void SetWindowCallObserver(std::function<void(const std::wstring&)> observer);

// Forgets windows, focus, keys, posted messages and the log (for tests).
void ResetSimWindows();

} // namespace svwin
