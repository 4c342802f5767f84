// AcDbDatabase: one drawing: its objects by handle, tables, dictionaries, header and undo.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/db/AcDb.h"
#include "host/db/AcDbHeaderVars.h"
#include "host/db/AcDbObjectId.h"
#include "host/db/AcCmColor.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AcadStrc.h"

class AcDbAnnotationScale;
class AcDbBlockTable;
class AcDbDatabase;
class AcDbDatabaseReactor;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbDimStyleTableRecord;
class AcDbIdMapping;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbObject;
class AcDbRegAppTable;
class AcDbSymbolTable;
class AcDbTextStyleTable;
class AcDbUCSTable;
class AcDbUndoManager;
class AcDbViewTable;
class AcDbViewportTable;
class AcDbDwgFiler;

// The file format behind readDwgFile and saveAs. The drawing file layer registers one;
// without it both answer eNotImplementedYet.
class AcDbFileIo {
public:
    virtual ~AcDbFileIo() = default;
    // Loads the file into db, which is empty (made with buildDefaultDrawing false). On
    // failure db must be left as it was.
    virtual Acad::ErrorStatus readFile(AcDbDatabase* db, const ACHAR* path) = 0;
    // Writes db to path; keepBackup keeps an existing file as .bak.
    virtual Acad::ErrorStatus writeFile(AcDbDatabase* db, const ACHAR* path, bool keepBackup,
                                        AcDb::AcDbDwgVersion version) = 0;
};

class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);
    // buildDefaultDrawing: the tables with their standard records, the dictionaries and the
    // header of a new drawing. Without it the database is empty, ready for readDwgFile.
    // noDocument is accepted for the platform's shape: a database never has a document
    // here; documents refer to their databases.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    // Objects --------------------------------------------------------------------------
    // Makes the object resident under a new handle (owner not set); it stays open for
    // write for the caller to close. eAlreadyInDb for a resident object.
    Acad::ErrorStatus addAcDbObject(AcDbObject* object);
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);
    // For file readers: resident under the given handle, closed. A placeholder stub made by
    // an earlier reference to the handle is filled. eHandleInUse when an object has it;
    // eInvalidInput for the null handle. The handle seed moves above the handle.
    Acad::ErrorStatus addAcDbObjectAsRead(AcDbObjectId& id, AcDbObject* object, AcDbHandle handle);
    // The id of the handle. createIfNotFound makes a placeholder stub (for a reference to an
    // object read later); otherwise an unknown handle gives eUnknownHandle. The null handle
    // gives eNullHandle.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound,
                                      const AcDbHandle& objHandle, Adesk::UInt32 xRefId = 0);
    // A fresh handle from the seed (never below 0x10), e.g. for BLOCK/ENDBLK entities.
    AcDbHandle allocateHandle();
    AcDbHandle handseed() const;
    // eInvalidInput below a handle in use or below 0x10.
    Acad::ErrorStatus setHandseed(const AcDbHandle& seed);
    // Every id with a live or erased object, in handle order.
    AcDbObjectIdArray objectIds() const;
    Adesk::Int32 approxNumObjects() const;
    // Removes an object for good: its stub stays (ids compare) but answers not valid.
    // Used for un-appends by undo and by file readers that drop an object.
    void removeObjectPermanently(AcDbObjectId id);

    // Tables and dictionaries ---------------------------------------------------------
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewTable(AcDbViewTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getUCSTable(AcDbUCSTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewportTable(AcDbViewportTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayoutDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getScaleListDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode = AcDb::kForRead);
    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId UCSTableId() const;
    AcDbObjectId viewportTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId groupDictionaryId() const;
    AcDbObjectId layoutDictionaryId() const;
    AcDbObjectId scaleListDictionaryId() const;
    // For file readers: the tables and the named object dictionary read from the file.
    void setTableIdsAsRead(AcDbObjectId blockTable, AcDbObjectId layerTable, AcDbObjectId textStyleTable,
                           AcDbObjectId linetypeTable, AcDbObjectId viewTable, AcDbObjectId ucsTable,
                           AcDbObjectId viewportTable, AcDbObjectId regAppTable,
                           AcDbObjectId dimStyleTable, AcDbObjectId namedObjectsDictionary);
    // Adds what a drawing read from a file lacks: missing tables, standard records (layer
    // "0", "Standard" styles, "ACAD", linetypes, model and paper space, "*Active"),
    // dictionaries and scale list. Returns how many things were added.
    int repairStandardObjects();

    AcDbObjectId modelSpaceId() const;
    AcDbObjectId paperSpaceId() const;
    // The space new entities go to: model space while TILEMODE is 1, else paper space.
    AcDbObjectId currentSpaceId() const;
    // The block record of an external reference this database was loaded for; null.
    AcDbObjectId xrefBlockId() const { return AcDbObjectId::kNull; }

    // Header variables ---------------------------------------------------------------
    // All variables by name, in file order ($HANDSEED brought up to date first).
    const AcDbHeaderVars& headerVars() const;
    // Sets a variable as read from a file or as the editor's SETVAR does; a known variable
    // takes effect at once ($HANDSEED moves the seed, never below a handle in use). Fires
    // headerSysVarWillChange/Changed and records undo.
    Acad::ErrorStatus setHeaderVar(const std::wstring& name, const AcDbTagList& tags);

    // Typed accessors (the reference ones resolve a name in their table: a missing
    // record gives the null id).
    double textsize() const;
    Acad::ErrorStatus setTextsize(double size);
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId styleId);
    AcDbObjectId dimstyle() const;
    Acad::ErrorStatus setDimstyle(AcDbObjectId styleId);
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layerId);
    AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId linetypeId);
    // Current entity colour: index 256 ByLayer by default.
    AcCmColor cecolor() const;
    Acad::ErrorStatus setCecolor(const AcCmColor& color);
    double celtscale() const;
    Acad::ErrorStatus setCeltscale(double scale);
    AcDb::LineWeight celweight() const;
    Acad::ErrorStatus setCelweight(AcDb::LineWeight weight);
    double ltscale() const;
    Acad::ErrorStatus setLtscale(double scale);
    double dimscale() const;
    Acad::ErrorStatus setDimscale(double scale);
    AcDb::UnitsValue insunits() const;
    Acad::ErrorStatus setInsunits(AcDb::UnitsValue units);
    AcDb::MeasurementValue measurement() const;
    Acad::ErrorStatus setMeasurement(AcDb::MeasurementValue value);
    Adesk::Int16 lunits() const;
    Acad::ErrorStatus setLunits(Adesk::Int16 units);
    Adesk::Int16 luprec() const;
    Acad::ErrorStatus setLuprec(Adesk::Int16 precision);
    Adesk::Int16 aunits() const;
    Acad::ErrorStatus setAunits(Adesk::Int16 units);
    Adesk::Int16 auprec() const;
    Acad::ErrorStatus setAuprec(Adesk::Int16 precision);
    double angbase() const;
    Acad::ErrorStatus setAngbase(double angle);
    bool angdir() const;
    Acad::ErrorStatus setAngdir(bool clockwise);
    Adesk::Int16 pdmode() const;
    Acad::ErrorStatus setPdmode(Adesk::Int16 mode);
    double pdsize() const;
    Acad::ErrorStatus setPdsize(double size);
    bool tilemode() const;
    Acad::ErrorStatus setTilemode(bool mode);
    AcGePoint3d insbase() const;
    Acad::ErrorStatus setInsbase(const AcGePoint3d& base);
    AcGePoint3d extmin() const;
    AcGePoint3d extmax() const;
    Acad::ErrorStatus setExtmin(const AcGePoint3d& pt);
    Acad::ErrorStatus setExtmax(const AcGePoint3d& pt);
    AcGePoint2d limmin() const;
    AcGePoint2d limmax() const;
    Acad::ErrorStatus setLimmin(const AcGePoint2d& pt);
    Acad::ErrorStatus setLimmax(const AcGePoint2d& pt);
    // "ANSI_1252" by default; what the file layer converts 8-bit text with.
    std::wstring dwgCodePage() const;
    // "AC1032" for a new drawing; the version a file was read as otherwise.
    std::wstring acadVer() const;

    // The current annotation scale from CANNOSCALE and the scale list; null when CANNOSCALE
    // names no scale in the list. The database owns it; it stays valid until the next call.
    AcDbAnnotationScale* cannoscale() const;
    // Sets CANNOSCALE by the scale's name; eKeyNotFound when the list has no such name.
    Acad::ErrorStatus setCannoscale(AcDbAnnotationScale* scale);

    // Copies the record's variables into the header's current dimension variables.
    Acad::ErrorStatus setDimstyleData(AcDbDimStyleTableRecord* record);
    Acad::ErrorStatus setDimstyleData(AcDbObjectId styleId);
    // Fills record (not resident) with the header's current dimension variables.
    Acad::ErrorStatus getDimstyleData(AcDbDimStyleTableRecord*& record) const;

    // Reactors ------------------------------------------------------------------------
    // Adding one twice keeps one entry. The database does not own them.
    void addReactor(AcDbDatabaseReactor* reactor) const;
    void removeReactor(AcDbDatabaseReactor* reactor) const;
    const std::vector<AcDbDatabaseReactor*>& reactors() const { return m_reactors; }

    // Undo ----------------------------------------------------------------------------
    // Opens the undo group of a command; groups nest (only the outermost counts).
    void startUndoGroup();
    void endUndoGroup();
    // Undoes the last n closed groups (an open group is closed first). eUndoNoGroupBegin
    // when there is nothing to undo.
    Acad::ErrorStatus undo(int groups = 1);
    // True while undo replays; objects answer isUndoing() true then.
    bool isUndoing() const;
    // Stops (true) or resumes (false) recording.
    void disableUndoRecording(bool disable);
    bool undoRecording() const;
    int undoGroupCount() const;
    // Drops every recorded group (e.g. after a load).
    void clearUndo();
    // A partial record for obj: the class and whatever the caller writes into the filer
    // returned; on undo obj->applyPartialUndo(filer, classObj) reads it back. Null when
    // undo is not recording.
    AcDbDwgFiler* undoFiler(const AcDbObject* obj, AcRxClass* classObj);
    AcDbUndoManager* undoManager() const { return m_undo.get(); }

    // Files ---------------------------------------------------------------------------
    static void setFileIo(AcDbFileIo* io);
    static AcDbFileIo* fileIo();
    // Loads the file (through the file format hook) into this database, which must be
    // empty. shareMode is accepted for the platform's shape.
    // Exchanges everything the two databases hold (objects and their ids, tables, header,
    // handle seed, undo state); reactors, file name and modification count stay. A file
    // loads into a scratch database and, once it has loaded, moves here in one step.
    void swapContents(AcDbDatabase& other);
    Acad::ErrorStatus readDwgFile(const ACHAR* fileName, int shareMode = 0,
                                  bool allowCPConversion = false, const ACHAR* password = nullptr);
    Acad::ErrorStatus saveAs(const ACHAR* fileName, bool bBakAndRename = true,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT, const void* security = nullptr);
    Acad::ErrorStatus save();
    // The file the database was read from or saved to; "" for a new one.
    Acad::ErrorStatus getFilename(const ACHAR*& fileName) const;
    const ACHAR* filename() const { return m_filename.c_str(); }
    void setFilename(const std::wstring& path) { m_filename = path; }
    void setRetainOriginalThumbnailBitmap(bool) {}
    // Changed since read or saved (the DBMOD count).
    int dbmod() const { return m_dbmod; }
    void setDbmod(int value) { m_dbmod = value; }
    void incrementDbmod() { ++m_dbmod; }

    // Cloning -------------------------------------------------------------------------
    // Deep-clones the objects into the owner (a block record or dictionary of this
    // database); the pairs end up in idMap and references among the clones are translated.
    Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objectIds, AcDbObjectId owner,
                                       AcDbIdMapping& idMap, bool deferXlation = false);
    // The same into another database's owner; references to objects outside the set go to
    // the records of the same name (layers, styles...) in the destination, or null.
    Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& objectIds, AcDbObjectId owner,
                                         AcDbIdMapping& idMap, AcDb::DuplicateRecordCloning drc,
                                         bool deferXlation = false);

    // Internal: the object table, for AcDbObjectId and the open functions.
    struct Impl;
    Impl& impl() const { return *m_impl; }

private:
    friend class AcDbObject;
    void buildDefaultDrawing();
    // Adds the header variables a drawing lacks, with a new drawing's values; the count.
    int setDefaultHeader();
    void headerChanged(const std::wstring& name, const AcDbTagList* before);
    std::unique_ptr<Impl> m_impl;
    std::unique_ptr<AcDbUndoManager> m_undo;
    mutable std::vector<AcDbDatabaseReactor*> m_reactors;
    std::wstring m_filename;
    int m_dbmod = 0;
};
