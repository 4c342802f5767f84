// Scale list entries and the annotation scale value.
#include "host/db/AcDbScale.h"

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbScale, AcDbObject, 0, 0, 0, SCALE, ACAD)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbAnnotationScale, AcRxObject)

AcDbScale::AcDbScale() = default;

Acad::ErrorStatus AcDbScale::getScaleName(std::wstring& name) const { assertReadEnabled(); name = m_name; return Acad::eOk; }
const ACHAR* AcDbScale::scaleName() const { assertReadEnabled(); return m_name.c_str(); }
Acad::ErrorStatus AcDbScale::setScaleName(const ACHAR* name)
{
    if (!name || !*name)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_name = name;
    return Acad::eOk;
}
double AcDbScale::paperUnits() const { assertReadEnabled(); return m_paper; }
double AcDbScale::drawingUnits() const { assertReadEnabled(); return m_drawing; }
Acad::ErrorStatus AcDbScale::setPaperUnits(double u)
{
    if (!(u > 0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_paper = u;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbScale::setDrawingUnits(double u)
{
    if (!(u > 0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_drawing = u;
    return Acad::eOk;
}
bool AcDbScale::isUnitScale() const { assertReadEnabled(); return m_unit; }
Acad::ErrorStatus AcDbScale::setIsUnitScale(bool unit)
{
    assertWriteEnabled();
    m_unit = unit;
    return Acad::eOk;
}
double AcDbScale::scale() const { assertReadEnabled(); return m_drawing != 0 ? m_paper / m_drawing : 0.0; }

Acad::ErrorStatus AcDbScale::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeString(m_name.c_str());
    f->writeDouble(m_paper);
    f->writeDouble(m_drawing);
    f->writeBool(m_unit);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbScale::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    f->readString(m_name);
    f->readDouble(&m_paper);
    f->readDouble(&m_drawing);
    f->readBool(&m_unit);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbScale::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbScale"));
    f->writeInt16(AcDb::kDxfInt16, 0);
    f->writeString(AcDb::kDxfXTextString, m_name.c_str());
    f->writeDouble(AcDb::kDxfXReal, m_paper);
    f->writeDouble(acdbDxfCode(141), m_drawing);
    f->writeBool(AcDb::kDxfBool, m_unit);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbScale::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbScale"));
    resbuf rb;
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        switch (rb.restype) {
        case 300: m_name = rb.resval.rstring ? rb.resval.rstring : L""; break;
        case 140: m_paper = rb.resval.rreal; break;
        case 141: m_drawing = rb.resval.rreal; break;
        case 290: m_unit = rb.resval.rint != 0; break;
        case 100: f->pushBackItem(); return f->filerStatus();
        default: break;
        }
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbAnnotationScale::getScale(double& scale) const
{
    if (m_drawing == 0) {
        scale = 1.0;
        return Acad::eInvalidInput;
    }
    scale = m_paper / m_drawing;
    return Acad::eOk;
}
