// The linetype table: ByBlock, ByLayer, Continuous and dash patterns.
#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbSymbolTable.h"
#include "host/db/AcDbTag.h"

SV_DECLARE_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, AcDbLinetypeTableIterator);

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord();

    Acad::ErrorStatus comments(const ACHAR*& text) const;
    const ACHAR* comments() const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    double patternLength() const;
    Acad::ErrorStatus setPatternLength(double length);
    int numDashes() const;
    // Positive: dash, negative: gap, 0: dot.
    double dashLengthAt(int index) const;
    Acad::ErrorStatus setNumDashes(int count);
    Acad::ErrorStatus setDashLengthAt(int index, double length);
    bool isScaledToFit() const { return false; }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbLinetypeTableRecord", 2, 70, 3, 72 (65), 73, 40, then 49 and 74 per dash;
    // shapes and texts in dashes are kept as read.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    struct Dash {
        double length = 0.0;
        int shapeFlags = 0;          // DXF 74
        AcDbTagList extra;           // 75, 340, 46, 50, 44, 45, 9 as read
    };
    std::wstring m_comments;
    double m_patternLength = 0.0;
    std::vector<Dash> m_dashes;
};
