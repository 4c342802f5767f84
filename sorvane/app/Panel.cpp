// StartApp, EndApp and the panel's giving way round picks; its placement and
// visibility in "General Info" of the main INI file.
#include "app/Panel.h"

#include <vector>

#include "app/App.h"
#include "app/DlgMain.h"
#include "app/Language.h"
#include "host/ed/acedads.h"
#include "host/win/WinCrt.h"
#include "host/win/WinIni.h"
#include "host/win/WinWindow.h"
#include "options/GlobDimOptions.h"
#include "services/Locks.h"
#include "services/PanelLink.h"
#include "services/Token.h"

namespace {

const wchar_t kGeneralSection[] = L"General Info";
constexpr DWORD kIniValueSize = 512;
// The panel was visible when HideDlgMain hid it.
int bPanelWasVisible = 0;

// Placements beyond these are taken as stale (another screen, a broken file).
constexpr int kPositionLimit = 1000;
constexpr int kSizeMin = 21;
constexpr int kSizeLimit = 2000;

} // namespace

CString GetCommandNames()
{
    resbuf rb{};
    if (acedGetVar(L"CMDNAMES", &rb) != RTNORM || rb.restype != RTSTR || !rb.resval.rstring)
        return CString();
    CString strNames(rb.resval.rstring);
    delete[] rb.resval.rstring;
    return strNames;
}

CString ReadGeneralInfo(const wchar_t* pszKey)
{
    if (!pGlobDimOptions || pGlobDimOptions->m_strIniFile.IsEmpty())
        return CString();
    // Straight from the main INI file until the cached INI layer takes over.
    wchar_t buffer[kIniValueSize] = {};
    GetPrivateProfileStringW(kGeneralSection, pszKey, L"", buffer, kIniValueSize, pGlobDimOptions->m_strIniFile);
    return CString(buffer);
}

void WriteGeneralInfo(const wchar_t* pszKey, const wchar_t* pszValue)
{
    if (!pGlobDimOptions || pGlobDimOptions->m_strIniFile.IsEmpty())
        return;
    WritePrivateProfileStringW(kGeneralSection, pszKey, pszValue, pGlobDimOptions->m_strIniFile);
}

void FocusAcad()
{
    HWND hMain = adsw_acadMainWnd();
    SetFocus(hMain);
    EnableWindow(hMain, TRUE);
    SetActiveWindow(hMain);
}

BOOL ApplyPanelPosition(const CString& strPosition)
{
    if (!dlgMyApp)
        return FALSE;
    std::vector<int> fields;
    CToken token(strPosition, L',');
    while (token.MoreTokens())
        fields.push_back(_wtoi(token.GetNextToken()));
    if (fields.size() < 5)
        return FALSE;
    const int x = fields[0], y = fields[1], w = fields[2], h = fields[3];
    if (fields[4]) {
        dlgMyApp->ShowWindow(SW_SHOWMAXIMIZED);
        return TRUE;
    }
    if (x < kPositionLimit && y < kPositionLimit && w >= kSizeMin && w < kSizeLimit && h >= kSizeMin &&
        h < kSizeLimit) {
        dlgMyApp->MoveWindow(x, y, w, h);
        return TRUE;
    }
    return FALSE;
}

CString FormatPanelPosition()
{
    CString strPosition;
    if (!dlgMyApp || dlgMyApp->IsIconic())
        return strPosition;
    RECT rect;
    dlgMyApp->GetWindowRect(&rect);
    strPosition.Format(L"%d,%d,%d,%d,%d", static_cast<int>(rect.left), static_cast<int>(rect.top),
                       static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top),
                       dlgMyApp->IsZoomed() ? 1 : 0);
    return strPosition;
}

int StartApp(int bShow)
{
    LoadLanguage();
    CTemporaryResourceOverride resources;
    if (dlgMyApp) {
        UnlockAll();
        if (bShow)
            dlgMyApp->ShowWindow(SW_SHOW);
        dlgMyApp->ReloadDwgData();
        return 1;
    }
    // The INI layer forgets its remembered file here once it exists.
    if (pGlobDimOptions)
        pGlobDimOptions->LoadOptions();
    dlgMyApp = new CDlgMain;
    if (!dlgMyApp->Create(CDlgMain::IDD, adsw_acadMainWnd())) {
        delete dlgMyApp;
        dlgMyApp = nullptr;
        return 0;
    }
    dlgMyApp->AdjustMode(pGlobDimOptions ? pGlobDimOptions->m_iMode : kModeLinear);
    if (bShow)
        ApplyPanelPosition(ReadGeneralInfo(L"Position"));
    return 1;
}

void EndApp(int bDestroy, int bKeepState)
{
    if (!pGlobDimOptions)
        return;
    const BOOL bVisible = dlgMyApp && dlgMyApp->IsWindowVisible();
    if (bDestroy && bKeepState)
        WriteGeneralInfo(L"ShowAppWindow", bVisible ? L"1" : L"0");
    if (!dlgMyApp)
        return;
    if (!bDestroy) {
        dlgMyApp->ShowWindow(SW_HIDE);
        return;
    }
    if (bVisible) {
        const CString strPosition = FormatPanelPosition();
        if (!strPosition.IsEmpty())
            WriteGeneralInfo(L"Position", strPosition);
    }
    dlgMyApp->DestroyWindow();
    if (bKeepState)
        UnlockAll();
    delete dlgMyApp;
    dlgMyApp = nullptr;
}

void HideDlgMain()
{
    if (!dlgMyApp) {
        bPanelWasVisible = 0;
        FocusAcad();
        return;
    }
    bPanelWasVisible = dlgMyApp->IsWindowVisible() ? 1 : 0;
    CString strCommands = GetCommandNames();
    if (!strCommands.IsEmpty() && strCommands.MakeUpper().Find(L"KOVA_") < 0)
        acedPostCommand(L"\x1b\x1b");  // a foreign command gives way
    if (pGlobDimOptions)
        pGlobDimOptions->m_iRunningCommand = 1;
    HWND hMain = adsw_acadMainWnd();
    EnableWindow(hMain, TRUE);
    dlgMyApp->ShowWindow(SW_HIDE);
    SetFocus(hMain);
    FocusAcad();
}

void ShowDlgMain()
{
    if (dlgMyApp && bPanelWasVisible) {
        dlgMyApp->ShowWindow(SW_SHOW);
        dlgMyApp->SetFocus();
        dlgMyApp->EnableWindow(TRUE);
        bPanelWasVisible = 0;
    }
    acedPostCommandPrompt();
    if (pGlobDimOptions)
        pGlobDimOptions->m_iRunningCommand = 0;
}

void InstallPanelLink()
{
    CPanelLink link;
    link.pfnExists = [] { return dlgMyApp != nullptr; };
    link.pfnIsVisible = [] { return dlgMyApp != nullptr && dlgMyApp->IsWindowVisible() != FALSE; };
    link.pfnHide = HideDlgMain;
    link.pfnShow = ShowDlgMain;
    link.pfnEndApp = [](int iSave, int iDestroy) { EndApp(iDestroy, iSave); };
    SetPanelLink(&link);
}
