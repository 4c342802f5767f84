// Selections through acedSSGet with entity name filters, round a hidden panel.
#include "services/Selection.h"

#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/ed/AcEdSelection.h"
#include "host/ed/AcEdWindow.h"
#include "host/mfc/CString.h"
#include "host/rx/acutPrintf.h"
#include "host/win/WinWindow.h"
#include "resources/resource.h"
#include "services/PanelLink.h"

namespace {

// Chains carry their own entity name, which the "dimension" patterns don't reach.
constexpr wchar_t kDimsAndChains[] = L"*DIM*,KOVA_SORVANE";
constexpr wchar_t kTexts[] = L"*TEXT";
constexpr wchar_t kHeightMarks[] = L"KOVA_DIM_HEIGHT";
constexpr wchar_t kChains[] = L"KOVA_SORVANE";
constexpr wchar_t kOwnObjects[] = L"KOVA_DIM*,KOVA_SORVANE";
constexpr wchar_t kNativeDims[] = L"*DIMENS*";

void PrintString(UINT id, const wchar_t* fallback)
{
    CString strText;
    if (!strText.LoadString(id))
        strText = fallback;
    acutPrintf(L"%s", static_cast<const wchar_t*>(strText));
}

void FocusMainWindow()
{
    const HWND hMain = adsw_acadMainWnd();
    EnableWindow(hMain, TRUE);
    SetFocus(hMain);
}

resbuf* NameFilter(const wchar_t* filter, const wchar_t* alternative)
{
    if (!filter || !*filter)
        return nullptr;
    if (alternative && *alternative)
        return acutBuildList(-4, L"<or", RTDXF0, filter, RTDXF0, alternative, -4, L"or>", RTNONE);
    return acutBuildList(RTDXF0, filter, RTNONE);
}

// Runs the selection and appends its ids; false on cancel or an empty selection.
bool RunSelection(const resbuf* pFilter, AcDbObjectIdArray& ids)
{
    ads_name ss = {0, 0};
    if (acedSSGet(nullptr, nullptr, nullptr, pFilter, ss) != RTNORM)
        return false;
    Adesk::Int32 length = 0;
    acedSSLength(ss, &length);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name ent = {0, 0};
        AcDbObjectId id;
        if (acedSSName(ss, i, ent) == RTNORM && acdbGetObjectId(id, ent) == Acad::eOk)
            ids.append(id);
    }
    acedSSFree(ss);
    return true;
}

} // namespace

int GetSelectedEntities(AcDbObjectIdArray& ids, int kind)
{
    PrintString(IDS_SELECT, L"\nWählen...");
    const bool bHidden = PanelIsVisible();
    if (bHidden)
        PanelHide();
    FocusMainWindow();

    const wchar_t* pszFilter = kNativeDims;
    const wchar_t* pszAlternative = nullptr;
    bool bChainPrompt = false;
    switch (kind) {
    case 1:
        pszFilter = kDimsAndChains;
        pszAlternative = kTexts;
        break;
    case 3:
    case 4:
    case 51:
        pszFilter = kHeightMarks;
        break;
    case 5:
        pszFilter = kTexts;
        break;
    case 50:
        pszFilter = kChains;
        bChainPrompt = true;
        break;
    case 52:
        pszFilter = kOwnObjects;
        break;
    default:
        bChainPrompt = true;
        break;
    }
    if (bChainPrompt)
        PrintString(IDS_SELECT_CHAINS, L"\nMaßketten wählen...");
    resbuf* pFilter = NameFilter(pszFilter, pszAlternative);
    const bool bSelected = RunSelection(pFilter, ids);
    if (pFilter)
        acutRelRb(pFilter);
    if (bHidden)
        PanelShow();
    return bSelected ? ids.length() : 0;
}

int SelectIds(AcDbObjectIdArray& ids, const wchar_t* prompt, int kind)
{
    switch (kind) {
    case 1:
        return SelectFiltered(ids, prompt, kDimsAndChains, kTexts);
    case 5:
        return SelectFiltered(ids, prompt, kTexts, nullptr);
    case 3:
    case 4:
        return SelectFiltered(ids, prompt, kHeightMarks, nullptr);
    default:
        return SelectFiltered(ids, prompt, kNativeDims, nullptr);
    }
}

int SelectFiltered(AcDbObjectIdArray& ids, const wchar_t* prompt, const wchar_t* filter,
                   const wchar_t* alternative)
{
    const bool bHidden = PanelIsVisible();
    if (bHidden)
        PanelHide();
    else
        FocusMainWindow();
    if (prompt && *prompt)
        acutPrintf(L"%s", prompt);
    resbuf* pFilter = NameFilter(filter, alternative);
    const bool bSelected = RunSelection(pFilter, ids);
    if (pFilter)
        acutRelRb(pFilter);
    if (bHidden)
        PanelShow();
    return bSelected ? ids.length() : 0;
}
