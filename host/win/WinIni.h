// The Win32 profile functions over INI files (see host/win/IniDocument.h for
// how a file is read). Paths follow host/win/WinPath.h; a relative path is
// taken from the current folder.
//
// Files are written as UTF-8 without BOM and read as UTF-8, or as
// Windows-1252 when they are not valid UTF-8 (a BOM is skipped). Each change
// rewrites the file atomically and keeps its line-ending style; the file and
// its folders are created on the first write. Parsed files are cached by path
// and checked against the file's identity, size and time before each use.
#pragma once

#include "host/win/WinError.h"
#include "host/win/WinTypes.h"

// Copies the entry's value into lpReturnedString, cut to nSize - 1
// characters, and returns the number of characters copied. The value is
// trimmed, and one pair of enclosing quotes ('...' or "...") is removed.
// A missing file, section or key gives lpDefault (null: "") without its
// trailing blanks. A null lpAppName gives the section names, a null
// lpKeyName the section's keys: each terminated by 0, the list by another 0;
// a list cut short ends in two 0s and returns nSize - 2.
DWORD GetPrivateProfileStringW(LPCWSTR lpAppName, LPCWSTR lpKeyName, LPCWSTR lpDefault,
                               LPWSTR lpReturnedString, DWORD nSize, LPCWSTR lpFileName);

// The value's leading integer: optional sign, then decimal digits or "0x"
// and hex digits, up to the first other character. nDefault when the entry
// is missing or does not start with a number.
UINT GetPrivateProfileIntW(LPCWSTR lpAppName, LPCWSTR lpKeyName, INT nDefault, LPCWSTR lpFileName);

// The section's entries as "key=value" strings in a 0-separated list (as
// for the key list above); comments and other lines are left out.
DWORD GetPrivateProfileSectionW(LPCWSTR lpAppName, LPWSTR lpReturnedString, DWORD nSize, LPCWSTR lpFileName);
DWORD GetPrivateProfileSectionNamesW(LPWSTR lpszReturnBuffer, DWORD nSize, LPCWSTR lpFileName);

// Sets key=value in the section. A null lpString removes the key, a null
// lpKeyName the whole section (nothing is created for a removal). All three
// null only flushes, which has nothing to do here. FALSE with GetLastError()
// if the file cannot be written.
BOOL WritePrivateProfileStringW(LPCWSTR lpAppName, LPCWSTR lpKeyName, LPCWSTR lpString, LPCWSTR lpFileName);

// Replaces the section's entries by the 0-separated, 00-terminated list of
// "key=value" lines; a null list removes the section.
BOOL WritePrivateProfileSectionW(LPCWSTR lpAppName, LPCWSTR lpString, LPCWSTR lpFileName);


inline DWORD GetPrivateProfileString(LPCWSTR a, LPCWSTR k, LPCWSTR d, LPWSTR r, DWORD n, LPCWSTR f)
{
    return GetPrivateProfileStringW(a, k, d, r, n, f);
}
inline UINT GetPrivateProfileInt(LPCWSTR a, LPCWSTR k, INT d, LPCWSTR f) { return GetPrivateProfileIntW(a, k, d, f); }
inline DWORD GetPrivateProfileSection(LPCWSTR a, LPWSTR r, DWORD n, LPCWSTR f) { return GetPrivateProfileSectionW(a, r, n, f); }
inline DWORD GetPrivateProfileSectionNames(LPWSTR r, DWORD n, LPCWSTR f) { return GetPrivateProfileSectionNamesW(r, n, f); }
inline BOOL WritePrivateProfileString(LPCWSTR a, LPCWSTR k, LPCWSTR s, LPCWSTR f)
{
    return WritePrivateProfileStringW(a, k, s, f);
}
inline BOOL WritePrivateProfileSection(LPCWSTR a, LPCWSTR s, LPCWSTR f) { return WritePrivateProfileSectionW(a, s, f); }

namespace svwin {
// Forgets every parsed file (the next read parses again).
void ClearProfileCache();
} // namespace svwin
