// Service registration in the service dictionary.
#include "host/rx/AcRxService.h"

#include "host/rx/AcRxBoiler.h"

ACRX_CONS_DEFINE_MEMBERS(AcRxService, AcRxObject, 0)

AcRxObject* acrxRegisterService(const ACHAR* serviceName)
{
    if (!serviceName || !*serviceName)
        return nullptr;
    AcRxDictionary* services = acrxGetServiceDictionary();
    if (AcRxObject* existing = services->at(serviceName))
        return AcRxService::cast(existing);
    auto* service = new AcRxService();
    services->atPut(serviceName, service);
    return service;
}

bool acrxServiceIsRegistered(const ACHAR* serviceName)
{
    return acrxGetServiceDictionary()->has(serviceName);
}
