// The one walk over the document manager's documents.
#include "services/DocumentWalk.h"

#include <memory>

#include "host/ap/AcApDocManager.h"
#include "services/Guard.h"
#include "services/Trace.h"

bool WalkDocuments(const wchar_t* tag, const std::function<bool(AcApDocument*)>& visit)
{
    AcApDocManager* pManager = acDocManager;
    if (!pManager)
        return false;
    std::unique_ptr<AcApDocumentIterator> pIter(pManager->newAcApDocumentIterator());
    if (!pIter)
        return false;
    const bool bOk = RunGuarded([&] {
        for (; !pIter->done(); pIter->step())
            if (visit(pIter->document()))
                break;
    });
    if (!bOk)
        TraceF(L"\n *** ANY ERROR walking the documents (%s)", tag ? tag : L"");
    return bOk;
}
