// Resource modules and the functions that read them: strings, menus, dialog
// templates, and the current resource handle.
#include "host/res/ResModule.h"

#include "host/mfc/CString.h"
#include "host/res/ResParser.h"
#include "host/res/ResRegistry.h"

#include <algorithm>
#include <cwchar>
#include <map>
#include <mutex>

namespace svres {
namespace {

struct Module {
    std::shared_ptr<const ResScript> script;
    std::wstring key;
    int refs = 1;
};

struct Registry {
    std::mutex mutex;
    std::map<HINSTANCE, Module> modules;
    std::uintptr_t serial = 0;
    HINSTANCE current = nullptr;
};

Registry& Reg()
{
    static Registry reg;
    return reg;
}

thread_local std::wstring t_lastError;

void InstallOnce()
{
    static std::once_flag once;
    std::call_once(once, InstallResourceHooks);
}

HINSTANCE Resolve(HINSTANCE hInstance)
{
    return hInstance ? hInstance : AfxGetResourceHandle();
}

// MAKEINTRESOURCE(id), "#130", or a name.
ResName NameOf(LPCWSTR lpName)
{
    if (IS_INTRESOURCE(lpName))
        return ResName::Number(static_cast<UINT>(reinterpret_cast<ULONG_PTR>(lpName)));
    if (lpName[0] == L'#' && lpName[1]) {
        wchar_t* end = nullptr;
        const unsigned long id = std::wcstoul(lpName + 1, &end, 10);
        if (end && !*end && id <= 0xFFFF)
            return ResName::Number(static_cast<UINT>(id));
    }
    return ResName::Text(lpName);
}

void AppendItems(HMENU hMenu, const std::vector<ResMenuItem>& items)
{
    for (const ResMenuItem& item : items) {
        if (item.IsSeparator()) {
            AppendMenuW(hMenu, MF_SEPARATOR, 0, nullptr);
        } else if (item.IsPopup()) {
            HMENU sub = CreatePopupMenu();
            AppendItems(sub, item.items);
            AppendMenuW(hMenu, item.flags, reinterpret_cast<UINT_PTR>(sub), item.text.c_str());
        } else {
            AppendMenuW(hMenu, MF_STRING | item.flags, item.id, item.text.c_str());
        }
    }
}

} // namespace

namespace detail {

HINSTANCE AddModule(std::shared_ptr<const ResScript> script, const std::wstring& key)
{
    Registry& reg = Reg();
    HINSTANCE h;
    {
        std::lock_guard lock(reg.mutex);
        // Odd values: never the address a shared library is loaded at.
        h = reinterpret_cast<HINSTANCE>(((++reg.serial) << 4) | 1);
        reg.modules[h] = Module{std::move(script), key, 1};
    }
    InstallOnce();
    return h;
}

HINSTANCE AddReference(const std::wstring& key)
{
    Registry& reg = Reg();
    std::lock_guard lock(reg.mutex);
    for (auto& [h, m] : reg.modules)
        if (!key.empty() && m.key == key) {
            ++m.refs;
            return h;
        }
    return nullptr;
}

bool Release(HINSTANCE hInstance)
{
    Registry& reg = Reg();
    std::lock_guard lock(reg.mutex);
    auto it = reg.modules.find(hInstance);
    if (it == reg.modules.end())
        return false;
    if (--it->second.refs == 0)
        reg.modules.erase(it);
    return true;
}

void SetLastError(std::wstring message)
{
    t_lastError = std::move(message);
}

} // namespace detail

HINSTANCE CreateResourceModule(ResScript script)
{
    return detail::AddModule(std::make_shared<const ResScript>(std::move(script)), std::wstring());
}

HINSTANCE LoadResourceModule(std::wstring_view text, const std::wstring& name, const IncludeResolver& resolver)
{
    try {
        HINSTANCE h = CreateResourceModule(ParseResourceScript(text, name, resolver));
        detail::SetLastError({});
        return h;
    } catch (const ResError& e) {
        detail::SetLastError(e.Text());
        return nullptr;
    }
}

HINSTANCE LoadResourceModuleFile(const std::wstring& path)
{
    try {
        HINSTANCE h = CreateResourceModule(ParseResourceFile(path));
        detail::SetLastError({});
        return h;
    } catch (const ResError& e) {
        detail::SetLastError(e.Text());
        return nullptr;
    }
}

BOOL FreeResourceModule(HINSTANCE hInstance)
{
    return detail::Release(hInstance) ? TRUE : FALSE;
}

std::shared_ptr<const ResScript> GetResourceScript(HINSTANCE hInstance)
{
    Registry& reg = Reg();
    std::lock_guard lock(reg.mutex);
    auto it = reg.modules.find(hInstance);
    return it == reg.modules.end() ? nullptr : it->second.script;
}

const std::wstring& LastResourceError()
{
    return t_lastError;
}

std::shared_ptr<const ResDialog> FindDialogTemplate(HINSTANCE hInstance, LPCWSTR lpTemplateName)
{
    const auto script = GetResourceScript(Resolve(hInstance));
    if (!script || !lpTemplateName)
        return nullptr;
    return script->FindDialog(NameOf(lpTemplateName));
}

HMENU BuildMenu(const ResMenu& menu)
{
    HMENU bar = CreateMenu();
    AppendItems(bar, menu.items);
    return bar;
}

void InstallResourceHooks()
{
    CString::SetStringTableHook([](UINT id, CString& text) {
        const auto script = GetResourceScript(AfxGetResourceHandle());
        const std::wstring* s = script ? script->FindString(id) : nullptr;
        if (!s || s->empty())
            return false;
        text = s->c_str();
        return true;
    });
    svwin::SetMenuResourceLoader([](HINSTANCE hInstance, UINT id, const std::wstring& name) -> HMENU {
        const auto script = GetResourceScript(Resolve(hInstance));
        if (!script)
            return nullptr;
        const ResMenu* menu = script->FindMenu(name.empty() ? ResName::Number(id) : NameOf(name.c_str()));
        return menu ? BuildMenu(*menu) : nullptr;
    });
}

} // namespace svres

HINSTANCE AfxGetResourceHandle()
{
    svres::Registry& reg = svres::Reg();
    std::lock_guard lock(reg.mutex);
    return reg.current;
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    {
        svres::Registry& reg = svres::Reg();
        std::lock_guard lock(reg.mutex);
        reg.current = hInstResource;
    }
    svres::InstallOnce();
}

int LoadStringW(HINSTANCE hInstance, UINT uID, LPWSTR lpBuffer, int cchBufferMax)
{
    if (!lpBuffer || cchBufferMax < 0)
        return 0;
    const auto script = svres::GetResourceScript(svres::Resolve(hInstance));
    const std::wstring* s = script ? script->FindString(uID) : nullptr;
    if (cchBufferMax == 0) {
        // The pointer stays valid while the module is loaded.
        *reinterpret_cast<LPCWSTR*>(lpBuffer) = s && !s->empty() ? s->c_str() : nullptr;
        return s ? static_cast<int>(s->size()) : 0;
    }
    if (!s) {
        lpBuffer[0] = L'\0';
        return 0;
    }
    const size_t n = std::min(s->size(), static_cast<size_t>(cchBufferMax - 1));
    std::wmemcpy(lpBuffer, s->c_str(), n);
    lpBuffer[n] = L'\0';
    return static_cast<int>(n);
}
