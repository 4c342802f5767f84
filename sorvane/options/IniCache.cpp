// The two INI caches and the main INI file's location and first-use content.
#include "options/IniCache.h"

#include <map>
#include <string>

#include "host/mfc/CWaitCursor.h"
#include "host/win/WinCrt.h"
#include "host/win/WinIni.h"
#include "options/GlobDimOptions.h"
#include "options/IniDefaults.h"
#include "services/Folders.h"
#include "services/Trace.h"

namespace {

const wchar_t kGeneral[] = L"General Info";
const wchar_t kMainIniName[] = L"Sorvane.ini";
constexpr DWORD kEntryBuffer = 512;

struct CIniCache {
    std::map<std::wstring, std::wstring> mapEntries;  // "section=key" -> value
    bool bDirty = false;
    CString strFile;  // cache 2 only
};

// The design's two caches and the remembered main path.
CIniCache g_cacheMain;
CIniCache g_cacheOther;
CString g_strMainIni;

CString NameOf(const wchar_t* pszPath)
{
    const CString strPath(pszPath ? pszPath : L"");
    const int iSlash = strPath.ReverseFind(L'\\');
    const int iForward = strPath.ReverseFind(L'/');
    return strPath.Mid((iSlash > iForward ? iSlash : iForward) + 1);
}

CIniCache& CacheFor(const wchar_t* pszFile)
{
    if (CString(pszFile).CompareNoCase(GetIniFile()) == 0)
        return g_cacheMain;
    if (g_cacheOther.strFile.CompareNoCase(pszFile) != 0) {
        SaveIniBuffer(2, TRUE);
        g_cacheOther.strFile = pszFile;
    }
    return g_cacheOther;
}

std::wstring CacheKey(const wchar_t* pszSection, const wchar_t* pszKey)
{
    CString strKey;
    strKey.Format(L"%s=%s", pszSection, pszKey);
    return strKey.GetString();
}

} // namespace

CString GetIniFile()
{
    // A remembered file that has gone (its folder removed, say) is found afresh.
    if (!g_strMainIni.IsEmpty() && FileExists(g_strMainIni))
        return g_strMainIni;
    CString strFolder = GetProductFolder();
    if (strFolder.GetLength() < 3)
        strFolder = GetTempFolder();
    g_strMainIni = strFolder + kMainIniName;
    if (!FileExists(g_strMainIni)) {
        MakeDir(strFolder);
        WritePrivateProfileStringW(kGeneral, L"OptionsActivePage", L"0", g_strMainIni);
        WritePrivateProfileStringW(kGeneral, L"DefaultSection", L"Decimal", g_strMainIni);
        WritePrivateProfileStringW(kGeneral, L"TextMoveStep", L"5", g_strMainIni);
        WritePrivateProfileStringW(kGeneral, L"CurOptionsFile", g_strMainIni, g_strMainIni);
        WritePrivateProfileStringW(L"OptionsFiles", L"Item_0", g_strMainIni, g_strMainIni);
        // The main file is the first options file, so it gets every mode's defaults too.
        for (int iMode : {kModeLinear, kModeSectionHeight, kModePlanHeight, kModeText})
            MakeDefaultIniValues(g_strMainIni, iMode);
    }
    return g_strMainIni;
}

void SetIniFileName(const wchar_t* /*pszPath*/)
{
    if (!g_strMainIni.IsEmpty())
        SaveIniBuffer(1, TRUE);
    g_strMainIni.Empty();
}

BOOL IsMainIniFile(const wchar_t* pszFile)
{
    return NameOf(pszFile).CompareNoCase(kMainIniName) == 0;
}

CString GetFileForSection(const wchar_t* pszSection)
{
    if (CString(pszSection).CompareNoCase(L"Convert") == 0 && pGlobDimOptions &&
        !pGlobDimOptions->m_strCurOptionsFile.IsEmpty())
        return pGlobDimOptions->m_strCurOptionsFile;
    return GetIniFile();
}

CString ReadIni(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey)
{
    CIniCache& cache = CacheFor(pszFile);
    const std::wstring strKey = pszKey ? CacheKey(pszSection, pszKey) : CacheKey(kGeneral, pszSection);
    if (auto it = cache.mapEntries.find(strKey); it != cache.mapEntries.end())
        return CString(it->second.c_str());
    const CString strValue = ReadEntryFromIni(pszFile, pszSection, pszKey);
    cache.mapEntries[strKey] = strValue.GetString();
    return strValue;
}

CString ReadEntryFromIni(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey)
{
    if (!FileExists(pszFile)) {
        TraceF(L"\n ReadEntryFromIni(%s, %s, %s) ***!FILE***", pszFile, pszSection, pszKey ? pszKey : L"");
        if (!IsMainIniFile(pszFile))
            return CString();
        for (int iMode : {kModeLinear, kModeSectionHeight, kModePlanHeight, kModeText})
            MakeDefaultIniValues(pszFile, iMode);
        if (!FileExists(pszFile))
            return CString();
    }
    if (!pszKey) {
        pszKey = pszSection;
        pszSection = kGeneral;
    }
    wchar_t buffer[kEntryBuffer] = {};
    GetPrivateProfileStringW(pszSection, pszKey, L"", buffer, kEntryBuffer, pszFile);
    return CString(buffer);
}

void WriteIni(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue)
{
    CIniCache& cache = CacheFor(pszFile);
    const std::wstring strValue = pszValue ? pszValue : L"";
    auto [it, bNew] = cache.mapEntries.try_emplace(CacheKey(pszSection, pszKey), strValue);
    if (bNew || it->second != strValue) {
        it->second = strValue;
        cache.bDirty = true;
    }
}

void WriteIniNow(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue)
{
    // The file gets the value now, so this write alone leaves the cache clean.
    CIniCache& cache = CacheFor(pszFile);
    const bool bWasDirty = cache.bDirty;
    WriteIni(pszFile, pszSection, pszKey, pszValue);
    cache.bDirty = bWasDirty;
    WritePrivateProfileStringW(pszSection, pszKey, pszValue ? pszValue : L"", pszFile);
}

void SaveIniBuffer(int iCache, BOOL bClear)
{
    CIniCache& cache = iCache == 1 ? g_cacheMain : g_cacheOther;
    const CString strFile = iCache == 1 ? g_strMainIni : cache.strFile;
    const bool bDirty = cache.bDirty;
    cache.bDirty = false;
    if (bDirty && !strFile.IsEmpty() && FileExists(strFile)) {
        for (const auto& [strEntry, strValue] : cache.mapEntries) {
            const size_t nEqual = strEntry.find(L'=');
            if (nEqual == std::wstring::npos || nEqual == 0 || nEqual + 1 == strEntry.size())
                continue;
            WritePrivateProfileStringW(strEntry.substr(0, nEqual).c_str(), strEntry.substr(nEqual + 1).c_str(),
                                       strValue.c_str(), strFile);
        }
    }
    if (bClear)
        cache.mapEntries.clear();
}

void SaveIni()
{
    CWaitCursor wait;
    SaveIniBuffer(1, FALSE);
    SaveIniBuffer(2, FALSE);
}

BOOL IsIniCacheDirty(int iCache)
{
    return (iCache == 1 ? g_cacheMain : g_cacheOther).bDirty;
}

CString GetProfileString(const wchar_t* pszSection, const wchar_t* pszKey)
{
    return ReadIni(GetFileForSection(pszSection), pszSection, pszKey);
}

int GetProfileInt(const wchar_t* pszSection, const wchar_t* pszKey)
{
    return _wtoi(GetProfileString(pszSection, pszKey));
}

void WriteProfileString(const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue)
{
    WriteIni(GetFileForSection(pszSection), pszSection, pszKey, pszValue);
}

CString GetGeneralString(const wchar_t* pszKey)
{
    return GetProfileString(kGeneral, pszKey);
}

int GetGeneralInt(const wchar_t* pszKey)
{
    return _wtoi(GetGeneralString(pszKey));
}

void WriteGeneralString(const wchar_t* pszKey, const wchar_t* pszValue)
{
    WriteProfileString(kGeneral, pszKey, pszValue);
}
