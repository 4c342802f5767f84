// Win32 file and folder functions over the native file system. Paths follow
// the rules of host/win/WinPath.h; failures set GetLastError().
#pragma once

#include "host/win/WinError.h"
#include "host/win/WinTime.h"
#include "host/win/WinTypes.h"

#define INVALID_FILE_ATTRIBUTES ((DWORD)-1)
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_HIDDEN 0x00000002
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080

#define MOVEFILE_REPLACE_EXISTING 0x00000001
#define MOVEFILE_COPY_ALLOWED 0x00000002

#ifndef ERROR_DIRECTORY
#define ERROR_DIRECTORY 267L
#endif

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

// DIRECTORY for folders; READONLY when the owner may not write; HIDDEN for
// names starting with "."; NORMAL when nothing else applies.
DWORD GetFileAttributesW(LPCWSTR lpFileName);
BOOL PathFileExistsW(LPCWSTR pszPath);

// Copies contents, permissions and modification time. With bFailIfExists an
// existing target gives ERROR_FILE_EXISTS.
BOOL CopyFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName, BOOL bFailIfExists);
// Renames a file or folder; an existing target gives ERROR_ALREADY_EXISTS.
// Across file systems a file is copied and the original removed.
BOOL MoveFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName);
BOOL MoveFileExW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName, DWORD dwFlags);
// Files only: a folder gives ERROR_ACCESS_DENIED.
BOOL DeleteFileW(LPCWSTR lpFileName);
// One level: a missing parent gives ERROR_PATH_NOT_FOUND.
BOOL CreateDirectoryW(LPCWSTR lpPathName, LPSECURITY_ATTRIBUTES lpSecurityAttributes);
// Empty folders only (ERROR_DIR_NOT_EMPTY).
BOOL RemoveDirectoryW(LPCWSTR lpPathName);

inline DWORD GetFileAttributes(LPCWSTR p) { return GetFileAttributesW(p); }
inline BOOL PathFileExists(LPCWSTR p) { return PathFileExistsW(p); }
inline BOOL CopyFile(LPCWSTR s, LPCWSTR d, BOOL b) { return CopyFileW(s, d, b); }
inline BOOL MoveFile(LPCWSTR s, LPCWSTR d) { return MoveFileW(s, d); }
inline BOOL MoveFileEx(LPCWSTR s, LPCWSTR d, DWORD f) { return MoveFileExW(s, d, f); }
inline BOOL DeleteFile(LPCWSTR p) { return DeleteFileW(p); }
inline BOOL CreateDirectory(LPCWSTR p, LPSECURITY_ATTRIBUTES a) { return CreateDirectoryW(p, a); }
inline BOOL RemoveDirectory(LPCWSTR p) { return RemoveDirectoryW(p); }

// --- Directory search ---------------------------------------------------

#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)

struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
};
using LPWIN32_FIND_DATAW = WIN32_FIND_DATAW*;
using WIN32_FIND_DATA = WIN32_FIND_DATAW;

// The pattern's last component may hold "*" and "?" (matched without regard
// to case, as PathMatchSpecW does); the folder part may not. Entries come in
// case-insensitive name order, "." and ".." first when the pattern takes
// them. No match: INVALID_HANDLE_VALUE and ERROR_FILE_NOT_FOUND (or
// ERROR_PATH_NOT_FOUND for a missing folder). The end: FALSE with
// ERROR_NO_MORE_FILES. Names longer than MAX_PATH - 1 are skipped.
HANDLE FindFirstFileW(LPCWSTR lpFileName, LPWIN32_FIND_DATAW lpFindFileData);
BOOL FindNextFileW(HANDLE hFindFile, LPWIN32_FIND_DATAW lpFindFileData);
BOOL FindClose(HANDLE hFindFile);

inline HANDLE FindFirstFile(LPCWSTR p, LPWIN32_FIND_DATAW d) { return FindFirstFileW(p, d); }
inline BOOL FindNextFile(HANDLE h, LPWIN32_FIND_DATAW d) { return FindNextFileW(h, d); }
