// MATCHPROP for the module's entities: the protocol extension that copies one
// entity's properties onto another of its kind, and the linker reactor that
// attaches it once the MATCHPROP provider has loaded.
#pragma once

#include "host/ap/AcDbMatchProperties.h"
#include "host/ap/AcRxDynamicLinker.h"

class SVdimMatchProp : public AcDbMatchProperties {
public:
    // Chains take the source chain's parameters; then, by flag bit: 1 colour,
    // 2 layer, 4 linetype, 16 linetype scale. Visibility is always copied.
    void copyProperties(AcDbEntity* pSource, AcDbEntity* pTarget, unsigned int nFlags) const override;
};

// Attaches the extension the moment the MATCHPROP provider loads.
class AppEventCatcher : public AcRxDLinkerReactor {
public:
    void rxAppWillBeLoaded(const ACHAR* moduleName) override;
    void rxAppLoaded(const ACHAR* moduleName) override;
    void rxAppLoadAborted(const ACHAR* moduleName) override;
    void rxAppWillBeUnloaded(const ACHAR* moduleName) override;
    void rxAppUnloaded(const ACHAR* moduleName) override;
    void rxAppUnloadAborted(const ACHAR* moduleName) override;
};

// Attaches the extension to the entity classes when the service
// "MatchProperties" exists; false (silently) when it does not.
bool addMatchSVdim();
// Takes the extension off again and deletes it; nothing while the service is
// missing.
void RemoveMatchSVdim();
