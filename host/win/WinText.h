// Text of files on disk, and the case-insensitive comparison of names that the
// file system and the profile functions of the original platform use.
#pragma once

#include "host/win/CaseFold.h"
#include "host/win/Utf8.h"

#include <string>
#include <string_view>

namespace svwin {


// Windows-1252 bytes to wide text; the five unassigned bytes keep their code.
std::wstring Cp1252ToWide(std::string_view bytes);

// The contents of a text file as wide text: a UTF-8 BOM is skipped, a UTF-16
// BOM selects UTF-16, otherwise valid UTF-8 is read as UTF-8 and anything
// else as Windows-1252 (files written on the original platform).
std::wstring DecodeFileText(std::string_view bytes);

// -1, 0 or 1, comparing code points folded one to one by ToLowerChar
// (CaseFold.h), so names compare independent of the process locale.
int CompareNoCase(std::wstring_view a, std::wstring_view b);
inline bool EqualNoCase(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && CompareNoCase(a, b) == 0;
}

// Blanks as the profile functions and the C runtime see them.
inline bool IsBlank(wchar_t ch)
{
    return ch == L' ' || ch == L'\t' || ch == L'\r' || ch == L'\n' || ch == L'\v' || ch == L'\f';
}
std::wstring_view TrimBlanks(std::wstring_view text);

} // namespace svwin
