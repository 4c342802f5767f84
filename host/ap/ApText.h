// Small text helpers shared by host/ap's files: wide text to UTF-8 and back, numbers as
// commands echo them.
#pragma once

#include <string>
#include <string_view>

#include "host/win/Utf8.h"

namespace apText {

inline std::string utf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (wchar_t ch : text)
        svwin::AppendUtf8(static_cast<char32_t>(ch), out);
    return out;
}

inline std::wstring wide(std::string_view text)
{
    std::wstring out;
    std::size_t i = 0;
    while (i < text.size()) {
        char32_t cp = 0;
        std::size_t len = 1;
        if (svwin::DecodeUtf8(text, i, cp, len)) {
            out.push_back(static_cast<wchar_t>(cp));
            i += len;
        } else {
            out.push_back(static_cast<wchar_t>(static_cast<unsigned char>(text[i])));
            ++i;
        }
    }
    return out;
}

// The file name of a path ("/a/b/plan.dxf" -> "plan.dxf").
inline std::wstring baseName(const std::wstring& path)
{
    const size_t slash = path.find_last_of(L"/\\");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

} // namespace apText
