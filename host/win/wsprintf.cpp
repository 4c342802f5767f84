// The wide formatting engine: walks the format once, takes each argument by
// the Windows meaning of its conversion and formats numbers through the C
// library one conversion at a time, so strings never pass through the locale.
#include "host/win/wsprintf.h"

#include "host/win/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>

namespace {

enum class Size { None, Char, Short, Long, LongLong, SizeT, IntMax, PtrDiff, LongDouble, Wide };

struct Field {
    std::string flags;  // subset of "-+ #0"
    int width = 0;
    int precision = -1;  // -1: none
    Size size = Size::None;
    wchar_t conv = 0;

    bool LeftAlign() const { return flags.find('-') != std::string::npos; }
    bool ZeroPad() const { return flags.find('0') != std::string::npos && !LeftAlign(); }
};

void Pad(std::wstring& out, std::wstring_view text, const Field& field)
{
    const std::size_t width = static_cast<std::size_t>(field.width);
    const std::size_t fill = width > text.size() ? width - text.size() : 0;
    if (field.LeftAlign()) {
        out += text;
        out.append(fill, L' ');
    } else {
        out.append(fill, field.ZeroPad() ? L'0' : L' ');
        out += text;
    }
}

// Formats one numeric conversion with the C library's narrow printf.
template <typename T>
void AppendNumber(std::wstring& out, const Field& field, const char* length, char conv, T value)
{
    std::string fmt = "%" + field.flags;
    if (field.width > 0)
        fmt += std::to_string(field.width);
    if (field.precision >= 0)
        fmt += "." + std::to_string(field.precision);
    fmt += length;
    fmt += conv;
    char small[64];
    int n = std::snprintf(small, sizeof small, fmt.c_str(), value);
    if (n < 0)
        return;
    if (static_cast<std::size_t>(n) < sizeof small) {
        out.append(small, small + n);  // ASCII: widening byte by byte is exact
        return;
    }
    std::string big(static_cast<std::size_t>(n) + 1, '\0');
    std::snprintf(big.data(), big.size(), fmt.c_str(), value);
    out.append(big.begin(), big.begin() + n);
}

void AppendSigned(std::wstring& out, const Field& field, char conv, va_list& ap)
{
    switch (field.size) {
    case Size::Char: AppendNumber(out, field, "hh", conv, static_cast<signed char>(va_arg(ap, int))); break;
    case Size::Short: AppendNumber(out, field, "h", conv, static_cast<short>(va_arg(ap, int))); break;
    case Size::Long: AppendNumber(out, field, "l", conv, va_arg(ap, long)); break;
    case Size::LongLong: AppendNumber(out, field, "ll", conv, va_arg(ap, long long)); break;
    case Size::SizeT:
    case Size::PtrDiff: AppendNumber(out, field, "t", conv, va_arg(ap, std::ptrdiff_t)); break;
    case Size::IntMax: AppendNumber(out, field, "j", conv, va_arg(ap, std::intmax_t)); break;
    default: AppendNumber(out, field, "", conv, va_arg(ap, int)); break;
    }
}

void AppendUnsigned(std::wstring& out, const Field& field, char conv, va_list& ap)
{
    switch (field.size) {
    case Size::Char: AppendNumber(out, field, "hh", conv, static_cast<unsigned char>(va_arg(ap, unsigned))); break;
    case Size::Short: AppendNumber(out, field, "h", conv, static_cast<unsigned short>(va_arg(ap, unsigned))); break;
    case Size::Long: AppendNumber(out, field, "l", conv, va_arg(ap, unsigned long)); break;
    case Size::LongLong: AppendNumber(out, field, "ll", conv, va_arg(ap, unsigned long long)); break;
    case Size::SizeT:
    case Size::PtrDiff: AppendNumber(out, field, "z", conv, va_arg(ap, std::size_t)); break;
    case Size::IntMax: AppendNumber(out, field, "j", conv, va_arg(ap, std::uintmax_t)); break;
    default: AppendNumber(out, field, "", conv, va_arg(ap, unsigned)); break;
    }
}

void AppendString(std::wstring& out, const Field& field, bool narrow, va_list& ap)
{
    std::wstring decoded;
    std::wstring_view text;
    if (narrow) {
        const char* s = va_arg(ap, const char*);
        if (!s)
            text = L"(null)";
        else {
            std::string_view bytes = field.precision >= 0
                ? std::string_view(s, strnlen(s, static_cast<std::size_t>(field.precision)))
                : std::string_view(s);
            decoded = svwin::Utf8ToWide(bytes);
            text = decoded;
        }
    } else {
        const wchar_t* s = va_arg(ap, const wchar_t*);
        if (!s)
            text = L"(null)";
        else if (field.precision >= 0)
            text = std::wstring_view(s, wcsnlen(s, static_cast<std::size_t>(field.precision)));
        else
            text = s;
    }
    if (field.precision >= 0 && text.size() > static_cast<std::size_t>(field.precision))
        text = text.substr(0, static_cast<std::size_t>(field.precision));
    Pad(out, text, field);
}

void AppendChar(std::wstring& out, const Field& field, bool narrow, va_list& ap)
{
    int value = va_arg(ap, int);
    wchar_t ch = narrow ? static_cast<wchar_t>(static_cast<unsigned char>(value)) : static_cast<wchar_t>(value);
    Pad(out, std::wstring_view(&ch, 1), field);
}

void AppendPointer(std::wstring& out, const Field& field, va_list& ap)
{
    const void* p = va_arg(ap, const void*);
    wchar_t digits[17];
    auto v = reinterpret_cast<std::uintptr_t>(p);
    for (int i = 15; i >= 0; --i, v >>= 4)
        digits[i] = L"0123456789ABCDEF"[v & 0xF];
    digits[16] = 0;
    Pad(out, std::wstring_view(digits, 16), field);
}

// Reads the size prefix at fmt; returns the characters it took.
int ReadSize(const wchar_t* fmt, Size& size)
{
    switch (fmt[0]) {
    case L'h':
        if (fmt[1] == L'h') { size = Size::Char; return 2; }
        size = Size::Short; return 1;
    case L'l':
        if (fmt[1] == L'l') { size = Size::LongLong; return 2; }
        size = Size::Long; return 1;
    case L'L': size = Size::LongDouble; return 1;
    case L'w': size = Size::Wide; return 1;
    case L'z': size = Size::SizeT; return 1;
    case L'j': size = Size::IntMax; return 1;
    case L't': size = Size::PtrDiff; return 1;
    case L'I':
        if (fmt[1] == L'6' && fmt[2] == L'4') { size = Size::LongLong; return 3; }
        if (fmt[1] == L'3' && fmt[2] == L'2') { size = Size::None; return 3; }
        size = Size::PtrDiff; return 1;
    default: return 0;
    }
}

// Parses and renders one conversion starting after '%'. Returns the number of
// format characters consumed, or 0 if the conversion is unknown.
std::size_t RenderOne(std::wstring& out, const wchar_t* p, va_list& ap)
{
    const wchar_t* start = p;
    Field field;
    while (*p && std::wcschr(L"-+ #0", *p)) {
        if (field.flags.find(static_cast<char>(*p)) == std::string::npos)
            field.flags += static_cast<char>(*p);
        ++p;
    }
    if (*p == L'*') {
        field.width = va_arg(ap, int);
        if (field.width < 0) {  // a negative width means left alignment
            field.flags += '-';
            field.width = -field.width;
        }
        ++p;
    } else {
        while (*p >= L'0' && *p <= L'9')
            field.width = std::min(field.width * 10 + (*p++ - L'0'), 1 << 20);
    }
    if (*p == L'.') {
        ++p;
        field.precision = 0;
        if (*p == L'*') {
            field.precision = va_arg(ap, int);
            if (field.precision < 0)
                field.precision = -1;
            ++p;
        } else {
            while (*p >= L'0' && *p <= L'9')
                field.precision = std::min(field.precision * 10 + (*p++ - L'0'), 1 << 20);
        }
    }
    p += ReadSize(p, field.size);
    field.conv = *p;
    switch (field.conv) {
    case L'd':
    case L'i': AppendSigned(out, field, static_cast<char>(field.conv), ap); break;
    case L'u':
    case L'x':
    case L'X':
    case L'o': AppendUnsigned(out, field, static_cast<char>(field.conv), ap); break;
    case L'f': case L'F': case L'e': case L'E':
    case L'g': case L'G': case L'a': case L'A':
        if (field.size == Size::LongDouble)
            AppendNumber(out, field, "L", static_cast<char>(field.conv), va_arg(ap, long double));
        else
            AppendNumber(out, field, "", static_cast<char>(field.conv), va_arg(ap, double));
        break;
    case L's': AppendString(out, field, field.size == Size::Short, ap); break;
    case L'S': AppendString(out, field, field.size != Size::Long && field.size != Size::Wide, ap); break;
    case L'c': AppendChar(out, field, field.size == Size::Short, ap); break;
    case L'C': AppendChar(out, field, field.size != Size::Long && field.size != Size::Wide, ap); break;
    case L'p': AppendPointer(out, field, ap); break;
    case L'n': (void)va_arg(ap, void*); break;
    case L'%': out += L'%'; break;
    default: return 0;
    }
    return static_cast<std::size_t>(p - start) + 1;
}

} // namespace

std::wstring FormatWideV(const wchar_t* fmt, va_list args)
{
    std::wstring out;
    if (!fmt)
        return out;
    va_list ap;
    va_copy(ap, args);
    const wchar_t* p = fmt;
    while (*p) {
        const wchar_t* pct = std::wcschr(p, L'%');
        if (!pct) {
            out += p;
            break;
        }
        out.append(p, pct);
        std::size_t used = RenderOne(out, pct + 1, ap);
        if (used == 0) {  // unknown: copy the '%' and carry on after it
            out += L'%';
            p = pct + 1;
        } else {
            p = pct + 1 + used;
        }
    }
    va_end(ap);
    return out;
}

std::wstring FormatWide(const wchar_t* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    std::wstring s = FormatWideV(fmt, args);
    va_end(args);
    return s;
}

int wvsprintfW(LPWSTR buf, LPCWSTR fmt, va_list args)
{
    if (!buf)
        return 0;
    std::wstring s = FormatWideV(fmt, args);
    const std::size_t n = std::min<std::size_t>(s.size(), WSPRINTF_MAX - 1);
    std::wmemcpy(buf, s.data(), n);
    buf[n] = 0;
    return static_cast<int>(n);
}

int wsprintfW(LPWSTR buf, LPCWSTR fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    int n = wvsprintfW(buf, fmt, args);
    va_end(args);
    return n;
}

int _vsnwprintf(wchar_t* buf, std::size_t count, const wchar_t* fmt, va_list args)
{
    std::wstring s = FormatWideV(fmt, args);
    if (!buf)
        return count == 0 ? static_cast<int>(s.size()) : -1;
    if (s.size() < count) {
        std::wmemcpy(buf, s.data(), s.size());
        buf[s.size()] = 0;
        return static_cast<int>(s.size());
    }
    std::wmemcpy(buf, s.data(), count);
    return s.size() == count ? static_cast<int>(count) : -1;
}

int _snwprintf(wchar_t* buf, std::size_t count, const wchar_t* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    int n = _vsnwprintf(buf, count, fmt, args);
    va_end(args);
    return n;
}

int _vscwprintf(const wchar_t* fmt, va_list args)
{
    return static_cast<int>(FormatWideV(fmt, args).size());
}

int _scwprintf(const wchar_t* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    int n = _vscwprintf(fmt, args);
    va_end(args);
    return n;
}

int vswprintf_s(wchar_t* buf, std::size_t size, const wchar_t* fmt, va_list args)
{
    if (!buf || size == 0)
        return -1;
    std::wstring s = FormatWideV(fmt, args);
    if (s.size() >= size) {
        buf[0] = 0;
        return -1;
    }
    std::wmemcpy(buf, s.data(), s.size());
    buf[s.size()] = 0;
    return static_cast<int>(s.size());
}

int swprintf_s(wchar_t* buf, std::size_t size, const wchar_t* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    int n = vswprintf_s(buf, size, fmt, args);
    va_end(args);
    return n;
}

namespace svwin {

std::wstring Utf8ToWide(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    char32_t cp;
    std::size_t len;
    for (std::size_t i = 0; i < text.size(); i += len) {
        DecodeUtf8(text, i, cp, len);
        out += static_cast<wchar_t>(cp);
    }
    return out;
}

std::string WideToUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (wchar_t wc : text)
        AppendUtf8(static_cast<char32_t>(wc), out);
    return out;
}

} // namespace svwin
