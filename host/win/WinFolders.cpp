// The user's folders from the environment.
#include "host/win/WinFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "host/win/WinFileIo.h"
#include "host/win/WinPath.h"

namespace {

std::string Env(const char* name)
{
    const char* v = std::getenv(name);
    return v ? std::string(v) : std::string();
}

std::string Home()
{
    std::string home = Env("HOME");
    if (!home.empty()) return home;
    if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_dir) return pw->pw_dir;
    return {};
}

std::string XdgOr(const char* var, const char* underHome)
{
    const std::string v = Env(var);
    if (!v.empty() && v[0] == '/') return v;
    const std::string home = Home();
    return home.empty() ? std::string() : home + underHome;
}

} // namespace

HRESULT SHGetFolderPathW(HWND, int csidl, HANDLE, DWORD, LPWSTR pszPath)
{
    if (!pszPath) return E_INVALIDARG;
    pszPath[0] = 0;
    std::string folder;
    switch (csidl & ~CSIDL_FLAG_MASK) {
    case CSIDL_APPDATA: folder = XdgOr("XDG_CONFIG_HOME", "/.config"); break;
    case CSIDL_LOCAL_APPDATA: folder = XdgOr("XDG_DATA_HOME", "/.local/share"); break;
    case CSIDL_PERSONAL: folder = Home(); break;
    default: return E_INVALIDARG;
    }
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    if (folder.empty()) return E_FAIL;
    const std::wstring wide = svwin::WidePath(folder);
    if (wide.size() >= MAX_PATH) return E_FAIL;
    if (csidl & CSIDL_FLAG_CREATE) {
        if (!svwin::CreateFolders(folder)) return E_FAIL;
    } else {
        struct stat st;
        if (::stat(folder.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) return E_FAIL;
    }
    wide.copy(pszPath, wide.size());
    pszPath[wide.size()] = 0;
    return S_OK;
}

DWORD GetTempPathW(DWORD nBufferLength, LPWSTR lpBuffer)
{
    std::string dir = Env("TMPDIR");
    if (dir.empty()) dir = "/tmp";
    if (dir.back() != '/') dir += '/';
    const std::wstring wide = svwin::WidePath(dir);
    if (!lpBuffer || nBufferLength <= wide.size()) return static_cast<DWORD>(wide.size() + 1);
    wide.copy(lpBuffer, wide.size());
    lpBuffer[wide.size()] = 0;
    return static_cast<DWORD>(wide.size());
}
