// The host's built-in commands, registered in the command group "ACAD_MAIN": drawing
// (LINE, ARC, CIRCLE, PLINE, TEXT/DTEXT, MTEXT, DIMLINEAR, DIMALIGNED, DIMANGULAR, DIMRADIUS,
// DIMDIAMETER), editing (MOVE, COPY, ROTATE, MIRROR, SCALE, STRETCH, ERASE, EXPLODE,
// MATCHPROP, GRIP_STRETCH), UNDO, U, REDO, LIST, SETVAR, LAYER/-LAYER, UCS, and the files
// (NEW, OPEN, SAVE, QSAVE, SAVEAS, CLOSE, PLOT). Each works through open and close of the
// database's objects; the editor makes each one undo group.
#pragma once

#include "host/rx/AcChar.h"

#define AP_COMMAND_GROUP ACRX_T("ACAD_MAIN")

// Registers every built-in command (again after a removal; present ones stay).
void apRegisterHostCommands();
// Removes the group.
void apRemoveHostCommands();
