// Paths as the module writes them ("C:\\dir\\File.ini") to native paths, and
// the shell's small path helpers. Every host file function goes through
// svwin::NativePath, so the rules below hold for all of them:
//   - "\\" and "/" are both separators;
//   - a drive prefix "X:" is dropped, so "C:\\tmp\\a.ini" is "/tmp/a.ini";
//   - when the path does not exist as spelled, each existing component is
//     matched case-insensitively against the folder's entries (the spelling
//     on disk wins); components that do not exist stay as given.
#pragma once

#include <string>
#include <string_view>

#include "host/win/WinTypes.h"

namespace svwin {

inline bool IsPathSeparator(wchar_t ch)
{
    return ch == L'\\' || ch == L'/';
}

// Native UTF-8 path with the case of existing components resolved; null gives "".
std::string NativePath(const wchar_t* pszPath);
std::string NativePath(std::wstring_view path);
// The same conversion without looking at the disk.
std::string NativePathLiteral(std::wstring_view path);
// Resolves the folder part only; the last component stays as given (the
// target of a rename that changes only the case of a name).
std::string NativePathNewName(std::wstring_view path);
// Resolves the case of an already native path.
std::string ResolvePathCase(const std::string& native);
// A native path as the wide text the host's functions return ("/" separators).
std::wstring WidePath(std::string_view native);

// Case-insensitive match of one name against one pattern with "*" and "?".
bool WildcardMatch(std::wstring_view name, std::wstring_view pattern);

} // namespace svwin

// The file name part after the last separator (the end of the text if none).
LPWSTR PathFindFileNameW(LPCWSTR pszPath);
// The "." of the extension of the file name part, or the terminating 0.
LPWSTR PathFindExtensionW(LPCWSTR pszPath);
// TRUE if the file name matches the pattern list, whose patterns are split by
// ";". Case-insensitive; "*.*" matches every name, "x.*" also "x".
BOOL PathMatchSpecW(LPCWSTR pszFile, LPCWSTR pszPatterns);

inline LPWSTR PathFindFileName(LPCWSTR p) { return PathFindFileNameW(p); }
inline LPWSTR PathFindExtension(LPCWSTR p) { return PathFindExtensionW(p); }
inline BOOL PathMatchSpec(LPCWSTR f, LPCWSTR s) { return PathMatchSpecW(f, s); }
