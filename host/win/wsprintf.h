// The one formatting engine for wide text, with the Windows conventions the
// module's format strings are written in, and the Win32/CRT entry points over it.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>

#include "host/win/WinTypes.h"

// Conversions understood (Windows convention for wide functions):
//   %s %ls %ws  wide string          %S %hs       narrow (UTF-8) string
//   %c %lc %wc  wide character       %C %hc       narrow character
//   %d %i %u %x %X %o  integers      %f %F %e %E %g %G %a %A  floating point
//   %p  pointer (16 upper-case hex digits)            %%  a percent sign
// Flags - + space # 0, width and precision as numbers or '*', and the size
// prefixes h, hh, l, ll, L, I, I32, I64, z, j, t. A null string prints "(null)".
// %n is not supported: its argument is consumed and nothing is written.
// An unknown conversion is copied to the output as it stands.

// Formats without any length limit; used by CString::Format and acutPrintf.
std::wstring FormatWideV(const wchar_t* fmt, va_list args);
std::wstring FormatWide(const wchar_t* fmt, ...);

// Formatting templates (CString::Format, acutPrintf) pass each argument
// through FormatArg, so that a string object given where "%s" expects a
// pointer arrives as its text instead of as an object in the variable
// arguments. CString.h adds the overload for CString.
template <class T>
constexpr const T& FormatArg(const T& value)
{
    return value;
}
inline const wchar_t* FormatArg(const std::wstring& s) { return s.c_str(); }
inline const char* FormatArg(const std::string& s) { return s.c_str(); }

// wsprintfW writes at most WSPRINTF_MAX characters including the terminator
// (so 1,023 of text), truncating silently, and returns the characters stored.
constexpr int WSPRINTF_MAX = 1024;
int wvsprintfW(LPWSTR buf, LPCWSTR fmt, va_list args);
int wsprintfW(LPWSTR buf, LPCWSTR fmt, ...);

// CRT style. _vsnwprintf: fewer than `count` characters -> terminated, length
// returned; exactly `count` -> not terminated, count returned; more -> count
// characters stored unterminated and -1 returned.
int _vsnwprintf(wchar_t* buf, std::size_t count, const wchar_t* fmt, va_list args);
int _snwprintf(wchar_t* buf, std::size_t count, const wchar_t* fmt, ...);
// Length the output would have, without the terminator.
int _vscwprintf(const wchar_t* fmt, va_list args);
int _scwprintf(const wchar_t* fmt, ...);
// Secure form: on overflow the buffer becomes "" and -1 is returned.
int vswprintf_s(wchar_t* buf, std::size_t size, const wchar_t* fmt, va_list args);
int swprintf_s(wchar_t* buf, std::size_t size, const wchar_t* fmt, ...);
template <std::size_t N>
int swprintf_s(wchar_t (&buf)[N], const wchar_t* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    int n = vswprintf_s(buf, N, fmt, args);
    va_end(args);
    return n;
}

// TCHAR is always wide here.
#define wsprintf wsprintfW
#define wvsprintf wvsprintfW
#define _stprintf_s swprintf_s
#define _sntprintf _snwprintf
#define _vsntprintf _vsnwprintf

// Narrow text in this host is UTF-8. Invalid sequences decode to U+FFFD;
// unpaired surrogates and out-of-range code points encode as U+FFFD.
namespace svwin {
std::wstring Utf8ToWide(std::string_view text);
std::string WideToUtf8(std::wstring_view text);
} // namespace svwin
