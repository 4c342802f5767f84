// The command table, its registration, and the AutoLISP functions with their
// dispatch. Each command enters the module through the door guard.
#include "app/CommandTable.h"

#include <array>
#include <utility>

#include "app/App.h"
#include "app/CutLine.h"
#include "app/DimPlace.h"
#include "app/DlgMain.h"
#include "app/Panel.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/acedads.h"
#include "host/mfc/CString.h"
#include "options/GlobDimOptions.h"
#include "services/Guard.h"
#include "services/Messages.h"

namespace {

constexpr Adesk::Int32 kModal = ACRX_CMD_MODAL;
constexpr Adesk::Int32 kPickSet = ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW;

void CmdSorvane()
{
    if (!StartApp(1) || !dlgMyApp) {
        MessageBoxText(L"Any error on create sorvane dialog...");
        return;
    }
    dlgMyApp->ShowWindow(SW_SHOW);
}

void CmdAdim()
{
    RunPlacementCommand(DimPlace, 2);
}

void CmdHdim()
{
    RunPlacementCommand(DimPlace, 0);
}

void CmdVdim()
{
    RunPlacementCommand(DimPlace, 1);
}

// The global name "KOVA_vdim" is lower case on purpose: scripts written for it
// must keep working.
const CCommandEntry kCommands[] = {
    {L"KOVA_Adim", L"KOVA_Adim", kModal, CmdAdim},
    {L"KOVA_Hdim", L"KOVA_Hdim", kModal, CmdHdim},
    {L"KOVA_vdim", L"KOVA_Vdim", kModal, CmdVdim},
    {L"KOVA_Sorvane", L"KOVA_Sorvane", kModal, CmdSorvane},
    {L"KOVA_Doption", L"KOVA_Doption", kModal, nullptr},
    {L"KOVA_SelectSorvaneObjects", L"KOVA_DimSelectObjects", kPickSet, nullptr},
    {L"KOVA_dimAngular", L"KOVA_dimAngular", kModal, nullptr},
    {L"KOVA_dimRadius", L"KOVA_dimRadius", kModal, nullptr},
    {L"KOVA_dimDiameter", L"KOVA_dimDiameter", kModal, nullptr},
    {L"KOVA_HdimPlan", L"KOVA_HdimPlan", kPickSet, nullptr},
    {L"KOVA_HdimFront", L"KOVA_HdimFront", kModal, nullptr},
    {L"KOVA_dimArc", L"KOVA_dimArc", kModal, nullptr},
    {L"KOVA_dimReplace", L"KOVA_dimReplace", kModal, nullptr},
    {L"KOVA_SorvaneText", L"KOVA_SorvaneText", kModal, nullptr},
    {L"KOVA_SorvaneMText", L"KOVA_SorvaneMText", kModal, nullptr},
    {L"KOVA_SetSorvaneTexts", L"KOVA_SetSorvaneTexts", kModal, nullptr},
    {L"KOVA_SetSorvaneDims", L"KOVA_SetSorvaneDims", kModal, nullptr},
    {L"KOVA_UnsetSorvaneTexts", L"KOVA_UnsetSorvaneTexts", kModal, nullptr},
    {L"KOVA_DRStart", L"KOVA_DRStart", kModal, nullptr},
    {L"KOVA_DRStop", L"KOVA_DRStop", kModal, nullptr},
    {L"KOVA_DimProp", L"KOVA_DimProp", kPickSet, nullptr},
    {L"KOVA_DimPropL", L"KOVA_DimPropL", kPickSet, nullptr},
    {L"KOVA_DimPropH", L"KOVA_DimPropH", kPickSet, nullptr},
    {L"KOVA_Acad2Sorvane", L"KOVA_Acad2Sorvane", kPickSet, nullptr},
    {L"KOVA_Sorvane2Acad", L"KOVA_Sorvane2Acad", kPickSet, nullptr},
    {L"KOVA_ProxyAcad2Sorvane", L"KOVA_ProxyAcad2Sorvane", kPickSet, nullptr},
};
constexpr int kCommandCount = static_cast<int>(std::size(kCommands));

// The host calls a command without telling which it is: one entry per row.
template <int I>
void CommandEntry()
{
    RunCommand(I);
}
template <int... I>
constexpr std::array<AcRxFunctionPtr, sizeof...(I)> MakeEntries(std::integer_sequence<int, I...>)
{
    return {&CommandEntry<I>...};
}
constexpr auto kEntries = MakeEntries(std::make_integer_sequence<int, kCommandCount>());

// --- AutoLISP ----------------------------------------------------------------------

// What the pending context-menu command leaves behind: the host's resources
// and the focus on the drawing.
void AfterPopup()
{
    RestoreAcadResourceHandle();
    FocusAcad();
}

int LispGuarded(const wchar_t* pszName, int (*pfnWork)())
{
    int iResult = RTERROR;
    if (!RunGuarded([&] { iResult = pfnWork(); }))
        acutPrintf(L"\nANY PROBLEM in %s... ", pszName);
    return iResult;
}

int LispPopUp()
{
    return LispGuarded(L"KOVA_SorvanePopUp", [] {
        acedRetVoid();
        PrintNotAvailable(L"KOVA_SorvanePopUp");
        AfterPopup();
        return RTNORM;
    });
}

int LispPopUpH()
{
    return LispGuarded(L"KOVA_SorvanePopUpH", [] {
        acedRetVoid();
        PrintNotAvailable(L"KOVA_SorvanePopUpH");
        AfterPopup();
        return RTNORM;
    });
}

int LispMakeDimByLine()
{
    return LispGuarded(L"KOVA_SorvaneMakeDimByLine", [] {
        acedRetVoid();
        if (!pGlobDimOptions)
            return RTERROR;
        // The panel leaves the chain type here before it calls the function.
        MakeDimByLine(pGlobDimOptions->m_iRunningCommand);
        return RTNORM;
    });
}

struct CLispEntry {
    const wchar_t* pszName;
    int (*pfnBody)();
};
// Codes are the positions.
const CLispEntry kLispFunctions[] = {
    {L"C:KOVA_SorvanePopUp", LispPopUp},
    {L"C:KOVA_SorvanePopUpH", LispPopUpH},
    {L"KOVA_SorvaneMakeDimByLine", LispMakeDimByLine},
};
constexpr int kLispCount = static_cast<int>(std::size(kLispFunctions));
// Codes up to this one are dispatched; those without a function answer RSERR.
constexpr int kLastLispCode = 3;

} // namespace

const CCommandEntry* GetCommandTable(int* pnCount)
{
    if (pnCount)
        *pnCount = kCommandCount;
    return kCommands;
}

int RegisterCommands()
{
    int nAdded = 0;
    for (int i = 0; i < kCommandCount; ++i) {
        const CCommandEntry& c = kCommands[i];
        if (acedRegCmds->addCommand(SORVANE_GROUP, c.pszGlobalName, c.pszLocalName, c.nFlags, kEntries[i], nullptr, -1,
                                    nullptr) == Acad::eOk)
            ++nAdded;
    }
    return nAdded;
}

void RemoveCommands()
{
    acedRegCmds->removeGroup(SORVANE_GROUP);
}

int FindCommand(const wchar_t* pszGlobalName)
{
    for (int i = 0; pszGlobalName && i < kCommandCount; ++i)
        if (CString(kCommands[i].pszGlobalName).CompareNoCase(pszGlobalName) == 0)
            return i;
    return -1;
}

void PrintNotAvailable(const wchar_t* pszName)
{
    acutPrintf(L"\nBefehl %s ist noch nicht verfügbar.", pszName);
}

void RunCommand(int iIndex)
{
    if (iIndex < 0 || iIndex >= kCommandCount)
        return;
    const CCommandEntry& c = kCommands[iIndex];
    if (!RunGuarded([&] {
            if (c.pfnBody)
                c.pfnBody();
            else
                PrintNotAvailable(c.pszGlobalName);
        }))
        acutPrintf(L"\nANY PROBLEM in %s... ", c.pszGlobalName);
}

void DefineLispFunctions()
{
    for (short i = 0; i < kLispCount; ++i) {
        acedDefun(kLispFunctions[i].pszName, i);
        acedRegFunc(kLispFunctions[i].pfnBody, i);
    }
}

void UndefineLispFunctions()
{
    for (short i = 0; i < kLispCount; ++i)
        acedUndef(kLispFunctions[i].pszName, i);
}

int DispatchLispFunction(int iCode)
{
    if (iCode < 0 || iCode > kLastLispCode)
        return RTERROR;
    const int iResult = iCode < kLispCount ? kLispFunctions[iCode].pfnBody() : RTERROR;
    return iResult == RTNORM ? RSRSLT : RSERR;
}
