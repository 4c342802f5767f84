// AcDbObject: open state, notifications, erase, persistent reactors and extended data.
#include "host/db/AcDbObject.h"

#include <algorithm>

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbUndoManager.h"
#include "host/db/AcDbXData.h"
#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObjectReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)

namespace {

constexpr int kMaxReaders = 256;

int countOpens(const std::vector<AcDb::OpenMode>& opens, AcDb::OpenMode mode)
{
    return static_cast<int>(std::count(opens.begin(), opens.end(), mode));
}

bool onLockedLayer(const AcDbObject* obj)
{
    const AcDbEntity* ent = AcDbEntity::cast(obj);
    if (!ent)
        return false;
    AcDbObjectAccess::pushPeek(ent);
    const AcDbObjectId layerId = ent->layerId();
    AcDbObjectAccess::popPeek(ent);
    AcDbPeek layer(layerId);
    const AcDbLayerTableRecord* rec = layer.as<AcDbLayerTableRecord>();
    return rec && rec->isLocked();
}

AcDbUndoManager* undoOf(const AcDbObject* obj)
{
    AcDbDatabase* db = obj->database();
    return db ? db->undoManager() : nullptr;
}

}  // namespace

AcDbObject::AcDbObject() = default;

AcDbObject::~AcDbObject() = default;

// Identity --------------------------------------------------------------------------------

AcDbObjectId AcDbObject::objectId() const
{
    return AcDbObjectId(m_stub);
}

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId ownerId)
{
    if (m_stub && !isWriteEnabled())
        return Acad::eNotOpenForWrite;
    m_ownerId = ownerId;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::getAcDbHandle(AcDbHandle& handle) const
{
    handle = m_stub ? m_stub->handle : AcDbHandle();
    return Acad::eOk;
}

AcDbHandle AcDbObject::handle() const
{
    return m_stub ? m_stub->handle : AcDbHandle();
}

AcDbDatabase* AcDbObject::database() const
{
    return m_stub ? m_stub->database : nullptr;
}

AcDbDatabase* AcDbObject::databaseToUse() const
{
    AcDbDatabase* db = database();
    return db ? db : acdbHostApplicationServices()->workingDatabase();
}

bool AcDbObject::isErased() const
{
    return m_stub && (m_stub->erased || m_stub->removed);
}

bool AcDbObject::isProxy() const
{
    return false;
}

// Open state ------------------------------------------------------------------------------

bool AcDbObject::isReadEnabled() const
{
    return !m_stub || !m_opens.empty() || m_notifying;
}

bool AcDbObject::isWriteEnabled() const
{
    if (!m_stub || m_notifyWritable)
        return true;
    return !m_notifying && countOpens(m_opens, AcDb::kForWrite) > 0;
}

bool AcDbObject::isNotifyEnabled() const
{
    return !m_stub || m_notifying || countOpens(m_opens, AcDb::kForNotify) > 0;
}

bool AcDbObject::isNotifying() const
{
    return m_notifying;
}

bool AcDbObject::isUndoing() const
{
    if (m_undoing)
        return true;
    AcDbDatabase* db = database();
    return db && db->isUndoing();
}

void AcDbObject::assertReadEnabled() const
{
    if (!isReadEnabled())
        acrx_abort(ACRX_T("%ls (handle %llX) is not open for read"), isA()->name(),
                   static_cast<unsigned long long>(handle().value()));
}

void AcDbObject::assertNotifyEnabled() const
{
    if (!isNotifyEnabled())
        acrx_abort(ACRX_T("%ls (handle %llX) is not open for notify"), isA()->name(),
                   static_cast<unsigned long long>(handle().value()));
}

void AcDbObject::assertWriteEnabled(Adesk::Boolean autoUndo, Adesk::Boolean recordModified)
{
    if (!isWriteEnabled())
        acrx_abort(ACRX_T("%ls (handle %llX) is not open for write"), isA()->name(),
                   static_cast<unsigned long long>(handle().value()));
    if (!m_stub)
        return;
    AcDbUndoManager* undo = undoOf(this);
    if (autoUndo && undo && undo->recording() &&
        !(m_undoRecorded && m_undoGroupSerial == undo->serial())) {
        undo->recordSnapshot(this);
        m_undoRecorded = true;
        m_undoGroupSerial = undo->serial();
    }
    if (recordModified && !m_modified) {
        m_modified = true;
        if (!m_newObject) {
            if (AcDbDatabase* db = database())
                for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(db->reactors()))
                    r->objectOpenedForModify(db, this);
            if (m_transientReactors)
                for (AcDbObjectReactor* r : std::vector<AcDbObjectReactor*>(*m_transientReactors))
                    r->openedForModify(this);
        }
    }
    if (recordModified)
        if (AcDbDatabase* db = database())
            db->incrementDbmod();
}

void AcDbObject::recordGraphicsModified(Adesk::Boolean setModified)
{
    if (setModified && m_stub && isWriteEnabled()) {
        m_modifiedGraphics = true;
        if (!m_modified)
            assertWriteEnabled(false, true);
    }
}

Acad::ErrorStatus AcDbObjectAccess::open(AcDbObject* o, AcDb::OpenMode mode, bool openErased)
{
    if (o->isErased() && !openErased)
        return Acad::eWasErased;
    const bool writeOpen = countOpens(o->m_opens, AcDb::kForWrite) > 0 || o->m_notifyWritable;
    const int readers = countOpens(o->m_opens, AcDb::kForRead);
    const bool notifyOpen = o->m_notifying || countOpens(o->m_opens, AcDb::kForNotify) > 0;
    switch (mode) {
    case AcDb::kForRead:
        if (writeOpen && !o->m_notifying)
            return Acad::eWasOpenForWrite;
        if (readers >= kMaxReaders)
            return Acad::eAtMaxReaders;
        break;
    case AcDb::kForWrite:
        if (notifyOpen)
            return Acad::eWasOpenForNotify;
        if (writeOpen)
            return Acad::eWasOpenForWrite;
        if (readers > 0)
            return Acad::eWasOpenForRead;
        if (onLockedLayer(o))
            return Acad::eOnLockedLayer;
        break;
    case AcDb::kForNotify:
        break;
    }
    const Acad::ErrorStatus es = o->subOpen(mode);
    if (es != Acad::eOk)
        return es;
    o->m_opens.push_back(mode);
    return Acad::eOk;
}

void AcDbObjectAccess::openAsNew(AcDbObject* obj)
{
    obj->m_opens.push_back(AcDb::kForWrite);
    obj->m_newObject = true;
    obj->m_modified = true;
}

void AcDbObjectAccess::sendModified(AcDbObject* obj)
{
    const bool wasNotifying = obj->m_notifying;
    obj->m_notifying = true;
    AcDbDatabase* db = obj->database();
    if (db)
        for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(db->reactors()))
            r->objectModified(db, obj);
    if (obj->m_transientReactors)
        for (AcDbObjectReactor* r : std::vector<AcDbObjectReactor*>(*obj->m_transientReactors))
            r->modified(obj);
    const AcDbObjectIdArray ids = obj->m_reactorIds;
    for (const AcDbObjectId& id : ids) {
        AcDbObject* reactor = nullptr;
        if (acdbOpenAcDbObject(reactor, id, AcDb::kForNotify) != Acad::eOk)
            continue;
        if (!reactor->m_notifying)  // a reactor cycle ends here
            reactor->modified(obj);
        reactor->close();
    }
    obj->m_notifying = wasNotifying;
}

void AcDbObjectAccess::sendErased(AcDbObject* obj, bool erasing)
{
    const bool wasNotifying = obj->m_notifying;
    obj->m_notifying = true;
    AcDbDatabase* db = obj->database();
    if (db)
        for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(db->reactors()))
            r->objectErased(db, obj, erasing);
    if (obj->m_transientReactors)
        for (AcDbObjectReactor* r : std::vector<AcDbObjectReactor*>(*obj->m_transientReactors))
            r->erased(obj, erasing);
    const AcDbObjectIdArray ids = obj->m_reactorIds;
    for (const AcDbObjectId& id : ids) {
        AcDbObject* reactor = nullptr;
        if (acdbOpenAcDbObject(reactor, id, AcDb::kForNotify) != Acad::eOk)
            continue;
        if (!reactor->m_notifying)
            reactor->erased(obj, erasing);
        reactor->close();
    }
    obj->m_notifying = wasNotifying;
}

Acad::ErrorStatus AcDbObject::close()
{
    if (!m_stub)
        return Acad::eOk;  // a non-resident object is not opened; its owner deletes it
    if (m_opens.empty())
        return Acad::eNotOpenForRead;
    const AcDb::OpenMode mode = m_opens.back();
    const bool last = m_opens.size() == 1;
    if (m_modified && (mode == AcDb::kForWrite || last)) {
        m_reallyClosing = last;
        AcDbObjectAccess::sendModified(this);
        m_reallyClosing = false;
        m_modified = false;
        m_modifiedXData = false;
        m_modifiedGraphics = false;
        m_eraseToggled = false;
    }
    m_opens.pop_back();
    if (mode == AcDb::kForWrite)
        m_newObject = false;
    if (m_opens.empty())
        m_notifyWritable = false;
    subClose();
    if (m_transientReactors && m_opens.empty())
        for (AcDbObjectReactor* r : std::vector<AcDbObjectReactor*>(*m_transientReactors))
            r->objectClosed(objectId());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::cancel()
{
    return close();
}

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (!m_stub)
        return Acad::eOk;
    if (m_notifying || (!m_opens.empty() && m_opens.back() == AcDb::kForNotify))
        return Acad::eWasNotifying;
    if (m_opens.empty())
        return Acad::eNotOpenForRead;
    if (countOpens(m_opens, AcDb::kForWrite) > 0 || m_notifyWritable)
        return Acad::eWasOpenForWrite;
    if (m_opens.size() > 1)
        return Acad::eHadMultipleReaders;
    if (onLockedLayer(this))
        return Acad::eOnLockedLayer;
    m_opens.back() = AcDb::kForWrite;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (!m_stub)
        return Acad::eOk;
    if (m_opens.empty())
        return Acad::eNotOpenForRead;
    if (m_opens.back() != AcDb::kForWrite)
        return m_opens.back() == AcDb::kForRead ? Acad::eOk : Acad::eWasNotifying;
    if (m_modified) {
        AcDbObjectAccess::sendModified(this);
        m_modified = false;
        m_modifiedXData = false;
        m_modifiedGraphics = false;
        m_eraseToggled = false;
    }
    m_newObject = false;
    m_opens.back() = AcDb::kForRead;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeFromNotify(Adesk::Boolean& wasWritable)
{
    if (!m_stub) {
        wasWritable = true;
        return Acad::eOk;
    }
    if (!isNotifyEnabled())
        return Acad::eNotOpenForWrite;
    wasWritable = isWriteEnabled();
    if (!wasWritable)
        m_notifyWritable = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeToNotify(Adesk::Boolean wasWritable)
{
    if (!wasWritable)
        m_notifyWritable = false;
    return Acad::eOk;
}

// Erasing ---------------------------------------------------------------------------------

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing)
{
    if (!m_stub)
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (m_stub->removed)
        return Acad::ePermanentlyErased;
    if (m_stub->erased == erasing)
        return Acad::eOk;
    const Acad::ErrorStatus es = subErase(erasing);
    if (es != Acad::eOk)
        return es;
    if (AcDbUndoManager* undo = undoOf(this))
        undo->recordErase(objectId(), erasing);
    m_stub->erased = erasing;
    m_eraseToggled = !m_eraseToggled;
    m_modified = true;
    if (AcDbDatabase* db = database())
        db->incrementDbmod();
    AcDbObjectAccess::sendErased(this, erasing);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::handOverTo(AcDbObject*, Adesk::Boolean, Adesk::Boolean)
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbObject::subErase(Adesk::Boolean)
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::subOpen(AcDb::OpenMode)
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::subClose()
{
    return Acad::eOk;
}

Adesk::UInt32 AcDbObject::setAttributes(void*)
{
    return 0;
}

// Reactors --------------------------------------------------------------------------------

void AcDbObject::addPersistentReactor(AcDbObjectId objId)
{
    if (objId.isNull() || m_reactorIds.contains(objId) || m_notifying)
        return;
    assertWriteEnabled(true, false);
    m_reactorIds.append(objId);
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId objId)
{
    if (m_notifying)
        return Acad::eWasNotifying;
    if (!m_reactorIds.contains(objId))
        return Acad::eKeyNotFound;
    assertWriteEnabled(true, false);
    m_reactorIds.remove(objId);
    return Acad::eOk;
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId objId) const
{
    return m_reactorIds.contains(objId);
}

void AcDbObject::addReactor(AcDbObjectReactor* reactor) const
{
    if (!reactor)
        return;
    if (!m_transientReactors)
        m_transientReactors = std::make_unique<std::vector<AcDbObjectReactor*>>();
    if (std::find(m_transientReactors->begin(), m_transientReactors->end(), reactor) == m_transientReactors->end())
        m_transientReactors->push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const
{
    if (!m_transientReactors)
        return;
    auto& v = *m_transientReactors;
    v.erase(std::remove(v.begin(), v.end(), reactor), v.end());
}

void AcDbObject::cancelled(const AcDbObject*) {}
void AcDbObject::copied(const AcDbObject*, const AcDbObject*) {}
void AcDbObject::erased(const AcDbObject*, Adesk::Boolean) {}
void AcDbObject::goodbye(const AcDbObject*) {}
void AcDbObject::openedForModify(const AcDbObject*) {}
void AcDbObject::modified(const AcDbObject*) {}
void AcDbObject::modifyUndone(const AcDbObject*) {}
void AcDbObject::modifiedXData(const AcDbObject*) {}
void AcDbObject::unappended(const AcDbObject*) {}
void AcDbObject::reappended(const AcDbObject*) {}
void AcDbObject::objectClosed(AcDbObjectId) {}

// Extended data ---------------------------------------------------------------------------

resbuf* AcDbObject::xData(const ACHAR* appName) const
{
    assertReadEnabled();
    return m_xdata ? m_xdata->toChain(appName) : nullptr;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* xdata)
{
    if (m_stub && !isWriteEnabled())
        return Acad::eNotOpenForWrite;
    std::vector<AcDbXData::App> apps;
    Acad::ErrorStatus es = AcDbXData::parse(xdata, apps);
    if (es != Acad::eOk)
        return es;
    if (AcDbDatabase* db = database()) {
        AcDbPeek peek(db->regAppTableId());
        AcDbSymbolTable* regApps = peek.as<AcDbSymbolTable>();
        for (const auto& app : apps)
            if (!regApps || !regApps->has(app.first.c_str()))
                return Acad::eRegappIdNotFound;
    }
    AcDbXData merged = m_xdata ? *m_xdata : AcDbXData();
    merged.merge(apps);
    if (merged.byteSize() > acdbXDataSizeLimit)
        return Acad::eXdataSizeExceeded;
    assertWriteEnabled(true, true);
    m_xdata = merged.empty() ? nullptr : std::make_unique<AcDbXData>(std::move(merged));
    m_modifiedXData = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::setXDataAsRead(const resbuf* xdata)
{
    std::vector<AcDbXData::App> apps;
    Acad::ErrorStatus es = AcDbXData::parse(xdata, apps);
    if (es != Acad::eOk)
        return es;
    AcDbXData merged = m_xdata ? *m_xdata : AcDbXData();
    merged.merge(apps);
    m_xdata = merged.empty() ? nullptr : std::make_unique<AcDbXData>(std::move(merged));
    return Acad::eOk;
}

std::vector<std::wstring> AcDbObject::xDataApplications() const
{
    std::vector<std::wstring> names;
    if (m_xdata)
        for (const auto& app : m_xdata->apps())
            names.push_back(app.first);
    return names;
}

Acad::ErrorStatus AcDbObject::xDataTransformBy(const AcGeMatrix3d&)
{
    return Acad::eOk;
}

size_t acdbXDataSize(const resbuf* xdata)
{
    std::vector<AcDbXData::App> apps;
    if (AcDbXData::parse(xdata, apps) != Acad::eOk)
        return 0;
    AcDbXData x;
    x.merge(apps);
    return x.byteSize();
}

// Extension dictionary ------------------------------------------------------------------

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    if (!m_extDict.isNull() && m_extDict.isValid() && !m_extDict.isErased())
        return Acad::eAlreadyInDb;
    AcDbDatabase* db = database();
    if (!db)
        return Acad::eNoDatabase;
    assertWriteEnabled();
    auto* dict = new AcDbDictionary();
    AcDbObjectId id;
    Acad::ErrorStatus es = db->addAcDbObject(id, dict);
    if (es != Acad::eOk) {
        delete dict;
        return es;
    }
    dict->setTreatElementsAsHard(true);
    dict->setOwnerId(objectId());
    dict->close();
    m_extDict = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    if (m_extDict.isNull())
        return Acad::eOk;
    AcDbDictionary* dict = nullptr;
    if (acdbOpenObject(dict, m_extDict, AcDb::kForWrite) == Acad::eOk) {
        if (dict->numEntries() > 0) {
            dict->close();
            return Acad::eContainerNotEmpty;
        }
        dict->erase();
        dict->close();
    }
    assertWriteEnabled();
    m_extDict.setNull();
    return Acad::eOk;
}

// Filing ----------------------------------------------------------------------------------

Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    switch (filer->filerType()) {
    case AcDb::kUndoFiler:
        filer->writeSoftPointerId(m_ownerId);
        filer->writeHardOwnershipId(m_extDict);
        filer->writeInt32(m_reactorIds.length());
        for (const AcDbObjectId& id : m_reactorIds)
            filer->writeSoftPointerId(id);
        break;
    case AcDb::kDeepCloneFiler:
    case AcDb::kWblockCloneFiler:
        filer->writeHardOwnershipId(m_extDict);
        break;
    case AcDb::kCopyFiler:
        break;
    default:
        return filer->filerStatus();  // the file layer writes the common part itself
    }
    if (m_xdata)
        m_xdata->dwgOut(filer);
    else
        AcDbXData().dwgOut(filer);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled(false, true);
    switch (filer->filerType()) {
    case AcDb::kUndoFiler: {
        AcDbSoftPointerId owner;
        filer->readSoftPointerId(&owner);
        m_ownerId = owner;
        AcDbHardOwnershipId ext;
        filer->readHardOwnershipId(&ext);
        m_extDict = ext;
        Adesk::Int32 n = 0;
        filer->readInt32(&n);
        m_reactorIds.removeAll();
        for (Adesk::Int32 i = 0; i < n && filer->filerStatus() == Acad::eOk; ++i) {
            AcDbSoftPointerId id;
            filer->readSoftPointerId(&id);
            if (!id.isNull())
                m_reactorIds.append(id);
        }
        break;
    }
    case AcDb::kDeepCloneFiler:
    case AcDb::kWblockCloneFiler: {
        AcDbHardOwnershipId ext;
        filer->readHardOwnershipId(&ext);
        m_extDict = ext;
        break;
    }
    case AcDb::kCopyFiler:
        break;
    default:
        return filer->filerStatus();
    }
    AcDbXData x;
    x.dwgIn(filer);
    m_xdata = x.empty() ? nullptr : std::make_unique<AcDbXData>(std::move(x));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler*)
{
    assertWriteEnabled(false, true);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler*) const
{
    assertReadEnabled();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::applyPartialUndo(AcDbDwgFiler*, AcRxClass*)
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::decomposeForSave(AcDb::AcDbDwgVersion, AcDbObject*& replaceObj,
                                               AcDbObjectId& replaceId, Adesk::Boolean& exchangeXData)
{
    replaceObj = nullptr;
    replaceId.setNull();
    exchangeXData = false;
    return Acad::eOk;
}

// Copying ---------------------------------------------------------------------------------

AcRxObject* AcDbObject::clone() const
{
    AcRxObject* made = isA()->create();
    AcDbObject* copy = AcDbObject::cast(made);
    if (!copy) {
        delete made;
        return nullptr;
    }
    if (copy->copyFrom(this) != Acad::eOk) {
        delete copy;
        return nullptr;
    }
    if (m_transientReactors)
        for (AcDbObjectReactor* r : std::vector<AcDbObjectReactor*>(*m_transientReactors))
            r->copied(this, copy);
    for (const AcDbObjectId& id : AcDbObjectIdArray(m_reactorIds)) {
        AcDbObject* reactor = nullptr;
        if (acdbOpenAcDbObject(reactor, id, AcDb::kForNotify) != Acad::eOk)
            continue;
        reactor->copied(this, copy);
        reactor->close();
    }
    return copy;
}

Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject* other)
{
    const AcDbObject* src = AcDbObject::cast(other);
    if (!src)
        return Acad::eNullObjectPointer;
    if (src->isA() != isA())
        return Acad::eWrongObjectType;
    AcDbBinaryFiler filer(AcDb::kCopyFiler, src->database());
    AcDbObjectAccess::pushPeek(src);
    Acad::ErrorStatus es = src->dwgOutFields(&filer);
    AcDbObjectAccess::popPeek(src);
    if (es != Acad::eOk)
        return es;
    filer.rewind();
    return dwgInFields(&filer);
}

Acad::ErrorStatus AcDbObject::deepClone(AcDbObject* owner, AcDbObject*& clonedObject,
                                        AcDbIdMapping& idMap, Adesk::Boolean) const
{
    clonedObject = nullptr;
    AcDbDatabase* db = database();
    if (!db)
        return Acad::eNotInDatabase;
    AcDbObjectIdArray ids;
    ids.append(objectId());
    const AcDbObjectId ownerId = owner ? owner->objectId() : m_ownerId;
    Acad::ErrorStatus es = db->deepCloneObjects(ids, ownerId, idMap);
    if (es != Acad::eOk)
        return es;
    return acdbOpenAcDbObject(clonedObject, idMap.lookup(objectId()), AcDb::kForWrite);
}

Acad::ErrorStatus AcDbObject::wblockClone(AcRxObject* owner, AcDbObject*& clonedObject,
                                          AcDbIdMapping& idMap, Adesk::Boolean isPrimary) const
{
    return deepClone(AcDbObject::cast(owner), clonedObject, idMap, isPrimary);
}

void AcDbObject::getOwnedIds(AcDbObjectIdArray& owned) const
{
    if (!m_extDict.isNull())
        owned.append(m_extDict);
}

// Peeking ---------------------------------------------------------------------------------

AcDbPeek::AcDbPeek(AcDbObjectId id)
{
    if (id.isValid()) {
        m_obj = id.stub()->object;
        AcDbObjectAccess::pushPeek(m_obj);
    }
}

AcDbPeek::~AcDbPeek()
{
    if (m_obj)
        AcDbObjectAccess::popPeek(m_obj);
}
