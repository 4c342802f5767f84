// MATCHPROP: the source's properties onto each target, through the target class's
// AcDbMatchProperties when it has one, else colour, layer, linetype, linetype scale and
// line weight.
#include <algorithm>

#include "host/ap/AcDbMatchProperties.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/ap/ApCmdSupport.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/acedads.h"
#include "host/rx/AcRxBoiler.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxService.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbMatchProperties, AcRxObject)

namespace {

bool gProviderLoaded = false;

void copyCommon(const AcDbEntity* source, AcDbEntity* target)
{
    target->setColor(source->color());
    target->setLayer(source->layerId());
    target->setLinetype(source->linetypeId());
    target->setLinetypeScale(source->linetypeScale());
    target->setLineWeight(source->lineWeight());
}

void cmdMatchProp()
{
    if (!apcmd::database())
        return;
    apLoadMatchPropProvider();
    AcDbObjectId sourceId;
    AcGePoint3d pick;
    for (;;) {
        const int rc = apcmd::entSel(L"\nSelect source object: ", sourceId, pick);
        if (rc == RTNORM)
            break;
        if (rc != RTERROR)
            return;
    }
    apcmd::say(L"Select destination object(s).");
    std::vector<AcDbObjectId> targets;
    if (!apcmd::select(targets))
        return;
    AcDbEntity* source = nullptr;
    if (acdbOpenAcDbEntity(source, sourceId, AcDb::kForRead) != Acad::eOk)
        return;
    targets.erase(std::remove(targets.begin(), targets.end(), sourceId), targets.end());
    apcmd::forEachForWrite(targets, [&](AcDbEntity* target) {
        auto* pe = AcDbMatchProperties::cast(target->queryX(AcDbMatchProperties::desc()));
        if (pe)
            pe->copyProperties(source, target, AcDbMatchProperties::kSetAllFlagsOn);
        else
            copyCommon(source, target);
    });
    source->close();
}

} // namespace

void apLoadMatchPropProvider()
{
    if (gProviderLoaded)
        return;
    gProviderLoaded = true;
    AcDbMatchProperties::desc();
    acrxRegisterService(AP_MATCHPROP_SERVICE);
    acrxDynamicLinker->fireAppLoaded(AP_MATCHPROP_APP);
}

bool apMatchPropProviderLoaded()
{
    return gProviderLoaded;
}

void apRegisterMatchPropCommand()
{
    apcmd::add(L"MATCHPROP", cmdMatchProp);
}
