// AcDbDictionary: named references to objects it owns; the named object dictionary is one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/db/AcDbObject.h"

class AcDbDictionaryIterator;

// Keys are unique without regard to case and kept in the order they were set.
class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary();
    ~AcDbDictionary() override;

    // eKeyNotFound when missing.
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObject*& entryObj, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObjectId& entryId) const;
    // The key of an entry; eKeyNotFound when the id is not in the dictionary.
    Acad::ErrorStatus nameAt(AcDbObjectId objId, ACHAR*& name) const;  // caller deletes[]
    Acad::ErrorStatus nameAt(AcDbObjectId objId, std::wstring& name) const;
    bool has(const ACHAR* entryName) const;
    bool has(AcDbObjectId objId) const;
    Adesk::UInt32 numEntries() const;

    // Sets the entry: a new object is added to the dictionary's database first, owned by
    // the dictionary, and stays open for write for the caller to close; an existing entry
    // of that key is replaced and its object erased. Needs write access.
    Acad::ErrorStatus setAt(const ACHAR* srchKey, AcDbObject* newValue, AcDbObjectId& retObjId);
    // Removes the entry; the object is not erased and gets no owner. eKeyNotFound.
    Acad::ErrorStatus remove(const ACHAR* key);
    Acad::ErrorStatus remove(const ACHAR* key, AcDbObjectId& returnId);
    Acad::ErrorStatus remove(AcDbObjectId objId);
    // False when oldName is missing or newName is in use.
    bool setName(const ACHAR* oldName, const ACHAR* newName);
    AcDbDictionaryIterator* newIterator() const;

    // Hard ownership (DXF 360) instead of soft (350) for the entries.
    bool isTreatElementsAsHard() const;
    void setTreatElementsAsHard(bool doIt);
    // DXF 281 duplicate record cloning.
    AcDb::DuplicateRecordCloning mergeStyle() const;
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    // For file readers: adds an entry for an already resident object, as read.
    Acad::ErrorStatus setAtAsRead(const ACHAR* key, AcDbObjectId objId);

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbDictionary", 280, 281, then 3 key / 350 (or 360) id per entry.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    void getOwnedIds(AcDbObjectIdArray& owned) const override;
    Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

    struct Entry {
        std::wstring key;
        AcDbObjectId id;
    };
    const std::vector<Entry>& entries() const { return m_entries; }

private:
    friend class AcDbUndoAccess;
    int find(const ACHAR* key) const;
    std::vector<Entry> m_entries;
    bool m_hard = false;
    AcDb::DuplicateRecordCloning m_mergeStyle = AcDb::kDrcIgnore;
};

class AcDbDictionaryIterator {
public:
    const ACHAR* name() const;
    Acad::ErrorStatus getObject(AcDbObject*& obj, AcDb::OpenMode mode);
    AcDbObjectId objectId() const;
    bool done() const;
    bool next();

private:
    friend class AcDbDictionary;
    explicit AcDbDictionaryIterator(std::vector<AcDbDictionary::Entry> entries);
    std::vector<AcDbDictionary::Entry> m_entries;  // a snapshot
    size_t m_pos = 0;
};
