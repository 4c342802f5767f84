// The system registry and its class and service dictionaries, made on first use.
#include "host/rx/AcRxDictionary.h"

namespace {

struct Registry {
    AcRxDictionary* system;
    AcRxDictionary* classes;
    AcRxDictionary* services;
};

// Deliberately never destroyed: modules and static objects may still reach class
// descriptors while the process exits, in whatever order their destructors run.
Registry& registry()
{
    static Registry* instance = [] {
        auto* r = new Registry{new AcRxDictionary(), new AcRxDictionary(), new AcRxDictionary()};
        r->system->atPut(ACRX_CLASS_DICTIONARY, r->classes);
        r->system->atPut(ACRX_SERVICE_DICTIONARY, r->services);
        return r;
    }();
    return *instance;
}

}  // namespace

AcRxDictionary* acrxSysRegistry()
{
    return registry().system;
}

AcRxDictionary* acrxGetClassDictionary()
{
    return registry().classes;
}

AcRxDictionary* acrxGetServiceDictionary()
{
    return registry().services;
}
