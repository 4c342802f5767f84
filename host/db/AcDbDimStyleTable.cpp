// Dimension style records: every dimension variable, and the DIMSTYLE DXF form.
#include "host/db/AcDbDimStyleTable.h"

#include <cwctype>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbSymbolTableDefs.h"

SV_DEFINE_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, AcDbDimStyleTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, DIMSTYLE, ACAD)

AcDbObjectId acdbArrowBlockId(AcDbDatabase* db, const ACHAR* name)
{
    if (!db || !name || !*name)
        return AcDbObjectId();
    AcDbPeek peek(db->blockTableId());
    const AcDbSymbolTable* table = peek.as<AcDbSymbolTable>();
    AcDbObjectId id;
    if (table)
        table->getAt(name, id);
    return id;
}

AcDbDimStyleTableRecord::AcDbDimStyleTableRecord()
{
    m_vars.setToDefaults(AcDb::kEnglish);
}

AcDbObjectId AcDbDimStyleTableRecord::arrowBlockId(int code) const
{
    AcDbDimVarValue v;
    if (m_vars.getValue(code, v) != Acad::eOk)
        return AcDbObjectId();
    return acdbArrowBlockId(database(), v.text.c_str());
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setVars(const AcDbDimVars& vars)
{
    assertWriteEnabled();
    m_vars = vars;
    return Acad::eOk;
}

void AcDbDimStyleTableRecord::setToDefaults(AcDb::MeasurementValue m)
{
    assertWriteEnabled();
    const AcDbObjectId style = m_vars.dimtxsty;
    m_vars.setToDefaults(m);
    m_vars.dimtxsty = style;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimVarArg2(int code, AcDbObjectId blockId)
{
    std::wstring name;
    if (!blockId.isNull()) {
        AcDbPeek peek(blockId);
        const AcDbBlockTableRecord* btr = peek.as<AcDbBlockTableRecord>();
        if (!btr)
            return Acad::eWrongObjectType;
        name = btr->name();
    }
    AcDbDimVarValue v;
    v.text = name;
    assertWriteEnabled();
    return m_vars.setValue(code, v);
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(f);
    return es != Acad::eOk ? es : m_vars.dwgOutFields(f);
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    AcDbDimVars vars = m_vars;
    es = vars.dwgInFields(f);
    if (es == Acad::eOk)
        m_vars = vars;
    return es;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbDimStyleTableRecord"));
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(commonFlags()));
    int count = 0;
    const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
    for (int i = 0; i < count; ++i) {
        const AcDbDimVarInfo& info = infos[i];
        AcDbDimVarValue v;
        m_vars.getValue(info.dxfCode, v);
        const auto code = acdbDxfCode(info.dxfCode);
        const std::wstring kind = info.kind;
        if (kind == L"Real")
            f->writeDouble(code, v.real);
        else if (kind == L"Str")
            f->writeString(code, v.text.c_str());
        else if (kind == L"Block") {
            const AcDbObjectId id = acdbArrowBlockId(database(), v.text.c_str());
            if (!id.isNull())
                f->writeObjectId(code, id);
        } else if (kind == L"Style" || kind == L"Ltype") {
            if (!v.id.isNull())
                f->writeObjectId(code, v.id);
        } else if (kind == L"Bool" && info.dxfCode >= 290)
            f->writeBool(code, v.integer != 0);
        else if (kind == L"Int" && info.dxfCode == 90)
            f->writeInt32(code, v.integer);
        else if (info.dxfCode >= 280 && info.dxfCode <= 289)
            f->writeInt8(code, static_cast<Adesk::Int8>(v.integer));
        else
            f->writeInt16(code, static_cast<Adesk::Int16>(v.integer));
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbDimStyleTableRecord"));
    resbuf rb;
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        const int c = rb.restype;
        if (c == AcDb::kDxfSubclass) {
            f->pushBackItem();
            break;
        }
        if (c == AcDb::kDxfSymbolTableName) {
            setName(rb.resval.rstring);
            continue;
        }
        if (c == AcDb::kDxfInt16) {
            setCommonFlags(rb.resval.rint);
            continue;
        }
        const AcDbDimVarInfo* info = AcDbDimVars::findByCode(c);
        if (!info)
            continue;  // 5/6/7 names of old files, 105 handle and the like
        const std::wstring kind = info->kind;
        AcDbDimVarValue v;
        if (kind == L"Real")
            v.real = rb.resval.rreal;
        else if (kind == L"Str")
            v.text = rb.resval.rstring ? rb.resval.rstring : L"";
        else if (kind == L"Block" || kind == L"Style" || kind == L"Ltype") {
            AcDbObjectId id;
            acdbGetObjectId(id, rb.resval.rlname);
            if (kind == L"Block") {
                AcDbPeek peek(id);
                const AcDbBlockTableRecord* btr = peek.as<AcDbBlockTableRecord>();
                v.text = btr ? btr->name() : std::wstring();
                if (!btr && !id.isNull())
                    m_pendingArrows.emplace_back(c, id);
            } else {
                v.id = id;
            }
        } else if (c == 90)
            v.integer = rb.resval.rlong;
        else
            v.integer = rb.resval.rint;
        m_vars.setValue(c, v);
    }
    return f->filerStatus();
}

void AcDbDimStyleTableRecord::composeForLoad()
{
    for (const auto& [code, id] : m_pendingArrows) {
        AcDbPeek peek(id);
        if (const AcDbBlockTableRecord* btr = peek.as<AcDbBlockTableRecord>()) {
            AcDbDimVarValue v;
            v.text = btr->name();
            m_vars.setValue(code, v);
        }
    }
    m_pendingArrows.clear();
}
