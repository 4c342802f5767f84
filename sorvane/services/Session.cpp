// The editor session helpers: system variables with a meaning, saving, the command line.
#include "services/Session.h"

#include <cmath>

#include "host/ap/AcApDocManager.h"
#include "host/db/AcDbDatabase.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdSysVar.h"
#include "host/ed/AcEdUcs.h"
#include "host/ed/AcEdWindow.h"
#include "host/ge/AcGePlane.h"
#include "host/mfc/CFile.h"
#include "host/mfc/CWaitCursor.h"
#include "host/rx/acutPrintf.h"
#include "resources/resource.h"
#include "services/Documents.h"
#include "services/Guard.h"
#include "services/Messages.h"
#include "services/SysVars.h"
#include "services/Trace.h"

int IsSDI()
{
    return GetAcadVarI(L"SDI");
}

int SetFiledia(int value)
{
    const int iOld = GetAcadVarI(L"filedia");
    SetAcadVar(L"filedia", value);
    CString strLine;
    strLine.Format(L"_setvar filedia %d ", value);
    SendCommandLine(strLine);
    return iOld;
}

void SaveAs(AcDbDatabase* pDb, const wchar_t* file)
{
    if (!pDb || !file)
        return;
    CWaitCursor wait;
    CString strFile(file);
    const bool bOk = RunGuarded([&] {
        CFileFind finder;
        if (finder.FindFile(file)) {
            finder.FindNextFile();
            strFile = finder.GetFilePath();
        }
        pDb->setRetainOriginalThumbnailBitmap(true);
        const Acad::ErrorStatus es = pDb->saveAs(strFile, true, AcDb::kDHL_1032, nullptr);
        if (es != Acad::eOk)
            acutPrintf(L"\nSave error: %s ", acadErrorStatusText(es));
    });
    if (!bOk) {
        const int iNormal = DocumentOf(pDb) ? 1 : 0;
        TraceF(L"\n ANY ERROR ON SAVEAS(%s) NormalDb:%d!!!! \n", static_cast<const wchar_t*>(strFile), iNormal);
        MessageBoxF(L"ANY ERROR: SaveAs(%s) ", static_cast<const wchar_t*>(strFile));
    }
}

CString GetActiveCommand(int includeOwn)
{
    std::wstring strNames;
    AcEdSysVars::getString(L"CMDNAMES", strNames);
    GetAcadVarI(L"CMDACTIVE");
    CString strResult(strNames.c_str());
    strResult.MakeUpper();
    if (!includeOwn && strResult.Find(L"KOVA_") >= 0)
        strResult.Empty();
    return strResult;
}

int IsCommandActive(int tell)
{
    const CString strCommand = GetActiveCommand(0);
    if (strCommand.IsEmpty())
        return 0;
    if (tell) {
        CString strFormat;
        if (!strFormat.LoadString(IDS_COMMAND_ACTIVE))
            strFormat = L"Befehl %s is aktiv!\nBitte beenden Sie zuerst diesen Befehl.";
        MessageBoxF(strFormat, static_cast<const wchar_t*>(strCommand));
    }
    return 1;
}

int IsPaperSpace()
{
    if (GetAcadVarI(L"TILEMODE"))
        return 0;
    // Viewport 1 is the layout's paper space viewport.
    return GetAcadVarI(L"CVPORT") == 1 ? 1 : 0;
}

int GetTilemode()
{
    return GetAcadVarI(L"TILEMODE");
}

int GetTilemode(const wchar_t* drawing)
{
    AcDbDatabase* pDb = (drawing && *drawing) ? GetFromEditor(drawing) : acdbCurDwg();
    return pDb && pDb->tilemode() ? 1 : 0;
}

int IsDrawingModified()
{
    return GetAcadVarI(L"DBMOD");
}

// The host has no entry points to switch between the spaces of a layout; a missing one
// is no error.
void switchToModelSpace()
{
}

void switchToPaperSpace()
{
    TraceF(L"\n switchToPaperSpace: IsPaperSpace=%d", IsPaperSpace());
}

AcGePoint3d ScreenPointToUcs(POINT point)
{
    AcGePoint3d result;
    const bool bOk = RunGuarded([&] {
        ads_point world = {0.0, 0.0, 0.0};
        const int iWindow = acedGetWinNum(point.x, point.y);
        if (iWindow) {
            acedCoordFromPixelToWorld(iWindow, point, world);
            ads_point ucs = {0.0, 0.0, 0.0};
            acdbWcs2Ucs(world, ucs, false);
            result.set(ucs[0], ucs[1], ucs[2]);
            return;
        }
        acedCoordFromPixelToWorld(point, world);
        result.set(world[0], world[1], world[2]);
        const AcGePoint3d dir = GetAcadVarP(L"viewdir");
        if (std::fabs(dir.x) < 1e-10 && std::fabs(dir.y) < 1e-10 && std::fabs(dir.z - 1.0) < 1e-10)
            return;
        const ads_point dirUcs = {dir.x, dir.y, dir.z};
        ads_point dirWcs = {0.0, 0.0, 0.0};
        acdbUcs2Wcs(dirUcs, dirWcs, true);
        const AcGeVector3d dirWorld(dirWcs[0], dirWcs[1], dirWcs[2]);
        AcGePoint3d origin;
        AcGeVector3d xAxis, yAxis;
        acedGetCurrentUcs(origin, xAxis, yAxis);
        AcGePoint3d onPlane;
        AcGePlane(origin, xAxis, yAxis).project(result, dirWorld, onPlane);
        AcGeMatrix3d ucs;
        acdbUcsMatrix(ucs);
        result = onPlane.transformBy(ucs.inverse());
    });
    if (!bOk)
        Trace(L" ERROR!!!!!!!!! ");
    return result;
}

void SendCommandLine(const wchar_t* text)
{
    if (text && *text)
        acedPostCommand(text);
}
