// Makes the module's resource module from the embedded script.
#include "resources/Resources.h"

#include "host/res/ResModule.h"
#include "host/win/WinText.h"
#include "host/win/wsprintf.h"

namespace {

const wchar_t kScriptName[] = L"sorvane.rc";

// #include "resource.h" is answered from the embedded files too.
bool FindEmbeddedInclude(const std::wstring& strName, const std::wstring&, std::wstring& strText,
                         std::wstring& strResolved)
{
    const std::string_view bytes = GetEmbeddedResourceFile(svwin::WideToUtf8(strName));
    if (bytes.empty())
        return false;
    strText = svwin::DecodeFileText(bytes);
    strResolved = strName;
    return true;
}

} // namespace

HINSTANCE LoadModuleResources(CString* pstrError)
{
    const std::string_view bytes = GetEmbeddedResourceFile(svwin::WideToUtf8(kScriptName));
    if (bytes.empty()) {
        if (pstrError)
            *pstrError = L"sorvane.rc(0): the module was built without its resource script";
        return nullptr;
    }
    HINSTANCE hInst = svres::LoadResourceModule(svwin::DecodeFileText(bytes), kScriptName, FindEmbeddedInclude);
    if (!hInst && pstrError)
        *pstrError = svres::LastResourceError().c_str();
    return hInst;
}
