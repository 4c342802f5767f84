// The editor's ADS functions in one include: input, selection, variables, UCS, commands,
// AutoLISP functions and the window side.
#pragma once

#include "host/db/acutads.h"
#include "host/db/adsdef.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdInput.h"
#include "host/ed/AcEdSelection.h"
#include "host/ed/AcEdSysVar.h"
#include "host/ed/AcEdUcs.h"
#include "host/ed/AcEdWindow.h"
#include "host/ed/acutPrintf.h"
