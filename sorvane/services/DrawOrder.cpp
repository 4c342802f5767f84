// Moving entities in draw order through the sort table of the block that owns each.
#include "services/DrawOrder.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbSortentsTable.h"
#include "services/Collectors.h"
#include "services/Documents.h"
#include "services/Locks.h"
#include "services/Trace.h"

AcDbSortentsTable* get_sort(AcDbObject* pObject)
{
    if (!pObject || pObject->ownerId().isNull()) {
        Trace(L" get_sort_1");
        return nullptr;
    }
    AcDbBlockTableRecord* pBlock = nullptr;
    if (acdbOpenObject(pBlock, pObject->ownerId(), AcDb::kForWrite) != Acad::eOk) {
        Trace(L" get_sort_2");
        return nullptr;
    }
    AcDbSortentsTable* pSort = nullptr;
    if (pBlock->getSortentsTable(pSort, AcDb::kForWrite, true) != Acad::eOk)
        pSort = nullptr;
    pBlock->close();
    return pSort;
}

int MyDraworder(const AcDbObjectIdArray& ids, int toBottom)
{
    if (ids.isEmpty())
        return 0;
    AcDbDatabase* pDb = acdbCurDwg();
    const int iWasLocked = TestLocked(pDb, L"MyDraworder");
    // Ids of one array may have different owners: each moves in its own block's table.
    for (int i = 0; i < ids.length(); ++i) {
        AcDbObject* pObject = nullptr;
        Acad::ErrorStatus es = acdbOpenAcDbObject(pObject, ids[i], AcDb::kForRead);
        if (es != Acad::eOk) {
            TraceF(L" %d/%d es=%d ", i, ids.length(), static_cast<int>(es));
            continue;
        }
        AcDbSortentsTable* pSort = get_sort(pObject);
        pObject->close();
        if (!pSort) {
            TraceF(L" %d/%d es=%d ", i, ids.length(), static_cast<int>(Acad::eNullObjectPointer));
            continue;
        }
        AcDbObjectIdArray one;
        one.append(ids[i]);
        es = toBottom ? pSort->moveToBottom(one) : pSort->moveToTop(one);
        if (es != Acad::eOk)
            TraceF(L" %d/%d es=%d ", i, ids.length(), static_cast<int>(es));
        pSort->close();
    }
    if (!iWasLocked)
        UnlockDB(pDb);
    return 1;
}

void TextToFront()
{
    AcDbObjectIdArray ids;
    GetSorvaneObjects(ids, 1, nullptr);
    MyDraworder(ids, 0);
}

void BringToFront(AcDbObjectId id)
{
    AcDbObjectIdArray ids;
    ids.append(id);
    MyDraworder(ids, 0);
}

void ObjectsGraphicsModified(const AcDbObjectIdArray& ids)
{
    for (int i = 0; i < ids.length(); ++i) {
        if (!ids[i].isValid())
            continue;
        AcDbObject* pObject = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbObject(pObject, ids[i], AcDb::kForRead);
        if (es != Acad::eOk) {
            TraceF(L"\n ObjectsGraphicsModified %d es=%d", i, static_cast<int>(es));
            continue;
        }
        if (pObject->upgradeOpen() == Acad::eOk && pObject->isWriteEnabled()) {
            pObject->recordGraphicsModified(true);
            pObject->downgradeOpen();
        }
        pObject->close();
    }
}
