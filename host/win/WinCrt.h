// The C runtime's wide number conversions and bounded string functions, with
// the Microsoft behaviour the module's code expects.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/win/WinTypes.h"

using errno_t = int;

#ifndef STRUNCATE
#define STRUNCATE 80
#endif
#define _TRUNCATE ((std::size_t)-1)
#define _NLSCMPERROR 2147483647

// Number of elements of an array; does not compile for a pointer.
template <typename T, std::size_t N>
char (*SvCountofHelper(T (&)[N]))[N];
#define _countof(a) (sizeof(*SvCountofHelper(a)))

// Leading blanks are skipped, then the longest prefix that forms a number is
// read; the rest is ignored. No number gives 0. Always "." as the decimal
// sign, whatever the process locale, so "1,5" reads 1 and "2.5x" 2.5.
// Integers out of range give the nearest limit. Null gives 0.
double _wtof(const wchar_t* str);
int _wtoi(const wchar_t* str);
long _wtol(const wchar_t* str);              // limited to the 32-bit range, as LONG
long long _wtoi64(const wchar_t* str);

// Case-insensitive comparison (host/win/WinText.h folding); negative, zero or
// positive. A null argument gives _NLSCMPERROR.
int _wcsicmp(const wchar_t* a, const wchar_t* b);
int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t count);

// Digits in the radix (2..36, lower-case letters); a minus sign only for
// radix 10, other radixes show the two's complement. Returns buf.
wchar_t* _itow(int value, wchar_t* buf, int radix);
wchar_t* _ltow(long value, wchar_t* buf, int radix);
wchar_t* _i64tow(long long value, wchar_t* buf, int radix);
wchar_t* _ultow(unsigned long value, wchar_t* buf, int radix);
errno_t _itow_s(int value, wchar_t* buf, std::size_t size, int radix);

// Secure copies: 0 on success. A null argument gives EINVAL; a target too
// small gives ERANGE and an empty target. wcsncpy_s with count _TRUNCATE
// copies what fits and returns STRUNCATE when it had to cut.
errno_t wcscpy_s(wchar_t* dest, std::size_t size, const wchar_t* src);
errno_t wcsncpy_s(wchar_t* dest, std::size_t size, const wchar_t* src, std::size_t count);
errno_t wcscat_s(wchar_t* dest, std::size_t size, const wchar_t* src);

template <std::size_t N>
errno_t wcscpy_s(wchar_t (&dest)[N], const wchar_t* src) { return wcscpy_s(dest, N, src); }
template <std::size_t N>
errno_t wcsncpy_s(wchar_t (&dest)[N], const wchar_t* src, std::size_t count) { return wcsncpy_s(dest, N, src, count); }
template <std::size_t N>
errno_t wcscat_s(wchar_t (&dest)[N], const wchar_t* src) { return wcscat_s(dest, N, src); }
template <std::size_t N>
errno_t _itow_s(int value, wchar_t (&buf)[N], int radix) { return _itow_s(value, buf, N, radix); }

#define _tstof _wtof
#define _ttof _wtof
#define _ttoi _wtoi
#define _ttol _wtol
#define _tcsicmp _wcsicmp
#define _tcsnicmp _wcsnicmp
#define _itot _itow
#define _tcscpy_s wcscpy_s
#define _tcsncpy_s wcsncpy_s
#define _tcscat_s wcscat_s
