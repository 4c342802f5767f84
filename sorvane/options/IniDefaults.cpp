// Default contents of an options file, and the options file in use.
#include "options/IniDefaults.h"

#include "host/mfc/afxcoll.h"
#include "options/GlobDimOptions.h"
#include "options/IniCache.h"
#include "options/IniLists.h"
#include "resources/resource.h"
#include "services/Folders.h"
#include "services/Messages.h"

namespace {

// Which modes a default applies to.
enum EModes { kLinearOnly, kHeightOnly, kAll, kNotText };

struct SDefault {
    const wchar_t* pszKey;
    const wchar_t* pszValue;
    EModes eModes;
};

constexpr SDefault kMainDefaults[] = {
    {L"HDimSize", L"5", kHeightOnly},
    {L"HDimDiameter", L"10", kHeightOnly},
    {L"TickSize", L"4", kLinearOnly},
    {L"ExtendBeyondTick", L"2", kLinearOnly},
    {L"DimLinesDistance", L"10", kLinearOnly},
    {L"DimByLine", L"0", kLinearOnly},
    {L"TextStyle", L"", kAll},
    {L"RoundMM", L"1", kAll},
    {L"ExpTextHeight", L"80", kAll},
    {L"AcadUnits", L"0.001", kAll},
    {L"Measure", L"m/cm", kAll},
    {L"Decimals", L"4", kAll},
    {L"Scale", L"1:100", kAll},
    {L"TextHeight", L"50", kAll},
    {L"ExtLine", L"1", kNotText},
    {L"ExtLineLength", L"10", kNotText},
    {L"ExtendBeyondDimLine", L"2", kNotText},
    {L"OffsetFromOrigin", L"5", kNotText},
    {L"TextOffset", L"50", kNotText},
    {L"ExtNewPosition", L"1", kNotText},
    {L"TextArrange", L"1", kNotText},
    {L"ClearUserText", L"1", kNotText},
    {L"TextVectorByUCS", L"1", kNotText},
};

bool AppliesTo(EModes eModes, int iMode)
{
    const bool bHeight = iMode == kModeSectionHeight || iMode == kModePlanHeight;
    switch (eModes) {
    case kHeightOnly: return bHeight;
    case kLinearOnly: return !bHeight && iMode != kModeText;
    case kNotText: return iMode != kModeText;
    case kAll: break;
    }
    return true;
}

void WriteDefaultList(const wchar_t* pszFile, const CString& strSection, std::initializer_list<CString> items)
{
    CStringArray array;
    for (const CString& strItem : items)
        array.Add(strItem);
    SaveSectionNow(array, strSection, pszFile);
}

} // namespace

void MakeDefaultIniValues(const wchar_t* pszFile, int iMode)
{
    const CString strPrefix = SectionPrefix(iMode);
    const CString strMain = strPrefix + L"MainOptions";
    for (const SDefault& entry : kMainDefaults) {
        if (AppliesTo(entry.eModes, iMode))
            WriteIniNow(pszFile, strMain, entry.pszKey, entry.pszValue);
    }
    MakeDefaultIniLists(pszFile, iMode);
}

void MakeDefaultIniLists(const wchar_t* pszFile, int iMode)
{
    const CString strPrefix = SectionPrefix(iMode);
    WriteDefaultList(pszFile, strPrefix + L"TextHeight2Color",
                     {L"TrueType=7", L"18=1", L"25=2", L"35=3", L"50=4", L"70=5", L"100=6"});
    CString strUnknown;
    if (!strUnknown.LoadString(IDS_UNKNOWN_SCALE) || strUnknown.IsEmpty())
        strUnknown = L"<Unbekannt>";
    CString strUnknownRow;
    strUnknownRow.Format(L"%s=DIM_1_X=7", strUnknown.GetString());
    WriteDefaultList(pszFile, strPrefix + L"Scale2Layer",
                     {strUnknownRow, L"1:2=DIM_1_2=7", L"1:5=DIM_1_5=7", L"1:50=DIM_1_50=7", L"1:100=DIM_1_100=7",
                      L"1:200=DIM_1_200=7", L"1:500=DIM_1_500=7", L"1:1000=DIM_1_1000=7"});
    if (iMode != kModeText)
        WriteDefaultList(pszFile, strPrefix + L"ExtLineLength", {L"4", L"5", L"6", L"7", L"8", L"9", L"10"});
}

BOOL CheckOptionsFile(const wchar_t* pszFile)
{
    if (!ReadIni(pszFile, L"MainOptions", L"Measure").IsEmpty() ||
        !ReadIni(pszFile, L"MainOptions", L"Decimals").IsEmpty())
        return TRUE;
    MessageBoxText(L"Ungültige Sorvane-INI-Datei!");
    return FALSE;
}

CString GetCurOptionsFile()
{
    const CString strFile = GetGeneralString(L"CurOptionsFile");
    return strFile.IsEmpty() || !FileExists(strFile) ? GetIniFile() : strFile;
}

void SetCurOptionsFile(const wchar_t* pszFile)
{
    const CString strFile(pszFile);
    WriteIni(GetIniFile(), L"General Info", L"CurOptionsFile", strFile);
    if (pGlobDimOptions)
        pGlobDimOptions->m_strCurOptionsFile = strFile;
    CStringArray arrayFiles, arrayNew;
    LoadSection(arrayFiles, L"OptionsFiles", GetIniFile());
    arrayNew.Add(strFile);
    for (INT_PTR i = 0; i < arrayFiles.GetSize(); ++i) {
        if (arrayFiles[i].CompareNoCase(strFile) != 0)
            arrayNew.Add(arrayFiles[i]);
    }
    SaveSection(arrayNew, L"OptionsFiles", GetIniFile());
}
