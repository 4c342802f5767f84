// Scale-to-layer and text-height-to-colour lookups over the option store's maps.
#include "options/Maps.h"

#include "host/win/WinCrt.h"
#include "options/GlobDimOptions.h"
#include "options/IniCache.h"
#include "options/IniDefaults.h"
#include "options/IniLists.h"
#include "resources/resource.h"
#include "services/Numbers.h"

namespace {

constexpr int kDefaultColor = 7;

CString UnknownScaleWord()
{
    CString strWord;
    if (!strWord.LoadString(IDS_UNKNOWN_SCALE) || strWord.IsEmpty())
        strWord = L"<Unbekannt>";
    return strWord;
}

CMapStringToString* CurrentMap(const wchar_t* pszName)
{
    return pGlobDimOptions ? pGlobDimOptions->GetMap(pGlobDimOptions->m_iMode, pszName) : nullptr;
}

// Splits a "layer=colour" row of Scale2Layer; the colour is -1 when absent.
void SplitLayerRow(const CString& strRow, CString& strLayer, int& iColor)
{
    CString strColor;
    SplitItem(strRow, strLayer, strColor);
    iColor = strColor.IsEmpty() ? -1 : _wtoi(strColor);
}

} // namespace

void LoadMaps()
{
    if (!pGlobDimOptions)
        return;
    for (int iMode : {kModeLinear, kModeText, kModeSectionHeight}) {
        if (LoadMap(iMode, L"Scale2Layer") == 0 && LoadMap(iMode, L"TextHeight2Color") == 0) {
            CString strFile = pGlobDimOptions->m_strCurOptionsFile;
            // Only the lists: the file's measures are the project's own.
            MakeDefaultIniLists(strFile.IsEmpty() ? GetIniFile() : strFile, iMode);
            LoadMap(iMode, L"Scale2Layer");
        }
        LoadMap(iMode, L"TextHeight2Color");
    }
}

CString GetLayerOfScale(int iMode, const CString& strScale)
{
    CMapStringToString* pMap = pGlobDimOptions ? pGlobDimOptions->GetMap(iMode, L"Scale2Layer") : nullptr;
    if (!pMap)
        return CString();
    CString strRow;
    if (!pMap->Lookup(strScale, strRow) && !pMap->Lookup(UnknownScaleWord(), strRow))
        return CString();
    CString strLayer;
    int iColor = 0;
    SplitLayerRow(strRow, strLayer, iColor);
    return strLayer;
}

BOOL IsSorvaneLayer(const CString& strLayer)
{
    CMapStringToString* pMap = CurrentMap(L"Scale2Layer");
    if (!pMap)
        return FALSE;
    for (POSITION pos = pMap->GetStartPosition(); pos;) {
        CString strKey, strRow, strName;
        int iColor = 0;
        pMap->GetNextAssoc(pos, strKey, strRow);
        SplitLayerRow(strRow, strName, iColor);
        if (strName.CompareNoCase(strLayer) == 0)
            return TRUE;
    }
    return FALSE;
}

int GetLayerColor(const CString& strLayer)
{
    if (!pGlobDimOptions)
        return kDefaultColor;
    if (CMapStringToString* pMap = CurrentMap(L"Scale2Layer")) {
        for (POSITION pos = pMap->GetStartPosition(); pos;) {
            CString strKey, strRow, strName;
            int iColor = 0;
            pMap->GetNextAssoc(pos, strKey, strRow);
            SplitLayerRow(strRow, strName, iColor);
            if (strName == strLayer && iColor >= 0)
                return iColor;
        }
    }
    CStringArray arrayRows;
    LoadSection(arrayRows, SectionPrefix(pGlobDimOptions->m_iMode) + L"Layer2DefaultColor");
    for (INT_PTR i = 0; i < arrayRows.GetSize(); ++i) {
        CString strName, strColor;
        if (SplitItem(arrayRows[i], strName, strColor) && strName == strLayer)
            return _wtoi(strColor);
    }
    return kDefaultColor;
}

int GetColorOfTextHeight(double dHeight, int iMode)
{
    CMapStringToString* pMap = iMode < 0 ? CurrentMap(L"TextHeight2Color")
                               : pGlobDimOptions ? pGlobDimOptions->GetMap(iMode, L"TextHeight2Color")
                                                 : nullptr;
    if (!pMap)
        return 0;
    if (dHeight < 0)
        dHeight = pGlobDimOptions->GetDouble(1);
    for (POSITION pos = pMap->GetStartPosition(); pos;) {
        CString strKey, strColor;
        pMap->GetNextAssoc(pos, strKey, strColor);
        const bool bTrueType = strKey.CompareNoCase(L"TrueType") == 0;
        if (dHeight == 0.0 ? bTrueType : !bTrueType && StrToDouble(strKey) == dHeight)
            return _wtoi(strColor);
    }
    return 0;
}

int SelectString(CStringArray& arrayList, const CString& strValue)
{
    for (INT_PTR i = 0; i < arrayList.GetSize(); ++i) {
        if (arrayList[i] == strValue)
            return static_cast<int>(i);
    }
    return static_cast<int>(arrayList.Add(strValue));
}
