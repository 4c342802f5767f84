// Appending new entities to model space or to a block record.
#include "services/Append.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbOpen.h"
#include "services/Documents.h"
#include "services/Layers.h"
#include "services/Locks.h"
#include "services/Trace.h"

namespace {

Acad::ErrorStatus AppendToBlock(AcDbEntity* pEntity, AcDbObjectId blockId, AcDbObjectId* pId)
{
    AcDbBlockTableRecord* pBlock = nullptr;
    Acad::ErrorStatus es = acdbOpenObject(pBlock, blockId, AcDb::kForWrite);
    if (es != Acad::eOk)
        return es;
    AcDbObjectId id;
    es = pBlock->appendAcDbEntity(id, pEntity);
    pBlock->closeAndPage();
    if (es == Acad::eOk && pId)
        *pId = id;
    return es;
}

Acad::ErrorStatus AppendToModelSpace(AcDbDatabase* pDb, AcDbEntity* pEntity, AcDbObjectId* pId)
{
    if (!pDb || !pEntity)
        return Acad::eNullObjectPointer;
    AcDbBlockTable* pTable = nullptr;
    Acad::ErrorStatus es = pDb->getBlockTable(pTable, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    AcDbObjectId modelId;
    es = pTable->getAt(ACDB_MODEL_SPACE, modelId);
    pTable->close();
    return es == Acad::eOk ? AppendToBlock(pEntity, modelId, pId) : es;
}

} // namespace

void AppendEntity(AcDbEntity* pEntity, const wchar_t* layer, int color)
{
    AcDbDatabase* pDb = acdbCurDwg();
    if (!pDb || !pEntity)
        return;
    const int iWasLocked = TestLocked(pDb, L"AppendEntity");
    pEntity->setColorIndex(static_cast<Adesk::UInt16>(color));
    SetEntityLayer(pDb, pEntity, layer, color);
    const Acad::ErrorStatus es = AppendToModelSpace(pDb, pEntity, nullptr);
    if (es != Acad::eOk)
        TraceF(L"\n AppendEntity es=%d", static_cast<int>(es));
    if (!iWasLocked)
        UnlockDB(pDb);
}

Acad::ErrorStatus addToDb(AcDbEntity* pEntity, AcDbObjectId* pId)
{
    AcDbDatabase* pDb = acdbCurDwg();
    const int iWasLocked = TestLocked(pDb, L"addToDb");
    const Acad::ErrorStatus es = AppendToModelSpace(pDb, pEntity, pId);
    if (!iWasLocked)
        UnlockDB(pDb);
    return es;
}

Acad::ErrorStatus addToTable(AcDbEntity* pEntity, AcDbObjectId blockId)
{
    if (!blockId.isValid())
        return addToDb(pEntity);
    if (!pEntity)
        return Acad::eNullObjectPointer;
    AcDbDatabase* pDb = acdbCurDwg();
    const int iWasLocked = TestLocked(pDb, L"addToTable");
    const Acad::ErrorStatus es = AppendToBlock(pEntity, blockId, nullptr);
    if (!iWasLocked)
        UnlockDB(pDb);
    return es;
}

Acad::ErrorStatus postToDb(AcDbEntity* pEntity, AcDbObjectId* pId)
{
    const Acad::ErrorStatus es = AppendToModelSpace(acdbCurDwg(), pEntity, pId);
    if (es == Acad::eOk)
        pEntity->close();
    return es;
}
