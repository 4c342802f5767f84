// Translation of the text control codes into shown characters.
#include "host/gi/GiTextCodes.h"

#include <cwchar>

namespace {

int hexValue(wchar_t c)
{
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    if (c >= L'a' && c <= L'f')
        return c - L'a' + 10;
    if (c >= L'A' && c <= L'F')
        return c - L'A' + 10;
    return -1;
}

}  // namespace

std::u32string giShownText(const ACHAR* str, int len, bool raw)
{
    std::u32string out;
    if (str == nullptr)
        return out;
    std::size_t n = std::wcslen(str);
    if (len >= 0 && static_cast<std::size_t>(len) < n)
        n = static_cast<std::size_t>(len);
    out.reserve(n);
    for (std::size_t i = 0; i < n; ++i) {
        const wchar_t c = str[i];
        if (!raw && c == L'%' && i + 2 < n && str[i + 1] == L'%') {
            const wchar_t code = str[i + 2];
            switch (code) {
            case L'd': case L'D': out += U'\u00B0'; i += 2; continue;
            case L'c': case L'C': out += U'\u2300'; i += 2; continue;
            case L'p': case L'P': out += U'\u00B1'; i += 2; continue;
            case L'%': out += U'%'; i += 2; continue;
            case L'u': case L'U': case L'o': case L'O': i += 2; continue;
            default: break;
            }
            if (code >= L'0' && code <= L'9') {
                unsigned value = 0;
                std::size_t j = i + 2;
                for (; j < n && j < i + 5 && str[j] >= L'0' && str[j] <= L'9'; ++j)
                    value = value * 10 + static_cast<unsigned>(str[j] - L'0');
                out += static_cast<char32_t>(value);
                i = j - 1;
                continue;
            }
        }
        if (!raw && c == L'\\' && i + 6 < n && (str[i + 1] == L'U' || str[i + 1] == L'u') &&
            str[i + 2] == L'+') {
            int value = 0;
            bool ok = true;
            for (std::size_t k = 3; k < 7; ++k) {
                const int h = hexValue(str[i + k]);
                ok = ok && h >= 0;
                value = value * 16 + h;
            }
            if (ok) {
                out += static_cast<char32_t>(value);
                i += 6;
                continue;
            }
        }
        out += static_cast<char32_t>(c);
    }
    return out;
}
