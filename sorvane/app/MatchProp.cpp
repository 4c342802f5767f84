// The MATCHPROP extension of the module's entities and the reactor that
// attaches it when its provider loads after the module.
#include "app/MatchProp.h"

#include "app/App.h"
#include "app/ChainLink.h"
#include "host/db/AcDbEntity.h"
#include "host/ed/acedads.h"
#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxDictionary.h"
#include "host/rx/AcRxService.h"
#include "services/Trace.h"

namespace {

// The entity classes that carry the extension. Height marks join once they
// are part of the module.
std::vector<AcRxClass*> EntityClasses()
{
    std::vector<AcRxClass*> classes;
    if (AcRxClass* pChain = ChainClass())
        classes.push_back(pChain);
    return classes;
}

AcRxService* MatchPropService()
{
    AcRxObject* pObject = acrxServiceDictionary->at(AP_MATCHPROP_SERVICE);
    if (!pObject)
        return nullptr;
    AcRxService* pService = AcRxService::cast(pObject);
    if (!pService)
        acrx_abort(L"\naddMatchSVdim: Problem with service dictionary\n");
    return pService;
}

} // namespace

void SVdimMatchProp::copyProperties(AcDbEntity* pSource, AcDbEntity* pTarget, unsigned int nFlags) const
{
    if (!pSource || !pTarget)
        return;
    CopyChainParameters(pSource, pTarget);
    // Height marks take each other's parameters here and realign to their base plane.
    if (nFlags & kColorFlag)
        pTarget->setColorIndex(pSource->colorIndex());
    if (nFlags & kLayerFlag)
        pTarget->setLayer(pSource->layerId());
    if (nFlags & kLtypeFlag)
        pTarget->setLinetype(pSource->linetypeId());
    if (nFlags & kLtscaleFlag)
        pTarget->setLinetypeScale(pSource->linetypeScale());
    pTarget->setVisibility(pSource->visibility());
}

void AppEventCatcher::rxAppWillBeLoaded(const ACHAR* moduleName)
{
    TraceF(L"\n rxAppWillBeLoaded %s ", moduleName);
}

void AppEventCatcher::rxAppLoaded(const ACHAR* moduleName)
{
    TraceF(L"\n rxAppLoaded %s ", moduleName);
    if (!bMatchPropAdded)
        addMatchSVdim();
}

void AppEventCatcher::rxAppLoadAborted(const ACHAR* moduleName)
{
    TraceF(L"\n rxAppLoadAborted %s ", moduleName);
}

void AppEventCatcher::rxAppWillBeUnloaded(const ACHAR* moduleName)
{
    TraceF(L"\n rxAppWillBeUnloaded %s ", moduleName);
}

void AppEventCatcher::rxAppUnloaded(const ACHAR* moduleName)
{
    TraceF(L"\n rxAppUnloaded %s ", moduleName);
}

void AppEventCatcher::rxAppUnloadAborted(const ACHAR* moduleName)
{
    TraceF(L"\n rxAppUnloadAborted %s ", moduleName);
}

bool addMatchSVdim()
{
    if (!acrxServiceDictionary->at(AP_MATCHPROP_SERVICE))
        return false;
    acutPrintf(L"\n**MatchProperties is now available.");
    acedPostCommandPrompt();
    AcRxService* pService = MatchPropService();
    if (!pService)
        return false;
    pService->addDependency();
    pMatchProp = new SVdimMatchProp;
    for (AcRxClass* pClass : EntityClasses())
        pClass->addX(AcDbMatchProperties::desc(), pMatchProp);
    bMatchPropAdded = 1;
    return true;
}

void RemoveMatchSVdim()
{
    AcRxObject* pObject = acrxServiceDictionary->at(AP_MATCHPROP_SERVICE);
    if (!pObject)
        return;
    for (AcRxClass* pClass : EntityClasses())
        if (pClass->getX(AcDbMatchProperties::desc()) == pMatchProp)
            pClass->delX(AcDbMatchProperties::desc());
    if (pMatchProp && bMatchPropAdded)
        if (AcRxService* pService = AcRxService::cast(pObject))
            pService->removeDependency();
    delete pMatchProp;
    pMatchProp = nullptr;
    bMatchPropAdded = 0;
}
