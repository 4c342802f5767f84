// Undo groups: recording object snapshots, appends, erases and header changes, and replay.
#include "host/db/AcDbUndoManager.h"

#include <iterator>

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbObjectAccess.h"

struct AcDbUndoManager::Record {
    enum Kind { kSnapshot, kAppend, kOwnerAdd, kErase, kHeader, kPartial } kind = kSnapshot;
    AcDbObjectId id;
    AcDbObjectId owner;
    std::vector<Adesk::UInt8> bytes;
    bool erasing = false;
    std::unique_ptr<AcDbHeaderVars> header;
    AcDbHandle seed;
    AcRxClass* cls = nullptr;
    std::unique_ptr<AcDbBinaryFiler> partial;
};

struct AcDbUndoManager::Group {
    std::vector<Record> records;
    AcDbHandle seedAtStart;
    unsigned long long unrecordedAtStart = 0;
};

AcDbUndoManager::AcDbUndoManager(AcDbDatabase* db) : m_db(db) {}

AcDbUndoManager::~AcDbUndoManager() = default;

int AcDbUndoManager::groupCount() const
{
    return static_cast<int>(m_groups.size()) + (m_implicit && !m_implicit->records.empty() ? 1 : 0);
}

void AcDbUndoManager::clear()
{
    m_groups.clear();
    m_implicit.reset();
    m_depth = 0;
    ++m_serial;
    m_headerRecorded = false;
}

void AcDbUndoManager::startGroup()
{
    if (m_depth++ > 0)
        return;
    if (m_implicit && !m_implicit->records.empty())
        m_groups.push_back(std::move(m_implicit));
    m_implicit = newGroup();
    ++m_serial;
    m_headerRecorded = false;
}

void AcDbUndoManager::endGroup()
{
    if (m_depth == 0 || --m_depth > 0)
        return;
    if (m_implicit && !m_implicit->records.empty())
        m_groups.push_back(std::move(m_implicit));
    m_implicit.reset();
    ++m_serial;
    m_headerRecorded = false;
}

std::unique_ptr<AcDbUndoManager::Group> AcDbUndoManager::newGroup() const
{
    auto group = std::make_unique<Group>();
    group->seedAtStart = m_db->handseed();
    group->unrecordedAtStart = m_unrecordedAdds;
    return group;
}

void AcDbUndoManager::noteAdd()
{
    if (!recording())
        ++m_unrecordedAdds;
}

AcDbUndoManager::Group& AcDbUndoManager::current()
{
    if (!m_implicit)
        m_implicit = newGroup();
    return *m_implicit;
}

AcDbUndoManager::Record& AcDbUndoManager::push(int kind, AcDbObjectId id)
{
    current().records.emplace_back();
    Record& r = current().records.back();
    r.kind = static_cast<Record::Kind>(kind);
    r.id = id;
    return r;
}

void AcDbUndoManager::recordSnapshot(const AcDbObject* obj)
{
    if (!recording())
        return;
    AcDbBinaryFiler filer(AcDb::kUndoFiler, m_db);
    obj->dwgOutFields(&filer);
    push(Record::kSnapshot, obj->objectId()).bytes = filer.bytes();
}

void AcDbUndoManager::recordAppend(AcDbObjectId id)
{
    if (recording())
        push(Record::kAppend, id);
}

void AcDbUndoManager::recordOwnerAdd(AcDbObjectId owner, AcDbObjectId id)
{
    if (recording())
        push(Record::kOwnerAdd, id).owner = owner;
}

void AcDbUndoManager::recordErase(AcDbObjectId id, bool erasing)
{
    if (recording())
        push(Record::kErase, id).erasing = erasing;
}

void AcDbUndoManager::recordHeader(const AcDbHeaderVars& before, AcDbHandle seed)
{
    if (!recording() || m_headerRecorded)
        return;
    m_headerRecorded = true;
    Record& r = push(Record::kHeader, AcDbObjectId());
    r.header = std::make_unique<AcDbHeaderVars>(before);
    r.seed = seed;
}

AcDbBinaryFiler* AcDbUndoManager::recordPartial(const AcDbObject* obj, AcRxClass* classObj)
{
    if (!recording() || !obj)
        return nullptr;
    Record& r = push(Record::kPartial, obj->objectId());
    r.cls = classObj;
    r.partial = std::make_unique<AcDbBinaryFiler>(AcDb::kUndoFiler, m_db);
    return r.partial.get();
}

Acad::ErrorStatus AcDbUndoManager::undo(int groups)
{
    if (m_undoing)
        return Acad::eUndoOperationNotAvailable;
    if (m_implicit && !m_implicit->records.empty())
        m_groups.push_back(std::move(m_implicit));
    m_implicit.reset();
    m_depth = 0;
    if (m_groups.empty())
        return Acad::eUndoNoGroupBegin;
    m_undoing = true;
    for (int g = 0; g < groups && !m_groups.empty(); ++g) {
        std::unique_ptr<Group> group = std::move(m_groups.back());
        m_groups.pop_back();
        for (auto it = group->records.rbegin(); it != group->records.rend(); ++it) {
            Record& r = *it;
            AcDbObject* obj = r.id.isValid() ? r.id.stub()->object : nullptr;
            switch (r.kind) {
            case Record::kSnapshot:
                if (obj)
                    AcDbUndoAccess::restore(obj, r.bytes);
                break;
            case Record::kPartial:
                if (obj) {
                    r.partial->rewind();
                    AcDbUndoAccess::partial(obj, *r.partial, r.cls);
                }
                break;
            case Record::kOwnerAdd:
                if (AcDbObject* owner = r.owner.isValid() ? r.owner.stub()->object : nullptr)
                    AcDbUndoAccess::takeOut(owner, r.id);
                break;
            case Record::kErase:
                if (obj)
                    AcDbUndoAccess::toggleErase(obj, !r.erasing);
                break;
            case Record::kAppend:
                if (obj) {
                    for (AcDbDatabaseReactor* re : std::vector<AcDbDatabaseReactor*>(m_db->reactors()))
                        re->objectUnAppended(m_db, obj);
                    m_db->removeObjectPermanently(r.id);
                }
                break;
            case Record::kHeader:
                m_db->impl().header = *r.header;
                m_db->impl().cannoscale.reset();
                break;
            }
        }
        // Every object made since the group began is gone again unless it was made while
        // not recording; only then can a live handle lie above the old seed.
        if (group->unrecordedAtStart == m_unrecordedAdds)
            m_db->impl().seed = group->seedAtStart.value();
        else
            m_db->setHandseed(group->seedAtStart);
    }
    m_undoing = false;
    ++m_serial;
    m_headerRecorded = false;
    return Acad::eOk;
}

// Object side of the replay -----------------------------------------------------------------

void AcDbUndoAccess::restore(AcDbObject* obj, const std::vector<Adesk::UInt8>& bytes)
{
    AcDbBinaryFiler filer(bytes, AcDb::kUndoFiler, obj->database());
    obj->m_opens.push_back(AcDb::kForWrite);
    obj->m_undoing = true;
    obj->dwgInFields(&filer);
    obj->subRestoredByUndo();
    AcDbObjectAccess::sendModified(obj);
    obj->m_undoing = false;
    obj->m_modified = false;
    obj->m_opens.pop_back();
}

void AcDbUndoAccess::partial(AcDbObject* obj, AcDbBinaryFiler& filer, AcRxClass* cls)
{
    obj->m_opens.push_back(AcDb::kForWrite);
    obj->m_undoing = true;
    obj->applyPartialUndo(&filer, cls);
    AcDbObjectAccess::sendModified(obj);
    obj->m_undoing = false;
    obj->m_modified = false;
    obj->m_opens.pop_back();
}

void AcDbUndoAccess::takeOut(AcDbObject* owner, AcDbObjectId id)
{
    owner->m_opens.push_back(AcDb::kForWrite);
    owner->m_undoing = true;
    if (auto* block = AcDbBlockTableRecord::cast(owner))
        block->removeEntityId(id);
    else if (auto* dict = AcDbDictionary::cast(owner)) {
        auto& entries = dict->m_entries;
        for (auto it = entries.rbegin(); it != entries.rend(); ++it)
            if (it->id == id) {
                entries.erase(std::next(it).base());
                break;
            }
    }
    AcDbObjectAccess::sendModified(owner);
    owner->m_undoing = false;
    owner->m_modified = false;
    owner->m_opens.pop_back();
}

void AcDbUndoAccess::toggleErase(AcDbObject* obj, bool erased)
{
    obj->m_opens.push_back(AcDb::kForWrite);
    obj->m_undoing = true;
    obj->m_stub->erased = erased;
    AcDbObjectAccess::sendErased(obj, erased);
    obj->m_undoing = false;
    obj->m_modified = false;
    obj->m_opens.pop_back();
}
