// AcDbDatabaseReactor: transient listener on every object event of one database.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/rx/AcRxObject.h"

class AcDbDatabase;
class AcDbObject;

// Every callback is a no-op by default. Objects are passed open (at least for read).
class AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);
    // After an object was added to the database; it is open for write.
    virtual void objectAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) {}
    // When a changed object is closed (or downgraded).
    virtual void objectModified(const AcDbDatabase*, const AcDbObject*) {}
    // On erase (erased true) and unerase (false), the object flagged accordingly.
    virtual void objectErased(const AcDbDatabase*, const AcDbObject*, bool /*erased*/) {}
    virtual void headerSysVarWillChange(const AcDbDatabase*, const ACHAR* /*name*/) {}
    virtual void headerSysVarChanged(const AcDbDatabase*, const ACHAR* /*name*/, bool /*success*/) {}
    virtual void proxyResurrectionCompleted(const AcDbDatabase*, const ACHAR*, AcDbObjectIdArray&) {}
    // The database is being deleted.
    virtual void goodbye(const AcDbDatabase*) {}
};
