// Wide printf formatting: platform conversions translated to the C library's, then vswprintf.
#include "host/rx/AcRxFormat.h"

#include <cwchar>
#include <cwctype>
#include <vector>

namespace {

// Rewrites one format so that glibc's vswprintf reads it the way the platform does.
std::wstring translateFormat(const ACHAR* format)
{
    std::wstring out;
    for (const ACHAR* p = format; *p;) {
        if (*p != L'%') {
            out += *p++;
            continue;
        }
        out += *p++;
        if (*p == L'%') {
            out += *p++;
            continue;
        }
        // Flags, width and precision pass through unchanged.
        while (*p && std::wcschr(L"-+ #0123456789.*'", *p))
            out += *p++;
        std::wstring length;
        while (*p && std::wcschr(L"hlLqjzt", *p))
            length += *p++;
        const ACHAR conv = *p;
        if (!conv)
            break;
        ++p;
        if (conv == L's' || conv == L'c') {
            if (length.empty() || length == L"l" || length == L"w")
                out += L'l';  // wide, the platform's default in wide formats
            // "h": narrow, which is the C library's plain form
            out += conv;
        } else if (conv == L'S' || conv == L'C') {
            out += static_cast<ACHAR>(std::towlower(conv));  // narrow in a wide format
        } else {
            out += length;
            out += conv;
        }
    }
    return out;
}

}  // namespace

std::wstring acrxFormatV(const ACHAR* format, va_list args)
{
    if (!format)
        return {};
    const std::wstring translated = translateFormat(format);
    // vswprintf cannot report the needed size, so the buffer grows until it fits.
    constexpr std::size_t kLimit = 1u << 22;
    for (std::size_t size = 256; size <= kLimit; size *= 4) {
        std::vector<ACHAR> buffer(size);
        va_list copy;
        va_copy(copy, args);
        const int written = std::vswprintf(buffer.data(), size, translated.c_str(), copy);
        va_end(copy);
        if (written >= 0)
            return std::wstring(buffer.data(), static_cast<std::size_t>(written));
    }
    return format;
}

std::wstring acrxFormat(const ACHAR* format, ...)
{
    va_list args;
    va_start(args, format);
    std::wstring text = acrxFormatV(format, args);
    va_end(args);
    return text;
}
