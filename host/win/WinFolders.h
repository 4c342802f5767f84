// Where the user's settings and temporary files go: SHGetFolderPathW and
// GetTempPathW over the XDG conventions. Returned paths use "/".
#pragma once

#include "host/win/WinError.h"
#include "host/win/WinTypes.h"

#define CSIDL_PERSONAL 0x0005
#define CSIDL_APPDATA 0x001a
#define CSIDL_LOCAL_APPDATA 0x001c
#define CSIDL_FLAG_CREATE 0x8000
#define CSIDL_FLAG_MASK 0xff00
#define SHGFP_TYPE_CURRENT 0
#define SHGFP_TYPE_DEFAULT 1

// pszPath receives at most MAX_PATH characters, without a final separator:
//   CSIDL_APPDATA        $XDG_CONFIG_HOME, else $HOME/.config
//   CSIDL_LOCAL_APPDATA  $XDG_DATA_HOME, else $HOME/.local/share
//   CSIDL_PERSONAL       $HOME
// (an XDG variable counts only when it holds an absolute path; without HOME
// the password database gives the home folder). With CSIDL_FLAG_CREATE the
// folder and its parents are created. S_OK; E_FAIL if the folder does not
// exist (and was not to be created) or cannot be made; E_INVALIDARG for
// other folder ids or a null output.
HRESULT SHGetFolderPathW(HWND hwnd, int csidl, HANDLE hToken, DWORD dwFlags, LPWSTR pszPath);
inline HRESULT SHGetFolderPath(HWND h, int c, HANDLE t, DWORD f, LPWSTR p) { return SHGetFolderPathW(h, c, t, f, p); }

// $TMPDIR if set and not empty, else "/tmp", always with a final "/".
// Returns the length without the terminator; if nBufferLength is too small
// the buffer is untouched and the size needed (with the terminator) returned.
DWORD GetTempPathW(DWORD nBufferLength, LPWSTR lpBuffer);
inline DWORD GetTempPath(DWORD n, LPWSTR p) { return GetTempPathW(n, p); }
