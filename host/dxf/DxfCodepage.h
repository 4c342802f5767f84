// Text encodings of DXF files: Windows-1252 of older files, UTF-8, and the \U+XXXX escapes.
#pragma once

#include "host/dxf/DxfError.h"

#include <string>
#include <string_view>

// How the bytes of a file's string values are to be read.
enum class DxfTextEncoding {
    Utf8,         // files from R2007 (AC1021) on
    Windows1252,  // older files with $DWGCODEPAGE ANSI_1252, and unsupported code pages
    Detect,       // nothing declared yet: valid UTF-8 stays, any other text is read as 1252
};

// The encoding a file's header declares. $ACADVER AC1021 and later is always UTF-8; before
// that $DWGCODEPAGE decides: ANSI_1252 (also 1252, CP1252, WINDOWS-1252, ISO-8859-1) is 1252,
// UTF-8 (also UTF8, ANSI_65001) is UTF-8, an empty value is Detect, and any other code page
// is read as 1252 after a call of the warning hook.
DxfTextEncoding dxfTextEncodingFor(std::string_view acadver, std::string_view dwgcodepage,
                                   const DxfWarningHook& warning = {});

// Windows-1252 to UTF-8, with the full table (0x80-0x9F included; the five unassigned bytes
// 81, 8D, 8F, 90, 9D become the C1 controls of the same number, as Windows maps them).
std::string dxfCp1252ToUtf8(std::string_view text);
void dxfAppendCp1252AsUtf8(std::string_view text, std::string& out);


// True when the text holds a \U+XXXX escape.
bool dxfHasUnicodeEscapes(std::string_view text) noexcept;

// Replaces each \U+XXXX (four hex digits) by the character in UTF-8; a surrogate pair of two
// escapes makes one character. Lone surrogates and controls below U+0020 stay escaped, and
// \M+nXXXX double-byte escapes stay as written (their code pages are not supported).
std::string dxfDecodeUnicodeEscapes(std::string_view text);
void dxfAppendDecodedUnicodeEscapes(std::string_view text, std::string& out);

// The reverse, for files read by programs that predate UTF-8 files: every non-ASCII character
// becomes \U+XXXX (a surrogate pair above U+FFFF); invalid UTF-8 bytes become \U+FFFD.
std::string dxfEncodeUnicodeEscapes(std::string_view utf8);
