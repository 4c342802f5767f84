// Symbol tables: case-insensitive names, ordered records, iterators.
#include "host/win/CaseFold.h"
#include "host/db/AcDbSymbolTable.h"

#include <cwchar>
#include <unordered_map>
#include <unordered_set>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)

namespace {

std::wstring fold(const std::wstring& name)
{
    std::wstring k = name;
    for (auto& c : k)
        c = static_cast<wchar_t>(svwin::ToUpperChar(c));
    return k;
}

// Names are looked up by view, so that a lookup (one per entity read, for its layer) makes
// no string.
struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view s) const noexcept { return std::hash<std::wstring_view>()(s); }
};

// The folded form of a name, on the stack when it is short.
class FoldedName {
public:
    explicit FoldedName(const ACHAR* name)
    {
        const std::size_t n = std::wcslen(name);
        wchar_t* out = m_small;
        if (n > kSmall) {
            m_large.resize(n);
            out = m_large.data();
        }
        for (std::size_t i = 0; i < n; ++i)
            out[i] = static_cast<wchar_t>(svwin::ToUpperChar(name[i]));
        m_view = std::wstring_view(out, n);
    }
    FoldedName(const FoldedName&) = delete;
    FoldedName& operator=(const FoldedName&) = delete;
    std::wstring_view view() const { return m_view; }

private:
    static constexpr std::size_t kSmall = 64;
    wchar_t m_small[kSmall];
    std::wstring m_large;
    std::wstring_view m_view;
};

}  // namespace

struct AcDbSymbolTable::Index {
    std::unordered_map<std::wstring, AcDbObjectId, NameHash, std::equal_to<>> byName;
    // The same ids as m_records, for membership tests that don't walk a table of thousands of
    // anonymous blocks.
    std::unordered_set<AcDbObjectId> members;
};

AcDbSymbolTable::AcDbSymbolTable() : m_index(std::make_unique<Index>()) {}

AcDbSymbolTable::~AcDbSymbolTable() = default;

AcRxClass* AcDbSymbolTable::recordClass() const
{
    return AcDbSymbolTableRecord::desc();
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& recordId, bool getErased) const
{
    recordId.setNull();
    if (!name)
        return Acad::eInvalidInput;
    const auto it = m_index->byName.find(FoldedName(name).view());
    if (it != m_index->byName.end() && (getErased || !it->second.isErased())) {
        recordId = it->second;
        return Acad::eOk;
    }
    if (getErased)
        return Acad::eKeyNotFound;
    // An erased record may share its name with a live one added later.
    for (const AcDbObjectId& id : m_records) {
        if (id.isErased())
            continue;
        AcDbPeek peek(id);
        const AcDbSymbolTableRecord* rec = peek.as<AcDbSymbolTableRecord>();
        if (rec && fold(rec->name()) == fold(name)) {
            recordId = id;
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                         AcDb::OpenMode mode, bool openErased) const
{
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = getAt(name, id, openErased);
    if (es != Acad::eOk)
        return es;
    return acdbOpenObject(record, id, mode, openErased);
}

bool AcDbSymbolTable::has(const ACHAR* name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    return m_index->members.contains(id) && !id.isErased();
}

int AcDbSymbolTable::numRecords(bool countErased) const
{
    int n = 0;
    for (const AcDbObjectId& id : m_records)
        if (countErased || !id.isErased())
            ++n;
    return n;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record)
{
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& recordId, AcDbSymbolTableRecord* record)
{
    if (!record)
        return Acad::eNullObjectPointer;
    if (record->isDatabaseResident())
        return Acad::eAlreadyInDb;
    if (!record->isKindOf(recordClass()))
        return Acad::eWrongObjectType;
    if (!AcDbSymbolTableRecord::isValidName(record->name().c_str()))
        return Acad::eInvalidSymbolTableName;
    if (has(record->name().c_str()))
        return Acad::eDuplicateRecordName;
    AcDbDatabase* db = database();
    if (!db)
        return Acad::eNoDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    const Acad::ErrorStatus es = db->addAcDbObject(recordId, record);
    if (es != Acad::eOk)
        return es;
    AcDbObjectAccess::setOwnerRaw(record, objectId());
    m_records.append(recordId);
    m_index->members.insert(recordId);
    m_index->byName[fold(record->name())] = recordId;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::addAsRead(AcDbObjectId recordId)
{
    AcDbPeek peek(recordId);
    const AcDbSymbolTableRecord* rec = peek.as<AcDbSymbolTableRecord>();
    if (!rec)
        return Acad::eWrongObjectType;
    if (m_index->members.insert(recordId).second)
        m_records.append(recordId);
    m_index->byName[fold(rec->name())] = recordId;
    AcDbObjectAccess::setOwnerRaw(peek.get(), objectId());
    return Acad::eOk;
}

void AcDbSymbolTable::recordRenamed(AcDbObjectId recordId, const std::wstring& oldName, const std::wstring& newName)
{
    const auto it = m_index->byName.find(fold(oldName));
    if (it != m_index->byName.end() && it->second == recordId)
        m_index->byName.erase(it);
    m_index->byName[fold(newName)] = recordId;
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const
{
    assertReadEnabled();
    iterator = new AcDbSymbolTableIterator(this, skipDeleted);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

void AcDbSymbolTable::getOwnedIds(AcDbObjectIdArray& owned) const
{
    AcDbObject::getOwnedIds(owned);
    owned.append(m_records);
}

Acad::ErrorStatus AcDbSymbolTable::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeInt32(m_records.length());
    for (const AcDbObjectId& id : m_records)
        f->writeSoftOwnershipId(id);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTable::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::Int32 n = 0;
    f->readInt32(&n);
    AcDbObjectIdArray ids;
    for (Adesk::Int32 i = 0; i < n && f->filerStatus() == Acad::eOk; ++i) {
        AcDbSoftOwnershipId id;
        f->readSoftOwnershipId(&id);
        if (!id.isNull())
            ids.append(id);
    }
    if (f->filerStatus() != Acad::eOk)
        return f->filerStatus();
    m_records = ids;
    m_index->members = std::unordered_set<AcDbObjectId>(m_records.begin(), m_records.end());
    m_index->byName.clear();
    for (const AcDbObjectId& id : m_records) {
        AcDbPeek peek(id);
        if (const AcDbSymbolTableRecord* rec = peek.as<AcDbSymbolTableRecord>())
            m_index->byName[fold(rec->name())] = id;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbSymbolTable"));
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(numRecords()));
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTable::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbSymbolTable"));
    return f->skipToNextSubclass();
}

// Records ---------------------------------------------------------------------------------

AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;

AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;

bool AcDbSymbolTableRecord::isValidName(const ACHAR* text)
{
    if (!text || !*text)
        return false;
    for (const ACHAR* p = text; *p; ++p)
        if (std::wcschr(L"<>/\\\":;?*|,=`", *p) && !(p == text && *p == L'*'))
            return false;
    return true;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const
{
    assertReadEnabled();
    name = acutNewString(m_name.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const
{
    assertReadEnabled();
    name = m_name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name)
{
    if (!isValidName(name))
        return Acad::eInvalidSymbolTableName;
    AcDbPeek owner(ownerId());
    AcDbSymbolTable* table = owner.as<AcDbSymbolTable>();
    if (table) {
        AcDbObjectId other;
        if (table->getAt(name, other) == Acad::eOk && other != objectId())
            return Acad::eDuplicateRecordName;
    }
    assertWriteEnabled();
    const std::wstring old = m_name;
    m_name = name;
    if (table)
        table->recordRenamed(objectId(), old, m_name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeString(m_name.c_str());
    f->writeInt32(m_flags);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTableRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    std::wstring name;
    Adesk::Int32 flags = 0;
    f->readString(name);
    f->readInt32(&flags);
    if (f->filerStatus() != Acad::eOk)
        return f->filerStatus();
    if (name != m_name) {
        AcDbPeek owner(ownerId());
        if (AcDbSymbolTable* table = owner.as<AcDbSymbolTable>())
            table->recordRenamed(objectId(), m_name, name);
        m_name = name;
    }
    m_flags = flags;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbSymbolTableRecord"));
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbSymbolTableRecord"));
    return f->skipToNextSubclass();
}

// Iterators -------------------------------------------------------------------------------

AcDbSymbolTableIterator::AcDbSymbolTableIterator(const AcDbSymbolTable* table, bool)
    : m_cursor(table->recordIds())
{
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) { m_cursor.start(atBeginning, skipDeleted); }
bool AcDbSymbolTableIterator::done() const { return m_cursor.done(); }
void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) { m_cursor.step(forward, skipDeleted); }
Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const { return m_cursor.id(id); }
Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id) { return m_cursor.seek(id); }

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErased) const
{
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = m_cursor.id(id);
    return es != Acad::eOk ? es : acdbOpenObject(record, id, mode, openErased);
}
