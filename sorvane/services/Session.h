// The editor session around the drawings: SDI, file dialogs, saving, running commands,
// paper space, the command line, and a pixel of the view as a UCS point.
#pragma once

#include "host/ge/AcGePoint3d.h"
#include "host/mfc/CString.h"
#include "host/win/WinMessages.h"

class AcDbDatabase;

// The system variable SDI.
int IsSDI();
// Sets FILEDIA (and sends the same as a command line) and returns the old value, so that
// a second call with it restores the first.
int SetFiledia(int value);
// Saves the database in the newest drawing format, keeping a backup.
void SaveAs(AcDbDatabase* pDb, const wchar_t* file);

// The names of the running commands, upper case; empty when none runs, or, without
// includeOwn, when one of this module's commands runs.
CString GetActiveCommand(int includeOwn);
// 1 if a foreign command runs; with tell the user is asked to end it first.
int IsCommandActive(int tell);

// 1 while a layout is shown with its paper space viewport current.
int IsPaperSpace();
// TILEMODE of the working drawing, or of an open drawing by its file name.
int GetTilemode();
int GetTilemode(const wchar_t* drawing);
// DBMOD: nonzero once the drawing was changed.
int IsDrawingModified();
// Between model and paper space inside a layout, where the host offers it.
void switchToPaperSpace();
void switchToModelSpace();

// A pixel of the drawing view as a point of the current UCS.
AcGePoint3d ScreenPointToUcs(POINT point);

// Sends the text to the command line as if typed.
void SendCommandLine(const wchar_t* text);
