// Undo groups: recording object snapshots, appends, erases and header changes, and replay.
#include "host/db/AcDbUndoManager.h"

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbObjectAccess.h"

struct AcDbUndoManager::Record {
    enum Kind { kSnapshot, kAppend, kErase, kHeader, kPartial } kind;
    AcDbObjectId id;
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
    m_implicit = std::make_unique<Group>();
    m_implicit->seedAtStart = m_db->handseed();
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

AcDbUndoManager::Group& AcDbUndoManager::current()
{
    if (!m_implicit) {
        m_implicit = std::make_unique<Group>();
        m_implicit->seedAtStart = m_db->handseed();
    }
    return *m_implicit;
}

void AcDbUndoManager::recordSnapshot(const AcDbObject* obj)
{
    if (!recording())
        return;
    AcDbBinaryFiler filer(AcDb::kUndoFiler, m_db);
    obj->dwgOutFields(&filer);
    Record r{Record::kSnapshot, obj->objectId(), filer.bytes(), false, nullptr, AcDbHandle(), nullptr, nullptr};
    current().records.push_back(std::move(r));
}

void AcDbUndoManager::recordAppend(AcDbObjectId id)
{
    if (!recording())
        return;
    current().records.push_back(Record{Record::kAppend, id, {}, false, nullptr, AcDbHandle(), nullptr, nullptr});
}

void AcDbUndoManager::recordErase(AcDbObjectId id, bool erasing)
{
    if (!recording())
        return;
    current().records.push_back(Record{Record::kErase, id, {}, erasing, nullptr, AcDbHandle(), nullptr, nullptr});
}

void AcDbUndoManager::recordHeader(const AcDbHeaderVars& before, AcDbHandle seed)
{
    if (!recording() || m_headerRecorded)
        return;
    m_headerRecorded = true;
    current().records.push_back(Record{Record::kHeader, AcDbObjectId(), {}, false,
                                       std::make_unique<AcDbHeaderVars>(before), seed, nullptr, nullptr});
}

AcDbBinaryFiler* AcDbUndoManager::recordPartial(const AcDbObject* obj, AcRxClass* classObj)
{
    if (!recording() || !obj)
        return nullptr;
    current().records.push_back(Record{Record::kPartial, obj->objectId(), {}, false, nullptr, AcDbHandle(),
                                       classObj, std::make_unique<AcDbBinaryFiler>(AcDb::kUndoFiler, m_db)});
    return current().records.back().partial.get();
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
