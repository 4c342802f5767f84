// The editor subsystem in one include: commands, input, jigs, reactors, selections,
// variables, UCS, the window side, and the headless session with its transcript.
#pragma once

#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/ed/AcEdInputSource.h"
#include "host/ed/AcEdJig.h"
#include "host/ed/AcEdSession.h"
#include "host/ed/AcEdTranscript.h"
#include "host/ed/AcEditorReactor.h"
#include "host/ed/acedads.h"
#include "host/win/WinMenu.h"
#include "host/win/WinMessages.h"
#include "host/win/WinTimer.h"
#include "host/win/WinWindow.h"
