// Named services that modules publish and depend on, kept in the service dictionary.
#pragma once

#include "host/rx/AcRxObject.h"

// A service counts the modules that depend on it; it may be unloaded only when none do.
class AcRxService : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxService);

    AcRxService() = default;

    void addDependency() { ++m_dependencies; }
    // Never goes below zero: an unbalanced release is ignored.
    void removeDependency()
    {
        if (m_dependencies > 0)
            --m_dependencies;
    }
    int dependencyCount() const { return m_dependencies; }
    bool unloadable() const { return m_dependencies == 0; }

private:
    int m_dependencies = 0;
};

// Creates an AcRxService under serviceName in the service dictionary and returns it. A
// service already registered under that name is returned as it is; a name taken by an
// object that is not a service, or an empty name, gives null.
AcRxObject* acrxRegisterService(const ACHAR* serviceName);
bool acrxServiceIsRegistered(const ACHAR* serviceName);
