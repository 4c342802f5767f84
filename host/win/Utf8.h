// UTF-8 and Windows-1252: the one place the host encodes and decodes bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace svwin {

// Appends the code point as UTF-8; surrogates and values past U+10FFFF become U+FFFD.
void AppendUtf8(char32_t cp, std::string& out);

// Decodes the sequence at text[i] (i < size): sets cp and len, the bytes taken.
// A broken sequence takes its lead byte and the continuation bytes after it, sets
// cp to U+FFFD and answers false; overlong forms, surrogates and values past
// U+10FFFF are broken.
bool DecodeUtf8(std::string_view text, std::size_t i, char32_t& cp, std::size_t& len) noexcept;

bool IsValidUtf8(std::string_view text) noexcept;

// The character a Windows-1252 byte stands for; the five unassigned bytes map to themselves.
char32_t Cp1252ToCodePoint(unsigned char byte) noexcept;

// 0-15 for a hexadecimal digit of either case, -1 otherwise.
int HexDigitValue(char c) noexcept;

}  // namespace svwin
