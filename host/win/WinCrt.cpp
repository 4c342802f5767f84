// Number parsing and bounded string functions with Microsoft's semantics,
// independent of the process locale.
#include "host/win/WinCrt.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <climits>
#include <cstring>
#include <cwchar>
#include <string>

#include "host/win/WinText.h"

namespace {

const wchar_t* SkipBlanks(const wchar_t* p)
{
    while (svwin::IsBlank(*p)) ++p;
    return p;
}

bool IsDigit(wchar_t ch)
{
    return ch >= L'0' && ch <= L'9';
}

// The integer prefix, clamped to [lo, hi].
long long ParseInteger(const wchar_t* str, long long lo, long long hi)
{
    if (!str) return 0;
    const wchar_t* p = SkipBlanks(str);
    bool bNeg = false;
    if (*p == L'+' || *p == L'-') bNeg = *p++ == L'-';
    // Accumulate as a negative number so that the lowest value fits.
    long long v = 0;
    bool bOverflow = false;
    for (; IsDigit(*p); ++p) {
        const int d = *p - L'0';
        if (v < (LLONG_MIN + d) / 10) bOverflow = true;
        else v = v * 10 - d;
    }
    if (bOverflow) return bNeg ? lo : hi;
    if (!bNeg) {
        if (v < -hi) return hi;
        return -v;
    }
    return v < lo ? lo : v;
}

wchar_t* UnsignedToText(unsigned long long u, bool bNeg, wchar_t* buf, int radix)
{
    if (!buf) return nullptr;
    if (radix < 2 || radix > 36) {
        buf[0] = 0;
        return buf;
    }
    wchar_t tmp[72];
    int n = 0;
    do {
        const int d = static_cast<int>(u % static_cast<unsigned>(radix));
        tmp[n++] = static_cast<wchar_t>(d < 10 ? L'0' + d : L'a' + d - 10);
        u /= static_cast<unsigned>(radix);
    } while (u);
    wchar_t* out = buf;
    if (bNeg) *out++ = L'-';
    while (n) *out++ = tmp[--n];
    *out = 0;
    return buf;
}

wchar_t* SignedToText(long long v, unsigned long long asUnsigned, wchar_t* buf, int radix)
{
    if (radix == 10 && v < 0) return UnsignedToText(0ULL - static_cast<unsigned long long>(v), true, buf, radix);
    return UnsignedToText(asUnsigned, false, buf, radix);
}

} // namespace

double _wtof(const wchar_t* str)
{
    if (!str) return 0.0;
    const wchar_t* p = SkipBlanks(str);
    // Collect sign, digits, one ".", digits and an exponent that has digits.
    std::string text;
    if (*p == L'+' || *p == L'-') text += static_cast<char>(*p++);
    bool bDigits = false;
    for (; IsDigit(*p); ++p, bDigits = true) text += static_cast<char>(*p);
    if (*p == L'.') {
        text += '.';
        for (++p; IsDigit(*p); ++p, bDigits = true) text += static_cast<char>(*p);
    }
    if (!bDigits) return 0.0;
    if (*p == L'e' || *p == L'E') {
        const wchar_t* q = p + 1;
        std::string exp = "e";
        if (*q == L'+' || *q == L'-') exp += static_cast<char>(*q++);
        if (IsDigit(*q)) {
            for (; IsDigit(*q); ++q) exp += static_cast<char>(*q);
            text += exp;
        }
    }
    const char* first = text.c_str();
    if (*first == '+') ++first;
    double value = 0.0;
    const auto res = std::from_chars(first, text.c_str() + text.size(), value);
    if (res.ec == std::errc::result_out_of_range) {
        // from_chars leaves the value alone: give infinity or zero as strtod would.
        const bool bNeg = text[0] == '-';
        const std::size_t e = text.find('e');
        const bool bBig = e == std::string::npos || text[e + 1] != '-';
        value = bBig ? (bNeg ? -HUGE_VAL : HUGE_VAL) : (bNeg ? -0.0 : 0.0);
    }
    return value;
}

int _wtoi(const wchar_t* str)
{
    return static_cast<int>(ParseInteger(str, INT_MIN, INT_MAX));
}

long _wtol(const wchar_t* str)
{
    return static_cast<long>(ParseInteger(str, INT32_MIN, INT32_MAX));
}

long long _wtoi64(const wchar_t* str)
{
    return ParseInteger(str, LLONG_MIN, LLONG_MAX);
}

int _wcsicmp(const wchar_t* a, const wchar_t* b)
{
    if (!a || !b) return _NLSCMPERROR;
    return _wcsnicmp(a, b, static_cast<std::size_t>(-1));
}

int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t count)
{
    if (!a || !b) return _NLSCMPERROR;
    for (std::size_t i = 0; i < count; ++i) {
        const auto x = static_cast<long>(svwin::ToLowerChar(a[i]));
        const auto y = static_cast<long>(svwin::ToLowerChar(b[i]));
        if (x != y) return x < y ? -1 : 1;
        if (!a[i]) break;
    }
    return 0;
}

wchar_t* _itow(int value, wchar_t* buf, int radix)
{
    return SignedToText(value, static_cast<unsigned int>(value), buf, radix);
}

wchar_t* _ltow(long value, wchar_t* buf, int radix)
{
    // LONG is 32 bits on the original platform: other radixes show 32 bits.
    const auto v32 = static_cast<std::int32_t>(value);
    return SignedToText(v32, static_cast<std::uint32_t>(v32), buf, radix);
}

wchar_t* _i64tow(long long value, wchar_t* buf, int radix)
{
    return SignedToText(value, static_cast<unsigned long long>(value), buf, radix);
}

wchar_t* _ultow(unsigned long value, wchar_t* buf, int radix)
{
    return UnsignedToText(static_cast<std::uint32_t>(value), false, buf, radix);
}

errno_t _itow_s(int value, wchar_t* buf, std::size_t size, int radix)
{
    if (!buf || size == 0 || radix < 2 || radix > 36) return EINVAL;
    wchar_t tmp[40];
    _itow(value, tmp, radix);
    if (std::wcslen(tmp) >= size) {
        buf[0] = 0;
        return ERANGE;
    }
    std::wcscpy(buf, tmp);
    return 0;
}

namespace {

// Copies at most `count` characters of src; bTruncate cuts what does not fit.
errno_t CopyBounded(wchar_t* dest, std::size_t size, const wchar_t* src, std::size_t count, bool bTruncate)
{
    if (!dest || size == 0) return EINVAL;
    if (!src) {
        dest[0] = 0;
        return EINVAL;
    }
    std::size_t n = 0;
    while (n < count && src[n]) ++n;
    if (n >= size) {
        if (bTruncate) {
            std::wmemcpy(dest, src, size - 1);
            dest[size - 1] = 0;
            return STRUNCATE;
        }
        dest[0] = 0;
        return ERANGE;
    }
    std::wmemcpy(dest, src, n);
    dest[n] = 0;
    return 0;
}

} // namespace

errno_t wcscpy_s(wchar_t* dest, std::size_t size, const wchar_t* src)
{
    return CopyBounded(dest, size, src, static_cast<std::size_t>(-1), false);
}

errno_t wcsncpy_s(wchar_t* dest, std::size_t size, const wchar_t* src, std::size_t count)
{
    return CopyBounded(dest, size, src, count, count == _TRUNCATE);
}

errno_t wcscat_s(wchar_t* dest, std::size_t size, const wchar_t* src)
{
    if (!dest || size == 0) return EINVAL;
    std::size_t len = 0;
    while (len < size && dest[len]) ++len;
    if (len == size || !src) {
        // An unterminated target or a null source.
        dest[0] = 0;
        return EINVAL;
    }
    const std::size_t add = std::wcslen(src);
    if (len + add >= size) {
        dest[0] = 0;
        return ERANGE;
    }
    std::wmemcpy(dest + len, src, add + 1);
    return 0;
}
