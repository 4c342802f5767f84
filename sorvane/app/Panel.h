// The main panel's life: making it, closing it, and letting it give way while
// a command takes input on the screen. Its visibility and placement survive
// from one session to the next in "General Info" of the main INI file.
#pragma once

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// Makes the panel if there is none (reloading the options first) and shows it
// when bShow is set, at the place it was left. 1 on success, 0 if the panel
// could not be made.
int StartApp(int bShow);
// Closes the panel: with bDestroy 0 it is only hidden. With both flags set the
// panel's visibility is written to ShowAppWindow; a visible panel's placement
// goes to Position before it is destroyed.
void EndApp(int bDestroy, int bKeepState);
// Hides the panel round a pick in the drawing (remembering whether it was
// shown), cancels a foreign command and marks a command of the module running.
void HideDlgMain();
// Brings the panel back if HideDlgMain hid it, and ends the running mark.
void ShowDlgMain();
// The names of the running commands (CMDNAMES); "" while none runs.
CString GetCommandNames();
// Gives the host's main window the focus.
void FocusAcad();

// Places the panel by a Position text "x,y,width,height,maximised". Fewer
// than five fields, or a placement off the screen's range, leave it where it
// is. FALSE if nothing changed.
BOOL ApplyPanelPosition(const CString& strPosition);
// Position for the panel as it stands ("%d,%d,%d,%d,%d"); "" while it is
// iconic or absent.
CString FormatPanelPosition();

// One entry of "General Info" in the main INI file ("" without options).
CString ReadGeneralInfo(const wchar_t* pszKey);
void WriteGeneralInfo(const wchar_t* pszKey, const wchar_t* pszValue);

// Installs the panel hooks the drawing services call.
void InstallPanelLink();
