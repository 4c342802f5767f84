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
    acdbWriteTags(f, m_tags);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbKeptTagsRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    return acdbReadTags(f, m_tags);
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
