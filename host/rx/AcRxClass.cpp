// Class descriptors: registration by name, parent linking, protocol extensions, removal.
#include "host/rx/AcRxClass.h"

#include <string>
#include <string_view>

#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxClass, AcRxObject)

// The one place that fills and links descriptors; AcRxClass keeps its fields private.
struct AcRxClassRegistrar {
    static AcRxClass* make(const ACHAR* className, const ACHAR* parentClassName, int dwgVer,
                           int maintVer, int proxyFlags, AcRxPseudoConstructor constructor,
                           const ACHAR* dxfName, const ACHAR* appName)
    {
        if (!className || !*className)
            acrx_abort(ACRX_T("newAcRxClass: a class needs a name"));
        // Classes name the root as their parent, so it exists before any other class.
        if (std::wstring_view(className) != ACRX_T("AcRxObject"))
            AcRxObject::desc();
        if (acrxFindAcRxClass(className))
            acrx_abort(ACRX_T("newAcRxClass: class %s is already registered"), className);
        auto* pClass = new AcRxClass();
        pClass->m_name = className;
        pClass->m_parentName = parentClassName ? parentClassName : ACRX_T("");
        pClass->m_dxfName = dxfName ? dxfName : ACRX_T("");
        pClass->m_appName = appName ? appName : ACRX_T("");
        pClass->m_dwgVersion = dwgVer;
        pClass->m_maintVersion = maintVer;
        pClass->m_proxyFlags = proxyFlags;
        pClass->m_constructor = constructor;
        if (!pClass->m_parentName.empty())
            pClass->m_parent = acrxFindAcRxClass(pClass->m_parentName.c_str());
        acrxGetClassDictionary()->atPut(className, pClass);
        return pClass;
    }

    // Links one class to its named parent; returns a description of the failure, or "".
    static std::wstring link(AcRxClass* pClass)
    {
        if (pClass->m_parentName.empty())
            return {};
        AcRxClass* parent = acrxFindAcRxClass(pClass->m_parentName.c_str());
        std::wstring failure;
        if (!parent)
            failure = L"is not registered";
        else if (parent->isDerivedFrom(pClass))
            failure = L"derives from it";
        if (!failure.empty()) {
            pClass->m_parent = nullptr;
            return L"parent class " + pClass->m_parentName + L" of " + pClass->m_name + L" " + failure;
        }
        pClass->m_parent = parent;
        return {};
    }

    static void detach(AcRxClass* other, const AcRxClass* dying)
    {
        if (other->m_parent == dying)
            other->m_parent = nullptr;
        other->m_extensions.erase(dying);
    }
};

AcRxClass::~AcRxClass()
{
    if (m_descSlot && *m_descSlot == this)
        *m_descSlot = nullptr;
    AcRxDictionary* classes = acrxGetClassDictionary();
    if (classes->at(m_name.c_str()) == this)
        classes->remove(m_name.c_str());
    for (AcRxDictionaryIterator it(classes); !it.done(); it.next()) {
        if (auto* other = dynamic_cast<AcRxClass*>(it.object()))
            AcRxClassRegistrar::detach(other, this);
    }
}

Acad::ErrorStatus AcRxClass::getClassVersion(int& dwgVer, int& maintVer) const
{
    dwgVer = m_dwgVersion;
    maintVer = m_maintVersion;
    return Acad::eOk;
}

AcRxObject* AcRxClass::create() const
{
    return m_constructor ? m_constructor() : nullptr;
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const
{
    if (!other)
        return false;
    for (const AcRxClass* c = this; c; c = c->m_parent) {
        if (c == other)
            return true;
    }
    return false;
}

AcRxObject* AcRxClass::addX(AcRxClass* protocolClass, AcRxObject* protocolObject)
{
    if (!protocolClass)
        return nullptr;
    if (!protocolObject)
        return delX(protocolClass);
    AcRxObject*& slot = m_extensions[protocolClass];
    AcRxObject* previous = slot;
    slot = protocolObject;
    return previous;
}

AcRxObject* AcRxClass::delX(AcRxClass* protocolClass)
{
    auto it = m_extensions.find(protocolClass);
    if (it == m_extensions.end())
        return nullptr;
    AcRxObject* removed = it->second;
    m_extensions.erase(it);
    return removed;
}

AcRxObject* AcRxClass::getX(const AcRxClass* protocolClass) const
{
    auto it = m_extensions.find(protocolClass);
    return it == m_extensions.end() ? nullptr : it->second;
}

AcRxObject* AcRxClass::queryX(const AcRxClass* protocolClass) const
{
    if (!protocolClass)
        return nullptr;
    for (const AcRxClass* c = this; c; c = c->m_parent) {
        if (AcRxObject* found = c->getX(protocolClass))
            return found;
    }
    return nullptr;
}

AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int proxyFlags,
                        AcRxPseudoConstructor pseudoConstructor, const ACHAR* dxfName,
                        const ACHAR* appName)
{
    return AcRxClassRegistrar::make(className, parentClassName, 0, 0, proxyFlags, pseudoConstructor,
                                    dxfName, appName);
}

AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int dwgVer,
                        int maintVer, int proxyFlags, AcRxPseudoConstructor pseudoConstructor,
                        const ACHAR* dxfName, const ACHAR* appName)
{
    return AcRxClassRegistrar::make(className, parentClassName, dwgVer, maintVer, proxyFlags,
                                    pseudoConstructor, dxfName, appName);
}

AcRxClass* acrxFindAcRxClass(const ACHAR* className)
{
    // No cast() here: AcRxClass::cast needs AcRxClass::desc(), which may be registering.
    return dynamic_cast<AcRxClass*>(acrxGetClassDictionary()->at(className));
}

void acrxBuildClassHierarchy()
{
    AcRxObject::desc();
    std::wstring firstFailure;
    int failures = 0;
    for (AcRxDictionaryIterator it(acrxGetClassDictionary()); !it.done(); it.next()) {
        auto* pClass = dynamic_cast<AcRxClass*>(it.object());
        if (!pClass)
            continue;
        std::wstring failure = AcRxClassRegistrar::link(pClass);
        if (!failure.empty() && failures++ == 0)
            firstFailure = std::move(failure);
    }
    if (failures == 1)
        acrx_abort(ACRX_T("acrxBuildClassHierarchy: %s"), firstFailure.c_str());
    if (failures > 1)
        acrx_abort(ACRX_T("acrxBuildClassHierarchy: %s (and %d more)"), firstFailure.c_str(), failures - 1);
}

void deleteAcRxClass(AcRxClass* pClassObj)
{
    delete pClassObj;
}

namespace AcRxDetail {

namespace {

// A stringized string literal keeps its quotes and escapes; bare tokens pass unchanged.
std::wstring unquote(const ACHAR* text)
{
    if (!text)
        return {};
    std::wstring s = text;
    if (s.size() < 2 || s.front() != L'"' || s.back() != L'"')
        return s;
    std::wstring out;
    for (std::size_t i = 1; i + 1 < s.size(); ++i) {
        if (s[i] == L'\\' && i + 2 < s.size())
            ++i;
        out += s[i];
    }
    return out;
}

}  // namespace

void initClass(AcRxClass** slot, const ACHAR* className, const AcRxClass* parent, int dwgVer,
               int maintVer, int proxyFlags, AcRxPseudoConstructor constructor,
               const ACHAR* dxfName, const ACHAR* appName)
{
    if (AcRxClass* existing = acrxFindAcRxClass(className)) {
        if (existing == *slot)
            return;
        acrx_abort(ACRX_T("Class mismatch: %s"), className);
    }
    const std::wstring dxf = unquote(dxfName);
    const std::wstring app = unquote(appName);
    AcRxClass* pClass = newAcRxClass(className, parent ? parent->name() : nullptr, dwgVer, maintVer,
                                     proxyFlags, constructor, dxf.c_str(), app.c_str());
    pClass->bindDescSlot(slot);
    *slot = pClass;
}

}  // namespace AcRxDetail
