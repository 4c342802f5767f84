// Internal access to object state for the database, the open functions and undo.
#pragma once

#include "host/db/AcDbObject.h"
#include "host/db/AcDbStub.h"

#include <vector>

class AcDbObjectAccess {
public:
    static AcDbStub* stub(const AcDbObject* obj) { return obj->m_stub; }
    static void attach(AcDbObject* obj, AcDbStub* stub) { obj->m_stub = stub; }
    // Opens obj in mode with every check of acdbOpenObject.
    static Acad::ErrorStatus open(AcDbObject* obj, AcDb::OpenMode mode, bool openErased);
    // A freshly added object: open for write, new.
    static void openAsNew(AcDbObject* obj);
    static void pushPeek(const AcDbObject* obj) { const_cast<AcDbObject*>(obj)->m_opens.push_back(AcDb::kForRead); }
    static void popPeek(const AcDbObject* obj) { const_cast<AcDbObject*>(obj)->m_opens.pop_back(); }
    static void pushWrite(const AcDbObject* obj) { const_cast<AcDbObject*>(obj)->m_opens.push_back(AcDb::kForWrite); }
    static void popWrite(const AcDbObject* obj) { popPeek(obj); }
    static bool isOpen(const AcDbObject* obj) { return !obj->m_opens.empty() || obj->m_notifying; }
    static void setUndoing(AcDbObject* obj, bool undoing) { obj->m_undoing = undoing; }
    static void markRecorded(AcDbObject* obj, unsigned serial)
    {
        obj->m_undoRecorded = true;
        obj->m_undoGroupSerial = serial;
    }
    // Sends erased(obj, erasing) to every reactor kind.
    static void sendErased(AcDbObject* obj, bool erasing);
    // Sends modified(obj) to every reactor kind (database, transient, persistent).
    static void sendModified(AcDbObject* obj);
    static void setOwnerRaw(AcDbObject* obj, AcDbObjectId owner) { obj->m_ownerId = owner; }
};

// Reads an object without opening it: valid while the object lives. For the database's own
// lookups (a layer's lock flag, a record's name) where an open could fail for open-state
// reasons that do not matter to the lookup.
class AcDbPeek {
public:
    explicit AcDbPeek(AcDbObjectId id);
    ~AcDbPeek();
    AcDbPeek(const AcDbPeek&) = delete;
    AcDbPeek& operator=(const AcDbPeek&) = delete;
    AcDbObject* get() const { return m_obj; }
    template <typename T>
    T* as() const { return m_obj ? T::cast(m_obj) : nullptr; }

private:
    AcDbObject* m_obj = nullptr;
};

// Undo's access: restores and un-appends bypass the open checks (layer locks, erased).
class AcDbUndoAccess {
public:
    static void restore(AcDbObject* obj, const std::vector<Adesk::UInt8>& bytes);
    static void partial(AcDbObject* obj, class AcDbBinaryFiler& filer, AcRxClass* cls);
    static void toggleErase(AcDbObject* obj, bool erased);
    // Takes id out of owner's list (the undo of AcDbUndoManager::recordOwnerAdd).
    static void takeOut(AcDbObject* owner, AcDbObjectId id);
};
