// AfxMessageBox: the MFC message box, over the host's message box sink
// (host/win/WinMessageBox.h), with the application's name as caption.
#pragma once

#include "host/win/WinMessageBox.h"
#include "host/win/WinTypes.h"

int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
// The text is string-table entry nIDPrompt; an unknown id shows an empty box.
int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);

// The caption of AfxMessageBox; "" until the application sets it.
LPCTSTR AfxGetAppName();
void AfxSetAppName(LPCTSTR lpszName);
