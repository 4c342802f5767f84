// CToken: splits a record into its fields at a separator ("@", "#", ...).
#pragma once

#include "host/mfc/CString.h"

// Every separator ends a field, so empty fields keep their place:
// "12#8@@Vortext" at "@" gives "12#8", "", "Vortext"; "a@" gives "a", "";
// "" gives one empty field. Joining the fields with the separator gives the
// record back unchanged. An empty separator leaves the record as one field.
class CToken {
public:
    CToken(const CString& strText, const CString& strSeparator);
    CToken(const CString& strText, wchar_t chSeparator);

    // TRUE while a field is left to hand out.
    BOOL MoreTokens() const { return m_iNext >= 0; }
    // The next field; "" once all were handed out.
    CString GetNextToken();

private:
    CString m_strText;
    CString m_strSeparator;
    int m_iNext = 0; // start of the next field, -1 when done
};
