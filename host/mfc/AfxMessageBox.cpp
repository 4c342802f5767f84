// AfxMessageBox over MessageBoxW, and the application name it shows.
#include "host/mfc/AfxMessageBox.h"

#include "host/mfc/CString.h"

namespace {

CString& AppName()
{
    static CString s_strAppName;
    return s_strAppName;
}

} // namespace

LPCTSTR AfxGetAppName()
{
    return AppName();
}

void AfxSetAppName(LPCTSTR lpszName)
{
    AppName() = lpszName;
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT)
{
    return MessageBoxW(nullptr, lpszText ? lpszText : L"", AfxGetAppName(), nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT)
{
    CString strText;
    strText.LoadString(nIDPrompt);
    return AfxMessageBox(strText, nType, 0);
}
