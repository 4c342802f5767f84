// acutWcMatch: wildcard patterns with alternatives, classes, negation and escapes.
#include "host/ed/AcEdSelection.h"

#include <string>
#include <vector>

#include "host/win/CaseFold.h"

namespace {

// Splits at commas outside classes and not escaped.
std::vector<std::wstring> Alternatives(const std::wstring& pattern)
{
    std::vector<std::wstring> out;
    std::wstring cur;
    bool inClass = false;
    for (size_t i = 0; i < pattern.size(); ++i) {
        const wchar_t c = pattern[i];
        if (c == L'`' && i + 1 < pattern.size()) {
            cur += c;
            cur += pattern[++i];
            continue;
        }
        if (c == L'[')
            inClass = true;
        else if (c == L']')
            inClass = false;
        if (c == L',' && !inClass) {
            out.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    out.push_back(cur);
    return out;
}

wchar_t Fold(wchar_t c)
{
    return svwin::ToLowerChar(c);
}

bool IsLetter(wchar_t c)
{
    return svwin::ToLowerChar(c) != svwin::ToUpperChar(c);
}

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

// Matches a class starting at p[i] == '['; sets next to the index after ']'. A class
// without its ']' is taken as a literal '['.
bool ClassMatch(const std::wstring& p, size_t i, wchar_t c, size_t& next, bool& valid)
{
    size_t j = i + 1;
    bool negate = false;
    if (j < p.size() && p[j] == L'~') {
        negate = true;
        ++j;
    }
    bool hit = false;
    bool firstItem = true;
    for (; j < p.size(); ++j) {
        if (p[j] == L']' && !firstItem)
            break;
        firstItem = false;
        wchar_t lo = p[j];
        if (lo == L'`' && j + 1 < p.size())
            lo = p[++j];
        wchar_t hi = lo;
        if (j + 2 < p.size() && p[j + 1] == L'-' && p[j + 2] != L']') {
            hi = p[j + 2];
            j += 2;
        }
        const wchar_t fc = Fold(c);
        if ((fc >= Fold(lo) && fc <= Fold(hi)) || (c >= lo && c <= hi))
            hit = true;
    }
    valid = j < p.size();
    next = j + 1;
    return negate ? !hit : hit;
}

bool MatchFrom(const std::wstring& p, size_t pi, const std::wstring& s, size_t si)
{
    while (pi < p.size()) {
        const wchar_t pc = p[pi];
        if (pc == L'*') {
            while (pi < p.size() && p[pi] == L'*')
                ++pi;
            if (pi == p.size())
                return true;
            for (size_t k = si; k <= s.size(); ++k)
                if (MatchFrom(p, pi, s, k))
                    return true;
            return false;
        }
        if (si >= s.size())
            return false;
        const wchar_t c = s[si];
        switch (pc) {
        case L'?':
            break;
        case L'#':
            if (!IsDigit(c))
                return false;
            break;
        case L'@':
            if (!IsLetter(c))
                return false;
            break;
        case L'.':
            if (IsLetter(c) || IsDigit(c))
                return false;
            break;
        case L'[': {
            size_t next = 0;
            bool valid = false;
            const bool hit = ClassMatch(p, pi, c, next, valid);
            if (!valid) {  // a lone '[' is itself
                if (c != L'[')
                    return false;
                break;
            }
            if (!hit)
                return false;
            pi = next;
            ++si;
            continue;
        }
        case L'`':
            if (pi + 1 < p.size()) {
                ++pi;
                if (Fold(p[pi]) != Fold(c))
                    return false;
                break;
            }
            [[fallthrough]];
        default:
            if (Fold(pc) != Fold(c))
                return false;
        }
        ++pi;
        ++si;
    }
    return si == s.size();
}

} // namespace

int acutWcMatch(const ACHAR* string, const ACHAR* pattern)
{
    if (!string || !pattern)
        return RTERROR;
    const std::wstring s = string;
    for (const std::wstring& alt : Alternatives(pattern)) {
        if (!alt.empty() && alt[0] == L'~') {
            if (!MatchFrom(alt, 1, s, 0))
                return RTNORM;
        } else if (MatchFrom(alt, 0, s, 0)) {
            return RTNORM;
        }
    }
    return RTERROR;
}
