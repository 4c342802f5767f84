// The registered application table: names that may carry extended data.
#pragma once

#include "host/db/AcDbSymbolTable.h"

SV_DECLARE_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, AcDbRegAppTableIterator);

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord();
    // "100 AcDbRegAppTableRecord", 2, 70.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
};

// Registers appName in db if it is not there yet (opens the table for write). eOk when it
// exists already.
Acad::ErrorStatus acdbRegApp(AcDbDatabase* db, const ACHAR* appName);
