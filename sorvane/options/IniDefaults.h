// What the INI files hold before the user changes anything, and the checks
// and bookkeeping of the options file in use.
#pragma once

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// Writes the defaults of one mode (2 to 5) into the file at once: the keys of
// prefix + "MainOptions" and the lists Scale2Layer, TextHeight2Color and,
// except for texts, ExtLineLength.
void MakeDefaultIniValues(const wchar_t* pszFile, int iMode);
// The lists alone, for a file whose measures stand but whose lists are missing.
void MakeDefaultIniLists(const wchar_t* pszFile, int iMode);
// TRUE if "MainOptions" of the file holds Measure or Decimals; otherwise a
// message box says the file is no options file.
BOOL CheckOptionsFile(const wchar_t* pszFile);

// The options file named by CurOptionsFile of the main INI file; the main
// file itself when that is empty or gone.
CString GetCurOptionsFile();
// Makes the file the options file in use: CurOptionsFile, the option store's
// m_strCurOptionsFile, and first place in the list "OptionsFiles".
void SetCurOptionsFile(const wchar_t* pszFile);
