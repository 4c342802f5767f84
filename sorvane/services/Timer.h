// CTimer: a stopwatch for slow paths that writes the time taken to the trace.
#pragma once

#include <chrono>
#include <string>

class CTimer {
public:
    // Starts at once when given a name; a null name leaves it stopped.
    explicit CTimer(const wchar_t* pszName = nullptr);
    // Stops and reports a running measure.
    ~CTimer();
    CTimer(const CTimer&) = delete;
    CTimer& operator=(const CTimer&) = delete;

    // Ends any running measure, then starts a new one under this name. A null
    // name only ends; an empty one runs and reports as "???".
    void Start(const wchar_t* pszName);
    // Writes "\n  >> name: 1.234 sec. " to the trace; nothing when stopped.
    void Stop();
    bool IsRunning() const { return m_bRunning; }

private:
    std::chrono::steady_clock::time_point m_start;
    std::wstring m_strName;
    bool m_bRunning = false;
};
