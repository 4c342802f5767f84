// AcDbIdMapping: the source-to-clone id pairs of a deep clone.
#pragma once

#include <map>

#include "host/db/AcDb.h"
#include "host/db/AcDbObjectId.h"
#include "host/rx/AcadStrc.h"

class AcDbIdPair {
public:
    AcDbIdPair() = default;
    AcDbIdPair(AcDbObjectId key, AcDbObjectId value, bool isCloned, bool isPrimary = false,
               bool isOwnerXlated = true)
        : m_key(key), m_value(value), m_cloned(isCloned), m_primary(isPrimary),
          m_ownerXlated(isOwnerXlated) {}

    AcDbObjectId key() const { return m_key; }
    AcDbObjectId value() const { return m_value; }
    bool isCloned() const { return m_cloned; }
    bool isPrimary() const { return m_primary; }
    bool isOwnerXlated() const { return m_ownerXlated; }
    void setKey(AcDbObjectId id) { m_key = id; }
    void setValue(AcDbObjectId id) { m_value = id; }
    void setIsCloned(bool v) { m_cloned = v; }
    void setIsPrimary(bool v) { m_primary = v; }
    void setIsOwnerXlated(bool v) { m_ownerXlated = v; }

private:
    AcDbObjectId m_key;
    AcDbObjectId m_value;
    bool m_cloned = false;
    bool m_primary = false;
    bool m_ownerXlated = true;
};

class AcDbIdMappingIter;

class AcDbIdMapping {
public:
    AcDbIdMapping() = default;

    // Adds or replaces the pair of that key.
    Acad::ErrorStatus assign(const AcDbIdPair& pair);
    // Fills pair.value (and flags) for pair.key; false when the key is not mapped.
    bool compute(AcDbIdPair& pair) const;
    bool change(const AcDbIdPair& pair);
    bool del(AcDbObjectId key);
    // The mapped id, or null.
    AcDbObjectId lookup(AcDbObjectId key) const;

    Acad::ErrorStatus destDb(AcDbDatabase*& db) const { db = m_dest; return Acad::eOk; }
    Acad::ErrorStatus setDestDb(AcDbDatabase* db) { m_dest = db; return Acad::eOk; }
    Acad::ErrorStatus origDb(AcDbDatabase*& db) const { db = m_orig; return Acad::eOk; }
    void setOrigDb(AcDbDatabase* db) { m_orig = db; }
    AcDb::DeepCloneType deepCloneContext() const { return m_context; }
    void setDeepCloneContext(AcDb::DeepCloneType ctx) { m_context = ctx; }
    AcDb::DuplicateRecordCloning duplicateRecordCloning() const { return m_drc; }
    void setDuplicateRecordCloning(AcDb::DuplicateRecordCloning drc) { m_drc = drc; }

    const std::map<AcDbObjectId, AcDbIdPair>& pairs() const { return m_pairs; }

private:
    std::map<AcDbObjectId, AcDbIdPair> m_pairs;
    AcDbDatabase* m_dest = nullptr;
    AcDbDatabase* m_orig = nullptr;
    AcDb::DeepCloneType m_context = AcDb::kDcCopy;
    AcDb::DuplicateRecordCloning m_drc = AcDb::kDrcIgnore;
};

class AcDbIdMappingIter {
public:
    explicit AcDbIdMappingIter(const AcDbIdMapping& map) : m_map(&map), m_it(map.pairs().begin()) {}
    void start() { m_it = m_map->pairs().begin(); }
    bool done() const { return m_it == m_map->pairs().end(); }
    bool next() { ++m_it; return !done(); }
    bool getMap(AcDbIdPair& pair) const
    {
        if (done())
            return false;
        pair = m_it->second;
        return true;
    }

private:
    const AcDbIdMapping* m_map;
    std::map<AcDbObjectId, AcDbIdPair>::const_iterator m_it;
};
