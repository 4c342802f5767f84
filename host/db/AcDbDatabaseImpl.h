// The database's object table and fixed object ids (internal).
#pragma once

#include <deque>
#include <memory>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHandleIndex.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbStub.h"

struct AcDbDatabase::Impl {
    explicit Impl(AcDbDatabase* owner) : db(owner) {}

    AcDbDatabase* db;
    // Held by value (a deque keeps addresses on growth); never shrinks: ids stay comparable.
    std::deque<AcDbStub> stubs;
    AcDbHandleIndex byHandle;
    Adesk::UInt64 seed = 0x10;  // the next handle; one-digit handles are never given out

    AcDbObjectId blockTable, layerTable, textStyleTable, linetypeTable, viewTable, ucsTable,
        viewportTable, regAppTable, dimStyleTable, nod;
    AcDbHeaderVars header;
    mutable std::unique_ptr<AcDbAnnotationScale> cannoscale;

    AcDbStub* stubFor(AcDbHandle handle, bool create);
    // Makes obj resident under handle (a new one for null). The object stays closed.
    AcDbObjectId add(AcDbObject* obj, AcDbHandle handle);
    void fireAppended(AcDbObject* obj);
    AcDbObjectId tableRecord(AcDbObjectId table, const std::wstring& name) const;
    std::wstring recordName(AcDbObjectId record) const;
    AcDbObjectId dictEntry(AcDbObjectId dict, const ACHAR* key) const;
};
