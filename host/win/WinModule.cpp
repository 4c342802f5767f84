// Module names and handles through the dynamic linker's list of objects.
#include "host/win/WinModule.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string>

#include "host/win/WinPath.h"
#include "host/win/WinText.h"

namespace {

link_map* FirstObject()
{
    void* self = ::dlopen(nullptr, RTLD_LAZY | RTLD_NOLOAD);
    if (!self) return nullptr;
    link_map* lm = nullptr;
    if (::dlinfo(self, RTLD_DI_LINKMAP, &lm) != 0) lm = nullptr;
    while (lm && lm->l_prev) lm = lm->l_prev;
    return lm;
}

std::string ExecutablePath()
{
    char buf[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", buf, sizeof buf - 1);
    return n > 0 ? std::string(buf, static_cast<std::size_t>(n)) : std::string();
}

std::string ObjectPath(const link_map* lm)
{
    if (!lm->l_name || !*lm->l_name) return ExecutablePath();
    if (char* real = ::realpath(lm->l_name, nullptr)) {
        std::string s = real;
        std::free(real);
        return s;
    }
    return lm->l_name;
}

std::wstring BaseNameOf(const char* path)
{
    const std::wstring wide = svwin::WidePath(path ? path : "");
    return PathFindFileNameW(wide.c_str());
}

} // namespace

DWORD GetModuleFileNameW(HMODULE hModule, LPWSTR lpFilename, DWORD nSize)
{
    std::string path;
    if (!hModule) {
        path = ExecutablePath();
    } else {
        // A handle is one of the linker's objects; anything else is taken
        // as an address inside one.
        for (link_map* lm = FirstObject(); lm && path.empty(); lm = lm->l_next)
            if (static_cast<void*>(lm) == static_cast<void*>(hModule)) path = ObjectPath(lm);
        if (path.empty()) {
            Dl_info info;
            link_map* lm = nullptr;
            if (::dladdr1(static_cast<void*>(hModule), &info, reinterpret_cast<void**>(&lm), RTLD_DL_LINKMAP) && lm)
                path = ObjectPath(lm);
        }
    }
    if (path.empty()) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        if (lpFilename && nSize) lpFilename[0] = 0;
        return 0;
    }
    const std::wstring wide = svwin::WidePath(path);
    if (!lpFilename || nSize == 0) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    if (wide.size() >= nSize) {
        wide.copy(lpFilename, nSize - 1);
        lpFilename[nSize - 1] = 0;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return nSize;
    }
    wide.copy(lpFilename, wide.size());
    lpFilename[wide.size()] = 0;
    return static_cast<DWORD>(wide.size());
}

HMODULE GetModuleHandleW(LPCWSTR lpModuleName)
{
    link_map* first = FirstObject();
    if (!lpModuleName) return reinterpret_cast<HMODULE>(first);
    const std::wstring wanted = PathFindFileNameW(lpModuleName);
    const bool bHasExt = *PathFindExtensionW(wanted.c_str()) != 0;
    for (link_map* lm = first; lm; lm = lm->l_next) {
        std::wstring name = lm == first ? BaseNameOf(ExecutablePath().c_str()) : BaseNameOf(lm->l_name);
        if (name.empty()) continue;
        if (!bHasExt) name.resize(static_cast<std::size_t>(PathFindExtensionW(name.c_str()) - name.c_str()));
        if (svwin::EqualNoCase(name, wanted)) return reinterpret_cast<HMODULE>(lm);
    }
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}
