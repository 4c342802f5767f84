// AcDbDatabase: the object table, handles, tables and dictionaries, reactors, undo, files.
#include "host/db/AcDbDatabase.h"

#include <algorithm>
#include <utility>

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbUndoManager.h"
#include "host/db/dbsymtb.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabaseReactor, AcRxObject)

namespace {
AcDbFileIo* gFileIo = nullptr;
}  // namespace

// Impl ------------------------------------------------------------------------------------

AcDbStub* AcDbDatabase::Impl::stubFor(AcDbHandle handle, bool create)
{
    if (AcDbStub* found = byHandle.find(handle.value()))
        return found;
    if (!create)
        return nullptr;
    AcDbStub& stub = stubs.emplace_back();
    stub.database = db;
    stub.handle = handle;
    byHandle.insert(handle.value(), &stub);
    if (handle.value() >= seed)
        seed = handle.value() + 1;
    return &stub;
}

AcDbObjectId AcDbDatabase::Impl::add(AcDbObject* obj, AcDbHandle handle)
{
    if (handle.isNull())
        handle = AcDbHandle(seed);
    AcDbStub* stub = stubFor(handle, true);
    stub->object = obj;
    stub->erased = false;
    stub->removed = false;
    AcDbObjectAccess::attach(obj, stub);
    if (AcDbUndoManager* undo = db->undoManager())
        undo->noteAdd();
    return AcDbObjectId(stub);
}

void AcDbDatabase::Impl::fireAppended(AcDbObject* obj)
{
    for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(db->reactors()))
        r->objectAppended(db, obj);
}

AcDbObjectId AcDbDatabase::Impl::tableRecord(AcDbObjectId table, const std::wstring& name) const
{
    AcDbPeek peek(table);
    const AcDbSymbolTable* t = peek.as<AcDbSymbolTable>();
    AcDbObjectId id;
    if (t && !name.empty())
        t->getAt(name.c_str(), id);
    return id;
}

std::wstring AcDbDatabase::Impl::recordName(AcDbObjectId record) const
{
    AcDbPeek peek(record);
    const AcDbSymbolTableRecord* r = peek.as<AcDbSymbolTableRecord>();
    return r ? r->name() : std::wstring();
}

AcDbObjectId AcDbDatabase::Impl::dictEntry(AcDbObjectId dict, const ACHAR* key) const
{
    AcDbPeek peek(dict);
    const AcDbDictionary* d = peek.as<AcDbDictionary>();
    AcDbObjectId id;
    if (d)
        d->getAt(key, id);
    return id;
}

// Construction ----------------------------------------------------------------------------

AcDbDatabase::AcDbDatabase(bool buildDefault, bool)
    : m_impl(std::make_unique<Impl>(this)), m_undo(std::make_unique<AcDbUndoManager>(this))
{
    if (buildDefault)
        buildDefaultDrawing();
}

AcDbDatabase::~AcDbDatabase()
{
    for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(m_reactors))
        r->goodbye(this);
    if (acdbHostApplicationServices()->workingDatabase() == this)
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    m_undo.reset();
    for (AcDbStub& stub : m_impl->stubs) {
        delete stub.object;
        stub.object = nullptr;
        stub.removed = true;
    }
}

// Objects ---------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject* object)
{
    AcDbObjectId id;
    return addAcDbObject(id, object);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object)
{
    if (!object)
        return Acad::eNullObjectPointer;
    if (object->isDatabaseResident())
        return Acad::eAlreadyInDb;
    id = m_impl->add(object, AcDbHandle());
    AcDbObjectAccess::openAsNew(object);
    m_undo->recordAppend(id);
    AcDbObjectAccess::markRecorded(object, m_undo->serial());
    incrementDbmod();
    m_impl->fireAppended(object);
    return Acad::eOk;
}

void AcDbDatabase::swapContents(AcDbDatabase& other)
{
    if (&other == this)
        return;
    std::swap(m_impl, other.m_impl);
    std::swap(m_undo, other.m_undo);
    for (AcDbDatabase* db : {this, &other}) {
        db->m_impl->db = db;
        db->m_undo->setDatabase(db);
        for (AcDbStub& stub : db->m_impl->stubs)
            stub.database = db;
    }
}

Acad::ErrorStatus AcDbDatabase::addAcDbObjectAsRead(AcDbObjectId& id, AcDbObject* object, AcDbHandle handle)
{
    if (!object)
        return Acad::eNullObjectPointer;
    if (object->isDatabaseResident())
        return Acad::eAlreadyInDb;
    if (handle.isNull())
        return Acad::eInvalidInput;
    AcDbStub* existing = m_impl->stubFor(handle, false);
    if (existing && existing->object && !existing->removed)
        return Acad::eHandleInUse;
    id = m_impl->add(object, handle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound,
                                                const AcDbHandle& objHandle, Adesk::UInt32)
{
    retId.setNull();
    if (objHandle.isNull())
        return Acad::eNullHandle;
    AcDbStub* stub = m_impl->stubFor(objHandle, createIfNotFound);
    if (!stub || (!createIfNotFound && (stub->removed || !stub->object)))
        return Acad::eUnknownHandle;
    retId = AcDbObjectId(stub);
    return Acad::eOk;
}

AcDbHandle AcDbDatabase::allocateHandle()
{
    AcDbHandle h(m_impl->seed);
    while (m_impl->byHandle.contains(h.value()))
        h = AcDbHandle(h.value() + 1);
    m_impl->seed = h.value() + 1;
    return h;
}

AcDbHandle AcDbDatabase::handseed() const
{
    return AcDbHandle(m_impl->seed);
}

Acad::ErrorStatus AcDbDatabase::setHandseed(const AcDbHandle& seed)
{
    if (seed.value() < 0x10)
        return Acad::eInvalidInput;
    bool inUse = false;
    m_impl->byHandle.forEach([&](std::uint64_t h, const AcDbStub* stub) {
        inUse = inUse || (h >= seed.value() && stub->object && !stub->removed);
    });
    if (inUse)
        return Acad::eInvalidInput;
    m_impl->seed = seed.value();
    return Acad::eOk;
}

AcDbObjectIdArray AcDbDatabase::objectIds() const
{
    // The index holds every stub that is not removed for good, mostly in handle order already.
    std::vector<AcDbStub*> live;
    live.reserve(m_impl->byHandle.size());
    m_impl->byHandle.forEach([&](std::uint64_t, AcDbStub* stub) {
        if (stub->object && !stub->removed)
            live.push_back(stub);
    });
    if (!m_impl->byHandle.ordered())
        std::sort(live.begin(), live.end(), [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; });
    AcDbObjectIdArray ids;
    ids.setPhysicalLength(static_cast<int>(live.size()));
    for (AcDbStub* s : live)
        ids.append(AcDbObjectId(s));
    return ids;
}

Adesk::Int32 AcDbDatabase::approxNumObjects() const
{
    return static_cast<Adesk::Int32>(m_impl->byHandle.size());
}

void AcDbDatabase::removeObjectPermanently(AcDbObjectId id)
{
    AcDbStub* stub = id.stub();
    if (!stub || stub->database != this || stub->removed)
        return;
    delete stub->object;
    stub->object = nullptr;
    stub->removed = true;
    stub->erased = true;
    m_impl->byHandle.erase(stub->handle.value());
}

// Tables and dictionaries -----------------------------------------------------------------

namespace {

template <typename T>
Acad::ErrorStatus openFixed(T*& out, AcDbObjectId id, AcDb::OpenMode mode)
{
    out = nullptr;
    if (id.isNull())
        return Acad::eMissingSymbolTable;
    return acdbOpenObject(out, id, mode);
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->blockTable, m); }
Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->layerTable, m); }
Acad::ErrorStatus AcDbDatabase::getTextStyleTable(AcDbTextStyleTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->textStyleTable, m); }
Acad::ErrorStatus AcDbDatabase::getLinetypeTable(AcDbLinetypeTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->linetypeTable, m); }
Acad::ErrorStatus AcDbDatabase::getViewTable(AcDbViewTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->viewTable, m); }
Acad::ErrorStatus AcDbDatabase::getUCSTable(AcDbUCSTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->ucsTable, m); }
Acad::ErrorStatus AcDbDatabase::getViewportTable(AcDbViewportTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->viewportTable, m); }
Acad::ErrorStatus AcDbDatabase::getRegAppTable(AcDbRegAppTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->regAppTable, m); }
Acad::ErrorStatus AcDbDatabase::getDimStyleTable(AcDbDimStyleTable*& t, AcDb::OpenMode m) { return openFixed(t, m_impl->dimStyleTable, m); }
Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& d, AcDb::OpenMode m) { return openFixed(d, m_impl->nod, m); }
Acad::ErrorStatus AcDbDatabase::getGroupDictionary(AcDbDictionary*& d, AcDb::OpenMode m) { return openFixed(d, groupDictionaryId(), m); }
Acad::ErrorStatus AcDbDatabase::getLayoutDictionary(AcDbDictionary*& d, AcDb::OpenMode m) { return openFixed(d, layoutDictionaryId(), m); }
Acad::ErrorStatus AcDbDatabase::getScaleListDictionary(AcDbDictionary*& d, AcDb::OpenMode m) { return openFixed(d, scaleListDictionaryId(), m); }

AcDbObjectId AcDbDatabase::blockTableId() const { return m_impl->blockTable; }
AcDbObjectId AcDbDatabase::layerTableId() const { return m_impl->layerTable; }
AcDbObjectId AcDbDatabase::textStyleTableId() const { return m_impl->textStyleTable; }
AcDbObjectId AcDbDatabase::linetypeTableId() const { return m_impl->linetypeTable; }
AcDbObjectId AcDbDatabase::viewTableId() const { return m_impl->viewTable; }
AcDbObjectId AcDbDatabase::UCSTableId() const { return m_impl->ucsTable; }
AcDbObjectId AcDbDatabase::viewportTableId() const { return m_impl->viewportTable; }
AcDbObjectId AcDbDatabase::regAppTableId() const { return m_impl->regAppTable; }
AcDbObjectId AcDbDatabase::dimStyleTableId() const { return m_impl->dimStyleTable; }
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return m_impl->nod; }
AcDbObjectId AcDbDatabase::groupDictionaryId() const { return m_impl->dictEntry(m_impl->nod, L"ACAD_GROUP"); }
AcDbObjectId AcDbDatabase::layoutDictionaryId() const { return m_impl->dictEntry(m_impl->nod, L"ACAD_LAYOUT"); }
AcDbObjectId AcDbDatabase::scaleListDictionaryId() const { return m_impl->dictEntry(m_impl->nod, L"ACAD_SCALELIST"); }

void AcDbDatabase::setTableIdsAsRead(AcDbObjectId blockTable, AcDbObjectId layerTable, AcDbObjectId textStyleTable,
                                     AcDbObjectId linetypeTable, AcDbObjectId viewTable, AcDbObjectId ucsTable,
                                     AcDbObjectId viewportTable, AcDbObjectId regAppTable,
                                     AcDbObjectId dimStyleTable, AcDbObjectId nod)
{
    m_impl->blockTable = blockTable;
    m_impl->layerTable = layerTable;
    m_impl->textStyleTable = textStyleTable;
    m_impl->linetypeTable = linetypeTable;
    m_impl->viewTable = viewTable;
    m_impl->ucsTable = ucsTable;
    m_impl->viewportTable = viewportTable;
    m_impl->regAppTable = regAppTable;
    m_impl->dimStyleTable = dimStyleTable;
    m_impl->nod = nod;
}

AcDbObjectId AcDbDatabase::modelSpaceId() const
{
    return m_impl->tableRecord(m_impl->blockTable, ACDB_MODEL_SPACE);
}

AcDbObjectId AcDbDatabase::paperSpaceId() const
{
    return m_impl->tableRecord(m_impl->blockTable, ACDB_PAPER_SPACE);
}

AcDbObjectId AcDbDatabase::currentSpaceId() const
{
    return tilemode() ? modelSpaceId() : paperSpaceId();
}

// Reactors --------------------------------------------------------------------------------

void AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor) const
{
    if (reactor && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor) const
{
    m_reactors.erase(std::remove(m_reactors.begin(), m_reactors.end(), reactor), m_reactors.end());
}

// Undo ------------------------------------------------------------------------------------

void AcDbDatabase::startUndoGroup() { m_undo->startGroup(); }
void AcDbDatabase::endUndoGroup() { m_undo->endGroup(); }
Acad::ErrorStatus AcDbDatabase::undo(int groups) { return m_undo->undo(groups); }
bool AcDbDatabase::isUndoing() const { return m_undo && m_undo->undoing(); }
void AcDbDatabase::disableUndoRecording(bool disable) { m_undo->setDisabled(disable); }
bool AcDbDatabase::undoRecording() const { return m_undo->recording(); }
int AcDbDatabase::undoGroupCount() const { return m_undo->groupCount(); }
void AcDbDatabase::clearUndo() { m_undo->clear(); }

AcDbDwgFiler* AcDbDatabase::undoFiler(const AcDbObject* obj, AcRxClass* classObj)
{
    return m_undo->recordPartial(obj, classObj);
}

// Files -----------------------------------------------------------------------------------

void AcDbDatabase::setFileIo(AcDbFileIo* io) { gFileIo = io; }
AcDbFileIo* AcDbDatabase::fileIo() { return gFileIo; }

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName, int, bool, const ACHAR*)
{
    if (!gFileIo)
        return Acad::eNotImplementedYet;
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus es = gFileIo->readFile(this, fileName);
    if (es == Acad::eOk) {
        m_filename = fileName;
        m_dbmod = 0;
        m_undo->clear();
    }
    return es;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName, bool bBakAndRename, AcDb::AcDbDwgVersion version,
                                       const void*)
{
    if (!gFileIo)
        return Acad::eNotImplementedYet;
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus es = gFileIo->writeFile(this, fileName, bBakAndRename, version);
    if (es == Acad::eOk) {
        m_filename = fileName;
        m_dbmod = 0;
    }
    return es;
}

Acad::ErrorStatus AcDbDatabase::save()
{
    if (m_filename.empty())
        return Acad::eFileNotFound;
    return saveAs(m_filename.c_str(), true);
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& fileName) const
{
    fileName = m_filename.c_str();
    return Acad::eOk;
}
