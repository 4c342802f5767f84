// Registered application records.
#include "host/db/AcDbRegAppTable.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbSymbolTableDefs.h"

SV_DEFINE_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, AcDbRegAppTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, 0, 0, 0, APPID, ACAD)

AcDbRegAppTableRecord::AcDbRegAppTableRecord() = default;

Acad::ErrorStatus AcDbRegAppTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbRegAppTableRecord"));
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(commonFlags()));
    return f->filerStatus();
}

Acad::ErrorStatus AcDbRegAppTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbRegAppTableRecord"));
    resbuf rb;
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        if (rb.restype == AcDb::kDxfSymbolTableName)
            setName(rb.resval.rstring);
        else if (rb.restype == AcDb::kDxfInt16)
            setCommonFlags(rb.resval.rint);
        else if (rb.restype == AcDb::kDxfSubclass) {
            f->pushBackItem();
            break;
        }
    }
    return f->filerStatus();
}

Acad::ErrorStatus acdbRegApp(AcDbDatabase* db, const ACHAR* appName)
{
    if (!db)
        return Acad::eNoDatabase;
    AcDbRegAppTable* table = nullptr;
    Acad::ErrorStatus es = db->getRegAppTable(table, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    if (table->has(appName)) {
        table->close();
        return Acad::eOk;
    }
    es = table->upgradeOpen();
    if (es == Acad::eOk) {
        auto* rec = new AcDbRegAppTableRecord();
        es = rec->setName(appName);
        if (es == Acad::eOk)
            es = table->add(rec);
        if (es == Acad::eOk)
            rec->close();
        else
            delete rec;
    }
    table->close();
    return es;
}
