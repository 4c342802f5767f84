// AcDbObject: a database-resident object with open modes, undo, reactors and extended data.
#pragma once

#include <memory>
#include <vector>

#include "host/db/AcDb.h"
#include "host/db/AcDbObjectId.h"
#include "host/db/adsdef.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AcadStrc.h"

class AcDbDatabase;
class AcDbDwgFiler;
class AcDbDxfFiler;
class AcDbIdMapping;
class AcDbObject;
class AcDbObjectReactor;
class AcDbStub;
class AcDbXData;

// Transient reactor on one object (not filed). Every callback is a no-op by default.
class AcDbObjectReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectReactor);
    virtual void cancelled(const AcDbObject*) {}
    virtual void copied(const AcDbObject*, const AcDbObject*) {}
    virtual void erased(const AcDbObject*, Adesk::Boolean) {}
    virtual void goodbye(const AcDbObject*) {}
    virtual void openedForModify(const AcDbObject*) {}
    virtual void modified(const AcDbObject*) {}
    virtual void modifyUndone(const AcDbObject*) {}
    virtual void unappended(const AcDbObject*) {}
    virtual void reappended(const AcDbObject*) {}
    virtual void objectClosed(AcDbObjectId) {}
};

// Open modes (see acdbOpenObject in AcDbOpen.h). An object that is not in a database is
// always fully enabled. A database-resident object is opened and closed in nested pairs:
//   closed        -> kForRead: up to 256 readers; kForWrite; kForNotify.
//   open for read -> kForRead: one more reader; kForWrite: eWasOpenForRead; kForNotify: ok.
//   open for write-> kForRead and kForWrite: eWasOpenForWrite; kForNotify: ok.
//   notifying (its own modified/erased are being sent) -> kForRead, kForNotify: ok (nested,
//                    closed by their own close()); kForWrite: eWasOpenForNotify.
// kForWrite of an entity on a locked layer gives eOnLockedLayer, of an erased object
// eWasErased (unless erased objects are asked for).
class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    AcDbObject();
    ~AcDbObject() override;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;

    // Identity ----------------------------------------------------------------
    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const { return m_ownerId; }
    // Sets the owner; the owner's own list is its business (block records, dictionaries).
    virtual Acad::ErrorStatus setOwnerId(AcDbObjectId ownerId);
    Acad::ErrorStatus getAcDbHandle(AcDbHandle& handle) const;
    void getDbHandle(AcDbHandle& handle) const { getAcDbHandle(handle); }
    AcDbHandle handle() const;
    // The database the object lives in; null while it is not in one.
    AcDbDatabase* database() const;
    AcDbDatabase* databaseToUse() const;  // database(), else the working database
    bool isDatabaseResident() const { return m_stub != nullptr; }

    // Open state --------------------------------------------------------------
    // Ends the latest open: a write open that changed the object sends the notifications
    // (database reactors, transient reactors, persistent reactors' modified) first.
    Acad::ErrorStatus close();
    Acad::ErrorStatus closeAndPage(bool = true) { return close(); }
    // Read (single reader) -> write. eWasNotifying while the object is open for notify or
    // notifying, eOnLockedLayer for an entity on a locked layer, eHadMultipleReaders when
    // other readers hold it, eWasOpenForWrite when it already is (it stays write-enabled),
    // eNotOpenForRead when it is not open at all.
    Acad::ErrorStatus upgradeOpen();
    // Write -> read. Sends the notifications of a change now, as close() would.
    Acad::ErrorStatus downgradeOpen();
    // During a notification: makes the object write-enabled. wasWritable tells whether it
    // was write-enabled already; pass it back to downgradeToNotify.
    Acad::ErrorStatus upgradeFromNotify(Adesk::Boolean& wasWritable);
    Acad::ErrorStatus downgradeToNotify(Adesk::Boolean wasWritable);
    Acad::ErrorStatus cancel();  // ends a write open and restores the state before it

    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNotifyEnabled() const;
    bool isNotifying() const;
    bool isUndoing() const;
    // Changed while open for write, since the last close.
    bool isModified() const { return m_modified; }
    bool isModifiedXData() const { return m_modifiedXData; }
    bool isModifiedGraphics() const { return m_modifiedGraphics; }
    // Appended in the current open (not yet closed once).
    bool isNewObject() const { return m_newObject; }
    bool isTransactionResident() const { return false; }
    bool isReallyClosing() const { return m_reallyClosing; }
    bool isCancelling() const { return false; }
    bool isErased() const;
    bool isEraseStatusToggled() const { return m_eraseToggled; }
    bool isProxy() const;
    bool isAProxy() const { return isProxy(); }

    // Checks the open state (acrx_abort when it does not hold). assertWriteEnabled also
    // records the undo snapshot of the object (autoUndo) before its first change in the
    // current undo group and marks it modified (recordModified).
    void assertReadEnabled() const;
    void assertWriteEnabled(Adesk::Boolean autoUndo = true, Adesk::Boolean recordModified = true);
    void assertNotifyEnabled() const;
    // Marks the graphics changed (and the object modified).
    virtual void recordGraphicsModified(Adesk::Boolean setModified = true);

    // Erasing -----------------------------------------------------------------
    // Needs write access. Fires erased(this, flag) on the persistent reactors, objectErased
    // on the database reactors. Erasing an erased object (or unerasing a live one) is eOk
    // and sends nothing.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = true);
    // Swaps identity with newObject (not supported: eNotApplicable).
    virtual Acad::ErrorStatus handOverTo(AcDbObject* newObject, Adesk::Boolean keepXData = true,
                                         Adesk::Boolean keepExtDict = true);

    // Persistent reactors -----------------------------------------------------
    // Adding an id that is there already does nothing. Not while notifying (eWasNotifying).
    void addPersistentReactor(AcDbObjectId objId);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId objId);
    bool hasPersistentReactor(AcDbObjectId objId) const;
    // The reactor ids in order (transient reactors are not listed).
    const AcDbObjectIdArray& persistentReactorIds() const { return m_reactorIds; }
    void* reactors() const { return const_cast<AcDbObjectIdArray*>(&m_reactorIds); }
    void addReactor(AcDbObjectReactor* reactor) const;
    void removeReactor(AcDbObjectReactor* reactor) const;

    // Extended data -----------------------------------------------------------
    // A copy of the data of appName (or of every application for null), each application's
    // part starting with its 1001 item; null when there is none. The caller frees it with
    // acutRelRb.
    virtual resbuf* xData(const ACHAR* appName = nullptr) const;
    // Replaces the data of each application named in the chain by the items that follow
    // its 1001 item; an application given with no items loses its data. Applications must
    // be registered in the object's database (eRegappIdNotFound). The whole data may not
    // exceed acdbXDataSizeLimit bytes as acdbXDataSize counts (eXdataSizeExceeded); a
    // refused chain changes nothing. 1070 values are cut to 16 bits; an item of a type
    // xdata cannot hold gives eInvalidResBuf. Needs write access.
    virtual Acad::ErrorStatus setXData(const resbuf* xdata);
    // For file readers: sets the data as read, without the registration and size checks.
    Acad::ErrorStatus setXDataAsRead(const resbuf* xdata);
    // Names of the applications that have data on the object, in order.
    std::vector<std::wstring> xDataApplications() const;
    Acad::ErrorStatus xDataTransformBy(const class AcGeMatrix3d& xform);

    // Extension dictionary (an AcDbDictionary owned by the object).
    AcDbObjectId extensionDictionary() const { return m_extDict; }
    Acad::ErrorStatus createExtensionDictionary();
    Acad::ErrorStatus releaseExtensionDictionary();
    void setExtensionDictionaryAsRead(AcDbObjectId dictId) { m_extDict = dictId; }

    // Filing ------------------------------------------------------------------
    // AcDbObject's own part: for undo the owner, extension dictionary, persistent reactors
    // and extended data; for copy and deep clone the extended data and the extension
    // dictionary; nothing for file filers (the file layer writes the common part itself).
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    // Group-code form; AcDbObject's own part is empty (see AcDbDxfFiler).
    virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);
    virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;
    // Undo of a partial record written with AcDbDatabase::writePartialUndo. Base: reads
    // nothing and answers eOk.
    virtual Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler* undoFiler, AcRxClass* classObj);
    // Called by the file layer once the object and its references are read.
    virtual void composeForLoad() {}
    virtual Acad::ErrorStatus decomposeForSave(AcDb::AcDbDwgVersion, AcDbObject*& replaceObj,
                                               AcDbObjectId& replaceId, Adesk::Boolean& exchangeXData);

    // Copying -----------------------------------------------------------------
    // A new, non-resident object of the same class with the same data, made through
    // dwgOutFields/dwgInFields with a copy filer. Reactors are told copied(this, copy).
    AcRxObject* clone() const override;
    // Copies other's filed state into this object (same class): the copy filer's round trip.
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override;
    // Deep clone into owner (or the same owner for a null owner); records the pair in
    // idMap and clones what this object owns with it. The caller closes the clone.
    virtual Acad::ErrorStatus deepClone(AcDbObject* owner, AcDbObject*& clonedObject,
                                        AcDbIdMapping& idMap, Adesk::Boolean isPrimary = true) const;
    virtual Acad::ErrorStatus wblockClone(AcRxObject* owner, AcDbObject*& clonedObject,
                                          AcDbIdMapping& idMap, Adesk::Boolean isPrimary = true) const;
    // Ids this object owns (hard or soft ownership) that a deep clone takes along.
    virtual void getOwnedIds(AcDbObjectIdArray& owned) const;

    // Notifications this object receives as a persistent reactor of another ------------
    virtual void cancelled(const AcDbObject* dbObj);
    virtual void copied(const AcDbObject* dbObj, const AcDbObject* newObj);
    virtual void erased(const AcDbObject* dbObj, Adesk::Boolean erasing = true);
    virtual void goodbye(const AcDbObject* dbObj);
    virtual void openedForModify(const AcDbObject* dbObj);
    virtual void modified(const AcDbObject* dbObj);
    virtual void modifyUndone(const AcDbObject* dbObj);
    virtual void modifiedXData(const AcDbObject* dbObj);
    virtual void unappended(const AcDbObject* dbObj);
    virtual void reappended(const AcDbObject* dbObj);
    virtual void objectClosed(AcDbObjectId objId);

    // Hooks on the object's own events ----------------------------------------
    virtual Acad::ErrorStatus subErase(Adesk::Boolean erasing);
    virtual Acad::ErrorStatus subOpen(AcDb::OpenMode mode);
    virtual Acad::ErrorStatus subClose();
    // Called after an undo restored the object; base does nothing.
    virtual void subRestoredByUndo() {}

    // Drawing-order and plot-style queries of the platform; answers of a plain object.
    virtual Adesk::UInt32 setAttributes(void* traits);
    virtual Adesk::Boolean isPlanar() const { return false; }

private:
    friend class AcDbDatabase;
    friend class AcDbObjectAccess;
    friend class AcDbUndoAccess;
    AcDbStub* m_stub = nullptr;
    AcDbObjectId m_ownerId;
    AcDbObjectId m_extDict;
    AcDbObjectIdArray m_reactorIds;
    std::unique_ptr<AcDbXData> m_xdata;
    mutable std::unique_ptr<std::vector<AcDbObjectReactor*>> m_transientReactors;

    // Open state: a stack of open modes (closes pop the latest) plus flags.
    std::vector<AcDb::OpenMode> m_opens;
    bool m_notifying = false;        // sending its own notifications (inside close)
    bool m_notifyWritable = false;   // write-enabled through upgradeFromNotify
    bool m_undoing = false;
    bool m_modified = false;
    bool m_modifiedXData = false;
    bool m_modifiedGraphics = false;
    bool m_newObject = false;
    bool m_reallyClosing = false;
    bool m_eraseToggled = false;
    bool m_undoRecorded = false;     // snapshot taken in the current undo group
    unsigned m_undoGroupSerial = 0;  // the group the snapshot belongs to
};

// The byte count of extended data as the size limit sees it: for every item 2 bytes of
// group code plus its value: strings (1000-1003, 1005) their UTF-8 length + 2, binary
// chunks their length + 1, points 24, reals 8, 1070 2, 1071 4.
size_t acdbXDataSize(const resbuf* xdata);
constexpr size_t acdbXDataSizeLimit = 16383;
