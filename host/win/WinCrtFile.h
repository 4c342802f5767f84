// The C runtime's wide file functions. Paths follow host/win/WinPath.h.
//
// Text written to files is UTF-8: a stream opened in text mode (no "b" in the
// mode) is a wide stream that encodes to and decodes from UTF-8, so fputws,
// fgetws and fwprintf work with any text whatever the process locale. Such a
// stream takes only the wide functions; binary streams take the byte
// functions. To read a text file that may come from the original platform
// (Windows-1252), use svwin::ReadTextFile (host/win/WinFileIo.h) instead.
#pragma once

#include <cstdio>

#include "host/win/WinTypes.h"

using errno_t = int;

// Modes as the CRT takes them: "r", "w", "a", with "+", "b", "t"; the
// Windows-only letters (c n S R T D N x) and a ",ccs=..." suffix are accepted
// and ignored. Returns null with errno set (and GetLastError) on failure.
FILE* _wfopen(const wchar_t* filename, const wchar_t* mode);
errno_t _wfopen_s(FILE** pFile, const wchar_t* filename, const wchar_t* mode);

// Files only. 0 on success, -1 with errno set.
int _wremove(const wchar_t* path);
int _wunlink(const wchar_t* path);
// Fails with EACCES if the new name exists, as the CRT does.
int _wrename(const wchar_t* oldname, const wchar_t* newname);
int _wmkdir(const wchar_t* dirname);
int _wrmdir(const wchar_t* dirname);
// Mode 0: exists; 2: writable; 4: readable; 6: both.
int _waccess(const wchar_t* path, int mode);
