// The exception kinds and their throw helpers.
#include "host/mfc/CException.h"

#include <cwchar>

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) const
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    if (!lpszError || nMaxError == 0)
        return FALSE;
    std::wcsncpy(lpszError, What(), nMaxError - 1);
    lpszError[nMaxError - 1] = 0;
    return TRUE;
}

void AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

void AfxThrowMemoryException()
{
    throw new CMemoryException;
}
