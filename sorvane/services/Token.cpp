// CToken: field splitting that keeps empty fields.
#include "services/Token.h"

CToken::CToken(const CString& strText, const CString& strSeparator)
    : m_strText(strText), m_strSeparator(strSeparator)
{
}

CToken::CToken(const CString& strText, wchar_t chSeparator)
    : m_strText(strText), m_strSeparator(chSeparator)
{
}

CString CToken::GetNextToken()
{
    if (m_iNext < 0)
        return CString();
    const int iFound = m_strSeparator.IsEmpty() ? -1 : m_strText.Find(m_strSeparator, m_iNext);
    if (iFound < 0) {
        CString strLast = m_strText.Mid(m_iNext);
        m_iNext = -1;
        return strLast;
    }
    CString strField = m_strText.Mid(m_iNext, iFound - m_iNext);
    m_iNext = iFound + m_strSeparator.GetLength();
    return strField;
}
