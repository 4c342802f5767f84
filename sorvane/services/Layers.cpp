// Layer lookup and creation, status bits, and the unlock/restore pair round a change.
#include "services/Layers.h"

#include <memory>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/rx/acutPrintf.h"
#include "resources/resource.h"
#include "services/BlockWalk.h"
#include "services/Documents.h"
#include "services/Guard.h"
#include "services/Locks.h"
#include "services/Messages.h"
#include "services/Trace.h"

namespace {

// Colours outside the index range make a white layer.
int LayerColor(int color)
{
    return (color <= 0 || color >= 256) ? 7 : color;
}

// The layer made (or found) in a database; errorFormat takes the status and the name.
AcDbObjectId MakeLayer(AcDbDatabase* pDb, const wchar_t* name, int color, const int* pPlottable,
                       const wchar_t* errorFormat)
{
    AcDbObjectId id;
    if (!pDb || !name || !*name)
        return id;
    const int iWasLocked = TestLocked(pDb, L"MakeLayer");
    AcDbLayerTable* pTable = nullptr;
    if (pDb->getLayerTable(pTable, AcDb::kForWrite) == Acad::eOk) {
        if (!pTable->has(name)) {
            auto* pLayer = new AcDbLayerTableRecord;
            pLayer->setName(name);
            pLayer->setIsFrozen(false);
            pLayer->setIsOff(false);
            pLayer->setVPDFLT(false);
            pLayer->setIsLocked(false);
            if (pPlottable)
                pLayer->setIsPlottable(*pPlottable != 0);
            AcCmColor layerColor;
            layerColor.setColorIndex(static_cast<Adesk::Int16>(LayerColor(color)));
            pLayer->setColor(layerColor);
            AcDbLinetypeTable* pLinetypes = nullptr;
            if (pDb->getLinetypeTable(pLinetypes, AcDb::kForRead) == Acad::eOk) {
                AcDbObjectId linetypeId;
                if (pLinetypes->getAt(L"CONTINUOUS", linetypeId) == Acad::eOk)
                    pLayer->setLinetypeObjectId(linetypeId);
                pLinetypes->close();
            }
            const Acad::ErrorStatus es = pTable->add(pLayer);
            if (es == Acad::eOk)
                pLayer->close();
            else {
                delete pLayer;
                MessageBoxF(errorFormat, static_cast<int>(es), name);
            }
        }
        pTable->getAt(name, id, true);
        pTable->close();
    }
    if (!iWasLocked)
        UnlockDB(pDb);
    return id;
}

// The entity's layer record, open in the mode asked; null on failure.
AcDbLayerTableRecord* OpenEntityLayer(AcDbEntity* pEntity, AcDb::OpenMode mode, Acad::ErrorStatus* pEs = nullptr)
{
    AcDbLayerTableRecord* pLayer = nullptr;
    const Acad::ErrorStatus es = acdbOpenObject(pLayer, pEntity->layerId(), mode);
    if (pEs)
        *pEs = es;
    return es == Acad::eOk ? pLayer : nullptr;
}

// The databases a drawing name stands for: an open drawing, or the current one.
AcDbDatabase* DrawingDatabase(const wchar_t* drawing)
{
    return (drawing && *drawing) ? GetFromEditor(drawing) : acdbCurDwg();
}

template <typename TTable>
void CollectNames(TTable* pTable, CStringArray& names, bool bUnique)
{
    AcDbSymbolTableIterator* pRaw = nullptr;
    if (pTable->newIterator(pRaw) != Acad::eOk)
        return;
    std::unique_ptr<AcDbSymbolTableIterator> pIter(pRaw);
    for (; !pIter->done(); pIter->step()) {
        AcDbSymbolTableRecord* pRecord = nullptr;
        if (pIter->getRecord(pRecord, AcDb::kForRead) != Acad::eOk)
            continue;
        const CString strName(pRecord->name().c_str());
        pRecord->close();
        bool bKnown = false;
        for (INT_PTR i = 0; bUnique && !bKnown && i < names.GetSize(); ++i)
            bKnown = names[i].CompareNoCase(strName) == 0;
        if (!bKnown)
            names.Add(strName);
    }
}

} // namespace

AcDbObjectId GetLayerId(AcDbDatabase* pDb, const wchar_t* name, int color, int plottable)
{
    if (!pDb) {
        pDb = acdbCurDwg();
        TraceF(L"\n *** GetLayerId !pDb=%d ***", pDb ? 1 : 0);
    }
    return MakeLayer(pDb, name, color, &plottable, L"error %d on create layer %s");
}

int FindLayerId(const wchar_t* name, AcDbDatabase* pDb, AcDbObjectId& id)
{
    id = AcDbObjectId::kNull;
    if (!pDb || !name || !*name)
        return 0;
    AcDbLayerTable* pTable = nullptr;
    if (pDb->getLayerTable(pTable, AcDb::kForRead) != Acad::eOk)
        return 0;
    const Acad::ErrorStatus es = pTable->getAt(name, id);
    pTable->close();
    return es == Acad::eOk ? 1 : 0;
}

CString GetLayerName(AcDbObjectId id)
{
    AcDbLayerTableRecord* pLayer = nullptr;
    if (id.isNull() || acdbOpenObject(pLayer, id, AcDb::kForRead) != Acad::eOk)
        return CString();
    const CString strName(pLayer->name().c_str());
    pLayer->close();
    return strName;
}

int GetLayerRecordStatus(const AcDbLayerTableRecord* pLayer)
{
    int iStatus = 0;
    if (pLayer->isOff())
        iStatus |= kLayerOff;
    if (pLayer->isFrozen())
        iStatus |= kLayerFrozen;
    if (pLayer->isLocked())
        iStatus |= kLayerLocked;
    return iStatus;
}

int SetLayerFlags(AcDbLayerTableRecord* pLayer, int mask, int value)
{
    if (!pLayer)
        return 0;
    const int iFormer = GetLayerRecordStatus(pLayer);
    if (!pLayer->isWriteEnabled())
        return iFormer;
    if (mask & kLayerOff)
        pLayer->setIsOff((value & kLayerOff) != 0);
    if (mask & kLayerFrozen)
        pLayer->setIsFrozen((value & kLayerFrozen) != 0);
    if (mask & kLayerLocked)
        pLayer->setIsLocked((value & kLayerLocked) != 0);
    return iFormer;
}

int GetEntityLayerStatus(AcDbEntity* pEntity)
{
    if (!pEntity || pEntity->layerId().isNull())
        return 0;
    int iStatus = 0;
    const bool bOk = RunGuarded([&] {
        Acad::ErrorStatus es = Acad::eOk;
        AcDbLayerTableRecord* pLayer = OpenEntityLayer(pEntity, AcDb::kForRead, &es);
        if (!pLayer) {
            TraceF(L"\nOpen Layer es=%d", static_cast<int>(es));
            return;
        }
        iStatus = GetLayerRecordStatus(pLayer);
        pLayer->close();
    });
    if (!bOk)
        acutPrintf(L"\nAny problem on Get Entity layer status");
    return iStatus;
}

int GetLayerStatus(const wchar_t* name)
{
    AcDbObjectId id;
    if (!FindLayerId(name, acdbCurDwg(), id))
        return 0;
    AcDbLayerTableRecord* pLayer = nullptr;
    if (acdbOpenObject(pLayer, id, AcDb::kForRead) != Acad::eOk)
        return 0;
    const int iStatus = GetLayerRecordStatus(pLayer);
    pLayer->close();
    return iStatus;
}

void SplitLayers(AcDbDatabase* pDb, CStringArray& matching, CStringArray& others, int mask)
{
    AcDbLayerTable* pTable = nullptr;
    if (!pDb || pDb->getLayerTable(pTable, AcDb::kForRead) != Acad::eOk)
        return;
    AcDbLayerTableIterator* pRaw = nullptr;
    if (pTable->newIterator(pRaw) == Acad::eOk) {
        std::unique_ptr<AcDbLayerTableIterator> pIter(pRaw);
        for (; !pIter->done(); pIter->step()) {
            AcDbLayerTableRecord* pLayer = nullptr;
            if (pIter->getRecord(pLayer, AcDb::kForRead) != Acad::eOk)
                continue;
            const CString strName(pLayer->name().c_str());
            (GetLayerRecordStatus(pLayer) & mask ? matching : others).Add(strName);
            pLayer->close();
        }
    }
    pTable->close();
}

void GetLayerNames(AcDbDatabase* pDb, CStringArray& names)
{
    AcDbLayerTable* pTable = nullptr;
    if (!pDb || pDb->getLayerTable(pTable, AcDb::kForRead) != Acad::eOk)
        return;
    CollectNames(pTable, names, false);
    pTable->close();
}

void GetLayerNames(const CString& drawing, CStringArray& names)
{
    GetLayerNames(DrawingDatabase(drawing), names);
}

void GetTextStyleNames(const CString& drawing, CStringArray& names)
{
    AcDbDatabase* pDb = DrawingDatabase(drawing);
    AcDbTextStyleTable* pTable = nullptr;
    if (!pDb || pDb->getTextStyleTable(pTable, AcDb::kForRead) != Acad::eOk)
        return;
    CollectNames(pTable, names, true);
    pTable->close();
}

void GetLayerIds(const wchar_t* drawing, AcDbObjectIdArray& ids)
{
    AcDbDatabase* pDb = DrawingDatabase(drawing);
    AcDbLayerTable* pTable = nullptr;
    if (!pDb || pDb->getLayerTable(pTable, AcDb::kForRead) != Acad::eOk)
        return;
    AcDbLayerTableIterator* pRaw = nullptr;
    if (pTable->newIterator(pRaw) == Acad::eOk) {
        std::unique_ptr<AcDbLayerTableIterator> pIter(pRaw);
        for (; !pIter->done(); pIter->step()) {
            AcDbObjectId id;
            if (pIter->getRecordId(id) == Acad::eOk)
                ids.append(id);
        }
    }
    pTable->close();
}

int UnlockEntityLayer(AcDbEntity* pEntity)
{
    if (!pEntity || pEntity->layerId().isNull()) {
        Trace(L"\n UnlockEntityLayer: no entity or no layer");
        return 0;
    }
    AcDbLayerTableRecord* pLayer = OpenEntityLayer(pEntity, AcDb::kForRead);
    if (!pLayer)
        return 0;
    int iBits = 0;
    if ((pLayer->isFrozen() || pLayer->isLocked()) && pLayer->upgradeOpen() == Acad::eOk && pLayer->isWriteEnabled()) {
        if (pLayer->isFrozen() && pLayer->setIsFrozen(false) == Acad::eOk)
            iBits |= kLayerFrozen;
        if (pLayer->isLocked()) {
            pLayer->setIsLocked(false);
            iBits |= kLayerLocked;
        }
    }
    pLayer->close();
    return iBits;
}

int RestoreEntityLayer(AcDbEntity* pEntity, int bits)
{
    if (!(bits & (kLayerFrozen | kLayerLocked)))
        return 1;
    if (!pEntity)
        return 0;
    AcDbLayerTableRecord* pLayer = OpenEntityLayer(pEntity, AcDb::kForWrite);
    if (!pLayer)
        return 0;
    if (bits & kLayerLocked)
        pLayer->setIsLocked(true);
    if (bits & kLayerFrozen)
        pLayer->setIsFrozen(true);
    pLayer->close();
    return 1;
}

int IsOnLockedLayer(AcDbEntity* pEntity, int tell)
{
    if (!(GetEntityLayerStatus(pEntity) & kLayerLocked))
        return 0;
    if (tell) {
        CString strText;
        if (!strText.LoadString(IDS_LOCKED_LAYER))
            strText = L"Objekt auf gesperrtem Layer, Bearbeitung nicht möglich!";
        acutPrintf(L"%s", static_cast<const wchar_t*>(strText));
    }
    return 1;
}

void SetEntityLayer(AcDbDatabase* pDb, AcDbEntity* pEntity, const wchar_t* name, int color)
{
    if (!pEntity || !name || !*name)
        return;
    if (!pDb)
        pDb = acdbCurDwg();
    if (MakeLayer(pDb, name, color, nullptr, L"Chyba %d pri vytváraní vrstvy %s").isNull())
        return;
    const bool bUpgraded = !pEntity->isWriteEnabled() && pEntity->upgradeOpen() == Acad::eOk;
    if (pEntity->isWriteEnabled()) {
        const Acad::ErrorStatus es = pEntity->setLayer(name, true, false);
        if (es != Acad::eOk)
            TraceF(L"\n SetEntityLayer(%s) es=%d", name, static_cast<int>(es));
    }
    if (bUpgraded)
        pEntity->downgradeOpen();
}

int RemoveEntsFromLayer(const wchar_t* name)
{
    AcDbDatabase* pDb = acdbCurDwg();
    if (!pDb)
        return 0;
    const int iWasLocked = TestLocked(pDb, L"RemoveEntsFromLayer");
    int iResult = 0;
    const bool bOk = RunGuarded([&] {
        AcDbObjectId layerId;
        if (!FindLayerId(name, pDb, layerId))
            return;
        iResult = 1;
        AcDbObjectIdArray ids;
        GetBlockEntityIds(pDb, ACDB_MODEL_SPACE, ids);
        for (int i = 0; i < ids.length(); ++i) {
            AcDbEntity* pEntity = nullptr;
            if (acdbOpenAcDbEntity(pEntity, ids[i], AcDb::kForRead) != Acad::eOk)
                continue;
            if (pEntity->layerId() == layerId && pEntity->upgradeOpen() == Acad::eOk) {
                pEntity->erase();
                pEntity->downgradeOpen();
            }
            pEntity->close();
        }
    });
    if (!bOk)
        TraceF(L"\nANY ERROR on RemoveEntsFromLayer( %s ) ", name ? name : L"");
    if (!iWasLocked)
        UnlockDB(pDb);
    return iResult;
}
