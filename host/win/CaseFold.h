// Locale-independent case mapping and folding for CString and the
// case-insensitive file, INI and CRT functions: Latin-1, Latin
// Extended-A, basic Greek and Cyrillic. Other characters map to themselves.
#pragma once

#include <string>
#include <string_view>

namespace svwin {

wchar_t ToLowerChar(wchar_t ch);
wchar_t ToUpperChar(wchar_t ch);  // 'ß' stays 'ß'

// Full case folding: lower case, with "ß" and "ẞ" as "ss" and "ſ" as "s".
std::wstring FoldCase(std::wstring_view text);
// The dictionary key: folded, with diacritics removed ("Ä" -> "a", "Æ" -> "ae").
std::wstring BaseLetters(std::wstring_view text);

// -1, 0 or 1 for ordinal comparison.
int CompareOrdinal(std::wstring_view a, std::wstring_view b);

} // namespace svwin
