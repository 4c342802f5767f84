// CAppendTextObject: the copy that dialogs and chain copies use.
#include "proxy/AppendTextObject.h"

void CAppendTextObject::Assign(const CAppendTextObject* pSource)
{
    if (!pSource || pSource == this)
        return;
    bAutoPos = pSource->bAutoPos;
    strText = pSource->strText;
    dValue = pSource->dValue;
    iExt = pSource->iExt;
    ptText = pSource->ptText;
    strMemo = pSource->strMemo;
}
