// The built-in metric template. Architects here draw in metres: one drawing unit is a
// metre, text and dimension sizes are those of a 1:100 plan (2.5 mm on paper = 0.25 m).
#include "host/ap/ApTemplate.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbOpen.h"

void apApplyDefaultTemplate(AcDbDatabase* db)
{
    if (!db)
        return;
    db->setInsunits(static_cast<AcDb::UnitsValue>(kApTemplateInsunits));
    db->setMeasurement(AcDb::kMetric);
    db->setLunits(2);
    db->setLuprec(3);
    db->setTextsize(0.25);
    db->setLimmin(AcGePoint2d(0.0, 0.0));
    db->setLimmax(AcGePoint2d(42.0, 29.7));
    db->setTilemode(true);

    // The dimension style keeps the ISO values in millimetres, scaled to metres at 1:100.
    AcDbDimStyleTable* styles = nullptr;
    if (db->getDimStyleTable(styles, AcDb::kForRead) != Acad::eOk)
        return;
    AcDbDimStyleTableRecord* standard = nullptr;
    if (styles->getAt(L"Standard", standard, AcDb::kForWrite) == Acad::eOk) {
        const AcDbObjectId textStyle = standard->dimtxsty();
        standard->setToDefaults(AcDb::kMetric);
        standard->setDimtxsty(textStyle);
        standard->setDimscale(0.1);
        const AcDbObjectId id = standard->objectId();
        standard->close();
        db->setDimstyleData(id);
        db->setDimstyle(id);
    }
    styles->close();
    db->clearUndo();
    db->setDbmod(0);
}
