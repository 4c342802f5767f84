// The block table: model space, paper space and block definitions, each an ordered entity list.
#pragma once

#include "host/db/AcDbSymbolTable.h"
#include "host/ge/AcGePoint3d.h"

class AcDbBlockTableRecordIterator;
class AcDbEntity;
class AcDbSortentsTable;

#define ACDB_MODEL_SPACE ACRX_T("*Model_Space")
#define ACDB_PAPER_SPACE ACRX_T("*Paper_Space")

SV_DECLARE_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord, AcDbBlockTableIterator);

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord();
    ~AcDbBlockTableRecord() override;

    // Adds the entity (not yet in a database) to the record's database and to the end of
    // the record's list; the entity stays open for write and the caller closes it. Needs
    // write access. eAlreadyInDb for a resident entity, eNoDatabase for a record that is
    // not in one. Fires objectAppended.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    // Entities in block order; skipDeleted leaves out erased ones.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    // Every entity id in block order, erased ones included.
    const AcDbObjectIdArray& entityIds() const { return m_entities; }

    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    Acad::ErrorStatus comments(const ACHAR*& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    Acad::ErrorStatus pathName(const ACHAR*& path) const;
    Acad::ErrorStatus setPathName(const ACHAR* path);
    bool isLayout() const;
    AcDbObjectId getLayoutId() const;
    Acad::ErrorStatus setLayoutId(AcDbObjectId layoutId);
    bool isAnonymous() const;
    bool hasAttributeDefinitions() const { return false; }
    bool isFromExternalReference() const;
    bool isFromOverlayReference() const;
    AcDbDatabase* xrefDatabase(bool incUnres = false) const;
    // DXF BLOCK flags (70): 1 anonymous, 2 attributes, 4 xref, 8 overlay...
    int blockFlags() const;
    void setBlockFlags(int flags);
    // "*Model_Space" or "*Paper_Space*..." (case-insensitive).
    bool isModelSpace() const;
    bool isPaperSpace() const;

    // The draw order table of this block, in the record's extension dictionary under
    // "ACAD_SORTENTS". createIfNecessary makes it (the record must be open for write then,
    // or is upgraded for the moment). The caller closes the table.
    Acad::ErrorStatus getSortentsTable(AcDbSortentsTable*& sortents, AcDb::OpenMode openMode,
                                       bool createIfNecessary = false);

    // Handles of the BLOCK and ENDBLK entities the file layer writes around the entities.
    AcDbHandle blockBeginHandle() const { return m_beginHandle; }
    AcDbHandle blockEndHandle() const { return m_endHandle; }
    void setBlockBeginHandle(AcDbHandle h) { m_beginHandle = h; }
    void setBlockEndHandle(AcDbHandle h) { m_endHandle = h; }
    // Layer, description and kept groups of the BLOCK entity as read, for writing it back.
    const std::wstring& blockBeginLayer() const { return m_beginLayer; }
    void setBlockBeginLayer(const std::wstring& layer) { m_beginLayer = layer; }

    // For file readers: adds a resident entity (read from the file) at the end, no events.
    Acad::ErrorStatus appendAsRead(AcDbObjectId entityId);
    // Takes the entity out of the list (undo of an append, or a permanent erase).
    void removeEntityId(AcDbObjectId entityId);

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbBlockTableRecord", 2, 340 layout, 70 insert units, 280, 281. The BLOCK and
    // ENDBLK entities and the entities are the file layer's.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    void getOwnedIds(AcDbObjectIdArray& owned) const override;

private:
    AcDbObjectIdArray m_entities;
    AcGePoint3d m_origin;
    std::wstring m_comments;
    std::wstring m_path;
    AcDbObjectId m_layout;
    int m_flags = 0;
    int m_insertUnits = 0;
    bool m_explodable = true;
    bool m_scaleUniformly = false;
    AcDbHandle m_beginHandle;
    AcDbHandle m_endHandle;
    std::wstring m_beginLayer = L"0";
};

class AcDbBlockTableRecordIterator {
public:
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode, bool openErasedEntity = false) const;
    Acad::ErrorStatus seek(AcDbObjectId id);
    AcDbBlockTableRecord* blockTableRecord() const { return nullptr; }

private:
    friend class AcDbBlockTableRecord;
    AcDbBlockTableRecordIterator(const AcDbObjectIdArray& ids, bool skipDeleted);
    AcDbIdCursor m_cursor;  // over a copy: appending while iterating is safe
};
