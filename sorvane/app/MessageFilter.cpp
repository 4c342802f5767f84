// The right-click road: the message filter, the timer that opens the context
// menu, what lies under the cursor, and the posting of the chosen command.
#include "app/MessageFilter.h"

#include <cmath>

#include "app/App.h"
#include "app/CommandTable.h"
#include "app/ChainLink.h"
#include "app/DlgMain.h"
#include "app/Language.h"
#include "app/Panel.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbDimension.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/ed/acedads.h"
#include "host/win/WinMenu.h"
#include "host/win/WinWindow.h"
#include "options/GlobDimOptions.h"
#include "resources/resource.h"
#include "services/Documents.h"
#include "services/Guard.h"
#include "services/Locks.h"
#include "services/Trace.h"

UINT nPendingMenuId = 0;
AcDbObjectId pendingPopupObjectId;

namespace {

// General integers: the display switches the chain menu shows, and whether
// the menu is offered while no panel exists or a command runs.
constexpr int kOptIntShowSumOfDim = 7;
constexpr int kOptIntContextMenuAlways = 8;
constexpr int kOptIntAltUnits = 14;
// A chain's integers: LastType and its three display switches.
constexpr int kIntLastType = 3;
constexpr int kIntShowSum = 20;
constexpr int kIntWipeOut = 21;
constexpr int kIntAltUnits = 22;
constexpr int kArcChain = 3;

// Menu items with a check mark.
constexpr UINT kIdSumShown = 32880;
constexpr UINT kIdBackground = 32886;
constexpr UINT kIdAltUnits = 32893;

const wchar_t kEscEsc[] = L"\x1b\x1b";
const wchar_t kSorvaneApp[] = L"SORVANE_OBJECT";
constexpr WPARAM kEscapeChar = 27;
// The view direction counts as plan view within this per component.
constexpr double kPlanViewTol = 1e-10;

// The kind the object's tag holds; 0 for an object the module has not tagged.
int TaggedKind(const AcDbObject* pObject)
{
    resbuf* pData = pObject->xData(kSorvaneApp);
    int iKind = 0;
    for (const resbuf* p = pData; p; p = p->rbnext)
        if (p->restype == 1070) {
            iKind = p->resval.rint;
            break;
        }
    acutRelRb(pData);
    return iKind;
}

bool GlobalSwitch(int iIndex)
{
    return pGlobDimOptions && pGlobDimOptions->GetOptInt(iIndex) != 0;
}

POINT MessagePixel(const MSG* pMsg)
{
    POINT px = pMsg->pt;
    ScreenToClient(acedGetAcadDwgView(), &px);
    return px;
}

// The chain menu's check marks follow the chain's own switches.
void CheckChainMenu(HMENU hMenu, const CPopupMenuChoice& choice, AcDbObjectId objectId)
{
    AcDbEntity* pEntity = nullptr;
    if (acdbOpenAcDbEntity(pEntity, objectId, AcDb::kForRead) != Acad::eOk)
        return;
    CStringArray* pStrings = nullptr;
    CUIntArray* pInts = nullptr;
    CDoubleArray* pDoubles = nullptr;
    if (GetChainArrays(pEntity, pStrings, pInts, pDoubles) && pInts->GetSize() > kIntAltUnits) {
        auto check = [&](UINT nId, int iFlag, int iGlobal) {
            CheckMenuItem(hMenu, nId,
                          MF_BYCOMMAND | (IsSwitchShown((*pInts)[iFlag], GlobalSwitch(iGlobal)) ? MF_CHECKED
                                                                                                  : MF_UNCHECKED));
        };
        check(kIdBackground, kIntWipeOut, kOptIntWipeOut);
        if (choice.nMenuId == IDR_MENU_CHAIN) {
            check(kIdSumShown, kIntShowSum, kOptIntShowSumOfDim);
            check(kIdAltUnits, kIntAltUnits, kOptIntAltUnits);
        }
    }
    pEntity->close();
}

void ShowPopupMenu(HWND hWnd)
{
    CTemporaryResourceOverride resources;
    int iMDType = 0;
    const int iDimType = GetDimType(popupObjectId, iMDType);
    // One tick is enough: the object may have gone meanwhile, and then there
    // is nothing to wait for.
    KillTimer(hWnd, kPopupTimerId);
    if (iDimType == 0 && iMDType == kMdTypeForeign) {
        popupObjectId = AcDbObjectId::kNull;
        return;
    }
    const CPopupMenuChoice choice = ChoosePopupMenu(iDimType, iMDType);
    if (dlgMyApp)
        dlgMyApp->AdjustMode(choice.iMode);
    HMENU hMenu = LoadMenuW(nullptr, MAKEINTRESOURCEW(choice.nMenuId));
    if (!hMenu) {
        TraceF(L"\n timerProc: menu %u is missing ", choice.nMenuId);
        return;
    }
    HMENU hPopup = GetSubMenu(hMenu, 0);
    if (!hPopup) {
        TraceF(L"\n timerProc: menu %u has no popup ", choice.nMenuId);
        DestroyMenu(hMenu);
        return;
    }
    if (choice.nMenuId == IDR_MENU_CHAIN || choice.nMenuId == IDR_MENU_ARC_CHAIN)
        CheckChainMenu(hPopup, choice, popupObjectId);
    // Height marks check their background (and a base plane its fixing) here.

    UINT nChosen = 0;
    if (!RunGuarded([&] {
            POINT pt;
            GetCursorPos(&pt);
            nChosen = static_cast<UINT>(TrackPopupMenu(hPopup, TPM_RETURNCMD, pt.x + kPopupMenuOffset,
                                                       pt.y + kPopupMenuOffset, 0, acedGetAcadDwgView(), nullptr));
        }))
        acutPrintf(L"\nANY ERROR ON PopupMenu...");
    DestroyMenu(hMenu);
    if (!nChosen)
        return;
    if (iDimType < 200)
        OnPopupCommand(nChosen, popupObjectId);
    else
        OnPopupCommandH(nChosen, popupObjectId);
}

bool OnRightButtonDown(const MSG* pMsg)
{
    popupObjectId = AcDbObjectId::kNull;
    HWND hMain = adsw_acadMainWnd();
    if (GetActiveWindow() != hMain) {
        FocusAcad();
        if (GetActiveWindow() != hMain)
            return false;
    }
    if (!GetCommandNames().IsEmpty())
        return false;
    popupObjectId = GetObjectAtPixel(MessagePixel(pMsg));
    return !popupObjectId.isNull();
}

bool OnRightButtonUp(const MSG* pMsg)
{
    if (popupObjectId.isNull())
        return false;
    int iMDType = 0;
    if (GetDimType(popupObjectId, iMDType) == 0 && iMDType == kMdTypeForeign) {
        popupObjectId = AcDbObjectId::kNull;
        return false;
    }
    acedPostCommand(kEscEsc);
    // The host selects the object and shows its grips as for a left click.
    const POINT px = MessagePixel(pMsg);
    HWND hView = acedGetAcadDwgView();
    SendMessageW(hView, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(px.x, px.y));
    SendMessageW(hView, WM_LBUTTONUP, 0, MAKELPARAM(px.x, px.y));
    SetTimer(hView, kPopupTimerId, kPopupTimerDelay, timerProc);
    return true;
}

// Esc while the panel shows a picked object's values: back to the defaults.
void OnEscape()
{
    if (!pGlobDimOptions || !dlgMyApp || !pGlobDimOptions->m_bNoWrite)
        return;
    if (!GetCommandNames().IsEmpty() || GetCurrentDWGName().IsEmpty())
        return;
    dlgMyApp->AdjustMode(dlgMyApp->m_iCurrentMode);
}

bool FilterMessage(MSG* pMsg)
{
    if (bUnloaded || !pMsg)
        return false;
    const bool bAlways = GlobalSwitch(kOptIntContextMenuAlways);
    if (!bAlways && pGlobDimOptions && pGlobDimOptions->m_iRunningCommand)
        return false;
    if (!bAlways && !dlgMyApp)
        return false;
    switch (pMsg->message) {
    case WM_RBUTTONDOWN:
        return OnRightButtonDown(pMsg);
    case WM_RBUTTONUP:
        return OnRightButtonUp(pMsg);
    case WM_CHAR:
        if (pMsg->wParam == kEscapeChar)
            OnEscape();
        return false;
    default:
        return false;
    }
}

void PostPopupCommand(UINT nMenuId, AcDbObjectId objectId, const wchar_t* pszCommand)
{
    nPendingMenuId = nMenuId;
    pendingPopupObjectId = objectId;
    AcDbDatabase* pDb = acdbCurDwg();
    const int bWasLocked = TestLocked(pDb, L"OnPopupCommand");
    AcDbEntity* pEntity = nullptr;
    // One undo step for whatever the command does to the object.
    if (acdbOpenAcDbEntity(pEntity, objectId, AcDb::kForWrite) == Acad::eOk) {
        pEntity->recordGraphicsModified(true);
        pEntity->assertWriteEnabled(true, true);
        pEntity->close();
    }
    if (!bWasLocked)
        UnlockDB(pDb);
    acedPostCommand(pszCommand);
}

} // namespace

bool IsSwitchShown(UINT nObjectFlag, bool bGlobalOn)
{
    return nObjectFlag == 1 || (nObjectFlag != 2 && bGlobalOn);
}

bool filterProc(MSG* pMsg)
{
    bool bSwallow = false;
    if (!RunGuarded([&] { bSwallow = FilterMessage(pMsg); }))
        acutPrintf(L"\nANY PROBLEM in filterProc... ");
    return bSwallow;
}

void timerProc(HWND hWnd, UINT, UINT_PTR nIdEvent, DWORD)
{
    if (nIdEvent != kPopupTimerId)
        return;
    if (!RunGuarded([&] { ShowPopupMenu(hWnd); }))
        acutPrintf(L"\nANY PROBLEM in timerProc... ");
}

AcDbObjectId GetObjectAtPixel(const POINT& pixel)
{
    ads_point ptWorld = {0.0, 0.0, 0.0};
    const int iWinNum = acedGetWinNum(pixel.x, pixel.y);
    if (iWinNum) {
        if (!acedCoordFromPixelToWorld(iWinNum, pixel, ptWorld))
            return AcDbObjectId::kNull;
    } else if (!acedCoordFromPixelToWorld(pixel, ptWorld)) {
        return AcDbObjectId::kNull;
    }
    ads_point ptUcs = {0.0, 0.0, 0.0};
    acdbWcs2Ucs(ptWorld, ptUcs, false);
    if (!iWinNum) {
        // Off plan view the pixel stands for a line of sight: take its point
        // on the UCS plane.
        resbuf rb{};
        if (acedGetVar(L"VIEWDIR", &rb) == RTNORM && rb.restype == RT3DPOINT) {
            const bool bPlan = std::abs(rb.resval.rpoint[0]) < kPlanViewTol &&
                               std::abs(rb.resval.rpoint[1]) < kPlanViewTol &&
                               std::abs(rb.resval.rpoint[2] - 1.0) < kPlanViewTol;
            ads_point dirUcs = {0.0, 0.0, 1.0};
            acdbWcs2Ucs(rb.resval.rpoint, dirUcs, true);
            if (!bPlan && std::abs(dirUcs[2]) > kPlanViewTol) {
                const double t = ptUcs[2] / dirUcs[2];
                for (int i = 0; i < 3; ++i)
                    ptUcs[i] -= dirUcs[i] * t;
            }
        }
    }
    ads_name ss = {0, 0};
    if (acedSSGet(L":E", ptUcs, nullptr, nullptr, ss) != RTNORM)
        return AcDbObjectId::kNull;
    AcDbObjectId id;
    Adesk::Int32 nLength = 0;
    ads_name ent = {0, 0};
    if (acedSSLength(ss, &nLength) == RTNORM && nLength > 0 && acedSSName(ss, nLength - 1, ent) == RTNORM)
        acdbGetObjectId(id, ent);
    acedSSFree(ss);
    return id;
}

int GetDimType(AcDbObjectId objectId, int& iMDType)
{
    iMDType = kMdTypeForeign;
    if (objectId.isNull())
        return 0;
    AcDbEntity* pEntity = nullptr;
    if (acdbOpenAcDbEntity(pEntity, objectId, AcDb::kForRead) != Acad::eOk)
        return 0;
    int iDimType = 0;
    CStringArray* pStrings = nullptr;
    CUIntArray* pInts = nullptr;
    CDoubleArray* pDoubles = nullptr;
    if (GetChainArrays(pEntity, pStrings, pInts, pDoubles)) {
        iDimType = 100 + (pInts->GetSize() > kIntLastType ? static_cast<int>((*pInts)[kIntLastType]) : 0);
        iMDType = GetChainType(pEntity);
    } else if (TaggedKind(pEntity)) {
        // Height marks are classified before this once they are part of the module.
        if (AcDbRadialDimension::cast(pEntity) || AcDbDiametricDimension::cast(pEntity))
            iMDType = kMdTypeRadial;
        else if (AcDbDimension::cast(pEntity))
            iMDType = kMdTypeDimension;
        else
            iMDType = kMdTypeText;
    }
    pEntity->close();
    return iDimType;
}

CPopupMenuChoice ChoosePopupMenu(int iDimType, int iMDType)
{
    if (iDimType >= 300)
        return {kModePlanHeight, IDR_MENU_PLAN_MARK};
    if (iDimType >= 250)
        return {kModeSectionHeight, IDR_MENU_BASE_PLANE};
    if (iDimType >= 200)
        return {kModeSectionHeight, IDR_MENU_SECTION_MARK};
    if (iDimType != 0 || iMDType == kMdTypeForeign)
        return {kModeLinear, iMDType == kArcChain ? static_cast<UINT>(IDR_MENU_ARC_CHAIN) : IDR_MENU_CHAIN};
    if (iMDType == kMdTypeRadial)
        return {kModeLinear, IDR_MENU_TAGGED_RADIAL};
    if (iMDType == kMdTypeDimension)
        return {kModeLinear, IDR_MENU_TAGGED_DIM};
    return {kModeText, IDR_MENU_TAGGED_TEXT};
}

void OnPopupCommand(UINT nMenuId, AcDbObjectId objectId)
{
    PostPopupCommand(nMenuId, objectId, L"KOVA_SorvanePopUp ");
}

void OnPopupCommandH(UINT nMenuId, AcDbObjectId objectId)
{
    // These two start a jig of their own and run at once.
    if (nMenuId == ID_HMARK_ALIGN_VERTICAL || nMenuId == ID_HMARK_ALIGN_LINE) {
        nPendingMenuId = nMenuId;
        pendingPopupObjectId = objectId;
        PrintNotAvailable(L"KOVA_SorvanePopUpH");
        return;
    }
    PostPopupCommand(nMenuId, objectId, L"KOVA_SorvanePopUpH ");
}
