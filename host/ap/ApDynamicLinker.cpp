// The dynamic linker: dlopen of modules, the application messages in the platform's order,
// AutoLISP functions routed to the module that defined them, and the linker reactors.
#include "host/ap/AcRxDynamicLinker.h"

#include <dlfcn.h>

#include <algorithm>
#include <cwctype>
#include <exception>
#include <filesystem>
#include <set>

#include "host/ap/AcApDocManager.h"
#include "host/ap/ApText.h"
#include "host/db/adsdef.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/rx/AcRxBoiler.h"
#include "host/rx/acutPrintf.h"
#include "host/win/WinModule.h"
#include "host/win/WinText.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDLinkerReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

void AcRxDLinkerReactor::rxAppWillBeLoaded(const ACHAR*) {}
void AcRxDLinkerReactor::rxAppLoaded(const ACHAR*) {}
void AcRxDLinkerReactor::rxAppLoadAborted(const ACHAR*) {}
void AcRxDLinkerReactor::rxAppWillBeUnloaded(const ACHAR*) {}
void AcRxDLinkerReactor::rxAppUnloaded(const ACHAR*) {}
void AcRxDLinkerReactor::rxAppUnloadAborted(const ACHAR*) {}

struct AcRxDynamicLinker::Module {
    std::wstring path;  // as given
    std::wstring name;  // the file name, for reactors and messages
    void* handle = nullptr;
    AcRxEntryPointFn entry = nullptr;
    bool locked = true;
    bool mdiAware = false;
    std::set<std::wstring> functions;  // upper-case names it defined
};

using Module = AcRxDynamicLinker::Module;

namespace {

std::wstring upperName(const std::wstring& s)
{
    std::wstring out = s;
    for (wchar_t& c : out)
        c = static_cast<wchar_t>(std::towupper(c));
    return out;
}

std::set<std::wstring> definedNames()
{
    std::set<std::wstring> names;
    for (const auto& f : acedDefinedFunctions())
        names.insert(upperName(f.first));
    return names;
}

std::wstring widen(const char* s)
{
    return apText::wide(s ? s : "");
}

} // namespace

// The linker's private operations, kept out of the public header.
class ApLinkerAccess : public ApDocumentListener {
public:
    explicit ApLinkerAccess(AcRxDynamicLinker* linker) : m_linker(linker) {}

    // Calls the module's entry point; an exception is reported and answers kRetError. The
    // AutoLISP functions defined meanwhile belong to the module.
    static AcRx::AppRetCode call(Module* m, AcRx::AppMsgCode msg, void* pkt)
    {
        const std::set<std::wstring> before = definedNames();
        AcRx::AppRetCode result = AcRx::kRetError;
        try {
            result = m->entry(msg, pkt);
        } catch (const std::exception& e) {
            acutPrintf(L"\n** %s: message %d failed: %s", m->name.c_str(), static_cast<int>(msg),
                       widen(e.what()).c_str());
        } catch (...) {
            acutPrintf(L"\n** %s: message %d failed with an exception", m->name.c_str(), static_cast<int>(msg));
        }
        for (const std::wstring& n : definedNames())
            if (!before.count(n))
                m->functions.insert(n);
        return result;
    }

    Module* find(const ACHAR* fileName) const
    {
        if (!fileName)
            return nullptr;
        const std::wstring given = fileName;
        for (Module* m : m_linker->m_modules)
            if (svwin::EqualNoCase(m->path, given) || svwin::EqualNoCase(m->name, given))
                return m;
        return nullptr;
    }

    Module* findPacket(void* pkt) const
    {
        for (Module* m : m_linker->m_modules)
            if (m == pkt)
                return m;
        return nullptr;
    }

    template <class F>
    void fire(F f)
    {
        const std::vector<AcRxDLinkerReactor*> reactors = m_linker->m_reactors;
        for (AcRxDLinkerReactor* r : reactors)
            if (std::find(m_linker->m_reactors.begin(), m_linker->m_reactors.end(), r) != m_linker->m_reactors.end())
                f(r);
    }

    // Sends msg to the module once for every open document, each current in turn.
    static void forEachDocument(Module* m, AcRx::AppMsgCode msg)
    {
        AcApDocument* keep = acDocManager->curDocument();
        AcApDocumentIterator* it = acDocManager->newAcApDocumentIterator();
        for (; !it->done(); it->step()) {
            AcApDocument* doc = it->document();
            acDocManager->setCurDocument(doc);
            call(m, msg, doc);
        }
        delete it;
        // The module may have closed it meanwhile: compare pointers only.
        it = acDocManager->newAcApDocumentIterator();
        for (; !it->done(); it->step())
            if (it->document() == keep)
                acDocManager->setCurDocument(keep);
        delete it;
    }

    void documentOpened(AcApDocument* doc) override { send(AcRx::kLoadDwgMsg, doc); }
    void documentClosing(AcApDocument* doc) override { send(AcRx::kUnloadDwgMsg, doc); }
    void documentSaving(AcApDocument* doc) override { send(AcRx::kSaveMsg, doc); }

    void send(AcRx::AppMsgCode msg, void* pkt)
    {
        const std::vector<Module*> modules = m_linker->m_modules;
        for (Module* m : modules)
            call(m, msg, pkt);
    }

    // kInvkSubrMsg to the module that defined the function (the newest module when no one
    // claims it). RSRSLT (1) or kRetOK from the entry point count as success.
    int invoke(const std::wstring& name, short)
    {
        if (m_linker->m_modules.empty())
            return RTERROR;
        Module* owner = m_linker->m_modules.back();
        const std::wstring key = upperName(name);
        for (Module* m : m_linker->m_modules)
            if (m->functions.count(key))
                owner = m;
        const AcRx::AppRetCode r = call(owner, AcRx::kInvkSubrMsg, acDocManager->curDocument());
        return r == AcRx::kRetOK || static_cast<int>(r) == 1 ? RTNORM : RTERROR;
    }

    void unmap(Module* m)
    {
        auto& mods = m_linker->m_modules;
        mods.erase(std::remove(mods.begin(), mods.end(), m), mods.end());
        if (m->handle)
            dlclose(m->handle);
        delete m;
    }

private:
    AcRxDynamicLinker* m_linker;
};

namespace {

ApLinkerAccess& access()
{
    static ApLinkerAccess* a = [] {
        auto* made = new ApLinkerAccess(acrxDynamicLinkerPtr());
        apSetDocumentListener(made);
        AcEdHooks::setSubrInvoker([made](const std::wstring& name, short code) { return made->invoke(name, code); });
        return made;
    }();
    return *a;
}

} // namespace

AcRxDynamicLinker* acrxDynamicLinkerPtr()
{
    static AcRxDynamicLinker* linker = new AcRxDynamicLinker();  // lives as long as the process
    return linker;
}

AcRxDynamicLinker::AcRxDynamicLinker() = default;
AcRxDynamicLinker::~AcRxDynamicLinker() = default;

bool AcRxDynamicLinker::loadModule(const ACHAR* fileName, bool printit, bool)
{
    ApLinkerAccess& a = access();
    if (!fileName || !*fileName)
        return false;
    if (a.find(fileName))
        return true;
    const std::wstring path = fileName;
    const std::wstring name = apText::baseName(path);
    a.fire([&](AcRxDLinkerReactor* r) { r->rxAppWillBeLoaded(name.c_str()); });

    auto abort = [&](const std::wstring& why) {
        if (printit)
            acutPrintf(L"\nUnable to load %s: %s", path.c_str(), why.c_str());
        a.fire([&](AcRxDLinkerReactor* r) { r->rxAppLoadAborted(name.c_str()); });
        return false;
    };
    std::error_code ec;
    if (!std::filesystem::is_regular_file(apText::utf8(path), ec))
        return abort(L"no such file");
    void* handle = dlopen(apText::utf8(path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        return abort(widen(dlerror()));
    auto entry = reinterpret_cast<AcRxEntryPointFn>(dlsym(handle, "acrxEntryPoint"));
    if (!entry) {
        dlclose(handle);
        return abort(L"it exports no acrxEntryPoint");
    }

    auto* m = new Module();
    m->path = path;
    m->name = name;
    m->handle = handle;
    m->entry = entry;
    m_modules.push_back(m);
    if (ApLinkerAccess::call(m, AcRx::kInitAppMsg, m) == AcRx::kRetError) {
        a.unmap(m);
        return abort(L"its initialisation failed");
    }
    ApLinkerAccess::forEachDocument(m, AcRx::kLoadDwgMsg);
    if (printit)
        acutPrintf(L"\n%s loaded.", name.c_str());
    a.fire([&](AcRxDLinkerReactor* r) { r->rxAppLoaded(name.c_str()); });
    return true;
}

bool AcRxDynamicLinker::unloadModule(const ACHAR* fileName, bool printit, bool)
{
    ApLinkerAccess& a = access();
    Module* m = a.find(fileName);
    if (!m) {
        if (printit)
            acutPrintf(L"\n%s is not loaded.", fileName ? fileName : L"");
        return false;
    }
    const std::wstring name = m->name;
    a.fire([&](AcRxDLinkerReactor* r) { r->rxAppWillBeUnloaded(name.c_str()); });
    if (m->locked) {
        if (printit)
            acutPrintf(L"\n%s is locked and cannot be unloaded.", name.c_str());
        a.fire([&](AcRxDLinkerReactor* r) { r->rxAppUnloadAborted(name.c_str()); });
        return false;
    }
    ApLinkerAccess::forEachDocument(m, AcRx::kUnloadDwgMsg);
    ApLinkerAccess::call(m, AcRx::kUnloadAppMsg, m);
    // What the module left defined would call into an unmapped library.
    for (const auto& f : acedDefinedFunctions())
        if (m->functions.count(upperName(f.first)))
            acedUndef(f.first.c_str(), f.second);
    a.unmap(m);
    if (printit)
        acutPrintf(L"\n%s unloaded.", name.c_str());
    a.fire([&](AcRxDLinkerReactor* r) { r->rxAppUnloaded(name.c_str()); });
    return true;
}

bool AcRxDynamicLinker::unlockApplication(void* appId)
{
    Module* m = access().findPacket(appId);
    if (!m)
        return false;
    m->locked = false;
    return true;
}

bool AcRxDynamicLinker::lockApplication(void* appId)
{
    Module* m = access().findPacket(appId);
    if (!m)
        return false;
    m->locked = true;
    return true;
}

bool AcRxDynamicLinker::isApplicationLocked(const ACHAR* moduleName) const
{
    Module* m = access().find(moduleName);
    return m && m->locked;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* appId)
{
    Module* m = access().findPacket(appId);
    if (!m)
        return false;
    m->mdiAware = true;
    return true;
}

bool AcRxDynamicLinker::registerAppNotMDIAware(void* appId)
{
    Module* m = access().findPacket(appId);
    if (!m)
        return false;
    m->mdiAware = false;
    return true;
}

void AcRxDynamicLinker::addReactor(AcRxDLinkerReactor* reactor)
{
    if (reactor && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void AcRxDynamicLinker::removeReactor(AcRxDLinkerReactor* reactor)
{
    m_reactors.erase(std::remove(m_reactors.begin(), m_reactors.end(), reactor), m_reactors.end());
}

std::vector<std::wstring> AcRxDynamicLinker::loadedModules() const
{
    std::vector<std::wstring> out;
    for (const Module* m : m_modules)
        out.push_back(m->path);
    return out;
}

bool AcRxDynamicLinker::isLoaded(const ACHAR* fileName) const
{
    return access().find(fileName) != nullptr;
}

bool AcRxDynamicLinker::isMDIAware(const ACHAR* fileName) const
{
    Module* m = access().find(fileName);
    return m && m->mdiAware;
}

void AcRxDynamicLinker::broadcast(AcRx::AppMsgCode msg, void* pkt)
{
    access().send(msg, pkt);
}

void AcRxDynamicLinker::quit()
{
    if (m_quit)
        return;
    m_quit = true;
    broadcast(AcRx::kQuitMsg, nullptr);
}

void AcRxDynamicLinker::fireAppLoaded(const ACHAR* appName)
{
    const std::wstring name = appName ? appName : L"";
    access().fire([&](AcRxDLinkerReactor* r) { r->rxAppLoaded(name.c_str()); });
}

std::wstring apDefaultModulePath()
{
    wchar_t buffer[4096] = {};
    const DWORD n = GetModuleFileNameW(nullptr, buffer, 4096);
    if (n == 0 || n >= 4096)
        return L"";
    const std::filesystem::path dir = std::filesystem::path(apText::utf8(std::wstring(buffer, n))).parent_path();
    std::error_code ec;
    for (const std::filesystem::path& candidate : {dir / "sorvane.so", dir / ".." / "lib" / "sorvane.so"})
        if (std::filesystem::is_regular_file(candidate, ec))
            return apText::wide(candidate.lexically_normal().string());
    return L"";
}
