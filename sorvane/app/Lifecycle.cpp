// How the module comes up and goes down: the start-up sequence of the first
// kInitAppMsg and the shut-down of kUnloadAppMsg, kEndMsg or kQuitMsg.
#include "app/App.h"

#include "app/ChainLink.h"
#include "app/CommandTable.h"
#include "app/Language.h"
#include "app/MatchProp.h"
#include "app/MessageFilter.h"
#include "app/Panel.h"
#include "app/SysVarWatch.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/ed/AcEdWindow.h"
#include "host/ed/acedads.h"
#include "host/res/ResLibrary.h"
#include "host/res/ResModule.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxDictionary.h"
#include "host/rx/AcRxService.h"
#include "host/win/WinCrt.h"
#include "host/win/WinModule.h"
#include "host/win/WinTimer.h"
#include "options/GlobDimOptions.h"
#include "options/IniCache.h"
#include "resources/Resources.h"
#include "services/Annotative.h"
#include "services/Folders.h"
#include "services/Guard.h"
#include "services/Locks.h"
#include "services/Messages.h"
#include "services/PanelLink.h"
#include "services/Trace.h"

namespace {

// The host's resource handle as the module found it.
HINSTANCE hAcadResource = nullptr;

void initApp()
{
    CTemporaryResourceOverride resources;
    if (!acrxServiceIsRegistered(SORVANE_GROUP))
        acrxRegisterService(SORVANE_GROUP);
    RegisterChainClass();
    // Chains follow the drawing's annotation scale like the host's dimensions.
    AddAnnotativeExtension(ChainClass());
    // The height mark registers its class here once it is part of the module.
    acrxBuildClassHierarchy();
    if (!addMatchSVdim()) {
        acutPrintf(L"\n**MatchProperties has not been registered.\nProtocol extension will be added when MATCHPROP "
                   L"is used\n");
        acedPostCommandPrompt();
    }
    RegisterCommands();
    // The database and command reactors attach here once they exist.
    InstallSysVarWatch();
    bMessageFilterOn = acedRegisterFilterWinMsg(filterProc) ? 1 : 0;
    if (!bMessageFilterOn)
        acutPrintf(L"\nCan\u00b4t register message filter.");
    InstallPanelLink();
    // The panel comes back as it was left at the end of the last session.
    if (_wtoi(ReadGeneralInfo(L"ShowAppWindow")) == 1)
        RunCommand(FindCommand(L"KOVA_Sorvane"));
}

void UnloadApp()
{
    EndApp(1, 1);
    if (acrxServiceDictionary->at(SORVANE_GROUP))
        delete acrxServiceDictionary->remove(SORVANE_GROUP);
    UnlockAll();
    // The reactors are taken off here once they exist.
    RemoveSysVarWatch();
    RemoveAnnotativeExtension(ChainClass());
    SaveIni();
    if (bMessageFilterOn) {
        acedRemoveFilterWinMsg(filterProc);
        bMessageFilterOn = 0;
    }
    KillTimer(acedGetAcadDwgView(), kPopupTimerId);
    RestoreAcadResourceHandle();
}

// What a later load would otherwise find: the commands (their code may be
// gone), the panel hooks, the libraries and the option store.
void ReleaseModuleState()
{
    RemoveCommands();
    SetPanelLink(nullptr);
    popupObjectId = AcDbObjectId::kNull;
    if (hLanguageResource)
        FreeLibrary(hLanguageResource);
    hLanguageResource = nullptr;
    strLanguageFile.Empty();
    if (hDllInstance)
        svres::FreeResourceModule(hDllInstance);
    hDllInstance = nullptr;
    delete pGlobDimOptions;
    pGlobDimOptions = nullptr;
}

} // namespace

void RestoreAcadResourceHandle()
{
    AfxSetResourceHandle(hAcadResource);
}

CString GetModuleFolder()
{
    wchar_t buffer[MAX_PATH] = {};
    const DWORD n = GetModuleFileNameW(reinterpret_cast<HMODULE>(&GetModuleFolder), buffer, MAX_PATH);
    if (n == 0 || n >= MAX_PATH)
        return CString();
    return GetFolderOf(buffer);
}

void OnkInitApp()
{
    bUnloaded = 0;
    if (pGlobDimOptions)
        return;  // a second start-up is not served
    hAcadResource = AfxGetResourceHandle();
    if (!hDllInstance) {
        CString strError;
        hDllInstance = LoadModuleResources(&strError);
        if (!hDllInstance)
            acutPrintf(L"\n%s", static_cast<const wchar_t*>(strError));
    }
    pGlobDimOptions = new CGlobDimOptions;
    {
        // No language library yet: the texts the options need are the module's own.
        CTemporaryResourceOverride resources;
        pGlobDimOptions->LoadOptions();
    }
    LoadLanguage();
    initApp();
}

void OnkUnloadApp()
{
    if (bUnloaded)
        return;
    const HINSTANCE hBefore = AfxGetResourceHandle();
    if (appEventCatcher) {
        acrxDynamicLinker->removeReactor(appEventCatcher);
        delete appEventCatcher;
        appEventCatcher = nullptr;
    }
    RemoveMatchSVdim();
    if (!RunGuarded(UnloadApp))
        MessageBoxText(L"\nANY ERROR in unloadApp ");
    bUnloaded = 1;
    const bool bOwn = hBefore == hDllInstance || hBefore == hLanguageResource;
    ReleaseModuleState();
    if (hBefore && !bOwn)
        AfxSetResourceHandle(hBefore);
}
