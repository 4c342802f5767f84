// The root of the runtime class system: class identity, checked casts and protocol extensions.
#pragma once

#include "host/rx/AcChar.h"
#include "host/rx/AcadStrc.h"

class AcRxClass;

// Inside a class derived from AcRxObject: declares its class descriptor and the members
// every runtime class has. The definitions come from one of the ACRX_..._DEFINE_MEMBERS
// macros of AcRxBoiler.h. Leaves the class in public access.
//   cast(p)  p as this class if it is of this class or one derived from it, else null.
//            Like the platform's, it takes a pointer to const and returns one to non-const.
//   desc()   the class descriptor; registers the class on first use.
//   isA()    the descriptor of the object's own, most derived class.
//   rxInit() registers the class; a second call for the same class does nothing.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                                         \
public:                                                                                          \
    static CLASS_NAME* cast(const AcRxObject* inPtr)                                            \
    {                                                                                            \
        return (inPtr && inPtr->isKindOf(CLASS_NAME::desc()))                                    \
                   ? static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(inPtr))                    \
                   : nullptr;                                                                    \
    }                                                                                            \
    static AcRxClass* desc();                                                                    \
    AcRxClass* isA() const override;                                                             \
    static AcRxClass* gpDesc;                                                                    \
    static void rxInit()

class AcRxObject {
public:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
    virtual ~AcRxObject();

    static AcRxObject* cast(const AcRxObject* inPtr) { return const_cast<AcRxObject*>(inPtr); }
    static AcRxClass* desc();
    virtual AcRxClass* isA() const;
    // The descriptor of the root class "AcRxObject"; null until the first desc() or rxInit().
    static AcRxClass* gpDesc;
    static void rxInit();

    // True if the object's class is aClass or derived from it; false for null.
    bool isKindOf(const AcRxClass* aClass) const;

    // The protocol extension registered for protocolClass on the object's class or the
    // nearest ancestor that has one; null if none has.
    virtual AcRxObject* queryX(const AcRxClass* protocolClass) const;
    // As queryX, but a missing extension is a programming error and goes to acrx_abort.
    AcRxObject* x(const AcRxClass* protocolClass) const;

    // A new object of the same class made by the class's pseudo-constructor and filled by
    // copyFrom; null if the class has no constructor or copyFrom refuses.
    virtual AcRxObject* clone() const;
    // Copies other's state into this object. The root has no state of its own and a derived
    // class that can be copied overrides this, so the root answers eNotApplicable (and
    // eNullObjectPointer for null): a clone never silently drops a derived class's data.
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* other);
    // Value equality as a derived class defines it; the root compares identity.
    virtual bool isEqualTo(const AcRxObject* other) const;
};
