// The module's frame: its entry point, the state it keeps for its whole life,
// and the start-up and shut-down sequences that the host's messages drive.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/mfc/CString.h"
#include "host/rx/AcRx.h"
#include "host/win/WinTypes.h"

class CDlgMain;
class AppEventCatcher;
class SVdimMatchProp;

// --- module-wide state --------------------------------------------------------
// The main panel; null while none exists (StartApp makes it, EndApp ends it).
extern CDlgMain* dlgMyApp;
// 0 while the module is live, 1 once its unload handling has run. A set flag
// turns the message filter off and makes the entities' filers do nothing.
extern int bUnloaded;
// The linker reactor that attaches the MATCHPROP extension once its provider
// loads; exists only while the provider was missing at start-up.
extern AppEventCatcher* appEventCatcher;
// The language library of a ".lng" file; null while none is loaded.
extern HINSTANCE hLanguageResource;
// Full path of the language file chosen last; compared without regard to case.
extern CString strLanguageFile;
// The module's own resources (the embedded script).
extern HINSTANCE hDllInstance;
// The entity under the last right click; the null id otherwise.
extern AcDbObjectId popupObjectId;
// The message filter is registered.
extern int bMessageFilterOn;
// The SVdimMatchProp extension is attached (so it is attached only once).
extern short bMatchPropAdded;
// The single MATCHPROP extension object, while attached.
extern SVdimMatchProp* pMatchProp;

// --- entry ----------------------------------------------------------------------
// The module's only door for the host. Answers 0 for every message except
// kInvkSubrMsg, which answers the AutoLISP dispatch result (RSRSLT, RSERR or
// RTERROR). Nothing thrown inside ever leaves it.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);
extern "C" int acrxGetApiVersion();

// --- lifecycle -----------------------------------------------------------------
// kInitAppMsg: everything after the linker calls. A second call while the
// option store exists does nothing.
void OnkInitApp();
// kUnloadAppMsg, kEndMsg, kQuitMsg: the whole shut-down; does nothing once
// bUnloaded is set.
void OnkUnloadApp();

// Gives the resource handle back to the host (the one it had when the
// module started).
void RestoreAcadResourceHandle();

// The module's folder (the folder of the library the code runs in), with a
// trailing separator.
CString GetModuleFolder();
