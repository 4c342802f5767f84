// The language library and the resource handle: which file, when it is
// reloaded, and how texts are read through it.
#include "app/Language.h"

#include "app/App.h"
#include "host/res/ResModule.h"
#include "host/rx/acutPrintf.h"
#include "host/win/WinIni.h"
#include "host/win/WinModule.h"
#include "host/res/ResLibrary.h"
#include "options/GlobDimOptions.h"
#include "services/Folders.h"
#include "services/Trace.h"

namespace {

constexpr DWORD kIniValueSize = 512;

CString ReadLanguageCode()
{
    if (!pGlobDimOptions || pGlobDimOptions->m_strIniFile.IsEmpty())
        return CString();
    // Read straight from the main INI file until the cached INI layer takes over.
    wchar_t buffer[kIniValueSize] = {};
    GetPrivateProfileStringW(L"LastStatus", L"Language", L"", buffer, kIniValueSize, pGlobDimOptions->m_strIniFile);
    return CString(buffer);
}

CString LanguageFileIn(const CString& strFolder, const CString& strCode)
{
    CString strPath;
    strPath.Format(L"%ssorvane%s.lng", static_cast<const wchar_t*>(strFolder), static_cast<const wchar_t*>(strCode));
    return strPath;
}

} // namespace

CTemporaryResourceOverride::CTemporaryResourceOverride()
{
    try {
        HINSTANCE hNew = hLanguageResource ? hLanguageResource : hDllInstance;
        if (!hNew)
            return;
        m_hInstanceOld = AfxGetResourceHandle();
        AfxSetResourceHandle(hNew);
        m_bChanged = true;
    } catch (...) {
        acutPrintf(L"\nANY ERROR in CTemporaryResourceOverride ");
    }
}

CTemporaryResourceOverride::~CTemporaryResourceOverride()
{
    try {
        if (m_bChanged)
            AfxSetResourceHandle(m_hInstanceOld);
    } catch (...) {
        acutPrintf(L"\nANY ERROR in ~CTemporaryResourceOverride ");
    }
}

CString GetLanguageFilePath()
{
    const CString strCode = ReadLanguageCode();
    CString strPath = LanguageFileIn(GetModuleFolder(), strCode);
    if (!FileExists(strPath))
        strPath = LanguageFileIn(GetProductFolder(), strCode);
    return strPath;
}

void LoadLanguage()
{
    const CString strPath = GetLanguageFilePath();
    if (strPath.CompareNoCase(strLanguageFile) == 0)
        return;
    strLanguageFile = strPath;
    if (hLanguageResource) {
        FreeLibrary(hLanguageResource);
        // A freed handle reads nothing: fall back to the module's own texts.
        hLanguageResource = nullptr;
    }
    if (strPath.IsEmpty() || !FileExists(strPath))
        return;
    HINSTANCE hLoaded = LoadLibraryW(strPath);
    if (hLoaded) {
        hLanguageResource = hLoaded;
        TraceF(L"\nLanguage file %s loaded. ", static_cast<const wchar_t*>(strPath));
    } else {
        const std::wstring strWhy = svres::LastResourceError();
        acutPrintf(L"\nSprachdatei nicht lesbar: %s", strWhy.empty() ? static_cast<const wchar_t*>(strPath) : strWhy.c_str());
    }
}

const wchar_t* GetResString(UINT nId)
{
    static CString strBuffer;
    CTemporaryResourceOverride resources;
    if (!strBuffer.LoadString(nId))
        strBuffer.Empty();
    return strBuffer;
}
