// Block table records: the ordered entity list, appending, iteration and draw order.
#include "host/win/CaseFold.h"
#include "host/db/AcDbBlockTable.h"


#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbSortentsTable.h"
#include "host/db/AcDbSymbolTableDefs.h"
#include "host/db/AcDbUndoManager.h"

SV_DEFINE_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord, AcDbBlockTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, 0, 0, 0, BLOCK_RECORD, ACAD)

namespace {

// Whether s begins with prefix (upper case) in any case; asked for every entity written, so
// it makes no copy.
bool startsWithNoCase(const std::wstring& s, std::wstring_view prefix)
{
    if (s.size() < prefix.size())
        return false;
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (static_cast<wchar_t>(svwin::ToUpperChar(s[i])) != prefix[i])
            return false;
    return true;
}

}  // namespace

AcDbBlockTableRecord::AcDbBlockTableRecord() = default;

AcDbBlockTableRecord::~AcDbBlockTableRecord() = default;

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    if (!entity)
        return Acad::eNullEntityPointer;
    if (entity->isDatabaseResident())
        return Acad::eAlreadyInDb;
    AcDbDatabase* db = database();
    if (!db)
        return Acad::eNoDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    // No snapshot of the record: undo needs only the appended id, whatever the list's length.
    assertWriteEnabled(false, true);
    // Added without the appended event first, so that reactors see the entity with its
    // owner and in the list.
    id = db->impl().add(entity, AcDbHandle());
    AcDbObjectAccess::openAsNew(entity);
    AcDbUndoManager* undo = db->undoManager();
    undo->recordAppend(id);
    AcDbObjectAccess::markRecorded(entity, undo->serial());
    AcDbObjectAccess::setOwnerRaw(entity, objectId());
    m_entities.append(id);
    undo->recordOwnerAdd(objectId(), id);
    db->incrementDbmod();
    db->impl().fireAppended(entity);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAsRead(AcDbObjectId entityId)
{
    if (!entityId.isValid())
        return Acad::eInvalidInput;
    m_entities.append(entityId);
    AcDbObjectAccess::setOwnerRaw(entityId.stub()->object, objectId());
    return Acad::eOk;
}

void AcDbBlockTableRecord::removeEntityId(AcDbObjectId entityId)
{
    // From the end: undo takes out the newest entities first.
    for (int i = m_entities.length() - 1; i >= 0; --i)
        if (m_entities[i] == entityId) {
            m_entities.removeAt(i);
            return;
        }
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const
{
    assertReadEnabled();
    iterator = new AcDbBlockTableRecordIterator(m_entities, skipDeleted);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

AcGePoint3d AcDbBlockTableRecord::origin() const { assertReadEnabled(); return m_origin; }
Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin)
{
    assertWriteEnabled();
    m_origin = origin;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::comments(const ACHAR*& text) const
{
    assertReadEnabled();
    text = m_comments.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text)
{
    assertWriteEnabled();
    m_comments = text ? text : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::pathName(const ACHAR*& path) const
{
    assertReadEnabled();
    path = m_path.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setPathName(const ACHAR* path)
{
    assertWriteEnabled();
    m_path = path ? path : L"";
    return Acad::eOk;
}
bool AcDbBlockTableRecord::isLayout() const { return isModelSpace() || isPaperSpace(); }
AcDbObjectId AcDbBlockTableRecord::getLayoutId() const { return m_layout; }
Acad::ErrorStatus AcDbBlockTableRecord::setLayoutId(AcDbObjectId layoutId)
{
    assertWriteEnabled();
    m_layout = layoutId;
    return Acad::eOk;
}
bool AcDbBlockTableRecord::isAnonymous() const { return (m_flags & 1) != 0 || (!name().empty() && name()[0] == L'*' && !isLayout()); }
bool AcDbBlockTableRecord::isFromExternalReference() const { return (m_flags & 4) != 0; }
bool AcDbBlockTableRecord::isFromOverlayReference() const { return (m_flags & 8) != 0; }
AcDbDatabase* AcDbBlockTableRecord::xrefDatabase(bool) const { return nullptr; }
int AcDbBlockTableRecord::blockFlags() const { return m_flags; }
void AcDbBlockTableRecord::setBlockFlags(int flags) { m_flags = flags; }
bool AcDbBlockTableRecord::isModelSpace() const
{
    return name().size() == 12 && startsWithNoCase(name(), L"*MODEL_SPACE");
}
bool AcDbBlockTableRecord::isPaperSpace() const { return startsWithNoCase(name(), L"*PAPER_SPACE"); }

void AcDbBlockTableRecord::getOwnedIds(AcDbObjectIdArray& owned) const
{
    AcDbSymbolTableRecord::getOwnedIds(owned);
    owned.append(m_entities);
}

Acad::ErrorStatus AcDbBlockTableRecord::getSortentsTable(AcDbSortentsTable*& sortents, AcDb::OpenMode mode,
                                                         bool createIfNecessary)
{
    sortents = nullptr;
    AcDbDatabase* db = database();
    if (!db)
        return Acad::eNoDatabase;
    AcDbObjectId dictId = extensionDictionary();
    AcDbObjectId tableId;
    if (!dictId.isNull() && dictId.isValid() && !dictId.isErased()) {
        AcDbPeek peek(dictId);
        if (const AcDbDictionary* dict = peek.as<AcDbDictionary>())
            dict->getAt(L"ACAD_SORTENTS", tableId);
    }
    if (tableId.isNull()) {
        if (!createIfNecessary)
            return Acad::eKeyNotFound;
        const bool upgraded = !isWriteEnabled() && upgradeOpen() == Acad::eOk;
        if (!isWriteEnabled())
            return Acad::eNotOpenForWrite;
        Acad::ErrorStatus es = Acad::eOk;
        if (dictId.isNull() || !dictId.isValid() || dictId.isErased()) {
            setExtensionDictionaryAsRead(AcDbObjectId());
            es = createExtensionDictionary();
            dictId = extensionDictionary();
        }
        if (es == Acad::eOk) {
            AcDbDictionary* dict = nullptr;
            es = acdbOpenObject(dict, dictId, AcDb::kForWrite);
            if (es == Acad::eOk) {
                auto* table = new AcDbSortentsTable();
                table->setBlockId(objectId());
                es = dict->setAt(L"ACAD_SORTENTS", table, tableId);
                if (es == Acad::eOk)
                    table->close();
                else
                    delete table;
                dict->close();
            }
        }
        if (upgraded)
            downgradeOpen();
        if (es != Acad::eOk)
            return es;
    }
    return acdbOpenObject(sortents, tableId, mode);
}

Acad::ErrorStatus AcDbBlockTableRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writePoint3d(m_origin);
    f->writeString(m_comments.c_str());
    f->writeString(m_path.c_str());
    f->writeSoftPointerId(m_layout);
    f->writeInt32(m_flags);
    f->writeInt32(m_insertUnits);
    f->writeBool(m_explodable);
    f->writeBool(m_scaleUniformly);
    f->writeAcDbHandle(m_beginHandle);
    f->writeAcDbHandle(m_endHandle);
    f->writeString(m_beginLayer.c_str());
    f->writeInt32(m_entities.length());
    for (const AcDbObjectId& id : m_entities)
        f->writeHardOwnershipId(id);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbBlockTableRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    AcDbSoftPointerId layout;
    Adesk::Int32 flags = 0, units = 0, n = 0;
    f->readPoint3d(&m_origin);
    f->readString(m_comments);
    f->readString(m_path);
    f->readSoftPointerId(&layout);
    f->readInt32(&flags);
    f->readInt32(&units);
    f->readBool(&m_explodable);
    f->readBool(&m_scaleUniformly);
    f->readAcDbHandle(&m_beginHandle);
    f->readAcDbHandle(&m_endHandle);
    f->readString(m_beginLayer);
    f->readInt32(&n);
    AcDbObjectIdArray ids;
    for (Adesk::Int32 i = 0; i < n && f->filerStatus() == Acad::eOk; ++i) {
        AcDbHardOwnershipId id;
        f->readHardOwnershipId(&id);
        if (!id.isNull())
            ids.append(id);
    }
    if (f->filerStatus() != Acad::eOk)
        return f->filerStatus();
    m_layout = layout;
    m_flags = flags;
    m_insertUnits = units;
    m_entities = ids;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbBlockTableRecord"));
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeObjectId(AcDb::kDxfHardPointerId, m_layout);
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(m_insertUnits));
    f->writeInt8(AcDb::kDxfInt8, m_explodable ? 1 : 0);
    f->writeInt8(AcDb::kDxfRenderMode, m_scaleUniformly ? 1 : 0);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbBlockTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbBlockTableRecord"));
    resbuf rb;
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        switch (rb.restype) {
        case AcDb::kDxfSymbolTableName: setName(rb.resval.rstring); break;
        case AcDb::kDxfHardPointerId: {
            AcDbObjectId id;
            acdbGetObjectId(id, rb.resval.rlname);
            m_layout = id;
            break;
        }
        case AcDb::kDxfInt16: m_insertUnits = rb.resval.rint; break;
        case AcDb::kDxfInt8: m_explodable = rb.resval.rint != 0; break;
        case AcDb::kDxfRenderMode: m_scaleUniformly = rb.resval.rint != 0; break;
        case AcDb::kDxfSubclass: f->pushBackItem(); return f->filerStatus();
        default: break;
        }
    }
    return f->filerStatus();
}

// Iterator --------------------------------------------------------------------------------

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(const AcDbObjectIdArray& ids, bool) : m_cursor(ids) {}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) { m_cursor.start(atBeginning, skipDeleted); }
bool AcDbBlockTableRecordIterator::done() const { return m_cursor.done(); }
void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) { m_cursor.step(forward, skipDeleted); }
Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const { return m_cursor.id(id); }
Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(AcDbObjectId id) { return m_cursor.seek(id); }

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const
{
    entity = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = m_cursor.id(id);
    return es != Acad::eOk ? es : acdbOpenObject(entity, id, mode, openErased);
}
