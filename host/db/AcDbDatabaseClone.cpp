// Deep clone and wblock clone: copy objects through the filer, then translate references.
#include <functional>

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbDatabase.h"
#include "host/rx/AcRxClass.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbUndoManager.h"
#include "host/db/dbsymtb.h"

namespace {

struct CloneItem {
    AcDbObjectId source;
    AcDbObject* clone;
    std::vector<Adesk::UInt8> bytes;
    bool primary;
};

// Clones objectIds (and what they own) from src into dest under owner.
Acad::ErrorStatus cloneInto(AcDbDatabase* src, AcDbDatabase* dest, const AcDbObjectIdArray& objectIds,
                            AcDbObjectId owner, AcDbIdMapping& idMap, AcDb::FilerType type)
{
    AcDbBlockTableRecord* ownerBtr = nullptr;
    if (!owner.isNull()) {
        if (owner.database() != dest)
            return Acad::eWrongDatabase;
        AcDbObject* o = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbObject(o, owner, AcDb::kForWrite);
        if (es != Acad::eOk)
            return es;
        ownerBtr = AcDbBlockTableRecord::cast(o);
        if (!ownerBtr) {
            o->close();
            return Acad::eNotThatKindOfClass;
        }
    }
    idMap.setOrigDb(src);
    idMap.setDestDb(dest);

    std::vector<CloneItem> items;
    Acad::ErrorStatus result = Acad::eOk;
    std::function<void(AcDbObjectId, bool)> collect = [&](AcDbObjectId id, bool primary) {
        if (!id.isValid() || id.database() != src || !idMap.lookup(id).isNull())
            return;
        AcDbPeek peek(id);
        AcDbObject* obj = peek.get();
        AcDbObject* copy = AcDbObject::cast(obj->isA()->create());
        if (!copy) {
            result = Acad::eNotApplicable;
            return;
        }
        AcDbBinaryFiler out(type, src);
        obj->dwgOutFields(&out);
        const AcDbObjectId newId = dest->impl().add(copy, AcDbHandle());
        idMap.assign(AcDbIdPair(id, newId, true, primary, !primary));
        items.push_back({id, copy, out.bytes(), primary});
        AcDbObjectIdArray owned;
        obj->getOwnedIds(owned);
        for (const AcDbObjectId& o : owned)
            collect(o, false);
    };
    for (const AcDbObjectId& id : objectIds)
        collect(id, true);

    for (CloneItem& item : items) {
        AcDbBinaryFiler in(item.bytes, type, dest);
        in.setIdMapping(&idMap);
        AcDbObjectAccess::openAsNew(item.clone);
        dest->undoManager()->recordAppend(item.clone->objectId());
        AcDbObjectAccess::markRecorded(item.clone, dest->undoManager()->serial());
        item.clone->dwgInFields(&in);
        if (in.filerStatus() != Acad::eOk)
            result = in.filerStatus();
        AcDbPeek source(item.source);
        if (item.primary) {
            if (ownerBtr && AcDbEntity::cast(item.clone)) {
                AcDbObjectAccess::setOwnerRaw(item.clone, owner);
                ownerBtr->assertWriteEnabled(false, true);
                ownerBtr->appendAsRead(item.clone->objectId());
                dest->undoManager()->recordOwnerAdd(owner, item.clone->objectId());
            } else {
                AcDbObjectAccess::setOwnerRaw(item.clone, source.get()->ownerId().database() == dest
                                                              ? source.get()->ownerId()
                                                              : AcDbObjectId());
            }
        } else {
            AcDbObjectAccess::setOwnerRaw(item.clone, idMap.lookup(source.get()->ownerId()));
        }
    }
    for (CloneItem& item : items) {
        dest->impl().fireAppended(item.clone);
        AcDbObject* srcObj = nullptr;
        if (acdbOpenAcDbObject(srcObj, item.source, AcDb::kForRead, true) == Acad::eOk) {
            for (const AcDbObjectId& rid : AcDbObjectIdArray(srcObj->persistentReactorIds())) {
                AcDbObject* reactor = nullptr;
                if (acdbOpenAcDbObject(reactor, rid, AcDb::kForNotify) == Acad::eOk) {
                    reactor->copied(srcObj, item.clone);
                    reactor->close();
                }
            }
            srcObj->close();
        }
        item.clone->close();
    }
    if (ownerBtr)
        ownerBtr->close();
    return result;
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& objectIds, AcDbObjectId owner,
                                                 AcDbIdMapping& idMap, bool)
{
    for (const AcDbObjectId& id : objectIds)
        if (id.database() != this)
            return Acad::eWrongDatabase;
    idMap.setDeepCloneContext(AcDb::kDcCopy);
    return cloneInto(this, this, objectIds, owner, idMap, AcDb::kDeepCloneFiler);
}

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(const AcDbObjectIdArray& objectIds, AcDbObjectId owner,
                                                   AcDbIdMapping& idMap, AcDb::DuplicateRecordCloning drc, bool)
{
    AcDbDatabase* dest = owner.database();
    if (!dest)
        return Acad::eNoDatabase;
    idMap.setDeepCloneContext(AcDb::kDcWblkObjects);
    idMap.setDuplicateRecordCloning(drc);
    if (dest != this) {
        // Records of the same name stand in for the source's: the clones keep their layer,
        // linetype and styles by name.
        const AcDbObjectId tables[][2] = {
            {layerTableId(), dest->layerTableId()},     {linetypeTableId(), dest->linetypeTableId()},
            {textStyleTableId(), dest->textStyleTableId()}, {dimStyleTableId(), dest->dimStyleTableId()},
            {regAppTableId(), dest->regAppTableId()},   {blockTableId(), dest->blockTableId()}};
        for (const auto& pair : tables) {
            AcDbPeek srcTable(pair[0]);
            AcDbPeek destTable(pair[1]);
            const AcDbSymbolTable* s = srcTable.as<AcDbSymbolTable>();
            const AcDbSymbolTable* d = destTable.as<AcDbSymbolTable>();
            if (!s || !d)
                continue;
            for (const AcDbObjectId& rid : s->recordIds()) {
                AcDbPeek rec(rid);
                const AcDbSymbolTableRecord* r = rec.as<AcDbSymbolTableRecord>();
                AcDbObjectId target;
                if (r && d->getAt(r->name().c_str(), target) == Acad::eOk)
                    idMap.assign(AcDbIdPair(rid, target, false));
            }
        }
    }
    return cloneInto(this, dest, objectIds, owner, idMap, AcDb::kWblockCloneFiler);
}
