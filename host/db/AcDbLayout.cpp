// Layouts: name, tab order and block record; plot settings kept as read.
#include "host/db/AcDbLayout.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbOpen.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLayout, AcDbObject, 0, 0, 0, LAYOUT, ACAD)

AcDbLayout::AcDbLayout() = default;

Acad::ErrorStatus AcDbLayout::getLayoutName(const ACHAR*& name) const { name = layoutName(); return Acad::eOk; }
const ACHAR* AcDbLayout::layoutName() const { assertReadEnabled(); return m_name.c_str(); }
Acad::ErrorStatus AcDbLayout::setLayoutName(const ACHAR* name)
{
    if (!name || !*name)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_name = name;
    return Acad::eOk;
}
int AcDbLayout::getTabOrder() const { assertReadEnabled(); return m_tabOrder; }
void AcDbLayout::setTabOrder(int order) { assertWriteEnabled(); m_tabOrder = order; }
AcDbObjectId AcDbLayout::getBlockTableRecordId() const { assertReadEnabled(); return m_block; }
Acad::ErrorStatus AcDbLayout::setBlockTableRecordId(AcDbObjectId id)
{
    assertWriteEnabled();
    m_block = id;
    return Acad::eOk;
}
bool AcDbLayout::modelType() const { return m_tabOrder == 0; }
void AcDbLayout::setPlotSettingsTags(AcDbTagList tags) { assertWriteEnabled(); m_plotTags = std::move(tags); }
void AcDbLayout::setLayoutTags(AcDbTagList tags) { assertWriteEnabled(); m_layoutTags = std::move(tags); }

AcDbTagList AcDbLayout::defaultPlotSettingsTags(const ACHAR* pageName)
{
    using T = AcDbTag;
    return {T::text(1, pageName ? pageName : L""), T::text(2, L"none_device"), T::text(4, L""),
            T::text(6, L""), T::real(40, 0), T::real(41, 0), T::real(42, 0), T::real(43, 0),
            T::real(44, 0), T::real(45, 0), T::real(46, 0), T::real(47, 0), T::real(48, 0),
            T::real(49, 0), T::real(140, 0), T::real(141, 0), T::real(142, 1), T::real(143, 1),
            T::integer(70, 688), T::integer(72, 0), T::integer(73, 0), T::integer(74, 5),
            T::text(7, L""), T::integer(75, 16), T::integer(76, 0), T::integer(77, 2),
            T::integer(78, 300), T::real(147, 1), T::real(148, 0), T::real(149, 0)};
}

AcDbTagList AcDbLayout::defaultLayoutTags()
{
    using T = AcDbTag;
    return {T::integer(70, 1), T::point2d(10, 0, 0), T::point2d(11, 12, 9),
            T::point(12, AcGePoint3d(0, 0, 0)), T::point(14, AcGePoint3d(0, 0, 0)),
            T::point(15, AcGePoint3d(0, 0, 0)), T::real(146, 0), T::point(13, AcGePoint3d(0, 0, 0)),
            T::point(16, AcGePoint3d(1, 0, 0)), T::point(17, AcGePoint3d(0, 1, 0)), T::integer(76, 0)};
}

Acad::ErrorStatus AcDbLayout::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeString(m_name.c_str());
    f->writeInt32(m_tabOrder);
    f->writeSoftPointerId(m_block);
    acdbWriteTags(f, m_plotTags);
    acdbWriteTags(f, m_layoutTags);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLayout::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::Int32 tab = 0;
    AcDbSoftPointerId block;
    f->readString(m_name);
    f->readInt32(&tab);
    f->readSoftPointerId(&block);
    acdbReadTags(f, m_plotTags);
    acdbReadTags(f, m_layoutTags);
    m_tabOrder = tab;
    m_block = block;
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLayout::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbPlotSettings"));
    acdbWriteTags(f, m_plotTags);
    f->writeSubclassMarker(ACRX_T("AcDbLayout"));
    f->writeString(AcDb::kDxfText, m_name.c_str());
    AcDbTagList first, rest;
    for (const AcDbTag& t : m_layoutTags)
        (t.code == 70 ? first : rest).push_back(t);
    acdbWriteTags(f, first);
    f->writeInt16(acdbDxfCode(71), static_cast<Adesk::Int16>(m_tabOrder));
    acdbWriteTags(f, rest);
    f->writeObjectId(AcDb::kDxfSoftPointerId, m_block);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLayout::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    if (f->atSubclassData(ACRX_T("AcDbPlotSettings"))) {
        m_plotTags.clear();
        acdbReadTags(f, m_plotTags);
    }
    if (f->atSubclassData(ACRX_T("AcDbLayout"))) {
        AcDbTagList tags;
        acdbReadTags(f, tags);
        m_layoutTags.clear();
        for (AcDbTag& t : tags) {
            if (t.code == 1)
                m_name = t.asText();
            else if (t.code == 71)
                m_tabOrder = static_cast<int>(t.asInt());
            else if (t.code == 330) {
                AcDbObjectId id;
                if (f->database())
                    f->database()->getAcDbObjectId(id, true, AcDbHandle(t.asText().c_str()));
                m_block = id;
            } else
                m_layoutTags.push_back(std::move(t));
        }
    }
    return f->filerStatus();
}
