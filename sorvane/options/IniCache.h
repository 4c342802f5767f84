// The module's INI access: the main INI file Sorvane.ini, and the two write-back
// caches (cache 1 for the main file, cache 2 for whichever other file was used last).
#pragma once

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// Path of the main INI file; created at first use with the general defaults
// and the list "OptionsFiles" naming itself. A remembered path whose file
// has gone is looked up again.
CString GetIniFile();
// Flushes and empties cache 1 if a path was known, then forgets the path so
// the next GetIniFile finds it afresh. The argument is not used.
void SetIniFileName(const wchar_t* pszPath);
// TRUE if the file is the main INI file (by its name, in any case).
BOOL IsMainIniFile(const wchar_t* pszFile);

// Options file for "Convert", the main INI file for any other section.
CString GetFileForSection(const wchar_t* pszSection);

// Cached read: cache 1 for the main file; any other file takes cache 2,
// flushing and emptying it first when it held a different file.
CString ReadIni(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey);
// Uncached read (512 characters at most). A null key reads pszSection as the
// key of "General Info". A missing main INI file is created with the defaults
// of all modes; any other missing file reads "".
CString ReadEntryFromIni(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey);
// Cached write; the cache turns dirty only when the value is new or changed.
void WriteIni(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue);
// Cached write that also goes to the file at once (the cache stays as clean
// as it was).
void WriteIniNow(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue);
// Writes a dirty cache (1 or 2) to its file; a file that vanished loses the
// changes. With bClear the cache is emptied in any case.
void SaveIniBuffer(int iCache, BOOL bClear);
// Flushes both caches.
void SaveIni();
// TRUE while the cache holds unsaved changes.
BOOL IsIniCacheDirty(int iCache);

CString GetProfileString(const wchar_t* pszSection, const wchar_t* pszKey);
int GetProfileInt(const wchar_t* pszSection, const wchar_t* pszKey);
void WriteProfileString(const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue);
CString GetGeneralString(const wchar_t* pszKey);
int GetGeneralInt(const wchar_t* pszKey);
void WriteGeneralString(const wchar_t* pszKey, const wchar_t* pszValue);
