// Decoding of file text and locale-independent case folding.
#include "host/win/WinText.h"

#include "host/win/Utf8.h"
#include "host/win/wsprintf.h"

namespace svwin {


namespace {

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
        out += static_cast<wchar_t>(Cp1252ToCodePoint(b));
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
