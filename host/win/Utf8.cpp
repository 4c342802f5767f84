// UTF-8 and Windows-1252 conversion shared by the format engine, the file
// functions and the DXF reader.
#include "host/win/Utf8.h"

namespace svwin {

namespace {

// 0x80-0x9F of Windows-1252; 0xA0-0xFF equal Latin-1.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

void AppendUtf8(char32_t cp, std::string& out)
{
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
        cp = kReplacement;
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

bool DecodeUtf8(std::string_view text, std::size_t i, char32_t& cp, std::size_t& len) noexcept
{
    const auto* s = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t n = text.size();
    const unsigned char b = s[i];
    if (b < 0x80) {
        cp = b;
        len = 1;
        return true;
    }
    int extra;
    char32_t min;
    if (b >= 0xC2 && b <= 0xDF) { extra = 1; cp = b & 0x1F; min = 0x80; }
    else if (b >= 0xE0 && b <= 0xEF) { extra = 2; cp = b & 0x0F; min = 0x800; }
    else if (b >= 0xF0 && b <= 0xF4) { extra = 3; cp = b & 0x07; min = 0x10000; }
    else {
        cp = kReplacement;
        len = 1;
        return false;
    }
    std::size_t j = i + 1;
    int got = 0;
    while (got < extra && j < n && (s[j] & 0xC0) == 0x80) {
        cp = (cp << 6) | (s[j] & 0x3F);
        ++j;
        ++got;
    }
    len = j - i;
    if (got < extra || cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        cp = kReplacement;
        return false;
    }
    return true;
}

bool IsValidUtf8(std::string_view text) noexcept
{
    char32_t cp;
    std::size_t len;
    for (std::size_t i = 0; i < text.size(); i += len)
        if (!DecodeUtf8(text, i, cp, len))
            return false;
    return true;
}

char32_t Cp1252ToCodePoint(unsigned char byte) noexcept
{
    return (byte >= 0x80 && byte < 0xA0) ? kCp1252High[byte - 0x80] : byte;
}

int HexDigitValue(char c) noexcept
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

}  // namespace svwin
