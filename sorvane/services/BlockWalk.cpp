// Reading the entity list of a block record through its iterator.
#include "services/BlockWalk.h"

#include <memory>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "services/Trace.h"

bool GetBlockEntityIds(AcDbDatabase* pDb, const wchar_t* blockName, AcDbObjectIdArray& ids)
{
    if (!pDb)
        return false;
    AcDbBlockTable* pTable = nullptr;
    if (pDb->getBlockTable(pTable, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbObjectId blockId;
    const Acad::ErrorStatus es = pTable->getAt(blockName, blockId);
    pTable->close();
    return es == Acad::eOk && GetBlockEntityIds(blockId, ids);
}

bool GetBlockEntityIds(AcDbObjectId blockId, AcDbObjectIdArray& ids)
{
    AcDbBlockTableRecord* pBlock = nullptr;
    if (acdbOpenObject(pBlock, blockId, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbBlockTableRecordIterator* pRaw = nullptr;
    const Acad::ErrorStatus es = pBlock->newIterator(pRaw);
    std::unique_ptr<AcDbBlockTableRecordIterator> pIter(pRaw);
    if (es == Acad::eOk && pIter) {
        for (; !pIter->done(); pIter->step()) {
            AcDbObjectId id;
            if (pIter->getEntityId(id) == Acad::eOk)
                ids.append(id);
        }
    }
    pBlock->close();
    return es == Acad::eOk;
}
