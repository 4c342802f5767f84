// CTime formatting and fields through the C library's local time.
#include "host/mfc/CTime.h"

#include <cwchar>
#include <string>
#include <vector>

namespace {

const wchar_t kInvalid[] = L"Invalid DateTime";

// Turns the original platform's "%#x" (no padding) into the C library's "%-x".
std::wstring PortableFormat(const wchar_t* fmt)
{
    std::wstring out;
    for (const wchar_t* p = fmt; *p; ++p) {
        out += *p;
        if (*p != L'%' || !p[1]) continue;
        if (p[1] == L'#' && p[2]) {
            p += 2;
            if (std::wcschr(L"dHIjmMSUwWyY", *p)) out += L'-';
            out += *p;
        } else {
            out += *++p;
        }
    }
    return out;
}

CString FormatTm(const std::tm& tm, LPCTSTR pszFormat)
{
    if (!pszFormat || !*pszFormat) return CString();
    const std::wstring fmt = PortableFormat(pszFormat);
    for (std::size_t size = 128; size <= 65536; size *= 4) {
        std::vector<wchar_t> buf(size);
        const std::size_t n = std::wcsftime(buf.data(), size, fmt.c_str(), &tm);
        if (n > 0) return CString(buf.data(), static_cast<int>(n));
    }
    return CString();
}

} // namespace

CString CTimeSpan::Format(LPCTSTR pszFormat) const
{
    CString out;
    if (!pszFormat) return out;
    for (const wchar_t* p = pszFormat; *p; ++p) {
        if (*p != L'%' || !p[1]) {
            out += *p;
            continue;
        }
        switch (*++p) {
        case L'D': out.AppendFormat(L"%lld", GetDays()); break;
        case L'H': out.AppendFormat(L"%02ld", static_cast<long>(GetHours())); break;
        case L'M': out.AppendFormat(L"%02ld", static_cast<long>(GetMinutes())); break;
        case L'S': out.AppendFormat(L"%02ld", static_cast<long>(GetSeconds())); break;
        default: out += *p; break;
        }
    }
    return out;
}

CTime::CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST)
{
    const bool bInRange = nYear >= 1900 && nMonth >= 1 && nMonth <= 12 && nDay >= 1 && nDay <= 31 && nHour >= 0 &&
                          nHour <= 23 && nMin >= 0 && nMin <= 59 && nSec >= 0 && nSec <= 59;
    if (!bInRange) {
        m_time = -1;
        return;
    }
    std::tm tm{};
    tm.tm_year = nYear - 1900;
    tm.tm_mon = nMonth - 1;
    tm.tm_mday = nDay;
    tm.tm_hour = nHour;
    tm.tm_min = nMin;
    tm.tm_sec = nSec;
    tm.tm_isdst = nDST;
    m_time = std::mktime(&tm);
}

CTime::CTime(const FILETIME& ft, int) : m_time(svwin::UnixFromFileTime(ft)) {}

CTime CTime::GetCurrentTime()
{
    return CTime(std::time(nullptr));
}

BOOL CTime::IsValidFILETIME(const FILETIME& ft)
{
    return svwin::UnixFromFileTime(ft) >= 0;
}

std::tm* CTime::GetLocalTm(std::tm* ptm) const
{
    if (!ptm || m_time < 0) return nullptr;
    return ::localtime_r(&m_time, ptm);
}

std::tm* CTime::GetGmtTm(std::tm* ptm) const
{
    if (!ptm || m_time < 0) return nullptr;
    return ::gmtime_r(&m_time, ptm);
}

std::tm CTime::LocalFields() const
{
    std::tm tm{};
    if (!GetLocalTm(&tm)) AfxThrowInvalidArgException();
    return tm;
}

int CTime::GetYear() const { return LocalFields().tm_year + 1900; }
int CTime::GetMonth() const { return LocalFields().tm_mon + 1; }
int CTime::GetDay() const { return LocalFields().tm_mday; }
int CTime::GetHour() const { return LocalFields().tm_hour; }
int CTime::GetMinute() const { return LocalFields().tm_min; }
int CTime::GetSecond() const { return LocalFields().tm_sec; }
int CTime::GetDayOfWeek() const { return LocalFields().tm_wday + 1; }

CString CTime::Format(LPCTSTR pszFormat) const
{
    std::tm tm{};
    if (!GetLocalTm(&tm)) return CString(kInvalid);
    return FormatTm(tm, pszFormat);
}

CString CTime::FormatGmt(LPCTSTR pszFormat) const
{
    std::tm tm{};
    if (!GetGmtTm(&tm)) return CString(kInvalid);
    return FormatTm(tm, pszFormat);
}

CString CTime::Format(UINT nFormatID) const
{
    CString fmt;
    if (!fmt.LoadString(nFormatID)) return CString();
    return Format(fmt);
}
