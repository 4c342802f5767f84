// Dictionaries: ordered, case-insensitive keys owning their objects.
#include "host/win/CaseFold.h"
#include "host/db/AcDbDictionary.h"

#include <cwchar>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbUndoManager.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, 0, 0, 0, DICTIONARY, ACAD)

namespace {

bool sameKey(const std::wstring& a, const ACHAR* b)
{
    if (!b)
        return false;
    size_t i = 0;
    for (; i < a.size() && b[i]; ++i)
        if (svwin::ToUpperChar(a[i]) != svwin::ToUpperChar(b[i]))
            return false;
    return i == a.size() && b[i] == 0;
}

}  // namespace

AcDbDictionary::AcDbDictionary() = default;

AcDbDictionary::~AcDbDictionary() = default;

int AcDbDictionary::find(const ACHAR* key) const
{
    for (size_t i = 0; i < m_entries.size(); ++i)
        if (sameKey(m_entries[i].key, key) && !m_entries[i].id.isErased())
            return static_cast<int>(i);
    return -1;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObject*& obj, AcDb::OpenMode mode) const
{
    obj = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = getAt(key, id);
    return es != Acad::eOk ? es : acdbOpenAcDbObject(obj, id, mode);
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObjectId& id) const
{
    const int i = find(key);
    if (i < 0) {
        id.setNull();
        return Acad::eKeyNotFound;
    }
    id = m_entries[static_cast<size_t>(i)].id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId objId, ACHAR*& name) const
{
    std::wstring s;
    const Acad::ErrorStatus es = nameAt(objId, s);
    name = es == Acad::eOk ? acutNewString(s.c_str()) : nullptr;
    return es;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId objId, std::wstring& name) const
{
    for (const Entry& e : m_entries)
        if (e.id == objId) {
            name = e.key;
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::has(const ACHAR* key) const { return find(key) >= 0; }

bool AcDbDictionary::has(AcDbObjectId objId) const
{
    for (const Entry& e : m_entries)
        if (e.id == objId)
            return true;
    return false;
}

Adesk::UInt32 AcDbDictionary::numEntries() const
{
    Adesk::UInt32 n = 0;
    for (const Entry& e : m_entries)
        if (!e.id.isErased())
            ++n;
    return n;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* key, AcDbObject* value, AcDbObjectId& retId)
{
    if (!key || !*key || !value)
        return Acad::eInvalidInput;
    AcDbDatabase* db = database();
    if (!db)
        return Acad::eNoDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const int i = find(key);
    // A new key only grows the list: undo needs that id, not a snapshot of every entry.
    assertWriteEnabled(i >= 0, true);
    if (!value->isDatabaseResident()) {
        const Acad::ErrorStatus es = db->addAcDbObject(retId, value);
        if (es != Acad::eOk)
            return es;
    } else {
        retId = value->objectId();
    }
    AcDbObjectAccess::setOwnerRaw(value, objectId());
    if (i >= 0) {
        Entry& e = m_entries[static_cast<size_t>(i)];
        if (e.id != retId) {
            AcDbObject* old = nullptr;
            if (acdbOpenAcDbObject(old, e.id, AcDb::kForWrite) == Acad::eOk) {
                old->erase();
                old->close();
            }
        }
        e.id = retId;
    } else {
        m_entries.push_back({key, retId});
        db->undoManager()->recordOwnerAdd(objectId(), retId);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAtAsRead(const ACHAR* key, AcDbObjectId objId)
{
    if (!key)
        return Acad::eInvalidInput;
    for (Entry& e : m_entries)
        if (sameKey(e.key, key)) {
            e.id = objId;
            return Acad::eOk;
        }
    m_entries.push_back({key, objId});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key)
{
    AcDbObjectId id;
    return remove(key, id);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key, AcDbObjectId& returnId)
{
    const int i = find(key);
    if (i < 0)
        return Acad::eKeyNotFound;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    returnId = m_entries[static_cast<size_t>(i)].id;
    m_entries.erase(m_entries.begin() + i);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId objId)
{
    for (size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].id == objId) {
            if (!isWriteEnabled())
                return Acad::eNotOpenForWrite;
            assertWriteEnabled();
            m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(i));
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName)
{
    const int i = find(oldName);
    if (i < 0 || !newName || !*newName || (find(newName) >= 0 && find(newName) != i))
        return false;
    assertWriteEnabled();
    m_entries[static_cast<size_t>(i)].key = newName;
    return true;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const
{
    assertReadEnabled();
    std::vector<Entry> live;
    for (const Entry& e : m_entries)
        if (!e.id.isErased())
            live.push_back(e);
    return new AcDbDictionaryIterator(std::move(live));
}

bool AcDbDictionary::isTreatElementsAsHard() const { return m_hard; }
void AcDbDictionary::setTreatElementsAsHard(bool doIt) { assertWriteEnabled(); m_hard = doIt; }
AcDb::DuplicateRecordCloning AcDbDictionary::mergeStyle() const { return m_mergeStyle; }
void AcDbDictionary::setMergeStyle(AcDb::DuplicateRecordCloning s) { assertWriteEnabled(); m_mergeStyle = s; }

void AcDbDictionary::getOwnedIds(AcDbObjectIdArray& owned) const
{
    AcDbObject::getOwnedIds(owned);
    for (const Entry& e : m_entries)
        owned.append(e.id);
}

Acad::ErrorStatus AcDbDictionary::subErase(Adesk::Boolean erasing)
{
    // A dictionary takes its entries along: they cannot live without their owner.
    for (const Entry& e : m_entries) {
        AcDbObject* obj = nullptr;
        if (acdbOpenAcDbObject(obj, e.id, AcDb::kForWrite, true) == Acad::eOk) {
            obj->erase(erasing);
            obj->close();
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeBool(m_hard);
    f->writeInt16(static_cast<Adesk::Int16>(m_mergeStyle));
    f->writeInt32(static_cast<Adesk::Int32>(m_entries.size()));
    for (const Entry& e : m_entries) {
        f->writeString(e.key.c_str());
        f->writeHardOwnershipId(e.id);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::Int16 merge = 1;
    Adesk::Int32 n = 0;
    f->readBool(&m_hard);
    f->readInt16(&merge);
    f->readInt32(&n);
    std::vector<Entry> entries;
    for (Adesk::Int32 i = 0; i < n && f->filerStatus() == Acad::eOk; ++i) {
        Entry e;
        AcDbHardOwnershipId id;
        f->readString(e.key);
        f->readHardOwnershipId(&id);
        e.id = id;
        if (!id.isNull())
            entries.push_back(std::move(e));
    }
    if (f->filerStatus() != Acad::eOk)
        return f->filerStatus();
    m_mergeStyle = static_cast<AcDb::DuplicateRecordCloning>(merge);
    m_entries = std::move(entries);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbDictionary"));
    if (m_hard)
        f->writeInt8(AcDb::kDxfInt8, 1);
    f->writeInt8(AcDb::kDxfRenderMode, static_cast<Adesk::Int8>(m_mergeStyle));
    for (const Entry& e : m_entries) {
        if (e.id.isErased() || !e.id.isValid())
            continue;
        f->writeString(AcDb::kDxfAttributePrompt, e.key.c_str());
        f->writeObjectId(m_hard ? AcDb::kDxfHardOwnershipId : AcDb::kDxfSoftOwnershipId, e.id);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbDictionary"));
    resbuf rb;
    std::wstring key;
    m_entries.clear();
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        switch (rb.restype) {
        case AcDb::kDxfInt8: m_hard = rb.resval.rint != 0; break;
        case AcDb::kDxfRenderMode: m_mergeStyle = static_cast<AcDb::DuplicateRecordCloning>(rb.resval.rint); break;
        case AcDb::kDxfAttributePrompt: key = rb.resval.rstring ? rb.resval.rstring : L""; break;
        case AcDb::kDxfSoftOwnershipId:
        case AcDb::kDxfHardOwnershipId: {
            AcDbObjectId id;
            acdbGetObjectId(id, rb.resval.rlname);
            if (!id.isNull())
                m_entries.push_back({key, id});
            if (rb.restype == AcDb::kDxfHardOwnershipId)
                m_hard = true;
            break;
        }
        case AcDb::kDxfSubclass: f->pushBackItem(); return f->filerStatus();
        default: break;
        }
    }
    return f->filerStatus();
}

// Iterator --------------------------------------------------------------------------------

AcDbDictionaryIterator::AcDbDictionaryIterator(std::vector<AcDbDictionary::Entry> entries)
    : m_entries(std::move(entries))
{
}

const ACHAR* AcDbDictionaryIterator::name() const { return done() ? nullptr : m_entries[m_pos].key.c_str(); }
AcDbObjectId AcDbDictionaryIterator::objectId() const { return done() ? AcDbObjectId() : m_entries[m_pos].id; }
bool AcDbDictionaryIterator::done() const { return m_pos >= m_entries.size(); }
bool AcDbDictionaryIterator::next()
{
    if (!done())
        ++m_pos;
    return !done();
}
Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& obj, AcDb::OpenMode mode)
{
    obj = nullptr;
    if (done())
        return Acad::eIteratorDone;
    return acdbOpenAcDbObject(obj, m_entries[m_pos].id, mode);
}
