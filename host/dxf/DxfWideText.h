// Conversion between the file's UTF-8 text and the wide text of the database (UTF-32 here).
#pragma once

#include <string>
#include <string_view>

// Invalid UTF-8 sequences become U+FFFD, one per bad byte; the reader has already replaced or
// rejected them, so this only matters for text that did not come through it.
void dxfAppendUtf8AsWide(std::string_view utf8, std::wstring& out);
std::wstring dxfWide(std::string_view utf8);

// Wide characters outside Unicode (and lone surrogates) become U+FFFD.
void dxfAppendWideAsUtf8(std::wstring_view wide, std::string& out);
std::string dxfUtf8(std::wstring_view wide);
