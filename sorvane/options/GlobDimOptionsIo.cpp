// The option store's way to and from the INI files: loading all sets, saving
// the sets of a mode, and writing single values under their keys.
#include "options/GlobDimOptions.h"

#include "app/App.h"
#include "host/mfc/CWaitCursor.h"
#include "host/win/WinCrt.h"
#include "options/IniCache.h"
#include "options/IniDefaults.h"
#include "options/IniLists.h"
#include "options/Maps.h"
#include "options/ScaleText.h"
#include "services/Folders.h"
#include "services/Numbers.h"
#include "services/Trace.h"

namespace {

const wchar_t kGeneralSection[] = L"General Info";
const wchar_t kMainOptionsSection[] = L"MainOptions";
const wchar_t kMainIniName[] = L"Sorvane.ini";
// A value shown for a selection whose objects differ; never stored.
const wchar_t kVariousValues[] = L"<var>";
// String-table entry of the "keep as it is" choice of the lists; never stored.
constexpr UINT kIdsKeepValue = 32897;
// Doubles are stored with this many decimals at most, trailing zeros trimmed.
constexpr int kStoredDecimals = 10;
// A delimiter holding one of these would break the value texts' records.
const wchar_t kForbiddenDelimiterChars[] = L"#@^";

constexpr int kIntAltUnits = 22;

// The description of the parameters, read only, beside the language file.
const wchar_t kParamDescriptionName[] = L"DimParam.ini";
const wchar_t* const kParamDescriptionSections[] = {L"Parameters_INT", L"Parameters_DBL", L"Parameters_STR",
                                                    L"Parameters_General"};
// The list of the options files the user has worked with, in the main INI file.
const wchar_t kOptionsFilesSection[] = L"OptionsFiles";
// Per set (linear, height, text): keys of which at least one stands in an
// options file that was ever written for that set.
const wchar_t* const kSetMarkerKeys[kSetCount][3] = {
    {L"TickSize", L"TextHeight", L"Scale"},
    {L"HDimSize", L"AcadUnits", L"Scale"},
    {L"TextHeight", L"AcadUnits", L"Scale"},
};

UINT LegalAltUnits(UINT nValue)
{
    return nValue == kAltUnitsOn || nValue == kAltUnitsDefault ? nValue : kAltUnitsDefault;
}

CString SectionOf(int iClass, int iMode)
{
    if (iClass == kParamOptString || iClass == kParamOptInt)
        return CString(kGeneralSection);
    return SectionPrefix(iMode) + kMainOptionsSection;
}

// The main INI file's path: the user data folder, or the temporary folder
// where there is none.
CString MainIniPath()
{
    CString strFolder = GetProductFolder();
    if (strFolder.GetLength() < 3)
        strFolder = GetTempFolder();
    return strFolder + kMainIniName;
}

// DimParam.ini in the folder of the language file; before a language is
// chosen, the one beside the module.
CString ParamDescriptionFile()
{
    const CString strFolder = strLanguageFile.IsEmpty() ? GetModuleFolder() : GetFolderOf(strLanguageFile);
    return strFolder + kParamDescriptionName;
}

// Adds the items "key=<flag><label>;<description>" of all four sections to the
// global store's mapParams. A missing file adds nothing: every key then lives
// in the main INI file.
void LoadParamDescriptions()
{
    const CString strFile = ParamDescriptionFile();
    if (!FileExists(strFile))
        return;
    for (const wchar_t* pszSection : kParamDescriptionSections)
        LoadMap(kMapModeParams, pszSection, strFile);
}

// The list "OptionsFiles" of the main INI file gains the file if it lacks it.
void RememberOptionsFile(const CString& strIniFile, const CString& strFile)
{
    CStringArray arrayFiles;
    LoadSection(arrayFiles, kOptionsFilesSection, strIniFile);
    for (INT_PTR i = 0; i < arrayFiles.GetSize(); ++i)
        if (arrayFiles[i].CompareNoCase(strFile) == 0)
            return;
    arrayFiles.Add(strFile);
    SaveSection(arrayFiles, kOptionsFilesSection, strIniFile);
}

} // namespace

BOOL CGlobDimOptions::LoadOptions()
{
    CWaitCursor wait;
    try {
        // The background colour is taken from acedGetCurrentColors here once
        // the editor reports it; until then the last one stays.

        // The list reader serves the global store only; DimParam.ini is read once.
        if (mapParams.IsEmpty() && pGlobDimOptions == this)
            LoadParamDescriptions();

        m_strIniFile = MainIniPath();
        CString strValue;
        m_bNoEditableParams = ReadEntry(m_strIniFile, kGeneralSection, L"NoEditableParams", strValue) &&
                              _wtoi(strValue) == 1;
        m_bDebugMsg = ReadEntry(m_strIniFile, kGeneralSection, L"DebugMsg", strValue) && _wtoi(strValue) == 1;
        m_bNoWrite = FALSE;
        m_iMode = kModeLinear;

        m_strCurOptionsFile.Empty();
        if (ReadEntry(m_strIniFile, kGeneralSection, L"CurOptionsFile", strValue))
            m_strCurOptionsFile = strValue;
        if (m_strCurOptionsFile.IsEmpty() || !FileExists(m_strCurOptionsFile))
            m_strCurOptionsFile = m_strIniFile;
        if (pGlobDimOptions == this)
            RememberOptionsFile(m_strIniFile, m_strCurOptionsFile);

        for (int iSet = 0; iSet < kSetCount; ++iSet)
            LoadSet(iSet);
        m_iMode = kModeLinear;
        LoadGeneral();
        m_iRunningCommand = 0;

        // Scale2Layer and TextHeight2Color of modes 2, 5 and 3.
        LoadMaps();

        // With a panel open, its current mode and type take over here.
        m_iMode = kModeLinear;
    } catch (CException* e) {
        e->Delete();
        TraceF(L"\n!!! LoadOptions: a parameter index is out of range (mode %d); the options are incomplete. ",
               m_iMode);
        m_iMode = kModeLinear;
        return FALSE;
    }
    return TRUE;
}

void CGlobDimOptions::LoadSet(int iSet)
{
    m_iMode = ModeOfSet(iSet);
    CParamSet& set = GetSet();
    set.Reset();
    // An options file never written for this set gets the mode's defaults
    // first; read past the cache, since only the file itself counts.
    const CString strSection = SectionPrefix(m_iMode) + kMainOptionsSection;
    bool bWritten = false;
    for (const wchar_t* pszKey : kSetMarkerKeys[iSet])
        bWritten = bWritten || !ReadEntryFromIni(m_strCurOptionsFile, strSection, pszKey).IsEmpty();
    if (!bWritten)
        MakeDefaultIniValues(m_strCurOptionsFile, m_iMode);

    for (int i : {0, 1, 2})
        set.arrayString[i] = ReadParam(kParamString, i);
    CString strDelimiter = iSet == kSetLinear ? ReadParam(kParamString, 5) : m_setLinear.arrayString[5];
    if (strDelimiter.FindOneOf(kForbiddenDelimiterChars) >= 0)
        strDelimiter.Empty();
    set.arrayString[5] = strDelimiter;
    set.arrayString[3] = m_strCurOptionsFile;

    set.arrayDouble[0] = ScaleStr2Double(set.arrayString[0]);
    for (int i : {1, 2, 3, 5, 7, 8, 9, 11})
        set.arrayDouble[i] = ReadParamDouble(kParamDouble, i);
    if (set.arrayDouble[9] == 0.0)
        set.arrayDouble[9] = 0.001;  // AcadUnits 0 would make every value 0

    for (int i : {0, 2, 1, 22, 6, 4, 16, 5})
        set.arrayInt[i] = static_cast<UINT>(ReadParamInt(kParamInt, i));
    set.arrayInt[kIntAltUnits] = LegalAltUnits(set.arrayInt[kIntAltUnits]);
    for (int i : {9, 18})
        set.arrayInt[i] = ReadParamInt(kParamInt, i) != 0 ? 1u : 0u;

    if (iSet != kSetText)
        set.arrayString[4] = ReadParam(kParamString, 4);
    if (iSet == kSetLinear) {
        for (int i : {13, 4, 6, 12})
            set.arrayDouble[i] = ReadParamDouble(kParamDouble, i);
    }
    if (iSet == kSetHeight) {
        set.arrayInt[7] = set.arrayInt[5];
        // Integer 9 is read again here as it stands, after the boolean read above.
        for (int i : {8, 9, 11, 23})
            set.arrayInt[i] = static_cast<UINT>(ReadParamInt(kParamInt, i));
        set.arrayInt[12] = ReadParamInt(kParamInt, 12) != 0 ? 1u : 0u;
        for (int i : {12, 4, 6, 13})
            set.arrayDouble[i] = ReadParamDouble(kParamDouble, i);
    }
    set.arrayInt[3] = static_cast<UINT>(ReadParamInt(kParamInt, 3));
}

void CGlobDimOptions::LoadGeneral()
{
    arrayOptInt.SetSize(kOptInts);
    arrayOptString.SetSize(kOptStrings);
    for (int i : {1, kOptIntAcadDimAssociative, 5, 0, 2, 3, 7, 6, 8, 9, 10, 11, 14, 15}) {
        if (i == kOptIntAcadDimAssociative) {
            // Kept with the conversion settings of the options file.
            CString strValue;
            arrayOptInt[i] = ReadEntry(m_strCurOptionsFile, L"Convert", L"Associative", strValue)
                                 ? static_cast<UINT>(_wtoi(strValue))
                                 : 0u;
        } else {
            arrayOptInt[i] = static_cast<UINT>(ReadParamInt(kParamOptInt, i));
        }
    }
    arrayOptString[kOptStringScalePaperSpace] = ReadOptStringOrDefault(kOptStringScalePaperSpace);
    SetAutoPosOrder(ReadOptStringOrDefault(kOptStringAutoPosLocationOrder));
    for (int i : {2, 3})
        arrayOptString[i] = ReadParam(kParamOptString, i);
    arrayOptString[kOptStringAltFormatList] = ReadOptStringOrDefault(kOptStringAltFormatList);
}

BOOL CGlobDimOptions::SaveOptions()
{
    CWaitCursor wait;
    const int iModeBefore = m_iMode;
    BOOL bDone = TRUE;
    try {
        switch (m_iMode) {
        case kModeLinear:
        case kModeSectionHeight:
        case kModePlanHeight:
        case kModeText:
            SaveSet(SetOfMode(m_iMode));
            break;
        default:
            for (int iSet = 0; iSet < kSetCount; ++iSet)
                SaveSet(iSet);
            break;
        }
    } catch (CException* e) {
        e->Delete();
        TraceF(L"\n!!! SaveOptions: a parameter index is out of range (mode %d); not everything was saved. ",
               m_iMode);
        bDone = FALSE;
    }
    m_iMode = iModeBefore;
    return bDone;
}

void CGlobDimOptions::SaveSet(int iSet)
{
    m_iMode = ModeOfSet(iSet);
    for (int i : {0, 1, 2})
        SaveOption(kParamString, i, GetString(i));
    // The delimiter is the linear set's for every kind of object.
    SaveOption(kParamString, 5, m_setLinear.arrayString[5]);

    for (int i : {1, 2, 3, 5, 7, 8, 9, 11})
        SaveOption(kParamDouble, i, GetDouble(i));

    for (int i : {0, 2, 1})
        SaveOption(kParamInt, i, GetInt(i));
    const int iAltUnits = static_cast<int>(LegalAltUnits(static_cast<UINT>(GetInt(kIntAltUnits))));
    SetInt(kIntAltUnits, iAltUnits);
    SaveOption(kParamInt, kIntAltUnits, iAltUnits);
    // 17 is saved though never loaded, and 18 the reverse: the option sheet
    // alone writes ForbidLayer0.
    for (int i : {6, 4, 16, 5, 17, 9})
        SaveOption(kParamInt, i, GetInt(i));

    if (iSet != kSetText)
        SaveOption(kParamString, 4, GetString(4));
    if (iSet == kSetLinear) {
        for (int i : {13, 4, 6, 12})
            SaveOption(kParamDouble, i, GetDouble(i));
    }
    if (iSet == kSetHeight) {
        SaveOption(kParamDouble, 12, GetDouble(12));
        for (int i : {8, 9, 11, 23})
            SaveOption(kParamInt, i, GetInt(i));
        for (int i : {4, 6, 13})
            SaveOption(kParamDouble, i, GetDouble(i));
        SaveOption(kParamInt, 12, GetInt(12));
    }
    SaveOption(kParamInt, 3, GetInt(3));
}

BOOL CGlobDimOptions::SaveOption(int iClass, int iIndex, const CString& strValue)
{
    if (m_bNoWrite || strValue == kVariousValues)
        return FALSE;
    CString strKeep;
    if (strKeep.LoadString(kIdsKeepValue) && strValue == strKeep)
        return FALSE;
    CStringArray arraySections, arrayKeys;
    const int nTargets = GetSaveTargets(iClass, iIndex, arraySections, arrayKeys);
    for (int i = 0; i < nTargets; ++i)
        WriteEntry(GetParamFile(arrayKeys[i]), arraySections[i], arrayKeys[i], strValue);
    return TRUE;
}

BOOL CGlobDimOptions::SaveOption(int iClass, int iIndex, int iValue)
{
    CString strValue;
    strValue.Format(L"%d", iValue);
    return SaveOption(iClass, iIndex, strValue);
}

BOOL CGlobDimOptions::SaveOption(int iClass, int iIndex, double dValue)
{
    return SaveOption(iClass, iIndex, Double2Str(dValue, kStoredDecimals));
}

int CGlobDimOptions::GetSaveTargets(int iClass, int iIndex, CStringArray& arraySections, CStringArray& arrayKeys)
{
    arraySections.RemoveAll();
    arrayKeys.RemoveAll();
    if (iClass == kParamOptString || iClass == kParamOptInt || m_iMode != kModeAll) {
        arraySections.Add(SectionOf(iClass, m_iMode));
        arrayKeys.Add(GetParamName(iClass, iIndex, m_iMode));
    } else {
        // Plan marks keep the first names in the height sections, so mode 4
        // adds those keys beside the section marks' ones.
        for (int iMode : {kModeLinear, kModeSectionHeight, kModePlanHeight, kModeText}) {
            arraySections.Add(SectionOf(iClass, iMode));
            arrayKeys.Add(GetParamName(iClass, iIndex, iMode));
        }
    }
    return static_cast<int>(arrayKeys.GetSize());
}

CString CGlobDimOptions::ReadParam(int iClass, int iIndex)
{
    const CString strKey = GetParamName(iClass, iIndex, m_iMode);
    CString strValue;
    if (!ReadEntry(GetParamFile(strKey), SectionOf(iClass, m_iMode), strKey, strValue))
        strValue = ParamDefault(iClass, iIndex, m_iMode);
    return strValue;
}

int CGlobDimOptions::ReadParamInt(int iClass, int iIndex)
{
    return _wtoi(ReadParam(iClass, iIndex));
}

double CGlobDimOptions::ReadParamDouble(int iClass, int iIndex)
{
    return StrToDouble(ReadParam(iClass, iIndex));
}

CString CGlobDimOptions::ReadOptStringOrDefault(int iIndex)
{
    CString strValue = ReadParam(kParamOptString, iIndex);
    if (strValue.IsEmpty()) {
        strValue = ParamDefault(kParamOptString, iIndex, m_iMode);
        const CString strKey = GetParamName(kParamOptString, iIndex, m_iMode);
        WriteEntry(GetParamFile(strKey), kGeneralSection, strKey, strValue);
    }
    return strValue;
}

BOOL CGlobDimOptions::ReadEntry(const CString& strFile, const CString& strSection, const CString& strKey,
                                CString& strValue)
{
    // An empty entry counts as missing, so the parameter takes its default.
    strValue = ReadIni(strFile, strSection, strKey);
    return !strValue.IsEmpty();
}

void CGlobDimOptions::WriteEntry(const CString& strFile, const CString& strSection, const CString& strKey,
                                 const CString& strValue)
{
    WriteIni(strFile, strSection, strKey, strValue);
}
