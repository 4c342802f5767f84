// AcDbStub: the object table entry an AcDbObjectId points at (internal to the database).
#pragma once

#include "host/db/AcDbHandle.h"

class AcDbDatabase;
class AcDbObject;

class AcDbStub {
public:
    AcDbDatabase* database = nullptr;
    AcDbHandle handle;
    AcDbObject* object = nullptr;  // owned by the database; null for a placeholder or removed object
    bool erased = false;
    bool removed = false;  // removed for good (undo of an append)
};
