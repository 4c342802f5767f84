// The headless main panel: window state, mode and type, and the parameters it
// hands to new and refreshed entities.
#include "app/DlgMain.h"

#include <algorithm>

#include "app/ChainLink.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObject.h"
#include "host/rx/AcRxClass.h"
#include "host/win/WinWindow.h"
#include "options/GlobDimOptions.h"
#include "services/Annotative.h"
#include "services/Trace.h"

namespace {

// The user-defined type of each mode (no type is forced on objects).
int UserDefinedType(int iMode)
{
    switch (iMode) {
    case kModeLinear:
        return 6;
    case kModeSectionHeight:
        return 7;
    case kModePlanHeight:
        return 5;
    default:
        return -1;
    }
}

// Indices the panel's controls stand for: the entity takes the store's value
// for each control in force in the mode and keeps its own elsewhere.
constexpr int kStrScale = 0, kStrTextStyle = 1, kStrMeasure = 2, kStrIniFile = 3;
constexpr int kDblScaleVal = 0, kDblTextHeight = 1, kDblExtLineLength = 2, kDblDimLinesDistance = 3,
              kDblAcadUnits = 9;
constexpr int kIntExtLine = 0, kIntRoundMM = 2, kIntLastType = 3, kIntDecimals = 4, kIntAppVersion = 13;

template <class TArray>
void PadFrom(TArray& target, const TArray& source)
{
    for (INT_PTR i = target.GetSize(); i < source.GetSize(); ++i)
        target.SetAtGrow(i, source[i]);
}

} // namespace

CDlgMain::~CDlgMain()
{
    DestroyWindow();
}

BOOL CDlgMain::Create(UINT /*nIDTemplate*/, HWND /*hParent*/)
{
    if (m_hWnd)
        return FALSE;
    m_hWnd = svwin::CreateSimWindow(L"DlgMain");
    m_bVisible = m_bIconic = m_bZoomed = FALSE;
    m_bEnabled = TRUE;
    return m_hWnd != nullptr;
}

BOOL CDlgMain::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    svwin::DestroySimWindow(m_hWnd);
    m_hWnd = nullptr;
    m_bVisible = FALSE;
    return TRUE;
}

BOOL CDlgMain::ShowWindow(int nCmdShow)
{
    const BOOL bWasVisible = m_bVisible;
    switch (nCmdShow) {
    case SW_HIDE:
        m_bVisible = FALSE;
        break;
    case SW_SHOWMAXIMIZED:
        m_bVisible = TRUE;
        m_bZoomed = TRUE;
        m_bIconic = FALSE;
        break;
    case SW_MINIMIZE:
    case SW_SHOWMINIMIZED:
        m_bVisible = TRUE;
        m_bIconic = TRUE;
        break;
    case SW_SHOWNORMAL:
    case SW_RESTORE:
        m_bVisible = TRUE;
        m_bIconic = m_bZoomed = FALSE;
        break;
    default:  // SW_SHOW keeps the state the window had
        m_bVisible = TRUE;
        break;
    }
    return bWasVisible;
}

void CDlgMain::GetWindowRect(RECT* pRect) const
{
    if (pRect)
        *pRect = m_rect;
}

void CDlgMain::MoveWindow(int x, int y, int nWidth, int nHeight)
{
    m_rect.left = x;
    m_rect.top = y;
    m_rect.right = x + nWidth;
    m_rect.bottom = y + nHeight;
}

void CDlgMain::SetFocus()
{
    if (m_hWnd)
        ::SetFocus(m_hWnd);
}

void CDlgMain::EnableWindow(BOOL bEnable)
{
    m_bEnabled = bEnable ? TRUE : FALSE;
    if (m_hWnd)
        ::EnableWindow(m_hWnd, bEnable);
}

int CDlgMain::AdjustMode(int iMode)
{
    if (pGlobDimOptions)
        pGlobDimOptions->m_bNoWrite = FALSE;
    if (iMode < 0) {
        if (pGlobDimOptions && pGlobDimOptions->m_iMode != m_iCurrentMode)
            pGlobDimOptions->m_iMode = m_iCurrentMode;
        return 0;
    }
    m_iCurrentMode = iMode;
    if (pGlobDimOptions)
        pGlobDimOptions->m_iMode = iMode;
    return 1;
}

int CDlgMain::AdjustType(int iType)
{
    if (m_iCurrentMode < 0)
        return 0;
    if (pGlobDimOptions && pGlobDimOptions->m_iMode != m_iCurrentMode) {
        TraceF(L"\n AdjustType(%d) GM=%d MM=%d ", iType, pGlobDimOptions->m_iMode, m_iCurrentMode);
        pGlobDimOptions->m_iMode = m_iCurrentMode;
    }
    if (iType >= 0) {
        m_iCurrentType = iType;
        if (pGlobDimOptions)
            pGlobDimOptions->SetInt(kIntLastType, iType);
    }
    return 1;
}

BOOL CDlgMain::IsUserDefinedType() const
{
    return m_iCurrentType == UserDefinedType(m_iCurrentMode);
}

int CDlgMain::InitParameters(AcDbObject* pEntity, int* piResult)
{
    CStringArray* pStrings = nullptr;
    CUIntArray* pInts = nullptr;
    CDoubleArray* pDoubles = nullptr;
    if (pEntity && (m_iCurrentMode == kModeAll || m_iCurrentMode == kModeLinear) &&
        GetChainArrays(pEntity, pStrings, pInts, pDoubles)) {
        const int iDone = InitParameterArrays(*pStrings, *pInts, *pDoubles, kModeLinear, piResult);
        // The scale text decides the annotative flag. A chain not yet in a drawing
        // gets it at its first refresh there, when it is open for write.
        auto* pChainEntity = AcDbEntity::cast(pEntity);
        if (iDone && pChainEntity && pStrings->GetSize() > 0 && pEntity->isDatabaseResident() &&
            pEntity->isWriteEnabled())
            SetAnnotative(pChainEntity, IsAnnoScaleText((*pStrings)[0]));
        return iDone;
    }
    TraceF(L"\n InitParameters: %s is not served in mode %d ",
           pEntity ? pEntity->isA()->name() : L"(null)", m_iCurrentMode);
    return 0;
}

int CDlgMain::InitParameterArrays(CStringArray& arrayString, CUIntArray& arrayInt, CDoubleArray& arrayDouble,
                                  int iSetMode, int* piResult)
{
    if (!pGlobDimOptions)
        return 0;
    const CParamSet& set = pGlobDimOptions->GetSet(iSetMode);
    PadFrom(arrayString, set.arrayString);
    PadFrom(arrayInt, set.arrayInt);
    PadFrom(arrayDouble, set.arrayDouble);

    const bool bMixed = m_iCurrentMode == kModeAll;
    const bool bText = iSetMode == kModeText;
    int iResult = 0;
    auto takeDouble = [&](int i, bool bGeometry) {
        if (bGeometry && arrayDouble[i] != set.arrayDouble[i])
            iResult = 2;
        arrayDouble[i] = set.arrayDouble[i];
    };
    auto takeString = [&](int i, bool bGeometry) {
        if (bGeometry && arrayString[i] != set.arrayString[i])
            iResult = 2;
        arrayString[i] = set.arrayString[i];
    };
    auto takeInt = [&](int i) { arrayInt[i] = set.arrayInt[i]; };

    takeString(kStrScale, true);
    takeDouble(kDblScaleVal, true);
    takeDouble(kDblTextHeight, true);
    if (!bMixed && iSetMode == kModeLinear)
        takeDouble(kDblDimLinesDistance, false);
    if (!bMixed && !bText && iSetMode != kModePlanHeight) {
        takeInt(kIntExtLine);
        takeDouble(kDblExtLineLength, false);
    }
    if (!bMixed && !IsUserDefinedType())
        arrayInt[kIntLastType] = static_cast<UINT>(std::max(m_iCurrentType, 0));
    takeString(kStrTextStyle, false);
    takeInt(kIntRoundMM);
    takeDouble(kDblAcadUnits, false);
    if (!bText) {
        takeString(kStrMeasure, false);
        takeInt(kIntDecimals);
    }
    arrayString[kStrIniFile] = pGlobDimOptions->m_strCurOptionsFile;
    takeInt(kIntAppVersion);
    if (piResult && iResult)
        *piResult = iResult;
    return 1;
}
