// The pattern language of MatchString over the host's wildcard matcher.
#include "services/MatchString.h"

#include <string>
#include <string_view>
#include <vector>

#include "host/db/adsdef.h"
#include "host/ed/AcEdSelection.h"

namespace {

std::vector<std::wstring_view> Split(std::wstring_view text, wchar_t separator)
{
    std::vector<std::wstring_view> parts;
    size_t start = 0;
    for (size_t pos; (pos = text.find(separator, start)) != std::wstring_view::npos; start = pos + 1)
        parts.push_back(text.substr(start, pos - start));
    parts.push_back(text.substr(start));
    return parts;
}

std::wstring_view Trimmed(std::wstring_view text)
{
    const auto isBlank = [](wchar_t ch) { return ch == L' ' || ch == L'\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool MatchOne(const wchar_t* value, std::wstring_view pattern)
{
    bool bNegate = false;
    if (!pattern.empty() && pattern.front() == L'!') {
        bNegate = true;
        pattern = Trimmed(pattern.substr(1));
    }
    const std::wstring strPattern(pattern);
    const bool bMatch = acutWcMatch(value, strPattern.c_str()) == RTNORM;
    return bMatch != bNegate;
}

// All patterns joined by "&" match; empty ones are left out.
bool MatchAll(const wchar_t* value, std::wstring_view conjunction)
{
    bool bAny = false;
    for (std::wstring_view part : Split(conjunction, L'&')) {
        part = Trimmed(part);
        if (part.empty())
            continue;
        bAny = true;
        if (!MatchOne(value, part))
            return false;
    }
    return bAny;
}

} // namespace

int MatchString(const wchar_t* value, const wchar_t* pattern)
{
    const std::wstring_view text = Trimmed(pattern ? pattern : L"");
    if (text.empty())
        return 1;
    const wchar_t* pszValue = value ? value : L"";
    for (std::wstring_view alternative : Split(text, L'|'))
        if (MatchAll(pszValue, alternative))
            return 1;
    return 0;
}
