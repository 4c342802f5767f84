// Item lists of the INI files and the maps loaded from them.
#include "options/IniLists.h"

#include <vector>

#include "host/win/WinIni.h"
#include "options/GlobDimOptions.h"
#include "options/IniCache.h"
#include "services/Messages.h"

namespace {

constexpr DWORD kSectionBuffer = 32767;

CString OptionsFileOr(const wchar_t* pszFile)
{
    if (pszFile && *pszFile)
        return CString(pszFile);
    if (pGlobDimOptions && !pGlobDimOptions->m_strCurOptionsFile.IsEmpty())
        return pGlobDimOptions->m_strCurOptionsFile;
    return GetIniFile();
}

CString ItemKey(int i)
{
    CString strKey;
    strKey.Format(L"Item_%d", i);
    return strKey;
}

void WriteList(const CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile, bool bNow)
{
    const CString strFile = OptionsFileOr(pszFile);
    auto write = [&](const CString& strKey, const CString& strValue) {
        if (bNow)
            WriteIniNow(strFile, pszSection, strKey, strValue);
        else
            WriteIni(strFile, pszSection, strKey, strValue);
    };
    const int n = static_cast<int>(array.GetSize());
    for (int i = 0; i < n; ++i)
        write(ItemKey(i), array[i]);
    write(ItemKey(n), L"");
    if (n == 0)
        write(ItemKey(1), L"");
    write(L"LastItem", n ? array[n - 1] : CString());
}

} // namespace

BOOL SplitItem(const CString& strItem, CString& strKey, CString& strValue)
{
    strKey.Empty();
    strValue.Empty();
    int iStart = 0;
    for (int iPart = 0;; ++iPart) {
        const int iEqual = strItem.Find(L'=', iStart);
        CString strPart = strItem.Mid(iStart, (iEqual < 0 ? strItem.GetLength() : iEqual) - iStart);
        strPart.Trim();
        if (iPart == 0)
            strKey = strPart;
        else if (iPart == 1)
            strValue = strPart;
        else
            strValue += L"=" + strPart;
        if (iEqual < 0)
            break;
        iStart = iEqual + 1;
    }
    return !strValue.IsEmpty();
}

int LoadSection(CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile)
{
    array.RemoveAll();
    if (!pGlobDimOptions) {
        MessageBoxF(L"LoadSection-%s !pGlobDimOptions ", pszSection);
        return 0;
    }
    const CString strFile = OptionsFileOr(pszFile);
    for (int i = 0; i < kMaxListItems; ++i) {
        const CString strItem = ReadIni(strFile, pszSection, ItemKey(i));
        if (strItem.IsEmpty())
            break;
        bool bRepeat = false;
        for (INT_PTR j = 0; j < array.GetSize() && !bRepeat; ++j)
            bRepeat = array[j] == strItem;
        if (!bRepeat)
            array.Add(strItem);
    }
    return static_cast<int>(array.GetSize());
}

void SaveSection(const CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile)
{
    WriteList(array, pszSection, pszFile, false);
}

void SaveSectionNow(const CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile)
{
    WriteList(array, pszSection, pszFile, true);
}

int LoadMap(int iMode, const wchar_t* pszName, const wchar_t* pszFile)
{
    if (!pGlobDimOptions)
        return 0;
    CMapStringToString* pMap =
        iMode == kMapModeParams ? &pGlobDimOptions->mapParams : pGlobDimOptions->GetMap(iMode, pszName);
    if (!pMap)
        return 0;
    CString strSection(pszName);
    if (iMode != kMapModeParams) {
        pMap->RemoveAll();
        strSection = SectionPrefix(iMode) + strSection;
    }
    CStringArray array;
    LoadSection(array, strSection, pszFile);
    for (INT_PTR i = 0; i < array.GetSize(); ++i) {
        CString strKey, strValue;
        SplitItem(array[i], strKey, strValue);
        if (!strKey.IsEmpty())
            pMap->SetAt(strKey, strValue);
    }
    return static_cast<int>(pMap->GetCount());
}

int ReadSectionEntries(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszPrefix,
                       CStringArray& arrayKeys, CStringArray& arrayValues)
{
    arrayKeys.RemoveAll();
    arrayValues.RemoveAll();
    std::vector<wchar_t> buffer(kSectionBuffer, L'\0');
    GetPrivateProfileSectionW(pszSection, buffer.data(), kSectionBuffer, pszFile);
    const CString strPrefix(pszPrefix ? pszPrefix : L"");
    for (const wchar_t* p = buffer.data(); *p; p += wcslen(p) + 1) {
        CString strLine(p);
        strLine.Trim();
        const int iEqual = strLine.Find(L'=');
        if (iEqual <= 0)
            continue;
        CString strKey = strLine.Left(iEqual);
        strKey.Trim();
        if (strKey.Left(strPrefix.GetLength()).CompareNoCase(strPrefix) != 0)
            continue;
        CString strValue = strLine.Mid(iEqual + 1);
        strValue.Trim();
        arrayKeys.Add(strKey);
        arrayValues.Add(strValue);
    }
    return static_cast<int>(arrayKeys.GetSize());
}
