// Symbol tables: named records (layers, styles, blocks...) looked up without regard to case.
#pragma once

#include <memory>
#include <string>

#include "host/db/AcDbIdCursor.h"
#include "host/db/AcDbObject.h"

class AcDbSymbolTableRecord;
class AcDbSymbolTableIterator;

// A table owns its records. Names are unique without regard to case; the table keeps the
// records in the order they were added.
class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);
    AcDbSymbolTable();
    ~AcDbSymbolTable() override;

    // eKeyNotFound when missing; an erased record counts only with getErasedRecord.
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObjectId& recordId,
                            bool getErasedRecord = false) const;
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbSymbolTableRecord*& record,
                            AcDb::OpenMode openMode, bool openErasedRec = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    // Adds a new record (not yet in a database) and makes it resident; the caller closes
    // it. Needs write access. eDuplicateRecordName for a name in use, eInvalidSymbolTableName
    // for an empty or invalid name, eWrongObjectType for a record of another table's class.
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbObjectId& recordId, AcDbSymbolTableRecord* record);
    // Iterates in table order; skipDeleted leaves out erased records.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    // The record ids in table order, erased ones included.
    const AcDbObjectIdArray& recordIds() const { return m_records; }
    int numRecords(bool countErased = false) const;

    // The class of the records this table holds.
    virtual AcRxClass* recordClass() const;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbSymbolTable" and 70 (record count).
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    void getOwnedIds(AcDbObjectIdArray& owned) const override;

    // Used by records when their name changes and by file readers: reindexes the record.
    void recordRenamed(AcDbObjectId recordId, const std::wstring& oldName, const std::wstring& newName);
    // For file readers: adds an already resident record (its name is taken as it is).
    Acad::ErrorStatus addAsRead(AcDbObjectId recordId);

private:
    AcDbObjectIdArray m_records;
    struct Index;
    std::unique_ptr<Index> m_index;  // upper-cased name -> record id
};

// A record: its name and the table flags every record has.
class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);
    AcDbSymbolTableRecord();
    ~AcDbSymbolTableRecord() override;

    // getName(ACHAR*&) allocates with new[]; the caller deletes.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    template <typename StringT>
    Acad::ErrorStatus getName(StringT& name) const
    {
        name = m_name.c_str();
        return Acad::eOk;
    }
    const std::wstring& name() const { return m_name; }
    // Empty names and names with any of <>/\":;?*|,=` are refused (eInvalidSymbolTableName),
    // as is the name of another record of the same table (eDuplicateRecordName).
    Acad::ErrorStatus setName(const ACHAR* name);
    bool isDependent() const { return false; }
    bool isResolved() const { return true; }
    // DXF 70 bits other than the record's own (16 xref-dependent, 32 resolved, 64 referenced).
    int commonFlags() const { return m_flags; }
    void setCommonFlags(int flags) { m_flags = flags; }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbSymbolTableRecord"; the derived class writes its own marker, 2 and 70.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

    // True if text is a valid record name.
    static bool isValidName(const ACHAR* text);

private:
    std::wstring m_name;
    int m_flags = 0;
};

class AcDbSymbolTableIterator {
public:
    virtual ~AcDbSymbolTableIterator() = default;
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                bool openErasedRec = false) const;
    // Moves to the record; eKeyNotFound if it is not in the table.
    Acad::ErrorStatus seek(AcDbObjectId id);

protected:
    friend class AcDbSymbolTable;
    explicit AcDbSymbolTableIterator(const AcDbSymbolTable* table, bool skipDeleted);
    AcDbIdCursor m_cursor;  // over a copy: adding records while iterating is safe
};

// Declares a table class TABLE of records RECORD with its typed getAt and iterator.
#define SV_DECLARE_SYMBOL_TABLE(TABLE, RECORD, ITERATOR)                                         \
    class RECORD;                                                                                \
    class ITERATOR : public AcDbSymbolTableIterator {                                            \
    public:                                                                                      \
        Acad::ErrorStatus getRecord(RECORD*& record, AcDb::OpenMode mode,                        \
                                    bool openErasedRec = false) const;                           \
        using AcDbSymbolTableIterator::getRecord;                                                \
                                                                                                 \
    private:                                                                                     \
        friend class TABLE;                                                                      \
        using AcDbSymbolTableIterator::AcDbSymbolTableIterator;                                  \
    };                                                                                           \
    class TABLE : public AcDbSymbolTable {                                                       \
    public:                                                                                      \
        ACRX_DECLARE_MEMBERS(TABLE);                                                             \
        using AcDbSymbolTable::getAt;                                                            \
        using AcDbSymbolTable::newIterator;                                                      \
        Acad::ErrorStatus getAt(const ACHAR* entryName, RECORD*& record, AcDb::OpenMode openMode, \
                                bool openErasedRec = false) const;                               \
        Acad::ErrorStatus newIterator(ITERATOR*& iterator, bool atBeginning = true,              \
                                      bool skipDeleted = true) const;                            \
        AcRxClass* recordClass() const override;                                                 \
    }
