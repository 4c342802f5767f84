// A short run through the foundation: measures a wall with the geometry
// library, formats the values the way the chain will, keeps a setting in an
// INI file and writes the trace.
#include <cstdio>

#include "host/rx/acutPrintf.h"
#include "host/ge/AcGe.h"
#include "host/mfc/afx.h"
#include "host/win/WinFolders.h"
#include "host/win/WinIni.h"
#include "options/GlobDimOptions.h"
#include "proxy/Util.h"
#include "services/Folders.h"
#include "services/Numbers.h"
#include "services/Trace.h"

namespace {

// Points along a wall with two openings, in metres.
const AcGePoint3d kWall[] = {
    AcGePoint3d(0.0, 0.0, 0.0),    AcGePoint3d(1.135, 0.0, 0.0), AcGePoint3d(2.01, 0.0, 0.0),
    AcGePoint3d(3.8875, 0.0, 0.0), AcGePoint3d(4.76, 0.0, 0.0),  AcGePoint3d(6.24, 0.0, 0.0),
};

void MeasureWall()
{
    acutPrintf(L"\nWand, Teilmaße:");
    CString strChain;
    for (size_t i = 1; i < sizeof(kWall) / sizeof(kWall[0]); ++i) {
        const double dLength = kWall[i - 1].distanceTo(kWall[i]);
        const CString strValue = FormatDouble(dLength, 3, 1, L",");
        strChain += (i > 1 ? L" | " : L"") + strValue;
    }
    acutPrintf(L"\n  %s", static_cast<const wchar_t*>(strChain));
    acutPrintf(L"\n  Gesamt: %s m", static_cast<const wchar_t*>(FormatDouble(kWall[0].distanceTo(kWall[5]), 3, 1, L",")));
}

void IntersectAxis()
{
    // A dimension line at y = 1.5 meeting a circular wall of radius 2 about (3, 0).
    const AcGeCircArc3d wall(AcGePoint3d(3.0, 0.0, 0.0), AcGeVector3d::kZAxis, 2.0);
    const AcGeLine3d dimLine(AcGePoint3d(0.0, 1.5, 0.0), AcGeVector3d::kXAxis);
    AcGePoint3d hit;
    if (MyIntersect(wall, dimLine, hit, AcGePoint3d(6.0, 1.5, 0.0)))
        acutPrintf(L"\nMaßlinie trifft Rundwand bei (%s; %s)", static_cast<const wchar_t*>(FormatDouble(hit.x, 4, 1)),
                   static_cast<const wchar_t*>(FormatDouble(hit.y, 4, 1)));
}

void KeepSetting(const CString& strIni)
{
    WritePrivateProfileStringW(L"General Info", L"LastMode", L"2", strIni);
    WritePrivateProfileStringW(L"General Info", L"DebugMsg", L"1", strIni);
    wchar_t buffer[512] = {};
    GetPrivateProfileStringW(L"general info", L"lastmode", L"", buffer, 512, strIni);
    acutPrintf(L"\nEinstellung LastMode = %s (aus %s)", buffer, static_cast<const wchar_t*>(strIni));
}

}  // namespace

int main()
{
    CGlobDimOptions options;
    pGlobDimOptions = &options;

    MeasureWall();
    IntersectAxis();
    const CString strIni = GetTempFolder() + L"sorvane-demo\\Sorvane.ini";
    KeepSetting(strIni);

    options.m_bDebugMsg = GetPrivateProfileIntW(L"General Info", L"DebugMsg", 0, strIni) == 1;
    Trace(L"\nDemo gelaufen");
    acutPrintf(L"\nProtokoll: %s\n", static_cast<const wchar_t*>(GetLogPath()));
    ClearLog();
    pGlobDimOptions = nullptr;
    return 0;
}
