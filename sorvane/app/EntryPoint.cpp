// The module's entry point: every application message of the host arrives
// here and is handled behind one guard.
#include "app/App.h"

#include "app/CommandTable.h"
#include "app/MatchProp.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/ed/acedads.h"
#include "host/rx/AcRxDictionary.h"
#include "services/Guard.h"
#include "services/Trace.h"

namespace {

// The interface generation the module is built against.
constexpr int kApiVersion = 1;

void InitAppMessage(void* pkt)
{
    if (!acrxDynamicLinker->unlockApplication(pkt))
        Trace(L"\nacrxEntryPoint: the host keeps the module locked. ");
    acrxDynamicLinker->registerAppMDIAware(pkt);
    if (!appEventCatcher && !acrxClassDictionary->at(L"MatchProperties")) {
        appEventCatcher = new AppEventCatcher;
        acrxDynamicLinker->addReactor(appEventCatcher);
    }
    OnkInitApp();
}

int HandleMessage(AcRx::AppMsgCode msg, void* pkt)
{
    switch (msg) {
    case AcRx::kInitAppMsg:
        InitAppMessage(pkt);
        break;
    case AcRx::kUnloadAppMsg:
    case AcRx::kEndMsg:
    case AcRx::kQuitMsg:
        OnkUnloadApp();
        break;
    case AcRx::kLoadDwgMsg:
        DefineLispFunctions();
        // The database reactor watches the new drawing here once it exists.
        break;
    case AcRx::kUnloadDwgMsg:
        UndefineLispFunctions();
        break;
    case AcRx::kInvkSubrMsg:
        acedRetVoid();
        return DispatchLispFunction(acedGetFunCode());
    case AcRx::kSaveMsg:
    case AcRx::kDependencyMsg:
    case AcRx::kNoDependencyMsg:
        TraceF(L"\nacrxEntryPoint: message %d ", static_cast<int>(msg));
        break;
    default:
        break;
    }
    return AcRx::kRetOK;
}

} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)
{
    int iResult = AcRx::kRetOK;
    if (!RunGuarded([&] { iResult = HandleMessage(msg, pkt); })) {
        acutPrintf(L"\nANY PROBLEM on %d message... ", static_cast<int>(msg));
        iResult = AcRx::kRetOK;
    }
    return static_cast<AcRx::AppRetCode>(iResult);
}

extern "C" int acrxGetApiVersion()
{
    return kApiVersion;
}
