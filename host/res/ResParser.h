// Reads resource scripts in the .rc syntax of the Windows GUI library:
// STRINGTABLE, MENU/MENUEX, DIALOG/DIALOGEX, the preprocessor and the other
// resource types (skipped). Bad input throws ResError naming the file and line.
#pragma once

#include <string>
#include <string_view>

#include "host/res/ResScript.h"
#include "host/res/ResTokens.h"

namespace svres {

// resolver finds #include "file"; without one such an include is an error.
ResScript ParseResourceScript(std::wstring_view text, const std::wstring& fileName,
                              const IncludeResolver& resolver = {});

// Reads the file as text (UTF-8, else Windows-1252) and parses it; #include
// "file" is looked for beside the file that includes it. A file that cannot be
// read is a ResError at line 0.
ResScript ParseResourceFile(const std::wstring& path);

// Looks for included files in the folder of the including file.
IncludeResolver FolderIncludeResolver();

} // namespace svres
