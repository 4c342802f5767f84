// The root class: identity through the class descriptor, protocol extension lookup, cloning.
#include "host/rx/AcRxObject.h"

#include "host/rx/AcRxBoiler.h"

AcRxClass* AcRxObject::gpDesc = nullptr;

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::desc()
{
    if (!gpDesc)
        rxInit();
    return gpDesc;
}

AcRxClass* AcRxObject::isA() const
{
    return desc();
}

void AcRxObject::rxInit()
{
    AcRxDetail::initClass(&gpDesc, ACRX_T("AcRxObject"), nullptr, 0, 0, 0, nullptr, nullptr, nullptr);
}

bool AcRxObject::isKindOf(const AcRxClass* aClass) const
{
    if (!aClass)
        return false;
    const AcRxClass* mine = isA();
    return mine && mine->isDerivedFrom(aClass);
}

AcRxObject* AcRxObject::queryX(const AcRxClass* protocolClass) const
{
    const AcRxClass* mine = isA();
    return mine ? mine->queryX(protocolClass) : nullptr;
}

AcRxObject* AcRxObject::x(const AcRxClass* protocolClass) const
{
    AcRxObject* extension = queryX(protocolClass);
    if (!extension) {
        const AcRxClass* mine = isA();
        acrx_abort(ACRX_T("No protocol extension for %s on class %s"),
                   protocolClass ? protocolClass->name() : ACRX_T("(null)"),
                   mine ? mine->name() : ACRX_T("(unregistered)"));
    }
    return extension;
}

AcRxObject* AcRxObject::clone() const
{
    const AcRxClass* mine = isA();
    AcRxObject* copy = mine ? mine->create() : nullptr;
    if (!copy)
        return nullptr;
    if (copy->copyFrom(this) != Acad::eOk) {
        delete copy;
        return nullptr;
    }
    return copy;
}

Acad::ErrorStatus AcRxObject::copyFrom(const AcRxObject* other)
{
    return other ? Acad::eNotApplicable : Acad::eNullObjectPointer;
}

bool AcRxObject::isEqualTo(const AcRxObject* other) const
{
    return other == this;
}
