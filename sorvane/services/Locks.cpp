// The balanced document locks and the list of the documents this module holds locked.
#include "services/Locks.h"

#include "host/ap/AcApDocManager.h"
#include "host/db/AcDbDatabase.h"
#include "services/DocumentWalk.h"
#include "services/Documents.h"
#include "services/Trace.h"

CStringList lockedDocuments;

namespace {

// A document may hold several write locks; ten releases is the bound.
constexpr int kMaxUnlocks = 10;

void ReleaseWriteLocks(AcApDocument* pDoc)
{
    for (int i = 0; i < kMaxUnlocks && pDoc->myLockMode() == AcAp::kWrite; ++i)
        acDocManager->unlockDocument(pDoc);
}

POSITION FindLocked(const wchar_t* fileName)
{
    for (POSITION pos = lockedDocuments.GetHeadPosition(); pos;) {
        const POSITION here = pos;
        if (IsSameFileName(lockedDocuments.GetNext(pos), fileName))
            return here;
    }
    return nullptr;
}

void NoteLocked(const wchar_t* fileName)
{
    if (!FindLocked(fileName))
        lockedDocuments.AddTail(CString(fileName));
}

void ForgetLocked(const wchar_t* fileName)
{
    if (POSITION pos = FindLocked(fileName))
        lockedDocuments.RemoveAt(pos);
}

} // namespace

int IsLocked(AcDbDatabase* pDb)
{
    if (!acDocManager) {
        Trace(L"\n IsLocked !acDocManager");
        return 0;
    }
    int iResult = 1;  // a database that is in no document needs no lock
    const bool bOk = WalkDocuments(L"IsLocked", [&](AcApDocument* pDoc) {
        if (pDoc->database() != pDb)
            return false;
        iResult = pDoc->myLockMode() == AcAp::kWrite ? 1 : 0;
        if (!iResult)
            TraceF(L"\n !IS LOCKED '%s'", pDoc->fileName());
        return true;
    });
    return bOk ? iResult : 1;
}

int TestLocked(AcDbDatabase* pDb, const wchar_t* tag)
{
    if (IsLocked(pDb))
        return 1;
    LockDb(pDb);
    TraceF(L"\n TestLocked(%s) locked=%d", tag ? tag : L"", static_cast<int>(lockedDocuments.GetCount()));
    return 0;
}

int LockDb(AcDbDatabase* pDb)
{
    if (!acDocManager)
        return 0;
    if (!pDb) {
        Trace(L"\n !!!! LockDb !pDb  !!!!! ");
        return 0;
    }
    int iResult = 0;
    const bool bOk = WalkDocuments(L"LockDb", [&](AcApDocument* pDoc) {
        if (pDoc->database() != pDb)
            return false;
        const AcAp::DocLockMode mode = pDoc->myLockMode();
        if (mode != AcAp::kWrite && mode != AcAp::kAutoWrite)
            acDocManager->lockDocument(pDoc, AcAp::kWrite, nullptr, nullptr, true);
        NoteLocked(pDoc->fileName());
        iResult = 1;
        return true;
    });
    if (!bOk)
        Trace(L"\n *** ANY ERROR ON LOCK DB...");
    return iResult;
}

int UnlockDB(AcDbDatabase* pDb)
{
    int iResult = 0;
    if (pDb)
        WalkDocuments(L"UnlockDB", [&](AcApDocument* pDoc) {
            if (pDoc->database() != pDb)
                return false;
            ReleaseWriteLocks(pDoc);
            ForgetLocked(pDoc->fileName());
            iResult = 1;
            return true;
        });
    return iResult;
}

int UnlockDWG(const wchar_t* fileName)
{
    AcApDocument* pDoc = DocumentOfFile(fileName);
    if (!pDoc)
        return 0;
    acDocManager->unlockDocument(pDoc);
    ForgetLocked(pDoc->fileName());
    return 1;
}

int UnlockAll()
{
    const bool bWalked = WalkDocuments(L"UnlockAll", [](AcApDocument* pDoc) {
        ReleaseWriteLocks(pDoc);
        return false;
    });
    lockedDocuments.RemoveAll();
    return bWalked ? 1 : 0;
}

int UnlockLocked()
{
    if (lockedDocuments.IsEmpty())
        return 0;
    WalkDocuments(L"UnlockLocked", [](AcApDocument* pDoc) {
        if (POSITION pos = FindLocked(pDoc->fileName())) {
            ReleaseWriteLocks(pDoc);
            lockedDocuments.RemoveAt(pos);
        }
        return false;
    });
    lockedDocuments.RemoveAll();
    return 1;
}
