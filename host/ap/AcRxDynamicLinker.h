// The dynamic linker: loads modules (shared libraries exporting acrxEntryPoint and
// acrxGetApiVersion), sends them the application messages, and tells its reactors.
// Every call into a module is guarded: what it throws is reported on the command line and
// the host goes on.
#pragma once

#include <string>
#include <vector>

#include "host/rx/AcChar.h"
#include "host/rx/AcRx.h"
#include "host/rx/AcRxObject.h"

class AcRxDLinkerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDLinkerReactor);
    ~AcRxDLinkerReactor() override = default;

    virtual void rxAppWillBeLoaded(const ACHAR* moduleName);
    virtual void rxAppLoaded(const ACHAR* moduleName);
    virtual void rxAppLoadAborted(const ACHAR* moduleName);
    virtual void rxAppWillBeUnloaded(const ACHAR* moduleName);
    virtual void rxAppUnloaded(const ACHAR* moduleName);
    virtual void rxAppUnloadAborted(const ACHAR* moduleName);
};

// The signature of a module's entry point.
using AcRxEntryPointFn = AcRx::AppRetCode (*)(AcRx::AppMsgCode msg, void* pkt);

class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);
    AcRxDynamicLinker();
    ~AcRxDynamicLinker() override;

    // Loads the module (dlopen, RTLD_NOW | RTLD_LOCAL), sends kInitAppMsg and then
    // kLoadDwgMsg for every open drawing. False when the file cannot be loaded, has no
    // acrxEntryPoint, or the entry point answers kInitAppMsg with kRetError; printit writes
    // the reason to the command line. A module loaded already is not loaded again (true).
    bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false);
    // Sends kUnloadAppMsg and closes the library. False when the module is not loaded or
    // has not unlocked itself (unlockApplication) and was loaded as locked.
    bool unloadModule(const ACHAR* fileName, bool printit, bool asCmd = false);

    // The module's packet (given at kInitAppMsg) marks it unloadable / MDI-aware. False for
    // a packet the linker does not know.
    bool unlockApplication(void* appId);
    bool lockApplication(void* appId);
    bool isApplicationLocked(const ACHAR* moduleName) const;
    bool registerAppMDIAware(void* appId);
    bool registerAppNotMDIAware(void* appId);

    // Reactors are not owned; removing one does not delete it.
    void addReactor(AcRxDLinkerReactor* reactor);
    void removeReactor(AcRxDLinkerReactor* reactor);

    // The file names (as given) of the loaded modules, in load order.
    std::vector<std::wstring> loadedModules() const;
    bool isLoaded(const ACHAR* fileName) const;
    // A module's MDI registration, for tests.
    bool isMDIAware(const ACHAR* fileName) const;

    // Sends a message to every loaded module, guarded. kQuitMsg at the end of a session.
    void broadcast(AcRx::AppMsgCode msg, void* pkt);
    // Sends kQuitMsg to every module (once) at the end of a session; the libraries stay
    // mapped until the process ends.
    void quit();

    // Tells the reactors that an application was loaded (e.g. a command provider that
    // appeared later).
    void fireAppLoaded(const ACHAR* appName);

    struct Module;

private:
    friend class ApLinkerAccess;
    std::vector<Module*> m_modules;
    std::vector<AcRxDLinkerReactor*> m_reactors;
    bool m_quit = false;
};

// The process's dynamic linker (made on first use).
AcRxDynamicLinker* acrxDynamicLinkerPtr();
#define acrxDynamicLinker (acrxDynamicLinkerPtr())

// Where the host looks for the module by default: "sorvane.so" beside the executable,
// then in ../lib of the executable's folder. The first that exists, or "" for none.
std::wstring apDefaultModulePath();
