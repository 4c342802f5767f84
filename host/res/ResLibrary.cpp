// LoadLibraryW and FreeLibrary: language files become resource modules, other
// files are opened by the dynamic linker.
#include "host/res/ResLibrary.h"

#include "host/res/ResModule.h"
#include "host/res/ResParser.h"
#include "host/res/ResRegistry.h"
#include "host/win/WinPath.h"
#include "host/win/WinText.h"
#include "host/win/wsprintf.h"

#include <dlfcn.h>

#include <mutex>
#include <map>

namespace {

bool IsLanguageFile(std::wstring_view path)
{
    return path.size() >= 4 && svwin::EqualNoCase(path.substr(path.size() - 4), L".lng");
}

struct SharedLibraries {
    std::mutex mutex;
    std::map<void*, int> handles;  // with the number of loads
};

SharedLibraries& Libraries()
{
    static SharedLibraries libs;
    return libs;
}

HMODULE LoadLanguageFile(const std::wstring& path)
{
    // The same file, however spelled, is one module.
    const std::wstring key = svwin::WidePath(svwin::NativePath(path));
    if (HMODULE h = svres::detail::AddReference(key))
        return h;
    try {
        svres::ResScript script = svres::ParseResourceFile(path);
        HMODULE h = svres::detail::AddModule(std::make_shared<const svres::ResScript>(std::move(script)), key);
        svres::detail::SetLastError({});
        return h;
    } catch (const svres::ResError& e) {
        svres::detail::SetLastError(e.Text());
        ::SetLastError(e.Line() == 0 ? ERROR_MOD_NOT_FOUND : ERROR_BAD_FORMAT);
        return nullptr;
    }
}

} // namespace

HMODULE LoadLibraryW(LPCWSTR lpLibFileName)
{
    if (!lpLibFileName || !*lpLibFileName) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (IsLanguageFile(lpLibFileName))
        return LoadLanguageFile(lpLibFileName);
    void* handle = ::dlopen(svwin::NativePath(lpLibFileName).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* why = ::dlerror();
        svres::detail::SetLastError(std::wstring(lpLibFileName) + L"(0): " + svwin::Utf8ToWide(why ? why : ""));
        ::SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    SharedLibraries& libs = Libraries();
    std::lock_guard lock(libs.mutex);
    ++libs.handles[handle];
    svres::detail::SetLastError({});
    return static_cast<HMODULE>(handle);
}

BOOL FreeLibrary(HMODULE hLibModule)
{
    if (svres::detail::Release(hLibModule))
        return TRUE;
    SharedLibraries& libs = Libraries();
    {
        std::lock_guard lock(libs.mutex);
        auto it = libs.handles.find(hLibModule);
        if (it != libs.handles.end()) {
            ::dlclose(it->first);  // the dynamic linker counts loads too
            if (--it->second == 0)
                libs.handles.erase(it);
            return TRUE;
        }
    }
    ::SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}
