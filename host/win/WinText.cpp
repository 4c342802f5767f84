// Decoding of file text and locale-independent case folding.
#include "host/win/WinText.h"

#include "host/win/wsprintf.h"

namespace svwin {

bool IsValidUtf8(std::string_view bytes)
{
    const auto* s = reinterpret_cast<const unsigned char*>(bytes.data());
    const std::size_t n = bytes.size();
    std::size_t i = 0;
    while (i < n) {
        const unsigned char b = s[i];
        if (b < 0x80) {
            ++i;
            continue;
        }
        int extra;
        unsigned char lo = 0x80;
        unsigned char hi = 0xBF;
        if (b >= 0xC2 && b <= 0xDF) extra = 1;
        else if (b == 0xE0) { extra = 2; lo = 0xA0; }
        else if (b >= 0xE1 && b <= 0xEC) extra = 2;
        else if (b == 0xED) { extra = 2; hi = 0x9F; }       // no surrogates
        else if (b >= 0xEE && b <= 0xEF) extra = 2;
        else if (b == 0xF0) { extra = 3; lo = 0x90; }
        else if (b >= 0xF1 && b <= 0xF3) extra = 3;
        else if (b == 0xF4) { extra = 3; hi = 0x8F; }
        else return false;
        if (i + extra >= n) return false;
        if (s[i + 1] < lo || s[i + 1] > hi) return false;
        for (int k = 2; k <= extra; ++k)
            if ((s[i + k] & 0xC0) != 0x80) return false;
        i += extra + 1;
    }
    return true;
}

namespace {
// 0x80..0x9F of Windows-1252; the unassigned bytes map to themselves.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::wstring Utf16ToWide(std::string_view bytes, bool bBigEndian)
{
    std::wstring out;
    out.reserve(bytes.size() / 2);
    const auto* s = reinterpret_cast<const unsigned char*>(bytes.data());
    const std::size_t n = bytes.size() / 2;
    auto unit = [&](std::size_t k) -> char32_t {
        return bBigEndian ? (char32_t(s[2 * k]) << 8) | s[2 * k + 1] : (char32_t(s[2 * k + 1]) << 8) | s[2 * k];
    };
    for (std::size_t k = 0; k < n; ++k) {
        char32_t u = unit(k);
        if (u >= 0xD800 && u <= 0xDBFF && k + 1 < n) {
            const char32_t v = unit(k + 1);
            if (v >= 0xDC00 && v <= 0xDFFF) {
                out += static_cast<wchar_t>(0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00));
                ++k;
                continue;
            }
        }
        if (u >= 0xD800 && u <= 0xDFFF) u = 0xFFFD;
        out += static_cast<wchar_t>(u);
    }
    return out;
}
} // namespace

std::wstring Cp1252ToWide(std::string_view bytes)
{
    std::wstring out;
    out.reserve(bytes.size());
    for (char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        out += (b >= 0x80 && b <= 0x9F) ? static_cast<wchar_t>(kCp1252High[b - 0x80]) : static_cast<wchar_t>(b);
    }
    return out;
}

std::wstring DecodeFileText(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return Utf8ToWide(bytes.substr(3));
    if (bytes.starts_with("\xFF\xFE"))
        return Utf16ToWide(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF"))
        return Utf16ToWide(bytes.substr(2), true);
    if (IsValidUtf8(bytes))
        return Utf8ToWide(bytes);
    return Cp1252ToWide(bytes);
}

int CompareNoCase(std::wstring_view a, std::wstring_view b)
{
    const std::size_t n = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < n; ++i) {
        const auto x = static_cast<char32_t>(ToLowerChar(a[i]));
        const auto y = static_cast<char32_t>(ToLowerChar(b[i]));
        if (x != y) return x < y ? -1 : 1;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

std::wstring_view TrimBlanks(std::wstring_view text)
{
    std::size_t b = 0;
    std::size_t e = text.size();
    while (b < e && IsBlank(text[b])) ++b;
    while (e > b && IsBlank(text[e - 1])) --e;
    return text.substr(b, e - b);
}

} // namespace svwin
