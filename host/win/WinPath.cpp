// Conversion of module paths to native ones, with case-insensitive lookup of
// existing components, and the shell path helpers.
#include "host/win/WinPath.h"

#include <dirent.h>
#include <sys/stat.h>

#include <vector>

#include "host/win/WinText.h"
#include "host/win/wsprintf.h"

namespace svwin {

namespace {

bool Exists(const std::string& native)
{
    struct stat st;
    return ::lstat(native.c_str(), &st) == 0;
}

std::string Join(const std::string& dir, const std::string& name)
{
    if (dir.empty()) return name;
    if (dir.back() == '/') return dir + name;
    return dir + '/' + name;
}

// The entry of `dir` whose name equals `name` but for case; "" if none. With
// several candidates the smallest in byte order is taken, so the choice is stable.
std::string FindNoCase(const std::string& dir, const std::string& name)
{
    DIR* d = ::opendir(dir.empty() ? "." : dir.c_str());
    if (!d) return {};
    const std::wstring wanted = Utf8ToWide(name);
    std::string best;
    while (const dirent* e = ::readdir(d)) {
        const std::string entry = e->d_name;
        if (entry.size() < wanted.size() || entry.size() > wanted.size() * 4) continue;
        if (EqualNoCase(Utf8ToWide(entry), wanted) && (best.empty() || entry < best))
            best = entry;
    }
    ::closedir(d);
    return best;
}

} // namespace

std::string NativePathLiteral(std::wstring_view path)
{
    if (path.size() >= 2 && path[1] == L':' &&
        ((path[0] >= L'A' && path[0] <= L'Z') || (path[0] >= L'a' && path[0] <= L'z')))
        path.remove_prefix(2);
    std::wstring w(path);
    for (wchar_t& ch : w)
        if (ch == L'\\') ch = L'/';
    return WideToUtf8(w);
}

std::string ResolvePathCase(const std::string& native)
{
    if (native.empty() || Exists(native)) return native;
    std::vector<std::string> parts;
    std::size_t pos = 0;
    while (pos <= native.size()) {
        std::size_t next = native.find('/', pos);
        if (next == std::string::npos) next = native.size();
        if (next > pos) parts.push_back(native.substr(pos, next - pos));
        pos = next + 1;
    }
    std::string cur = native[0] == '/' ? "/" : "";
    std::size_t i = 0;
    for (; i < parts.size(); ++i) {
        const std::string& part = parts[i];
        std::string candidate = Join(cur, part);
        if (part == "." || part == ".." || Exists(candidate)) {
            cur = std::move(candidate);
            continue;
        }
        const std::string found = FindNoCase(cur, part);
        if (found.empty()) break;
        cur = Join(cur, found);
    }
    for (; i < parts.size(); ++i) cur = Join(cur, parts[i]);
    if (native.back() == '/' && cur.back() != '/') cur += '/';
    return cur;
}

std::string NativePath(std::wstring_view path)
{
    return ResolvePathCase(NativePathLiteral(path));
}

std::string NativePathNewName(std::wstring_view path)
{
    const std::string literal = NativePathLiteral(path);
    const std::size_t slash = literal.find_last_of('/');
    if (slash == std::string::npos) return literal;
    const std::string dir = slash == 0 ? std::string("/") : ResolvePathCase(literal.substr(0, slash));
    return Join(dir, literal.substr(slash + 1));
}

std::string NativePath(const wchar_t* pszPath)
{
    return pszPath ? NativePath(std::wstring_view(pszPath)) : std::string();
}

std::wstring WidePath(std::string_view native)
{
    return Utf8ToWide(native);
}

bool WildcardMatch(std::wstring_view name, std::wstring_view pattern)
{
    // Greedy matching with one backtrack point: the last "*" seen.
    std::size_t n = 0, p = 0;
    std::size_t starP = std::wstring_view::npos, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || ToLowerChar(pattern[p]) == ToLowerChar(name[n]))) {
            ++p;
            ++n;
        } else if (starP != std::wstring_view::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == L'*') ++p;
    return p == pattern.size();
}

} // namespace svwin

LPWSTR PathFindFileNameW(LPCWSTR pszPath)
{
    if (!pszPath) return nullptr;
    LPCWSTR name = pszPath;
    for (LPCWSTR p = pszPath; *p; ++p)
        if ((svwin::IsPathSeparator(*p) || *p == L':') && p[1]) name = p + 1;
    return const_cast<LPWSTR>(name);
}

LPWSTR PathFindExtensionW(LPCWSTR pszPath)
{
    if (!pszPath) return nullptr;
    LPCWSTR dot = nullptr;
    LPCWSTR p = pszPath;
    for (; *p; ++p) {
        if (svwin::IsPathSeparator(*p) || *p == L' ') dot = nullptr;
        else if (*p == L'.') dot = p;
    }
    return const_cast<LPWSTR>(dot ? dot : p);
}

BOOL PathMatchSpecW(LPCWSTR pszFile, LPCWSTR pszPatterns)
{
    if (!pszFile || !pszPatterns) return FALSE;
    const std::wstring_view name = PathFindFileNameW(pszFile);
    std::wstring_view patterns = pszPatterns;
    while (!patterns.empty()) {
        std::size_t semi = patterns.find(L';');
        const std::wstring_view one = svwin::TrimBlanks(patterns.substr(0, semi));
        patterns = semi == std::wstring_view::npos ? std::wstring_view() : patterns.substr(semi + 1);
        if (one.empty()) continue;
        if (one == L"*.*" || svwin::WildcardMatch(name, one)) return TRUE;
        if (one.size() >= 2 && one.ends_with(L".*") && name.find(L'.') == std::wstring_view::npos &&
            svwin::WildcardMatch(name, one.substr(0, one.size() - 2)))
            return TRUE;
    }
    return FALSE;
}
