// The view, UCS and viewport tables. Their records keep their DXF groups as read; a new
// drawing's "*Active" viewport gets the standard plan view.
#pragma once

#include "host/db/AcDbSymbolTable.h"
#include "host/db/AcDbTag.h"

// A record whose data (after its name and flags) is a list of DXF groups of one subclass.
class AcDbKeptTagsRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbKeptTagsRecord);
    const AcDbTagList& tags() const { assertReadEnabled(); return m_tags; }
    Acad::ErrorStatus setTags(AcDbTagList tags);
    // The first tag of that code, or null.
    const AcDbTag* tag(short code) const;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // The record's subclass marker, 2, 70, then the kept tags.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

protected:
    virtual const ACHAR* subclassName() const = 0;

private:
    AcDbTagList m_tags;
};

#define SV_DECLARE_KEPT_TAGS_RECORD(RECORD, SUBCLASS)                                           \
    class RECORD : public AcDbKeptTagsRecord {                                                   \
    public:                                                                                      \
        ACRX_DECLARE_MEMBERS(RECORD);                                                            \
                                                                                                 \
    protected:                                                                                   \
        const ACHAR* subclassName() const override { return ACRX_T(SUBCLASS); }                  \
    }

SV_DECLARE_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord, AcDbViewTableIterator);
SV_DECLARE_KEPT_TAGS_RECORD(AcDbViewTableRecord, "AcDbViewTableRecord");
SV_DECLARE_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord, AcDbUCSTableIterator);
SV_DECLARE_KEPT_TAGS_RECORD(AcDbUCSTableRecord, "AcDbUCSTableRecord");
SV_DECLARE_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord, AcDbViewportTableIterator);
SV_DECLARE_KEPT_TAGS_RECORD(AcDbViewportTableRecord, "AcDbViewportTableRecord");

// The groups of a plan view viewport record "*Active" of a new drawing.
AcDbTagList acdbDefaultActiveViewportTags();
