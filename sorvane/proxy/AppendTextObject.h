// CAppendTextObject: an additional text that a chain shows at one of its
// segments, beside or instead of the measured value. The chain owns it.
#pragma once

#include "host/ge/AcGePoint3d.h"
#include "host/mfc/CException.h"
#include "host/mfc/CString.h"

class CAppendTextObject : public CObject {
public:
    CAppendTextObject() = default;

    // Copies what the user edits and where the text stands; the two reserved
    // fields stay the target's own.
    void Assign(const CAppendTextObject* pSource);

    int iExt = 0;  // the segment (extension index) the text belongs to
    AcGePoint3d ptText;
    // The text point of its extension when the chain was last re-ordered:
    // finds the extension again afterwards. Memory only.
    AcGePoint3d ptRef;
    int bAutoPos = 1;  // 0: free position with a grip of its own
    CString strText;
    double dValue = 0.0;  // 0 when the text is no value
    // Filed with the chain, otherwise unused.
    short iReserved = 0;
    CString strReserved;
    CString strMemo;  // memory only
};
