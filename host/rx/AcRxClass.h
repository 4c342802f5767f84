// Class descriptors: one AcRxClass per runtime class, kept in the class dictionary by name.
#pragma once

#include <map>
#include <string>

#include "host/rx/AcRxObject.h"

// Makes a new, default-constructed object of a class; the caller owns it.
using AcRxPseudoConstructor = AcRxObject* (*)();

class AcRxClass : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxClass);

    // Unregisters the class from the class dictionary, detaches classes derived from it
    // (they keep their parent's name and are linked again by acrxBuildClassHierarchy) and
    // clears the descriptor pointer of the C++ class it was made for. Protocol extension
    // objects are not deleted: they belong to whoever attached them.
    ~AcRxClass() override;
    AcRxClass(const AcRxClass&) = delete;
    AcRxClass& operator=(const AcRxClass&) = delete;

    const ACHAR* name() const { return m_name.c_str(); }
    // The parent descriptor; null for the root and while the parent is not yet registered.
    AcRxClass* myParent() const { return m_parent; }
    // The parent's name as registered; "" for a class without parent.
    const ACHAR* parentName() const { return m_parentName.c_str(); }
    // "" when the class was registered without a DXF name or application name.
    const ACHAR* dxfName() const { return m_dxfName.c_str(); }
    const ACHAR* appName() const { return m_appName.c_str(); }
    int proxyFlags() const { return m_proxyFlags; }
    // The drawing version and maintenance release the class was introduced with.
    Acad::ErrorStatus getClassVersion(int& dwgVer, int& maintVer) const;

    // A new object from the pseudo-constructor; null if the class has none.
    AcRxObject* create() const;
    AcRxPseudoConstructor constructor() const { return m_constructor; }

    // True if this class is other or one of other's descendants.
    bool isDerivedFrom(const AcRxClass* other) const;

    // Attaches protocolObject under protocolClass and returns the object it replaces (null
    // if none). A null protocolObject removes the entry, like delX. The class does not own
    // the objects: the caller deletes what it attached once it has taken it off again.
    AcRxObject* addX(AcRxClass* protocolClass, AcRxObject* protocolObject);
    // Removes and returns the object under protocolClass on this class only; null if none.
    AcRxObject* delX(AcRxClass* protocolClass);
    // The object under protocolClass on this class only.
    AcRxObject* getX(const AcRxClass* protocolClass) const;
    // The object under protocolClass on this class or its nearest ancestor that has one.
    AcRxObject* queryX(const AcRxClass* protocolClass) const override;

    // Used by the DEFINE_MEMBERS macros: the C++ class's gpDesc, cleared when this dies.
    void bindDescSlot(AcRxClass** slot) { m_descSlot = slot; }

private:
    friend struct AcRxClassRegistrar;
    AcRxClass() = default;

    std::wstring m_name;
    std::wstring m_parentName;
    std::wstring m_dxfName;
    std::wstring m_appName;
    AcRxClass* m_parent = nullptr;
    int m_dwgVersion = 0;
    int m_maintVersion = 0;
    int m_proxyFlags = 0;
    AcRxPseudoConstructor m_constructor = nullptr;
    std::map<const AcRxClass*, AcRxObject*> m_extensions;
    AcRxClass** m_descSlot = nullptr;
};

// Creates a class descriptor and adds it to the class dictionary under className. The
// parent is linked at once if it is registered, otherwise by acrxBuildClassHierarchy.
// An empty name or a name already registered is a programming error: acrx_abort.
AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int proxyFlags = 0,
                        AcRxPseudoConstructor pseudoConstructor = nullptr,
                        const ACHAR* dxfName = nullptr, const ACHAR* appName = nullptr);
AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int dwgVer,
                        int maintVer, int proxyFlags = 0,
                        AcRxPseudoConstructor pseudoConstructor = nullptr,
                        const ACHAR* dxfName = nullptr, const ACHAR* appName = nullptr);

// The registered class of that name (names are case-sensitive); null if none.
AcRxClass* acrxFindAcRxClass(const ACHAR* className);

// Links every class to the parent it names. A parent that is not registered, or a parent
// chain that leads back to the class, leaves that class unlinked and, once all others are
// linked, goes to acrx_abort naming the class and its parent.
void acrxBuildClassHierarchy();

// Unregisters and deletes the class descriptor (see ~AcRxClass). Null is ignored.
void deleteAcRxClass(AcRxClass* pClassObj);
