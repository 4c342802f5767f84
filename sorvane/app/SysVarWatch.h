// The module's watch on system variables: a change of the annotation scale
// (CANNOSCALE) redraws every chain and height mark with the new factor.
#pragma once

#include "host/ed/AcEditorReactor.h"
#include "host/win/WinTypes.h"

class CSysVarWatch : public AcEditorReactor {
public:
    // A successful change of CANNOSCALE: DwgRegenSVdim(4) and DwgRefresh.
    // Nothing thrown inside reaches the editor.
    void sysVarChanged(const ACHAR* varName, Adesk::Boolean success) override;
};

// Adds the module's one watch to the editor; a second call does nothing.
void InstallSysVarWatch();
// Takes the watch off the editor and frees it; does nothing without one.
void RemoveSysVarWatch();
// TRUE while the watch is on the editor.
BOOL IsSysVarWatchInstalled();
