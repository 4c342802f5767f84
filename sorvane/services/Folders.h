// Where the module keeps its files, and the small path helpers it needs.
// Folders are returned with a trailing backslash; an unknown folder is "".
#pragma once

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// TRUE if a file or folder of that name exists.
BOOL FileExists(const wchar_t* path);
// Creates one folder level; TRUE if the folder exists afterwards.
BOOL MakeDir(const wchar_t* path);
// Everything before the last "\" or "/", with a trailing backslash; "" for a
// path without a separator.
CString GetFolderOf(const wchar_t* path);

// The user's roaming application data + "\halvorne\" (created if missing).
CString GetAppDataFolder();
// GetAppDataFolder() + "sorvane\" (created if missing).
CString GetProductFolder();
// The temporary folder, with a trailing separator.
CString GetTempFolder();
