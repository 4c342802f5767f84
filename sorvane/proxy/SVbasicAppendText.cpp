// SVdim: the list of appended texts, one per segment at most, found by the
// segment or by the reference point that survives a re-ordering.
#include "host/ge/AcGeTol.h"
#include "proxy/SVbasic.h"

int SVdim::GetAppendingText(int iExt, CAppendTextObject*& pText)
{
    pText = nullptr;
    int iFound = -1;
    for (INT_PTR k = 0; k < AppendTextList.GetSize();) {
        auto* pEntry = static_cast<CAppendTextObject*>(AppendTextList[k]);
        // Segments 0 and 1 share a text: older chains filed it under 0.
        const bool bMatch = pEntry && (pEntry->iExt == iExt || (pEntry->iExt < 2 && iExt < 2));
        if (!bMatch) {
            ++k;
            continue;
        }
        if (iFound >= 0) {
            delete pEntry;
            AppendTextList.RemoveAt(k);
            continue;
        }
        if (pEntry->iExt == 0)
            pEntry->iExt = 1;
        iFound = static_cast<int>(k);
        pText = pEntry;
        ++k;
    }
    return iFound;
}

int SVdim::GetAppendingTextAt(const AcGePoint3d& ptRef, CAppendTextObject*& pText)
{
    pText = nullptr;
    int iFound = -1;
    for (INT_PTR k = 0; k < AppendTextList.GetSize();) {
        auto* pEntry = static_cast<CAppendTextObject*>(AppendTextList[k]);
        if (!pEntry || !pEntry->ptRef.isEqualTo(ptRef, AcGeContext::gTol)) {
            ++k;
            continue;
        }
        if (iFound >= 0) {
            delete pEntry;
            AppendTextList.RemoveAt(k);
            continue;
        }
        if (pEntry->iExt < 1)
            pEntry->iExt = 1;
        iFound = static_cast<int>(k);
        pText = pEntry;
        ++k;
    }
    return iFound;
}

namespace {

// Fills or removes entry iFound of the list; the answer of both setters.
int StoreAppendingText(SVdim& chain, int iFound, const CAppendTextObject* pText, int iExt)
{
    if (!pText) {
        if (iFound < 0)
            return static_cast<int>(chain.AppendTextList.GetSize());
        delete chain.AppendTextList[iFound];
        chain.AppendTextList.RemoveAt(iFound);
        return iFound;
    }
    CAppendTextObject* pEntry = nullptr;
    if (iFound < 0) {
        pEntry = new CAppendTextObject;
        iFound = static_cast<int>(chain.AppendTextList.Add(pEntry));
    } else {
        pEntry = static_cast<CAppendTextObject*>(chain.AppendTextList[iFound]);
    }
    if (pEntry != pText)
        pEntry->Assign(pText);
    pEntry->iExt = iExt > 0 ? iExt : 1;
    pEntry->strMemo.Empty();
    chain.SetAppendingTextPos(pEntry->iExt, pEntry);
    return iFound;
}

}  // namespace

int SVdim::SetAppendingText(int iExt, const CAppendTextObject* pText)
{
    CAppendTextObject* pEntry = nullptr;
    return StoreAppendingText(*this, GetAppendingText(iExt, pEntry), pText, iExt);
}

int SVdim::SetAppendingTextAt(const AcGePoint3d& ptRef, const CAppendTextObject* pText, int iExt)
{
    CAppendTextObject* pEntry = nullptr;
    return StoreAppendingText(*this, GetAppendingTextAt(ptRef, pEntry), pText, iExt);
}

BOOL SVdim::SetAppendingTextPoint(const AcGePoint3d& ptRef, const AcGePoint3d& ptNewRef, int iExt)
{
    CAppendTextObject* pEntry = nullptr;
    if (GetAppendingTextAt(ptRef, pEntry) < 0)
        return FALSE;
    pEntry->ptRef = ptNewRef;
    if (iExt > 0)
        pEntry->iExt = iExt;
    return TRUE;
}
