// CTimer: elapsed wall time of a slow path, reported through the trace.
#include "services/Timer.h"

#include "services/Trace.h"

CTimer::CTimer(const wchar_t* pszName)
{
    Start(pszName);
}

CTimer::~CTimer()
{
    Stop();
}

void CTimer::Start(const wchar_t* pszName)
{
    Stop();
    if (!pszName)
        return;
    m_strName = pszName;
    m_bRunning = true;
    m_start = std::chrono::steady_clock::now();
}

void CTimer::Stop()
{
    if (!m_bRunning)
        return;
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    if (m_strName.empty())
        TraceF(L"  >> ??? %.2f sec", seconds);
    else
        TraceF(L"\n  >> %s: %.3f sec. ", m_strName.c_str(), seconds);
    m_strName.clear();
    m_bRunning = false;
}
