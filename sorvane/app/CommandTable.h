// The module's commands and AutoLISP functions as the host knows them: one
// table, registered in order under the group "KOVA_SORVANE", and the dispatch
// of the functions the host calls by code.
#pragma once

#include "host/rx/Adesk.h"

// The command group and the service the module registers.
#define SORVANE_GROUP L"KOVA_SORVANE"

struct CCommandEntry {
    const wchar_t* pszGlobalName;
    const wchar_t* pszLocalName;
    Adesk::Int32 nFlags;  // ACRX_CMD_MODAL, or ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW
    void (*pfnBody)();    // null while the command's work is not part of the module yet
};

// The 26 commands in the order they are registered.
const CCommandEntry* GetCommandTable(int* pnCount);
// Adds every command of the table to the host's command stack; the number
// added (0 when the group was there already).
int RegisterCommands();
// Takes the group off the command stack again.
void RemoveCommands();

// The row of a command by its global name (case ignored); -1 if none.
int FindCommand(const wchar_t* pszGlobalName);
// Runs a command's body behind the door guard; a command whose work is not
// in the module yet writes one line saying so.
void RunCommand(int iIndex);
// The line a command that is not available yet writes.
void PrintNotAvailable(const wchar_t* pszName);

// --- AutoLISP ---------------------------------------------------------------------
// The three functions with codes 0, 1, 2: defined for the current drawing
// (kLoadDwgMsg) and removed again (kUnloadDwgMsg).
void DefineLispFunctions();
void UndefineLispFunctions();
// kInvkSubrMsg: calls the function of the code and answers RSRSLT when it
// returned RTNORM, RSERR otherwise, and RTERROR for a code outside 0 to 3.
int DispatchLispFunction(int iCode);
