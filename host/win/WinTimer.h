// Timers on a simulated clock. Time moves only when svwin::AdvanceSimClock is called (the
// editor advances it between inputs and when a script asks), so timer tests are exact.
#pragma once

#include "host/win/WinMessages.h"

using TIMERPROC = void (*)(HWND hWnd, UINT uMsg, UINT_PTR idEvent, DWORD dwTime);

// A timer fires every uElapse ms (at least 1) until killed. With a procedure it is called
// as proc(hWnd, WM_TIMER, id, now); without one WM_TIMER is sent to the window. Setting a
// timer again with the same window and id restarts it. A null window gets a new id.
UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc);
BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent);

namespace svwin {

// Milliseconds since the simulated clock started.
DWORD SimClockNow();
// Moves the clock on by ms and fires every timer that falls due on the way, in time
// order (a timer due several times fires several times). Returns how many fired.
int AdvanceSimClock(DWORD ms);
// The number of live timers.
int ActiveTimerCount();
// Kills every timer and sets the clock to 0 (for tests).
void ResetSimClock();

} // namespace svwin
