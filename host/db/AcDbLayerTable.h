// The layer table and its records: on/off, frozen, locked, plottable, colour, linetype, weight.
#pragma once

#include "host/db/AcCmColor.h"
#include "host/db/AcDbSymbolTable.h"

SV_DECLARE_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord, AcDbLayerTableIterator);

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord();

    bool isFrozen() const;
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isOff() const;
    void setIsOff(bool off);
    bool isLocked() const;
    void setIsLocked(bool locked);
    bool isPlottable() const;
    Acad::ErrorStatus setIsPlottable(bool plottable);
    // Frozen in new viewports.
    bool VPDFLT() const;
    void setVPDFLT(bool frozen);
    bool isHidden() const { return false; }
    bool isInUse() const { return true; }

    // An index colour 1..255 or a true colour.
    AcCmColor color() const;
    void setColor(const AcCmColor& color);
    AcDbObjectId linetypeObjectId() const;
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    AcDb::LineWeight lineWeight() const;
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    // The DXF 390 plot style reference, kept as read.
    AcDbObjectId plotStyleNameId() const;
    Acad::ErrorStatus setPlotStyleName(AcDbObjectId id);

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbLayerTableRecord", 2, 70 (1 frozen, 2 frozen in new viewports, 4 locked),
    // 62 (negative when off), 420, 6, 290, 370, 390.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    bool m_frozen = false;
    bool m_off = false;
    bool m_locked = false;
    bool m_plottable = true;
    bool m_vpdflt = false;
    AcCmColor m_color;
    AcDbObjectId m_linetype;
    AcDb::LineWeight m_weight = AcDb::kLnWtByLwDefault;
    AcDbObjectId m_plotStyle;
};
