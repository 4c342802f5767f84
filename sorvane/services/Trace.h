// The module's diagnostic trace: one line per call into Sorvane.log in the
// temporary folder, written only while the option DebugMsg is on.
#pragma once

#include "host/mfc/CString.h"
#include "host/rx/AcadStrc.h"

// One line "<HH:MM:SS> text". Text that should start on a new line begins with
// "\n". The first line of a session shows the log's path in a message box.
void Trace(const wchar_t* text);

// The printf form (Windows conventions, %s is wide). The switch is tested
// before anything is formatted; the text is cut at 1,023 characters.
void TraceF(const wchar_t* format, ...);

// Removes the log file of this session, if there is one, and ends the session:
// the next line starts a new log and announces it again. Failures are ignored.
void ClearLog();

// The log file of this session; empty until the first line was written.
CString GetLogPath();

// A failed platform call: "\n!!! file@line: status " to the trace and the
// console. A status of eOk writes nothing. Returns the status unchanged.
Acad::ErrorStatus CheckError(const wchar_t* file, int line, Acad::ErrorStatus es);
