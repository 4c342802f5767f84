// The host's start and end: what a program (the `sorvane` command, a test) calls once to
// make the editor, documents, file format, picker and built-in commands work together.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGePoint3d.h"

// Installs DXF as the file format, the picker, the editor's hooks (a running command holds
// its document's automatic write lock; grip drags run GRIP_STRETCH) and the built-in
// commands. Calling it again does nothing.
void apHostStartup();
// Closes every drawing (kUnloadDwgMsg to the modules) and sends kQuitMsg.
void apHostShutdown();

// The grip hook's work, callable directly: runs GRIP_STRETCH on the entity's grip. False
// when the command did not complete (no such grip, a locked layer, Esc).
bool apGripDrag(AcDbObjectId entity, int gripIndex, const AcGePoint3d& to);
