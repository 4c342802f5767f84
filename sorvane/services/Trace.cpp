// The trace: Sorvane.log in the temporary folder, one line per call, the file
// opened and closed for each line so that the log survives a crash of the host.
#include "services/Trace.h"

#include <cstdarg>
#include <cstdio>

#include "host/rx/acutPrintf.h"
#include "host/mfc/CFile.h"
#include "host/mfc/CTime.h"
#include "host/win/WinCrtFile.h"
#include "host/win/wsprintf.h"
#include "options/GlobDimOptions.h"
#include "services/Folders.h"
#include "services/Messages.h"

namespace {

// The log of this session; built at its first line, kept until ClearLog.
CString g_strLogPath;

bool TraceEnabled()
{
    return pGlobDimOptions && pGlobDimOptions->m_bDebugMsg;
}

CString TimeStamp()
{
    try {
        return CTime::GetCurrentTime().Format(L"%H:%M:%S");
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    return CString(L"Invalid DateTime");
}

} // namespace

void Trace(const wchar_t* text)
{
    if (!TraceEnabled())
        return;
    try {
        if (g_strLogPath.IsEmpty()) {
            g_strLogPath = GetTempFolder() + L"Sorvane.log";
            // Whoever switched the trace on learns where it goes.
            MessageBoxText(g_strLogPath);
        }
        CString strLine;
        strLine.Format(L"<%s> %s", static_cast<const wchar_t*>(TimeStamp()), text ? text : L"");
        if (FILE* pFile = _wfopen(g_strLogPath, L"a")) {
            std::fputws(strLine, pFile);
            std::fclose(pFile);
        }
    } catch (CException* e) {
        e->Delete(); // the trace never throws
    } catch (...) {
    }
}

void TraceF(const wchar_t* format, ...)
{
    // Sits in drawing paths: decide before any formatting.
    if (!TraceEnabled() || !format)
        return;
    wchar_t buffer[WSPRINTF_MAX] = {};
    va_list args;
    va_start(args, format);
    wvsprintfW(buffer, format, args);
    va_end(args);
    Trace(buffer);
}

void ClearLog()
{
    if (!g_strLogPath.IsEmpty()) {
        try {
            if (FileExists(g_strLogPath))
                CFile::Remove(g_strLogPath);
        } catch (CException* e) {
            e->Delete();
        } catch (...) {
        }
    }
    g_strLogPath.Empty();
}

CString GetLogPath()
{
    return g_strLogPath;
}

Acad::ErrorStatus CheckError(const wchar_t* file, int line, Acad::ErrorStatus es)
{
    if (es == Acad::eOk)
        return es;
    const wchar_t* pszStatus = acadErrorStatusText(es);
    TraceF(L"\n!!! %s@%d: %s ", file, line, pszStatus);
    acutPrintf(L"\n!!! %s@%d: %s ", file, line, pszStatus);
    return es;
}
