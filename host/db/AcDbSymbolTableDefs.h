// Definitions behind SV_DECLARE_SYMBOL_TABLE (internal).
#pragma once

#include "host/db/AcDbOpen.h"
#include "host/db/AcDbSymbolTable.h"
#include "host/rx/AcRxBoiler.h"

#define SV_DEFINE_SYMBOL_TABLE(TABLE, RECORD, ITERATOR)                                          \
    ACRX_CONS_DEFINE_MEMBERS(TABLE, AcDbSymbolTable, 0)                                          \
    Acad::ErrorStatus TABLE::getAt(const ACHAR* entryName, RECORD*& record, AcDb::OpenMode mode, \
                                   bool openErased) const                                        \
    {                                                                                            \
        record = nullptr;                                                                        \
        AcDbObjectId id;                                                                         \
        const Acad::ErrorStatus es = AcDbSymbolTable::getAt(entryName, id, openErased);          \
        return es != Acad::eOk ? es : acdbOpenObject(record, id, mode, openErased);              \
    }                                                                                            \
    Acad::ErrorStatus TABLE::newIterator(ITERATOR*& iterator, bool atBeginning, bool skipDeleted) const \
    {                                                                                            \
        assertReadEnabled();                                                                     \
        iterator = new ITERATOR(this, skipDeleted);                                              \
        iterator->start(atBeginning, skipDeleted);                                               \
        return Acad::eOk;                                                                        \
    }                                                                                            \
    AcRxClass* TABLE::recordClass() const { return RECORD::desc(); }                             \
    Acad::ErrorStatus ITERATOR::getRecord(RECORD*& record, AcDb::OpenMode mode, bool openErased) const \
    {                                                                                            \
        record = nullptr;                                                                        \
        AcDbObjectId id;                                                                         \
        const Acad::ErrorStatus es = getRecordId(id);                                            \
        return es != Acad::eOk ? es : acdbOpenObject(record, id, mode, openErased);              \
    }
