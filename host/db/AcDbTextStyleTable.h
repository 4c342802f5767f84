// The text style table: font files, fixed height, width factor, oblique angle and flags.
#pragma once

#include <string>

#include "host/db/AcDbSymbolTable.h"

SV_DECLARE_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, AcDbTextStyleTableIterator);

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord();

    // Font file ("txt", "arial.ttf"); a TrueType style names a .ttf/.otf file or has a
    // typeface set with setFont.
    Acad::ErrorStatus fileName(const ACHAR*& name) const;
    const ACHAR* fileName() const;
    Acad::ErrorStatus setFileName(const ACHAR* name);
    Acad::ErrorStatus bigFontFileName(const ACHAR*& name) const;
    const ACHAR* bigFontFileName() const;
    Acad::ErrorStatus setBigFontFileName(const ACHAR* name);
    // Fixed height; 0 means the height is asked per text.
    double textSize() const;
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const;
    Acad::ErrorStatus setXScale(double widthFactor);
    double obliquingAngle() const;
    Acad::ErrorStatus setObliquingAngle(double radians);
    double priorSize() const;
    Acad::ErrorStatus setPriorSize(double size);
    // DXF 71: 2 backwards, 4 upside down.
    Adesk::UInt8 flagBits() const;
    void setFlagBits(Adesk::UInt8 flags);
    bool isShapeFile() const;
    void setIsShapeFile(bool shapes);
    bool isVertical() const;
    void setIsVertical(bool vertical);
    // The TrueType typeface and its attributes (kept in the record's "ACAD" data in DXF).
    Acad::ErrorStatus font(ACHAR*& typeface, bool& bold, bool& italic, int& charset,
                           int& pitchAndFamily) const;
    Acad::ErrorStatus setFont(const ACHAR* typeface, bool bold, bool italic, int charset,
                              int pitchAndFamily);
    const std::wstring& typeface() const { return m_typeface; }
    // A TrueType style: a typeface, or a font file ending in .ttf, .ttc or .otf.
    bool isTrueType() const;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbTextStyleTableRecord", 2, 70, 40, 41, 50, 71, 42, 3, 4.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    std::wstring m_fileName = L"txt";
    std::wstring m_bigFont;
    double m_textSize = 0.0;
    double m_xScale = 1.0;
    double m_oblique = 0.0;
    double m_priorSize = 0.2;
    Adesk::UInt8 m_flagBits = 0;
    bool m_shapeFile = false;
    bool m_vertical = false;
    std::wstring m_typeface;
    bool m_bold = false;
    bool m_italic = false;
    int m_charset = 0;
    int m_pitchAndFamily = 0;
};
