// The running program's modules: the executable and its shared libraries.
//
// An HMODULE is the handle dlopen gives for a library (so GetProcAddress-style
// lookups can pass it to dlsym). GetModuleFileNameW also takes any address
// inside a loaded library (a function or variable of it) and answers with
// that library's file, which is how a library finds its own folder.
#pragma once

#include "host/win/WinError.h"
#include "host/win/WinTypes.h"

// The full native path of the module ("/" separators); the null module is the
// executable. Returns the length copied; a short buffer gets the truncated
// path, nSize is returned and ERROR_INSUFFICIENT_BUFFER set. An unknown module
// gives 0 and ERROR_MOD_NOT_FOUND.
DWORD GetModuleFileNameW(HMODULE hModule, LPWSTR lpFilename, DWORD nSize);

// Null: the executable. Otherwise the loaded library whose file name matches
// (without regard to case; the extension may be left out). Null and
// ERROR_MOD_NOT_FOUND if none is loaded. Does not load anything.
HMODULE GetModuleHandleW(LPCWSTR lpModuleName);

inline DWORD GetModuleFileName(HMODULE h, LPWSTR p, DWORD n) { return GetModuleFileNameW(h, p, n); }
inline HMODULE GetModuleHandle(LPCWSTR p) { return GetModuleHandleW(p); }
