// View, UCS and viewport records kept as DXF groups; the plan view "*Active" viewport.
#include "host/db/AcDbViewTables.h"

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbSymbolTableDefs.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbKeptTagsRecord, AcDbSymbolTableRecord)
SV_DEFINE_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord, AcDbViewTableIterator)
SV_DEFINE_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord, AcDbUCSTableIterator)
SV_DEFINE_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord, AcDbViewportTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbKeptTagsRecord, 0, 0, 0, VIEW, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbKeptTagsRecord, 0, 0, 0, UCS, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbKeptTagsRecord, 0, 0, 0, VPORT, ACAD)

Acad::ErrorStatus AcDbKeptTagsRecord::setTags(AcDbTagList tags)
{
    assertWriteEnabled();
    m_tags = std::move(tags);
    return Acad::eOk;
}

const AcDbTag* AcDbKeptTagsRecord::tag(short code) const
{
    for (const AcDbTag& t : m_tags)
        if (t.code == code)
            return &t;
    return nullptr;
}

// The tags travel as one small DXF-like list: code, then the value by its type.
Acad::ErrorStatus AcDbKeptTagsRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeInt32(static_cast<Adesk::Int32>(m_tags.size()));
    for (const AcDbTag& t : m_tags) {
        f->writeInt16(t.code);
        f->writeUInt8(static_cast<Adesk::UInt8>(t.value.index()));
        f->writeBool(t.is2d);
        switch (t.value.index()) {
        case 1: f->writeInt64(t.asInt()); break;
        case 2: f->writeDouble(t.asReal()); break;
        case 3: f->writeString(t.asText().c_str()); break;
        case 4: f->writePoint3d(t.asPoint()); break;
        case 5: {
            const auto& b = std::get<std::vector<Adesk::UInt8>>(t.value);
            f->writeBinaryChunk(reinterpret_cast<const char*>(b.data()), static_cast<Adesk::UInt32>(b.size()));
            break;
        }
        default: break;
        }
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbKeptTagsRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::Int32 n = 0;
    f->readInt32(&n);
    AcDbTagList tags;
    for (Adesk::Int32 i = 0; i < n && f->filerStatus() == Acad::eOk; ++i) {
        AcDbTag t;
        Adesk::UInt8 kind = 0;
        f->readInt16(&t.code);
        f->readUInt8(&kind);
        f->readBool(&t.is2d);
        switch (kind) {
        case 1: { Adesk::Int64 v = 0; f->readInt64(&v); t.value = v; break; }
        case 2: { double v = 0; f->readDouble(&v); t.value = v; break; }
        case 3: { std::wstring v; f->readString(v); t.value = v; break; }
        case 4: { AcGePoint3d v; f->readPoint3d(&v); t.value = v; break; }
        case 5: {
            char* buf = nullptr;
            Adesk::UInt32 size = 0;
            f->readBinaryChunk(&buf, size);
            t.value = std::vector<Adesk::UInt8>(buf, buf + size);
            delete[] buf;
            break;
        }
        default: break;
        }
        tags.push_back(std::move(t));
    }
    if (f->filerStatus() == Acad::eOk)
        m_tags = std::move(tags);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbKeptTagsRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(subclassName());
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(commonFlags()));
    acdbWriteTags(f, m_tags);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbKeptTagsRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(subclassName());
    AcDbTagList tags;
    acdbReadTags(f, tags);
    m_tags.clear();
    for (AcDbTag& t : tags) {
        if (t.code == 2)
            setName(t.asText().c_str());
        else if (t.code == 70)
            setCommonFlags(static_cast<int>(t.asInt()));
        else
            m_tags.push_back(std::move(t));
    }
    return f->filerStatus();
}

AcDbTagList acdbDefaultActiveViewportTags()
{
    using T = AcDbTag;
    return {T::point2d(10, 0, 0),  T::point2d(11, 1, 1),  T::point2d(12, 0, 0),
            T::point2d(13, 0, 0),  T::point2d(14, 0.5, 0.5), T::point2d(15, 0.5, 0.5),
            T::point(16, AcGePoint3d(0, 0, 1)), T::point(17, AcGePoint3d(0, 0, 0)),
            T::real(40, 10.0),    T::real(41, 1.5),       T::real(42, 50.0),
            T::real(43, 0.0),     T::real(44, 0.0),       T::real(50, 0.0),
            T::real(51, 0.0),     T::integer(71, 0),      T::integer(72, 1000),
            T::integer(73, 1),    T::integer(74, 3),      T::integer(75, 0),
            T::integer(76, 0),    T::integer(77, 0),      T::integer(78, 0),
            T::integer(281, 0),   T::integer(65, 1),      T::point(110, AcGePoint3d(0, 0, 0)),
            T::point(111, AcGePoint3d(1, 0, 0)), T::point(112, AcGePoint3d(0, 1, 0)),
            T::integer(79, 0),    T::real(146, 0.0)};
}
