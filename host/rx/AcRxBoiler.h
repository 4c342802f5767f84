// Definition macros that give a class its runtime descriptor in one line outside the class.
#pragma once

#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxDictionary.h"

namespace AcRxDetail {

// The body of every rxInit: registers the class once. If the class dictionary already
// holds a class of that name that is not *slot, the C++ class and the registered one
// differ and acrx_abort reports "Class mismatch: <name>". The DXF and application names
// come from the macros as stringized tokens; surrounding quotes are dropped so that both
// bare tokens and string literals may be given.
void initClass(AcRxClass** slot, const ACHAR* className, const AcRxClass* parent, int dwgVer,
               int maintVer, int proxyFlags, AcRxPseudoConstructor constructor,
               const ACHAR* dxfName, const ACHAR* appName);

}  // namespace AcRxDetail

// desc() registers on first use, so a class is usable without an explicit rxInit and the
// order of static initialisation never matters (gpDesc is constant-initialised).
#define ACRX_DEFINE_MEMBERS(CLASS_NAME)                                                          \
    AcRxClass* CLASS_NAME::gpDesc = nullptr;                                                     \
    AcRxClass* CLASS_NAME::desc()                                                                \
    {                                                                                            \
        if (!CLASS_NAME::gpDesc)                                                                 \
            CLASS_NAME::rxInit();                                                                \
        return CLASS_NAME::gpDesc;                                                               \
    }                                                                                            \
    AcRxClass* CLASS_NAME::isA() const { return CLASS_NAME::desc(); }

// An abstract class, or one that is never made by name: no pseudo-constructor.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                                    \
    ACRX_DEFINE_MEMBERS(CLASS_NAME)                                                              \
    void CLASS_NAME::rxInit()                                                                    \
    {                                                                                            \
        AcRxDetail::initClass(&CLASS_NAME::gpDesc, ACRX_T(#CLASS_NAME), PARENT_CLASS::desc(), 0, \
                              0, 0, nullptr, nullptr, nullptr);                                  \
    }

// A class made by name through its default constructor; VERNO is its drawing version.
#define ACRX_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, VERNO)                                \
    ACRX_DEFINE_MEMBERS(CLASS_NAME)                                                              \
    static AcRxObject* make##CLASS_NAME() { return new CLASS_NAME(); }                           \
    void CLASS_NAME::rxInit()                                                                    \
    {                                                                                            \
        AcRxDetail::initClass(&CLASS_NAME::gpDesc, ACRX_T(#CLASS_NAME), PARENT_CLASS::desc(),    \
                              VERNO, 0, 0, &make##CLASS_NAME, nullptr, nullptr);                 \
    }

// A class stored in drawings: versions, proxy flags, DXF name and the application text
// shown when the class's module is missing. DXF_NAME and APP are written as tokens
// (KOVA_SORVANE) or as string literals.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, \
                                DXF_NAME, APP)                                                   \
    ACRX_DEFINE_MEMBERS(CLASS_NAME)                                                              \
    static AcRxObject* make##CLASS_NAME() { return new CLASS_NAME(); }                           \
    void CLASS_NAME::rxInit()                                                                    \
    {                                                                                            \
        AcRxDetail::initClass(&CLASS_NAME::gpDesc, ACRX_T(#CLASS_NAME), PARENT_CLASS::desc(),    \
                              DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, &make##CLASS_NAME,        \
                              ACRX_T(#DXF_NAME), ACRX_T(#APP));                                  \
    }
