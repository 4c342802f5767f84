// CTime and CTimeSpan: seconds since 1970 with MFC's accessors and strftime
// formatting. A negative time is invalid: it formats as "Invalid DateTime",
// and its field accessors throw CInvalidArgException*.
#pragma once

#include <ctime>

#include "host/mfc/CString.h"
#include "host/win/WinTime.h"

class CTimeSpan {
public:
    CTimeSpan() = default;
    CTimeSpan(std::time_t seconds) : m_span(seconds) {}
    CTimeSpan(LONG lDays, int nHours, int nMins, int nSecs)
        : m_span(((static_cast<std::time_t>(lDays) * 24 + nHours) * 60 + nMins) * 60 + nSecs)
    {
    }

    long long GetDays() const { return m_span / 86400; }
    long long GetTotalHours() const { return m_span / 3600; }
    LONG GetHours() const { return static_cast<LONG>(GetTotalHours() - GetDays() * 24); }
    long long GetTotalMinutes() const { return m_span / 60; }
    LONG GetMinutes() const { return static_cast<LONG>(GetTotalMinutes() - GetTotalHours() * 60); }
    long long GetTotalSeconds() const { return m_span; }
    LONG GetSeconds() const { return static_cast<LONG>(m_span - GetTotalMinutes() * 60); }
    std::time_t GetTimeSpan() const { return m_span; }

    // %D days, %H hours, %M minutes, %S seconds (two digits), %% a percent sign.
    CString Format(LPCTSTR pszFormat) const;

    CTimeSpan operator+(CTimeSpan s) const { return CTimeSpan(m_span + s.m_span); }
    CTimeSpan operator-(CTimeSpan s) const { return CTimeSpan(m_span - s.m_span); }
    CTimeSpan& operator+=(CTimeSpan s) { m_span += s.m_span; return *this; }
    CTimeSpan& operator-=(CTimeSpan s) { m_span -= s.m_span; return *this; }
    auto operator<=>(const CTimeSpan&) const = default;

private:
    std::time_t m_span = 0;
};

class CTime {
public:
    CTime() = default;
    CTime(std::time_t time) : m_time(time) {}
    // Local time; nDST < 0 lets the C library decide. Fields out of range
    // give an invalid time.
    CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST = -1);
    explicit CTime(const FILETIME& ft, int nDST = -1);

    static CTime GetCurrentTime();
    static BOOL IsValidFILETIME(const FILETIME& ft);

    std::time_t GetTime() const { return m_time; }
    bool IsValid() const { return m_time >= 0; }

    // Local time fields; GetDayOfWeek is 1 for Sunday.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const;
    // Null if the time is invalid.
    std::tm* GetLocalTm(std::tm* ptm) const;
    std::tm* GetGmtTm(std::tm* ptm) const;

    // strftime conversions (%H:%M:%S, %d.%m.%Y ...); the "#" flag of the
    // original platform (%#d: no leading zero) is understood.
    CString Format(LPCTSTR pszFormat) const;
    CString FormatGmt(LPCTSTR pszFormat) const;
    CString Format(UINT nFormatID) const;

    CTimeSpan operator-(CTime t) const { return CTimeSpan(m_time - t.m_time); }
    CTime operator-(CTimeSpan s) const { return CTime(m_time - s.GetTimeSpan()); }
    CTime operator+(CTimeSpan s) const { return CTime(m_time + s.GetTimeSpan()); }
    CTime& operator+=(CTimeSpan s) { m_time += s.GetTimeSpan(); return *this; }
    CTime& operator-=(CTimeSpan s) { m_time -= s.GetTimeSpan(); return *this; }
    auto operator<=>(const CTime&) const = default;

private:
    std::tm LocalFields() const;
    std::time_t m_time = 0;
};
