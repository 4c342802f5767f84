// CString: the MFC string class over wchar_t, with value semantics.
// Narrow text is UTF-8 throughout; formatting follows the Windows convention
// (see host/win/wsprintf.h). Case folding is locale-independent.
#pragma once

#include <compare>
#include <concepts>
#include <cstdarg>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "host/mfc/CException.h"
#include "host/win/WinTypes.h"
#include "host/win/wsprintf.h"

class CString {
public:
    CString() = default;
    CString(const wchar_t* psz);                // null gives ""
    CString(const wchar_t* pch, int nLength);   // exactly nLength characters
    CString(const char* pszUtf8);               // null gives ""
    CString(const char* pch, int nLength);
    explicit CString(wchar_t ch, int nRepeat = 1);
    CString(const std::wstring& str) : m_str(str) {}
    CString(std::wstring&& str) : m_str(std::move(str)) {}
    explicit CString(std::wstring_view str) : m_str(str) {}

    CString& operator=(const wchar_t* psz);
    CString& operator=(const char* pszUtf8);
    CString& operator=(wchar_t ch);

    // --- access ---
    operator LPCTSTR() const { return m_str.c_str(); }
    LPCTSTR GetString() const { return m_str.c_str(); }
    const std::wstring& str() const { return m_str; }
    int GetLength() const { return static_cast<int>(m_str.size()); }
    bool IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }
    // GetAt(GetLength()) gives the terminating 0; beyond that, and for
    // negative indexes, CInvalidArgException* is thrown.
    wchar_t GetAt(int iChar) const;
    // The index must be within the text; else CInvalidArgException* is thrown.
    void SetAt(int iChar, wchar_t ch);
    template <std::integral I>
    wchar_t operator[](I iChar) const { return GetAt(static_cast<int>(iChar)); }

    // --- direct buffer access ---
    // GetBuffer(n) gives room for at least n characters plus the terminator;
    // ReleaseBuffer(-1) takes the length up to the first 0 written.
    LPTSTR GetBuffer(int nMinBufferLength);
    LPTSTR GetBuffer() { return GetBuffer(0); }
    void ReleaseBuffer(int nNewLength = -1);
    LPTSTR GetBufferSetLength(int nLength);
    void ReleaseBufferSetLength(int nNewLength) { ReleaseBuffer(nNewLength); }
    void Preallocate(int nLength);
    void Truncate(int nNewLength);

    // --- concatenation ---
    CString& operator+=(const CString& s) { m_str += s.m_str; return *this; }
    CString& operator+=(const wchar_t* psz);
    CString& operator+=(const char* pszUtf8);
    CString& operator+=(wchar_t ch) { m_str += ch; return *this; }
    void Append(const wchar_t* psz) { *this += psz; }
    void Append(const wchar_t* pch, int nLength);
    void Append(const CString& s) { m_str += s.m_str; }
    void AppendChar(wchar_t ch) { m_str += ch; }

    friend CString operator+(const CString& a, const CString& b);
    friend CString operator+(const CString& a, const wchar_t* b);
    friend CString operator+(const wchar_t* a, const CString& b);
    friend CString operator+(const CString& a, wchar_t b);
    friend CString operator+(wchar_t a, const CString& b);

    // --- formatting (Windows convention: %s is wide, %S narrow) ---
    // A CString argument may be passed for %s as it is (see FormatArg).
    template <class... Args>
    void Format(const wchar_t* pszFormat, const Args&... args)
    {
        FormatRaw(pszFormat, FormatArg(args)...);
    }
    // The format is string-table entry nFormatID; "" if there is none.
    template <class... Args>
    void Format(UINT nFormatID, const Args&... args)
    {
        CString format;
        if (format.LoadString(nFormatID))
            FormatRaw(format.GetString(), FormatArg(args)...);
        else
            Empty();
    }
    template <class... Args>
    void AppendFormat(const wchar_t* pszFormat, const Args&... args)
    {
        AppendFormatRaw(pszFormat, FormatArg(args)...);
    }
    void FormatV(const wchar_t* pszFormat, va_list args);
    void AppendFormatV(const wchar_t* pszFormat, va_list args);
    void FormatRaw(const wchar_t* pszFormat, ...);
    void AppendFormatRaw(const wchar_t* pszFormat, ...);

    // --- comparison ---
    // Compare is ordinal by code point. The NoCase forms fold case for Latin,
    // Greek and Cyrillic letters and treat "ß" as "ss". Collate orders as a
    // dictionary does: letters with diacritics sort with their base letter,
    // then by diacritic, then (Collate only) lower case before upper case.
    // Results are -1, 0 or 1.
    int Compare(const wchar_t* psz) const;
    int CompareNoCase(const wchar_t* psz) const;
    int Collate(const wchar_t* psz) const;
    int CollateNoCase(const wchar_t* psz) const;

    friend bool operator==(const CString& a, const CString& b) { return a.m_str == b.m_str; }
    friend bool operator==(const CString& a, const wchar_t* b);
    friend bool operator==(const CString& a, wchar_t b) { return a.m_str.size() == 1 && a.m_str[0] == b; }
    friend std::strong_ordering operator<=>(const CString& a, const CString& b)
    {
        return a.m_str <=> b.m_str;
    }
    friend std::strong_ordering operator<=>(const CString& a, const wchar_t* b);

    // --- search ---
    // -1 when absent or when iStart is outside the text.
    int Find(wchar_t ch, int iStart = 0) const;
    int Find(const wchar_t* pszSub, int iStart = 0) const;
    int FindOneOf(const wchar_t* pszCharSet) const;
    int ReverseFind(wchar_t ch) const;

    // --- extraction (counts and positions are clamped to the text) ---
    CString Left(int nCount) const;
    CString Mid(int iFirst) const;
    CString Mid(int iFirst, int nCount) const;
    CString Right(int nCount) const;
    CString SpanIncluding(const wchar_t* pszCharSet) const;
    CString SpanExcluding(const wchar_t* pszCharSet) const;
    // Skips delimiters at iStart, returns the token and moves iStart past the
    // delimiter that ends it. At the end: returns "" and sets iStart to -1.
    // An empty delimiter set returns the rest of the text as one token.
    CString Tokenize(const wchar_t* pszTokens, int& iStart) const;

    // --- modification ---
    int Replace(wchar_t chOld, wchar_t chNew);                 // number replaced
    int Replace(const wchar_t* pszOld, const wchar_t* pszNew); // non-overlapping, left to right
    int Remove(wchar_t ch);                                    // number removed
    int Insert(int iIndex, wchar_t ch);                        // returns the new length
    int Insert(int iIndex, const wchar_t* psz);
    int Delete(int iIndex, int nCount = 1);                    // returns the new length

    // MakeUpper leaves "ß" as it is, so the length never changes.
    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    // Without an argument, ASCII white space (space, \t \n \v \f \r) is trimmed.
    CString& Trim();
    CString& Trim(wchar_t chTarget);
    CString& Trim(const wchar_t* pszTargets);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t chTarget);
    CString& TrimLeft(const wchar_t* pszTargets);
    CString& TrimRight();
    CString& TrimRight(wchar_t chTarget);
    CString& TrimRight(const wchar_t* pszTargets);

    // --- UTF-8 (invalid input decodes to U+FFFD) ---
    static CString FromUtf8(std::string_view utf8);
    std::string ToUtf8() const;

    // --- string table ---
    // LoadString asks the host's string-table hook; FALSE (and the string
    // unchanged) if no hook is installed or the id is unknown.
    using StringTableHook = std::function<bool(UINT, CString&)>;
    BOOL LoadString(UINT nID);
    // Installs the hook and returns the previous one.
    static StringTableHook SetStringTableHook(StringTableHook hook);

private:
    std::wstring m_str;
};

inline LPCTSTR FormatArg(const CString& s) { return s.GetString(); }

// gtest and logs print CStrings as UTF-8.
std::ostream& operator<<(std::ostream& os, const CString& s);

template <>
struct std::hash<CString> {
    std::size_t operator()(const CString& s) const noexcept { return std::hash<std::wstring>()(s.str()); }
};

// Temporary conversions between wide and narrow (UTF-8) text, as ATL's
// macros are used: valid while the object lives.
class CW2A {
public:
    explicit CW2A(const wchar_t* psz);
    operator const char*() const { return m_str.c_str(); }
    const char* c_str() const { return m_str.c_str(); }

private:
    std::string m_str;
};

class CA2W {
public:
    explicit CA2W(const char* psz);
    operator const wchar_t*() const { return m_str.c_str(); }
    const wchar_t* c_str() const { return m_str.c_str(); }

private:
    std::wstring m_str;
};

using CT2A = CW2A;
using CT2CA = CW2A;
using CA2T = CA2W;
using CA2CT = CA2W;
using CT2W = CString;
using CW2T = CString;
