// LoadLibraryW and FreeLibrary. A path ending in ".lng" is a language file: a
// resource script loaded as a resource module. Anything else is a shared library.
#pragma once

#include "host/win/WinError.h"
#include "host/win/WinTypes.h"

#ifndef ERROR_BAD_FORMAT
#define ERROR_BAD_FORMAT 11L
#endif

// Null on failure: ERROR_MOD_NOT_FOUND when the file cannot be read or opened,
// ERROR_BAD_FORMAT when a language file does not parse (svres::LastResourceError
// says where and why). Loading the same file again counts a reference.
HMODULE LoadLibraryW(LPCWSTR lpLibFileName);
// Drops one reference; FALSE and ERROR_INVALID_HANDLE for an unknown handle.
BOOL FreeLibrary(HMODULE hLibModule);

inline HMODULE LoadLibrary(LPCWSTR p) { return LoadLibraryW(p); }
