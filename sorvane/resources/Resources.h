// The module's own resource script (sorvane.rc with resource.h), compiled into
// the module, and the resource module made from it.
#pragma once

#include <string_view>

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// The bytes of an embedded file by its name ("sorvane.rc", "resource.h"); empty
// if there is none. Defined by the source the build generates.
std::string_view GetEmbeddedResourceFile(std::string_view strName);

// Parses the embedded script into a resource module. Null if it does not
// parse, with "file(line): reason" in *pstrError.
HINSTANCE LoadModuleResources(CString* pstrError = nullptr);
