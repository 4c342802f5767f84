// The dimension style table: each record holds every dimension variable.
#pragma once

#include <utility>
#include <vector>

#include "host/db/AcDbDimVars.h"
#include "host/db/AcDbSymbolTable.h"

SV_DECLARE_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, AcDbDimStyleTableIterator);

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    // Imperial defaults (see AcDbDimVars); the text style is filled when the record is
    // added to a database that has "Standard".
    AcDbDimStyleTableRecord();

    SV_DIMVAR_LIST(SV_DIMVAR_ACCESSORS)

    // The arrow block record of DIMBLK, DIMBLK1, DIMBLK2 or DIMLDRBLK (by group code); the
    // null id for the default arrow or a block the database does not have.
    AcDbObjectId arrowBlockId(int dxfCode) const;

    const AcDbDimVars& vars() const { assertReadEnabled(); return m_vars; }
    Acad::ErrorStatus setVars(const AcDbDimVars& vars);
    void setToDefaults(AcDb::MeasurementValue measurement);

    // copyFrom (AcDbObject's) copies every variable and the name from another record.

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbDimStyleTableRecord", 2, 70 and every variable by its group code; arrow
    // blocks as 341-344 block record handles.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

    Acad::ErrorStatus setDimVarArg2(int code, AcDbObjectId blockId);
    Acad::ErrorStatus setDimVarArg2(int, AcDbDimVarNoArg) { return Acad::eOk; }

    // Arrow blocks read from a file before their block records: named once all is read.
    void composeForLoad() override;

private:
    AcDbDimVars m_vars;
    std::vector<std::pair<int, AcDbObjectId>> m_pendingArrows;
};

// The id of the arrow block of that name in db ("" and unknown names: null). Names are
// compared without regard to case, so "_NONE" finds "_None".
AcDbObjectId acdbArrowBlockId(AcDbDatabase* db, const ACHAR* name);
