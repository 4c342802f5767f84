// Layer records: flags, colour, linetype, line weight and their DXF form.
#include "host/db/AcDbLayerTable.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbSymbolTableDefs.h"

SV_DEFINE_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord, AcDbLayerTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, ACAD)

AcDbLayerTableRecord::AcDbLayerTableRecord()
{
    m_color.setColorIndex(7);
}

bool AcDbLayerTableRecord::isFrozen() const { assertReadEnabled(); return m_frozen; }
bool AcDbLayerTableRecord::isOff() const { assertReadEnabled(); return m_off; }
bool AcDbLayerTableRecord::isLocked() const { assertReadEnabled(); return m_locked; }
bool AcDbLayerTableRecord::isPlottable() const { assertReadEnabled(); return m_plottable; }
bool AcDbLayerTableRecord::VPDFLT() const { assertReadEnabled(); return m_vpdflt; }
AcCmColor AcDbLayerTableRecord::color() const { assertReadEnabled(); return m_color; }
AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const { assertReadEnabled(); return m_linetype; }
AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const { assertReadEnabled(); return m_weight; }
AcDbObjectId AcDbLayerTableRecord::plotStyleNameId() const { assertReadEnabled(); return m_plotStyle; }

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen)
{
    assertWriteEnabled();
    m_frozen = frozen;
    return Acad::eOk;
}
void AcDbLayerTableRecord::setIsOff(bool off) { assertWriteEnabled(); m_off = off; }
void AcDbLayerTableRecord::setIsLocked(bool locked) { assertWriteEnabled(); m_locked = locked; }
Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable)
{
    assertWriteEnabled();
    m_plottable = plottable;
    return Acad::eOk;
}
void AcDbLayerTableRecord::setVPDFLT(bool frozen) { assertWriteEnabled(); m_vpdflt = frozen; }
void AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    assertWriteEnabled();
    m_color = color;
    if (m_color.isByLayer() || m_color.isByBlock())
        m_color.setColorIndex(7);  // a layer has a real colour
}
Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id)
{
    assertWriteEnabled();
    m_linetype = id;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight)
{
    if (weight == AcDb::kLnWtByLayer || weight == AcDb::kLnWtByBlock)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_weight = weight;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayerTableRecord::setPlotStyleName(AcDbObjectId id)
{
    assertWriteEnabled();
    m_plotStyle = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeBool(m_frozen);
    f->writeBool(m_off);
    f->writeBool(m_locked);
    f->writeBool(m_plottable);
    f->writeBool(m_vpdflt);
    f->writeUInt8(static_cast<Adesk::UInt8>(m_color.colorMethod()));
    f->writeInt16(m_color.colorIndex());
    f->writeUInt32(m_color.rgb());
    f->writeHardPointerId(m_linetype);
    f->writeInt16(static_cast<Adesk::Int16>(m_weight));
    f->writeHardPointerId(m_plotStyle);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLayerTableRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::UInt8 method = 0;
    Adesk::Int16 index = 7, weight = 0;
    Adesk::UInt32 rgb = 0;
    AcDbHardPointerId lt, ps;
    f->readBool(&m_frozen);
    f->readBool(&m_off);
    f->readBool(&m_locked);
    f->readBool(&m_plottable);
    f->readBool(&m_vpdflt);
    f->readUInt8(&method);
    f->readInt16(&index);
    f->readUInt32(&rgb);
    f->readHardPointerId(&lt);
    f->readInt16(&weight);
    f->readHardPointerId(&ps);
    if (method == AcCm::kByColor)
        m_color.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
                       static_cast<Adesk::UInt8>(rgb));
    else
        m_color.setColorIndex(index);
    m_linetype = lt;
    m_weight = static_cast<AcDb::LineWeight>(weight);
    m_plotStyle = ps;
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLayerTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbLayerTableRecord"));
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>((m_frozen ? 1 : 0) | (m_vpdflt ? 2 : 0) |
                                                             (m_locked ? 4 : 0) | commonFlags()));
    const Adesk::Int16 index = m_color.colorIndex();
    f->writeInt16(AcDb::kDxfColor, m_off ? static_cast<Adesk::Int16>(-index) : index);
    if (m_color.isByColor())
        f->writeInt32(AcDb::kDxfColorRGB, static_cast<Adesk::Int32>(m_color.rgb()));
    std::wstring lt = L"Continuous";
    {
        AcDbPeek peek(m_linetype);
        if (const auto* rec = peek.as<AcDbLinetypeTableRecord>())
            lt = rec->name();
    }
    f->writeString(AcDb::kDxfLinetypeName, lt.c_str());
    if (!m_plottable)
        f->writeBool(AcDb::kDxfBool, false);
    f->writeInt16(AcDb::kDxfLineWeight, static_cast<Adesk::Int16>(m_weight));
    if (!m_plotStyle.isNull())
        f->writeObjectId(AcDb::kDxfPlotStyleNameId, m_plotStyle);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLayerTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbLayerTableRecord"));
    resbuf rb;
    bool haveRgb = false;
    Adesk::UInt32 rgb = 0;
    bool more = true;
    while (more && !f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        switch (rb.restype) {
        case AcDb::kDxfSymbolTableName: setName(rb.resval.rstring); break;
        case AcDb::kDxfInt16:
            m_frozen = rb.resval.rint & 1;
            m_vpdflt = rb.resval.rint & 2;
            m_locked = rb.resval.rint & 4;
            setCommonFlags(rb.resval.rint & ~7);
            break;
        case AcDb::kDxfColor:
            m_off = rb.resval.rint < 0;
            if (!m_color.setColorIndex(static_cast<Adesk::Int16>(rb.resval.rint < 0 ? -rb.resval.rint : rb.resval.rint)) ||
                m_color.isByLayer() || m_color.isByBlock())
                m_color.setColorIndex(7);
            break;
        case AcDb::kDxfColorRGB:
            haveRgb = true;
            rgb = static_cast<Adesk::UInt32>(rb.resval.rlong);
            break;
        case AcDb::kDxfLinetypeName:
            if (AcDbDatabase* db = f->database()) {
                AcDbPeek table(db->linetypeTableId());
                if (const auto* t = table.as<AcDbSymbolTable>())
                    t->getAt(rb.resval.rstring, m_linetype);
            }
            break;
        case AcDb::kDxfBool: m_plottable = rb.resval.rint != 0; break;
        case AcDb::kDxfLineWeight: m_weight = static_cast<AcDb::LineWeight>(rb.resval.rint); break;
        case AcDb::kDxfPlotStyleNameId: {
            AcDbObjectId id;
            acdbGetObjectId(id, rb.resval.rlname);
            m_plotStyle = id;
            break;
        }
        case AcDb::kDxfSubclass:
            f->pushBackItem();
            more = false;
            break;
        default: break;
        }
    }
    if (haveRgb)
        m_color.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
                       static_cast<Adesk::UInt8>(rgb));
    return f->filerStatus();
}
