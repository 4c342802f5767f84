// Walking model space for the module's objects and for the kinds of the refresh paths.
#include "services/Collectors.h"

#include <cstdlib>

#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/acutads.h"
#include "host/mfc/CWaitCursor.h"
#include "services/BlockWalk.h"
#include "services/Documents.h"
#include "services/Locks.h"
#include "services/SorvaneEntities.h"
#include "services/Trace.h"

namespace {

constexpr int kDxfHandle = 1005;

bool IsNativeLinearDimension(const AcDbEntity* pEntity)
{
    return AcDbAlignedDimension::cast(pEntity) || AcDbRotatedDimension::cast(pEntity) ||
           AcDbArcDimension::cast(pEntity);
}

bool HasMarkHandle(const AcDbEntity* pEntity)
{
    resbuf* pData = pEntity->xData(L"SORVANE_UT_MARK");
    bool bFound = false;
    for (const resbuf* p = pData; p && !bFound; p = p->rbnext)
        bFound = p->restype == kDxfHandle && p->resval.rstring && *p->resval.rstring;
    if (pData)
        acutRelRb(pData);
    return bFound;
}

// Whether the entity is of a GetEntities kind (without the block references of a negative
// kind and the "all" of kind 0, which the caller decides).
bool IsOfEntityKind(const AcDbEntity* pEntity, int iKind)
{
    switch (iKind) {
    case 6:
        return IsSorvaneEntity(pEntity);
    case 3:
        return IsHeightMark(pEntity);
    case 4:
        return IsHeightMark(pEntity) && IsPlanMark(pEntity);
    case 5:
        return IsHeightMark(pEntity) && !IsPlanMark(pEntity);
    case 2:
        return IsChain(pEntity);
    case 1:
        return IsNativeLinearDimension(pEntity);
    case 8:
        return HasMarkHandle(pEntity);
    default:
        return false;
    }
}

void RefreshMatched(AcDbEntity* pEntity)
{
    if (pEntity->upgradeOpen() != Acad::eOk || !pEntity->isWriteEnabled())
        return;
    if (IsSorvaneEntity(pEntity))
        RefreshSorvaneEntity(pEntity);
    pEntity->recordGraphicsModified(true);
    pEntity->downgradeOpen();
}

} // namespace

int AddSorvaneObject(AcDbEntity* pEntity, AcDbObjectIdArray& ids, int kind, int descend)
{
    if (!pEntity)
        return 0;
    if (descend) {
        if (const AcDbBlockReference* pRef = AcDbBlockReference::cast(pEntity)) {
            const AcDbObjectId blockId = pRef->blockTableRecord();
            AcDbBlockTableRecord* pBlock = nullptr;
            const Acad::ErrorStatus es = acdbOpenObject(pBlock, blockId, AcDb::kForRead);
            if (!pBlock) {
                TraceF(L"\n AddSorvaneObject neplatny pBlockRec  es=%d  ID=%d! ", static_cast<int>(es),
                       static_cast<int>(blockId.handle().low()));
                return 0;
            }
            const bool bExternal = pBlock->isFromExternalReference() || pBlock->isFromOverlayReference();
            pBlock->close();
            AcDbObjectIdArray inner;
            if (!bExternal)
                GetBlockEntityIds(blockId, inner);
            for (int i = 0; i < inner.length(); ++i) {
                AcDbEntity* pInner = nullptr;
                if (acdbOpenAcDbEntity(pInner, inner[i], AcDb::kForRead) != Acad::eOk)
                    continue;
                AddSorvaneObject(pInner, ids, kind, descend);
                pInner->close();
            }
            return 0;
        }
    }
    const bool bTaken = IsHeightMark(pEntity) ? (kind == 1 || kind == 3) : (IsChain(pEntity) && (kind == 1 || kind == 2));
    if (!bTaken)
        return 0;
    ids.append(pEntity->objectId());
    return 1;
}

int GetSorvaneObjects(AcDbObjectIdArray& ids, int kind, AcDbDatabase* pDb)
{
    CWaitCursor wait;
    if (!pDb)
        pDb = acdbCurDwg();
    AcDbObjectIdArray model;
    GetBlockEntityIds(pDb, ACDB_MODEL_SPACE, model);
    for (int i = 0; i < model.length(); ++i) {
        AcDbEntity* pEntity = nullptr;
        if (acdbOpenAcDbEntity(pEntity, model[i], AcDb::kForRead) != Acad::eOk)
            continue;
        AddSorvaneObject(pEntity, ids, std::abs(kind), kind < 0 ? 1 : 0);
        pEntity->close();
    }
    return ids.length();
}

int GetEntities(AcDbDatabase* pDb, AcDbObjectIdArray* pIds, int kind)
{
    if (!pDb)
        return 0;
    const int iWasLocked = TestLocked(pDb, L"GetEntities");
    AcDbObjectIdArray model;
    GetBlockEntityIds(pDb, ACDB_MODEL_SPACE, model);
    CWaitCursor wait;
    const int iKind = std::abs(kind);
    int iVisited = 0;
    for (int i = 0; i < model.length(); ++i) {
        AcDbEntity* pEntity = nullptr;
        if (acdbOpenAcDbEntity(pEntity, model[i], AcDb::kForRead) != Acad::eOk)
            continue;
        ++iVisited;
        const bool bMatch = (kind == 0 && pIds) || (kind < 0 && AcDbBlockReference::cast(pEntity)) ||
                            IsOfEntityKind(pEntity, iKind);
        if (bMatch) {
            if (pIds)
                pIds->append(model[i]);
            else
                RefreshMatched(pEntity);
        }
        pEntity->close();
    }
    if (!iWasLocked)
        UnlockDB(pDb);
    return iVisited;
}

int GetEntities(AcDbObjectIdArray* pIds, int kind)
{
    return GetEntities(acdbCurDwg(), pIds, kind);
}
