// Keyword list parsing and matching.
#include "host/ed/EdKeywords.h"

#include <cwctype>

#include "host/ed/EdCore.h"
#include "host/win/CaseFold.h"

namespace eded {

namespace {

std::vector<std::wstring> Words(const std::wstring& s)
{
    std::vector<std::wstring> out;
    std::wstring cur;
    for (wchar_t c : s) {
        if (c == L' ' || c == L'\t') {
            if (!cur.empty())
                out.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!cur.empty())
        out.push_back(cur);
    return out;
}

std::wstring Capitals(const std::wstring& word)
{
    std::wstring caps;
    for (wchar_t c : word)
        if (svwin::ToUpperChar(c) == c && svwin::ToLowerChar(c) != c)
            caps += c;
    return caps.empty() ? word : caps;
}

// The shortest start of the word that may stand for it: up to its last capital letter, or
// the explicit abbreviation's length when the word starts with it.
size_t MinimalPrefix(const std::wstring& full, const std::wstring& shortForm)
{
    size_t lastCap = 0;
    for (size_t i = 0; i < full.size(); ++i)
        if (svwin::ToUpperChar(full[i]) == full[i] && svwin::ToLowerChar(full[i]) != full[i])
            lastCap = i + 1;
    if (shortForm != Capitals(full))  // an explicit abbreviation
        return svwin::FoldCase(full).compare(0, shortForm.size(), svwin::FoldCase(shortForm)) == 0 ? shortForm.size()
                                                                                                 : full.size();
    return lastCap ? lastCap : full.size();
}

bool Matches(const std::wstring& full, const std::wstring& shortForm, const std::wstring& text)
{
    if (text.empty())
        return false;
    const std::wstring f = svwin::FoldCase(full), t = svwin::FoldCase(text), s = svwin::FoldCase(shortForm);
    if (t == f || t == s)
        return true;
    return t.size() <= f.size() && t.size() >= MinimalPrefix(full, shortForm) && f.compare(0, t.size(), t) == 0;
}

} // namespace

std::vector<Keyword> parseKeywords(const std::wstring& list)
{
    std::vector<Keyword> out;
    const std::vector<std::wstring> words = Words(list);
    size_t globalAt = words.size();
    for (size_t i = 0; i < words.size(); ++i)
        if (words[i] == L"_") {
            globalAt = i;
            break;
        }
    for (size_t i = 0; i < globalAt; ++i) {
        Keyword k;
        const size_t comma = words[i].find(L',');
        if (comma != std::wstring::npos && comma > 0 && comma + 1 < words[i].size()) {
            k.local = words[i].substr(0, comma);
            k.shortForm = words[i].substr(comma + 1);
        } else {
            k.local = comma == std::wstring::npos ? words[i] : words[i].substr(0, comma == 0 ? words[i].size() : comma);
            k.shortForm = Capitals(k.local);
        }
        k.global = k.local;
        out.push_back(std::move(k));
    }
    for (size_t i = globalAt + 1, n = 0; i < words.size() && n < out.size(); ++i, ++n) {
        const size_t comma = words[i].find(L',');
        out[n].global = comma == std::wstring::npos ? words[i] : words[i].substr(0, comma);
    }
    return out;
}

int matchKeyword(const std::vector<Keyword>& keywords, const std::wstring& textIn)
{
    const std::wstring text = trim(textIn);
    if (text.size() > 1 && text[0] == L'_') {
        const std::wstring g = text.substr(1);
        for (size_t i = 0; i < keywords.size(); ++i)
            if (Matches(keywords[i].global, Capitals(keywords[i].global), g))
                return static_cast<int>(i);
        return -1;
    }
    for (size_t i = 0; i < keywords.size(); ++i)
        if (Matches(keywords[i].local, keywords[i].shortForm, text))
            return static_cast<int>(i);
    return -1;
}

} // namespace eded
