// Timers on the simulated clock.
#include "host/win/WinTimer.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "host/win/WinWindow.h"

namespace {

struct Timer {
    HWND hWnd;
    UINT_PTR id;
    DWORD period;
    std::uint64_t due;
    TIMERPROC proc;
    std::uint64_t serial;  // to keep firing order stable
};

struct Clock {
    std::uint64_t now = 0;
    std::vector<Timer> timers;
    UINT_PTR nextId = 1;
    std::uint64_t serial = 0;
};

Clock& C()
{
    static Clock c;
    return c;
}

} // namespace

UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc)
{
    Clock& c = C();
    if (!hWnd)
        nIDEvent = 0x8000 + c.nextId++;
    const DWORD period = uElapse == 0 ? 1 : uElapse;
    for (Timer& t : c.timers)
        if (t.hWnd == hWnd && t.id == nIDEvent) {
            t.period = period;
            t.due = c.now + period;
            t.proc = lpTimerFunc;
            return nIDEvent;
        }
    c.timers.push_back({hWnd, nIDEvent, period, c.now + period, lpTimerFunc, c.serial++});
    return hWnd ? (nIDEvent ? nIDEvent : 1) : nIDEvent;
}

BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent)
{
    Clock& c = C();
    const auto it = std::find_if(c.timers.begin(), c.timers.end(),
                                 [&](const Timer& t) { return t.hWnd == hWnd && t.id == uIDEvent; });
    if (it == c.timers.end())
        return FALSE;
    c.timers.erase(it);
    return TRUE;
}

namespace svwin {

DWORD SimClockNow()
{
    return static_cast<DWORD>(C().now);
}

int AdvanceSimClock(DWORD ms)
{
    Clock& c = C();
    const std::uint64_t end = c.now + ms;
    int fired = 0;
    for (;;) {
        // The earliest due timer within the step; procedures may add or kill timers.
        const Timer* next = nullptr;
        for (const Timer& t : c.timers)
            if (t.due <= end && (!next || t.due < next->due || (t.due == next->due && t.serial < next->serial)))
                next = &t;
        if (!next)
            break;
        c.now = std::max(c.now, next->due);
        const Timer fire = *next;
        for (Timer& t : c.timers)
            if (t.hWnd == fire.hWnd && t.id == fire.id)
                t.due = c.now + t.period;
        ++fired;
        if (fire.proc)
            fire.proc(fire.hWnd, WM_TIMER, fire.id, static_cast<DWORD>(c.now));
        else
            SendMessageW(fire.hWnd, WM_TIMER, fire.id, 0);
    }
    c.now = std::max(c.now, end);  // a procedure may have moved it further
    return fired;
}

int ActiveTimerCount()
{
    return static_cast<int>(C().timers.size());
}

void ResetSimClock()
{
    C() = Clock();
}

} // namespace svwin
