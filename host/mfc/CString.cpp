// CString: construction, access, search, extraction and modification.
#include "host/mfc/CString.h"

#include <algorithm>
#include <cwchar>
#include <ostream>

#include "host/win/CaseFold.h"
#include "host/win/wsprintf.h"

namespace {

std::size_t Clamp(int n, std::size_t hi)
{
    return n <= 0 ? 0 : std::min(static_cast<std::size_t>(n), hi);
}

bool InSet(wchar_t ch, const wchar_t* set)
{
    return set && ch != 0 && std::wcschr(set, ch) != nullptr;
}

bool IsBlank(wchar_t ch)
{
    return ch == L' ' || (ch >= L'\t' && ch <= L'\r');
}

// Lower case before upper case of the same letter; otherwise by code point.
int CompareTertiary(std::wstring_view a, std::wstring_view b)
{
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        if (a[i] == b[i])
            continue;
        const wchar_t la = svwin::ToLowerChar(a[i]);
        const wchar_t lb = svwin::ToLowerChar(b[i]);
        if (la == lb)
            return a[i] == la ? -1 : 1;
        return a[i] < b[i] ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

CString::StringTableHook& StringTable()
{
    static CString::StringTableHook hook;
    return hook;
}

} // namespace

CString::CString(const wchar_t* psz)
{
    if (psz)
        m_str = psz;
}

CString::CString(const wchar_t* pch, int nLength)
{
    if (pch && nLength > 0)
        m_str.assign(pch, static_cast<std::size_t>(nLength));
}

CString::CString(const char* pszUtf8)
{
    if (pszUtf8)
        m_str = svwin::Utf8ToWide(pszUtf8);
}

CString::CString(const char* pch, int nLength)
{
    if (pch && nLength > 0)
        m_str = svwin::Utf8ToWide(std::string_view(pch, static_cast<std::size_t>(nLength)));
}

CString::CString(wchar_t ch, int nRepeat)
{
    if (nRepeat > 0)
        m_str.assign(static_cast<std::size_t>(nRepeat), ch);
}

CString& CString::operator=(const wchar_t* psz)
{
    if (psz)
        m_str = psz;
    else
        m_str.clear();
    return *this;
}

CString& CString::operator=(const char* pszUtf8)
{
    m_str = pszUtf8 ? svwin::Utf8ToWide(pszUtf8) : std::wstring();
    return *this;
}

CString& CString::operator=(wchar_t ch)
{
    m_str.assign(1, ch);
    return *this;
}

wchar_t CString::GetAt(int iChar) const
{
    if (iChar < 0 || iChar > GetLength())
        AfxThrowInvalidArgException();
    return m_str.c_str()[iChar];
}

void CString::SetAt(int iChar, wchar_t ch)
{
    if (iChar < 0 || iChar >= GetLength())
        AfxThrowInvalidArgException();
    m_str[static_cast<std::size_t>(iChar)] = ch;
}

LPTSTR CString::GetBuffer(int nMinBufferLength)
{
    if (nMinBufferLength > GetLength())
        m_str.resize(static_cast<std::size_t>(nMinBufferLength));
    return m_str.data();
}

void CString::ReleaseBuffer(int nNewLength)
{
    if (nNewLength < 0)
        m_str.resize(wcsnlen(m_str.data(), m_str.size()));
    else
        m_str.resize(static_cast<std::size_t>(nNewLength));
}

LPTSTR CString::GetBufferSetLength(int nLength)
{
    m_str.resize(static_cast<std::size_t>(std::max(nLength, 0)));
    return m_str.data();
}

void CString::Preallocate(int nLength)
{
    if (nLength > 0)
        m_str.reserve(static_cast<std::size_t>(nLength));
}

void CString::Truncate(int nNewLength)
{
    if (nNewLength >= 0 && nNewLength < GetLength())
        m_str.resize(static_cast<std::size_t>(nNewLength));
}

CString& CString::operator+=(const wchar_t* psz)
{
    if (psz)
        m_str += psz;
    return *this;
}

CString& CString::operator+=(const char* pszUtf8)
{
    if (pszUtf8)
        m_str += svwin::Utf8ToWide(pszUtf8);
    return *this;
}

void CString::Append(const wchar_t* pch, int nLength)
{
    if (pch && nLength > 0)
        m_str.append(pch, static_cast<std::size_t>(nLength));
}

CString operator+(const CString& a, const CString& b)
{
    return CString(a.m_str + b.m_str);
}

CString operator+(const CString& a, const wchar_t* b)
{
    CString r(a);
    r += b;
    return r;
}

CString operator+(const wchar_t* a, const CString& b)
{
    CString r(a);
    r += b;
    return r;
}

CString operator+(const CString& a, wchar_t b)
{
    return CString(a.m_str + b);
}

CString operator+(wchar_t a, const CString& b)
{
    return CString(a + b.m_str);
}

bool operator==(const CString& a, const wchar_t* b)
{
    return a.m_str == (b ? b : L"");
}

std::strong_ordering operator<=>(const CString& a, const wchar_t* b)
{
    return a.m_str <=> std::wstring_view(b ? b : L"");
}

void CString::FormatRaw(const wchar_t* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

void CString::FormatV(const wchar_t* pszFormat, va_list args)
{
    m_str = FormatWideV(pszFormat, args);
}

void CString::AppendFormatRaw(const wchar_t* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    AppendFormatV(pszFormat, args);
    va_end(args);
}

void CString::AppendFormatV(const wchar_t* pszFormat, va_list args)
{
    m_str += FormatWideV(pszFormat, args);
}

int CString::Compare(const wchar_t* psz) const
{
    return svwin::CompareOrdinal(m_str, psz ? psz : L"");
}

int CString::CompareNoCase(const wchar_t* psz) const
{
    return svwin::CompareOrdinal(svwin::FoldCase(m_str), svwin::FoldCase(psz ? psz : L""));
}

int CString::CollateNoCase(const wchar_t* psz) const
{
    const std::wstring_view other = psz ? psz : L"";
    if (int c = svwin::CompareOrdinal(svwin::BaseLetters(m_str), svwin::BaseLetters(other)))
        return c;
    return svwin::CompareOrdinal(svwin::FoldCase(m_str), svwin::FoldCase(other));
}

int CString::Collate(const wchar_t* psz) const
{
    if (int c = CollateNoCase(psz))
        return c;
    return CompareTertiary(m_str, psz ? psz : L"");
}

int CString::Find(wchar_t ch, int iStart) const
{
    if (iStart < 0 || iStart >= GetLength())
        return -1;
    const auto pos = m_str.find(ch, static_cast<std::size_t>(iStart));
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(const wchar_t* pszSub, int iStart) const
{
    if (!pszSub || iStart < 0 || iStart > GetLength())
        return -1;
    const auto pos = m_str.find(pszSub, static_cast<std::size_t>(iStart));
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::FindOneOf(const wchar_t* pszCharSet) const
{
    if (!pszCharSet || !*pszCharSet)
        return -1;
    const auto pos = m_str.find_first_of(pszCharSet);
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(wchar_t ch) const
{
    const auto pos = m_str.rfind(ch);
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

CString CString::Left(int nCount) const
{
    return CString(m_str.substr(0, Clamp(nCount, m_str.size())));
}

CString CString::Mid(int iFirst) const
{
    return Mid(iFirst, GetLength());
}

CString CString::Mid(int iFirst, int nCount) const
{
    const std::size_t first = Clamp(iFirst, m_str.size());
    return CString(m_str.substr(first, Clamp(nCount, m_str.size() - first)));
}

CString CString::Right(int nCount) const
{
    const std::size_t n = Clamp(nCount, m_str.size());
    return CString(m_str.substr(m_str.size() - n));
}

CString CString::SpanIncluding(const wchar_t* pszCharSet) const
{
    std::size_t n = 0;
    while (n < m_str.size() && InSet(m_str[n], pszCharSet))
        ++n;
    return Left(static_cast<int>(n));
}

CString CString::SpanExcluding(const wchar_t* pszCharSet) const
{
    std::size_t n = 0;
    while (n < m_str.size() && !InSet(m_str[n], pszCharSet))
        ++n;
    return Left(static_cast<int>(n));
}

CString CString::Tokenize(const wchar_t* pszTokens, int& iStart) const
{
    if (iStart < 0 || iStart >= GetLength()) {
        iStart = -1;
        return CString();
    }
    if (!pszTokens || !*pszTokens) {
        CString rest = Mid(iStart);
        iStart = GetLength();
        return rest;
    }
    std::size_t from = static_cast<std::size_t>(iStart);
    while (from < m_str.size() && InSet(m_str[from], pszTokens))
        ++from;
    if (from >= m_str.size()) {
        iStart = -1;
        return CString();
    }
    std::size_t to = from;
    while (to < m_str.size() && !InSet(m_str[to], pszTokens))
        ++to;
    iStart = static_cast<int>(to) + 1;
    return CString(m_str.substr(from, to - from));
}

int CString::Replace(wchar_t chOld, wchar_t chNew)
{
    int count = 0;
    for (wchar_t& ch : m_str) {
        if (ch == chOld) {
            ch = chNew;
            ++count;
        }
    }
    return count;
}

int CString::Replace(const wchar_t* pszOld, const wchar_t* pszNew)
{
    if (!pszOld || !*pszOld)
        return 0;
    const std::wstring_view from(pszOld);
    const std::wstring_view to(pszNew ? pszNew : L"");
    std::wstring out;
    int count = 0;
    std::size_t pos = 0;
    for (;;) {
        const std::size_t hit = m_str.find(from, pos);
        if (hit == std::wstring::npos)
            break;
        out.append(m_str, pos, hit - pos);
        out += to;
        pos = hit + from.size();
        ++count;
    }
    if (count) {
        out.append(m_str, pos);
        m_str = std::move(out);
    }
    return count;
}

int CString::Remove(wchar_t ch)
{
    const auto old = m_str.size();
    std::erase(m_str, ch);
    return static_cast<int>(old - m_str.size());
}

int CString::Insert(int iIndex, wchar_t ch)
{
    m_str.insert(Clamp(iIndex, m_str.size()), 1, ch);
    return GetLength();
}

int CString::Insert(int iIndex, const wchar_t* psz)
{
    if (psz)
        m_str.insert(Clamp(iIndex, m_str.size()), psz);
    return GetLength();
}

int CString::Delete(int iIndex, int nCount)
{
    const std::size_t at = Clamp(iIndex, m_str.size());
    m_str.erase(at, Clamp(nCount, m_str.size() - at));
    return GetLength();
}

CString& CString::MakeUpper()
{
    for (wchar_t& ch : m_str)
        ch = svwin::ToUpperChar(ch);
    return *this;
}

CString& CString::MakeLower()
{
    for (wchar_t& ch : m_str)
        ch = svwin::ToLowerChar(ch);
    return *this;
}

CString& CString::MakeReverse()
{
    std::reverse(m_str.begin(), m_str.end());
    return *this;
}

CString& CString::TrimLeft()
{
    std::size_t n = 0;
    while (n < m_str.size() && IsBlank(m_str[n]))
        ++n;
    m_str.erase(0, n);
    return *this;
}

CString& CString::TrimLeft(wchar_t chTarget)
{
    const wchar_t set[2] = {chTarget, 0};
    return TrimLeft(set);
}

CString& CString::TrimLeft(const wchar_t* pszTargets)
{
    std::size_t n = 0;
    while (n < m_str.size() && InSet(m_str[n], pszTargets))
        ++n;
    m_str.erase(0, n);
    return *this;
}

CString& CString::TrimRight()
{
    std::size_t n = m_str.size();
    while (n > 0 && IsBlank(m_str[n - 1]))
        --n;
    m_str.resize(n);
    return *this;
}

CString& CString::TrimRight(wchar_t chTarget)
{
    const wchar_t set[2] = {chTarget, 0};
    return TrimRight(set);
}

CString& CString::TrimRight(const wchar_t* pszTargets)
{
    std::size_t n = m_str.size();
    while (n > 0 && InSet(m_str[n - 1], pszTargets))
        --n;
    m_str.resize(n);
    return *this;
}

CString& CString::Trim()
{
    return TrimRight().TrimLeft();
}

CString& CString::Trim(wchar_t chTarget)
{
    return TrimRight(chTarget).TrimLeft(chTarget);
}

CString& CString::Trim(const wchar_t* pszTargets)
{
    return TrimRight(pszTargets).TrimLeft(pszTargets);
}

CString CString::FromUtf8(std::string_view utf8)
{
    return CString(svwin::Utf8ToWide(utf8));
}

std::string CString::ToUtf8() const
{
    return svwin::WideToUtf8(m_str);
}

BOOL CString::LoadString(UINT nID)
{
    const StringTableHook& hook = StringTable();
    if (!hook)
        return FALSE;
    CString text;
    if (!hook(nID, text))
        return FALSE;
    *this = std::move(text);
    return TRUE;
}

CString::StringTableHook CString::SetStringTableHook(StringTableHook hook)
{
    std::swap(StringTable(), hook);
    return hook;
}

std::ostream& operator<<(std::ostream& os, const CString& s)
{
    return os << s.ToUtf8();
}

CW2A::CW2A(const wchar_t* psz)
{
    if (psz)
        m_str = svwin::WideToUtf8(psz);
}

CA2W::CA2W(const char* psz)
{
    if (psz)
        m_str = svwin::Utf8ToWide(psz);
}
