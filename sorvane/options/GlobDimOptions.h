// The module-wide option object. For now it carries only the trace switch;
// the parameter sets, maps and INI bindings of the option store grow here.
#pragma once

#include "host/win/WinTypes.h"

class CGlobDimOptions {
public:
    // Key DebugMsg: the trace writes only while this is on. Read once when the
    // option object is made.
    BOOL m_bDebugMsg = FALSE;
};

// Made when the module starts and deleted when it unloads; null outside that.
extern CGlobDimOptions* pGlobDimOptions;
