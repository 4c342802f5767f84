// The profile functions: a small cache of parsed files in front of
// IniDocument, and atomic rewrites for every change.
#include "host/win/WinIni.h"

#include <sys/stat.h>

#include <cerrno>
#include <ctime>
#include <cwctype>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/win/IniDocument.h"
#include "host/win/WinFileIo.h"
#include "host/win/WinPath.h"
#include "host/win/WinText.h"
#include "host/win/wsprintf.h"

namespace {

// One parsed file and what identified it on disk when it was read.
struct CachedFile {
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    struct timespec mtime {};
    std::string bytes;
    std::shared_ptr<const IniDocument> doc;
    unsigned long long lastUse = 0;
};

constexpr std::size_t kMaxCachedFiles = 16;
// File times move in steps of a clock tick: a file changed within this many
// seconds of its time stamp may change again without the stamp moving, so
// its contents are compared as well.
constexpr std::time_t kRacySeconds = 2;

std::mutex g_cacheMutex;
std::map<std::string, CachedFile> g_cache;
unsigned long long g_useCounter = 0;

bool SameIdentity(const CachedFile& c, const struct stat& st)
{
    return c.dev == st.st_dev && c.ino == st.st_ino && c.size == st.st_size && c.mtime.tv_sec == st.st_mtim.tv_sec &&
           c.mtime.tv_nsec == st.st_mtim.tv_nsec;
}

void Remember(const std::string& native, const struct stat& st, std::string bytes, std::shared_ptr<const IniDocument> doc)
{
    if (g_cache.size() >= kMaxCachedFiles && !g_cache.count(native)) {
        auto oldest = g_cache.begin();
        for (auto it = g_cache.begin(); it != g_cache.end(); ++it)
            if (it->second.lastUse < oldest->second.lastUse) oldest = it;
        g_cache.erase(oldest);
    }
    CachedFile& c = g_cache[native];
    c.dev = st.st_dev;
    c.ino = st.st_ino;
    c.size = st.st_size;
    c.mtime = st.st_mtim;
    c.bytes = std::move(bytes);
    c.doc = std::move(doc);
    c.lastUse = ++g_useCounter;
}

// The parsed file, or null if it does not exist or cannot be read.
// Call with g_cacheMutex held.
std::shared_ptr<const IniDocument> LoadLocked(const std::string& native)
{
    struct stat st;
    if (native.empty() || ::stat(native.c_str(), &st) != 0 || S_ISDIR(st.st_mode)) {
        g_cache.erase(native);
        return nullptr;
    }
    auto it = g_cache.find(native);
    const bool bRacy = std::time(nullptr) - st.st_mtim.tv_sec < kRacySeconds;
    if (it != g_cache.end() && SameIdentity(it->second, st) && !bRacy) {
        it->second.lastUse = ++g_useCounter;
        return it->second.doc;
    }
    std::string bytes;
    if (!svwin::ReadFileBytes(native, bytes)) {
        g_cache.erase(native);
        return nullptr;
    }
    if (it != g_cache.end() && it->second.bytes == bytes) {
        it->second.lastUse = ++g_useCounter;
        return it->second.doc;
    }
    auto doc = std::make_shared<const IniDocument>(IniDocument::Parse(svwin::DecodeFileText(bytes)));
    Remember(native, st, std::move(bytes), doc);
    return doc;
}

std::shared_ptr<const IniDocument> Load(LPCWSTR lpFileName)
{
    const std::string native = svwin::NativePath(lpFileName);
    std::lock_guard<std::mutex> lock(g_cacheMutex);
    auto doc = LoadLocked(native);
    if (!doc) SetLastError(ERROR_FILE_NOT_FOUND);
    return doc;
}

// Applies a change to the file and writes it if anything changed. A change
// that finds no file starts from an empty one only if bCreate.
BOOL Modify(LPCWSTR lpFileName, bool bCreate, const std::function<bool(IniDocument&)>& change)
{
    if (!lpFileName || !*lpFileName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string native = svwin::NativePath(lpFileName);
    std::lock_guard<std::mutex> lock(g_cacheMutex);
    auto current = LoadLocked(native);
    if (!current && !bCreate) return TRUE;
    IniDocument doc = current ? *current : IniDocument();
    if (!change(doc)) return TRUE;
    std::string bytes = svwin::WideToUtf8(doc.Serialize());
    if (!svwin::WriteFileAtomic(native, bytes)) {
        g_cache.erase(native);
        return svwin::FailFromErrno();
    }
    struct stat st;
    if (::stat(native.c_str(), &st) == 0)
        Remember(native, st, std::move(bytes), std::make_shared<const IniDocument>(std::move(doc)));
    else
        g_cache.erase(native);
    return TRUE;
}

DWORD CopyText(std::wstring_view text, LPWSTR buf, DWORD nSize)
{
    const std::size_t n = text.size() < nSize - 1 ? text.size() : nSize - 1;
    text.copy(buf, n);
    buf[n] = 0;
    return static_cast<DWORD>(n);
}

// A 0-separated list ending in an extra 0. If it does not fit, the list is
// cut, ends in two 0s, and nSize - 2 is returned.
DWORD CopyList(const std::vector<std::wstring>& items, LPWSTR buf, DWORD nSize)
{
    if (nSize < 2) {
        buf[0] = 0;
        return 0;
    }
    std::size_t used = 0;
    std::size_t room = nSize - 1;   // one place stays for the final 0
    for (const std::wstring& item : items) {
        const std::size_t need = item.size() + 1;
        if (need > room) {
            const std::size_t part = room > 0 ? room - 1 : 0;
            item.copy(buf + used, part);
            used += part;
            buf[used] = 0;
            buf[used + 1] = 0;
            return nSize - 2;
        }
        item.copy(buf + used, item.size());
        used += item.size();
        buf[used++] = 0;
        room -= need;
    }
    buf[used] = 0;
    if (used == 0) buf[1] = 0;   // an empty list still reads as one
    return static_cast<DWORD>(used);
}

std::wstring_view Unquote(std::wstring_view v)
{
    if (v.size() >= 2 && (v.front() == L'"' || v.front() == L'\'') && v.back() == v.front())
        return v.substr(1, v.size() - 2);
    return v;
}

} // namespace

DWORD GetPrivateProfileStringW(LPCWSTR lpAppName, LPCWSTR lpKeyName, LPCWSTR lpDefault,
                               LPWSTR lpReturnedString, DWORD nSize, LPCWSTR lpFileName)
{
    if (!lpReturnedString || nSize == 0) return 0;
    auto doc = lpFileName ? Load(lpFileName) : nullptr;
    if (!lpAppName) return CopyList(doc ? doc->SectionNames() : std::vector<std::wstring>(), lpReturnedString, nSize);
    if (!lpKeyName) return CopyList(doc ? doc->KeyNames(lpAppName) : std::vector<std::wstring>(), lpReturnedString, nSize);
    if (doc) {
        if (const std::wstring* value = doc->FindValue(lpAppName, lpKeyName))
            return CopyText(Unquote(*value), lpReturnedString, nSize);
    }
    std::wstring_view def = lpDefault ? lpDefault : L"";
    while (!def.empty() && (def.back() == L' ' || def.back() == L'\t')) def.remove_suffix(1);
    return CopyText(def, lpReturnedString, nSize);
}

UINT GetPrivateProfileIntW(LPCWSTR lpAppName, LPCWSTR lpKeyName, INT nDefault, LPCWSTR lpFileName)
{
    if (!lpAppName || !lpKeyName) return static_cast<UINT>(nDefault);
    auto doc = lpFileName ? Load(lpFileName) : nullptr;
    const std::wstring* value = doc ? doc->FindValue(lpAppName, lpKeyName) : nullptr;
    if (!value) return static_cast<UINT>(nDefault);
    std::wstring_view v = svwin::TrimBlanks(Unquote(*value));
    bool bNeg = false;
    if (!v.empty() && (v[0] == L'+' || v[0] == L'-')) {
        bNeg = v[0] == L'-';
        v.remove_prefix(1);
    }
    unsigned base = 10;
    if (v.size() > 2 && v[0] == L'0' && (v[1] == L'x' || v[1] == L'X') && std::iswxdigit(v[2])) {
        base = 16;
        v.remove_prefix(2);
    }
    // Wraps like the platform's conversion does on overflow.
    UINT result = 0;
    std::size_t digits = 0;
    for (wchar_t ch : v) {
        unsigned d;
        if (ch >= L'0' && ch <= L'9') d = static_cast<unsigned>(ch - L'0');
        else if (base == 16 && ch >= L'a' && ch <= L'f') d = static_cast<unsigned>(ch - L'a' + 10);
        else if (base == 16 && ch >= L'A' && ch <= L'F') d = static_cast<unsigned>(ch - L'A' + 10);
        else break;
        result = result * base + d;
        ++digits;
    }
    if (digits == 0) return static_cast<UINT>(nDefault);
    return bNeg ? 0U - result : result;
}

DWORD GetPrivateProfileSectionW(LPCWSTR lpAppName, LPWSTR lpReturnedString, DWORD nSize, LPCWSTR lpFileName)
{
    if (!lpReturnedString || nSize == 0) return 0;
    auto doc = lpFileName && lpAppName ? Load(lpFileName) : nullptr;
    return CopyList(doc ? doc->EntryLines(lpAppName) : std::vector<std::wstring>(), lpReturnedString, nSize);
}

DWORD GetPrivateProfileSectionNamesW(LPWSTR lpszReturnBuffer, DWORD nSize, LPCWSTR lpFileName)
{
    return GetPrivateProfileStringW(nullptr, nullptr, nullptr, lpszReturnBuffer, nSize, lpFileName);
}

BOOL WritePrivateProfileStringW(LPCWSTR lpAppName, LPCWSTR lpKeyName, LPCWSTR lpString, LPCWSTR lpFileName)
{
    if (!lpAppName) {
        if (!lpKeyName && !lpString) return TRUE;
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (!lpKeyName)
        return Modify(lpFileName, false, [&](IniDocument& d) { return d.DeleteSection(lpAppName); });
    if (!lpString)
        return Modify(lpFileName, false, [&](IniDocument& d) { return d.DeleteKey(lpAppName, lpKeyName); });
    return Modify(lpFileName, true, [&](IniDocument& d) { return d.SetValue(lpAppName, lpKeyName, lpString); });
}

BOOL WritePrivateProfileSectionW(LPCWSTR lpAppName, LPCWSTR lpString, LPCWSTR lpFileName)
{
    if (!lpAppName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (!lpString)
        return Modify(lpFileName, false, [&](IniDocument& d) { return d.DeleteSection(lpAppName); });
    std::vector<std::wstring> lines;
    for (LPCWSTR p = lpString; *p; p += lines.back().size() + 1) lines.emplace_back(p);
    return Modify(lpFileName, true, [&](IniDocument& d) { return d.ReplaceSection(lpAppName, lines); });
}

namespace svwin {

void ClearProfileCache()
{
    std::lock_guard<std::mutex> lock(g_cacheMutex);
    g_cache.clear();
}

} // namespace svwin
