// AcDbText: data, transformation and filing of single-line text.
#include "host/db/AcDbText.h"

#include <cmath>
#include <cstring>

#include "host/db/AcDbAnnotativeObjectPE.h"
#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/acutads.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, TEXT, "")

AcDbText::AcDbText()
{
    acdbInitAnnotativeObjectPE();
}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height,
                   double rotation)
    : m_position(position), m_alignment(position), m_rotation(rotation), m_style(style), m_text(text ? text : L"")
{
    acdbInitAnnotativeObjectPE();
    if (height > 0.0)
        m_height = height;
}

AcGePoint3d AcDbText::position() const { assertReadEnabled(); return m_position; }
Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& p) { assertWriteEnabled(); m_position = p; return Acad::eOk; }
AcGePoint3d AcDbText::alignmentPoint() const { assertReadEnabled(); return m_alignment; }
Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& p) { assertWriteEnabled(); m_alignment = p; return Acad::eOk; }
bool AcDbText::isDefaultAlignment() const { assertReadEnabled(); return m_hmode == 0 && m_vmode == 0; }
double AcDbText::height() const { assertReadEnabled(); return m_height; }
double AcDbText::widthFactor() const { assertReadEnabled(); return m_widthFactor; }
double AcDbText::oblique() const { assertReadEnabled(); return m_oblique; }
double AcDbText::rotation() const { assertReadEnabled(); return m_rotation; }
double AcDbText::thickness() const { assertReadEnabled(); return m_thickness; }
AcGeVector3d AcDbText::normal() const { assertReadEnabled(); return m_normal; }
AcDbObjectId AcDbText::textStyle() const { assertReadEnabled(); return m_style; }
int AcDbText::horizontalMode() const { assertReadEnabled(); return m_hmode; }
int AcDbText::verticalMode() const { assertReadEnabled(); return m_vmode; }
bool AcDbText::isMirroredInX() const { assertReadEnabled(); return (m_generation & 2) != 0; }
bool AcDbText::isMirroredInY() const { assertReadEnabled(); return (m_generation & 4) != 0; }
const ACHAR* AcDbText::textStringConst() const { assertReadEnabled(); return m_text.c_str(); }

Acad::ErrorStatus AcDbText::setHeight(double height)
{
    if (!(height > 0.0) || !std::isfinite(height))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_height = height;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor)
{
    if (!(factor > 0.0) || !std::isfinite(factor))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_widthFactor = factor;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setOblique(double angle) { assertWriteEnabled(); m_oblique = angle; return Acad::eOk; }
Acad::ErrorStatus AcDbText::setRotation(double angle) { assertWriteEnabled(); m_rotation = angle; return Acad::eOk; }
Acad::ErrorStatus AcDbText::setThickness(double t) { assertWriteEnabled(); m_thickness = t; return Acad::eOk; }
Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) { assertWriteEnabled(); m_style = style; return Acad::eOk; }

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

Acad::ErrorStatus AcDbText::setHorizontalMode(int mode)
{
    if (mode < 0 || mode > 5)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_hmode = mode;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setVerticalMode(int mode)
{
    if (mode < 0 || mode > 3)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_vmode = mode;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInX(bool on)
{
    assertWriteEnabled();
    m_generation = on ? (m_generation | 2) : (m_generation & ~2);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInY(bool on)
{
    assertWriteEnabled();
    m_generation = on ? (m_generation | 4) : (m_generation & ~4);
    return Acad::eOk;
}

ACHAR* AcDbText::textString() const
{
    assertReadEnabled();
    return acutNewString(m_text.c_str());
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text)
{
    assertWriteEnabled();
    m_text = text ? text : L"";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& xform)
{
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es =
        AcDbCurveGeom::planarImage(xform, m_normal, AcDbCurveGeom::ocsDirection(m_normal, m_rotation), image);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    m_position.transformBy(xform);
    m_alignment.transformBy(xform);
    m_height *= image.scale;
    m_thickness *= (xform * m_normal).length();
    m_normal = image.newNormal;
    if (image.mirrored) {
        // Reads backward now; the up direction of the letters follows the image.
        m_generation ^= 2;
        m_rotation = AcDbCurveGeom::normalizeAngle(AcDbCurveGeom::ocsAngle(m_normal, image.newYAxis) -
                                                   AcDbCurveGeom::kPi / 2.0);
    } else {
        m_rotation = AcDbCurveGeom::ocsAngle(m_normal, image.newXAxis);
    }
    return Acad::eOk;
}

void AcDbText::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

Acad::ErrorStatus AcDbText::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_position);
    if (!isDefaultAlignment())
        gripPoints.append(m_alignment);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i) {
        if (indices[i] == 0 && isDefaultAlignment()) {
            m_position += offset;
            m_alignment += offset;
        } else if (indices[i] == 0) {
            m_position += offset;
        } else if (indices[i] == 1) {
            m_alignment += offset;
        }
    }
    return Acad::eOk;
}

void AcDbText::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  TEXT      Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n                  Style = \"%s\"", AcDbCurveGeom::recordName(m_style).c_str());
    acutPrintf(L"\n       start point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_position.x, m_position.y, m_position.z);
    acutPrintf(L"\n                  height %10.4f\n                    text %s", m_height, m_text.c_str());
    acutPrintf(L"\n         rotation angle %7.2f", m_rotation * 180.0 / AcDbCurveGeom::kPi);
}

Acad::ErrorStatus AcDbText::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writePoint3d(m_position);
    filer->writePoint3d(m_alignment);
    filer->writeDouble(m_height);
    filer->writeDouble(m_widthFactor);
    filer->writeDouble(m_oblique);
    filer->writeDouble(m_rotation);
    filer->writeDouble(m_thickness);
    filer->writeVector3d(m_normal);
    filer->writeHardPointerId(m_style);
    filer->writeInt16(static_cast<Adesk::Int16>(m_hmode));
    filer->writeInt16(static_cast<Adesk::Int16>(m_vmode));
    filer->writeInt16(static_cast<Adesk::Int16>(m_generation));
    filer->writeString(m_text.c_str());
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readPoint3d(&m_position);
    filer->readPoint3d(&m_alignment);
    filer->readDouble(&m_height);
    filer->readDouble(&m_widthFactor);
    filer->readDouble(&m_oblique);
    filer->readDouble(&m_rotation);
    filer->readDouble(&m_thickness);
    filer->readVector3d(&m_normal);
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    m_style = style;
    Adesk::Int16 h = 0, v = 0, g = 0;
    filer->readInt16(&h);
    filer->readInt16(&v);
    filer->readInt16(&g);
    m_hmode = h;
    m_vmode = v;
    m_generation = g;
    filer->readString(m_text);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGeMatrix3d toOcs = AcGeMatrix3d::worldToPlane(m_normal);
    filer->writeSubclassMarker(L"AcDbText");
    if (m_thickness != 0.0)
        filer->writeDouble(AcDb::kDxfThickness, m_thickness);
    filer->writePoint3d(AcDb::kDxfXCoord, toOcs * m_position);
    filer->writeDouble(AcDb::kDxfTxtSize, m_height);
    filer->writeString(AcDb::kDxfText, m_text.c_str());
    if (m_rotation != 0.0)
        filer->writeAngle(AcDb::kDxfAngle, m_rotation);
    if (m_widthFactor != 1.0)
        filer->writeDouble(AcDb::kDxfTxtStyleXScale, m_widthFactor);
    if (m_oblique != 0.0)
        filer->writeAngle(acdbDxfCode(51), m_oblique);
    std::wstring style = AcDbCurveGeom::recordName(m_style);
    filer->writeString(AcDb::kDxfTextStyleName, style.empty() ? L"Standard" : style.c_str());
    if (m_generation != 0)
        filer->writeInt16(acdbDxfCode(71), static_cast<Adesk::Int16>(m_generation));
    if (m_hmode != 0)
        filer->writeInt16(acdbDxfCode(72), static_cast<Adesk::Int16>(m_hmode));
    if (!(m_hmode == 0 && m_vmode == 0))
        filer->writePoint3d(acdbDxfCode(11), toOcs * m_alignment);
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    filer->writeSubclassMarker(L"AcDbText");
    if (m_vmode != 0)
        filer->writeInt16(acdbDxfCode(73), static_cast<Adesk::Int16>(m_vmode));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGeMatrix3d toOcs = AcGeMatrix3d::worldToPlane(m_normal);
    AcGePoint3d pos = toOcs * m_position, align = toOcs * m_alignment;
    bool hasAlign = false;
    const double rad = AcDbCurveGeom::kPi / 180.0;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 1: m_text = rb.resval.rstring ? rb.resval.rstring : L""; break;
        case 7:
            m_style = AcDbCurveGeom::recordId(filer->database(), AcDbCurveGeom::Table::kTextStyle,
                                              rb.resval.rstring ? rb.resval.rstring : L"");
            break;
        case 10: pos = AcDbCurveGeom::point(rb); break;
        case 11: align = AcDbCurveGeom::point(rb); hasAlign = true; break;
        case 39: m_thickness = rb.resval.rreal; break;
        case 40: if (rb.resval.rreal > 0.0) m_height = rb.resval.rreal; break;
        case 41: if (rb.resval.rreal > 0.0) m_widthFactor = rb.resval.rreal; break;
        case 50: m_rotation = rb.resval.rreal * rad; break;
        case 51: m_oblique = rb.resval.rreal * rad; break;
        case 71: m_generation = rb.resval.rint & 6; break;
        case 72: if (rb.resval.rint >= 0 && rb.resval.rint <= 5) m_hmode = rb.resval.rint; break;
        case 73: if (rb.resval.rint >= 0 && rb.resval.rint <= 3) m_vmode = rb.resval.rint; break;
        case 210:
            if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_normal))
                m_normal = AcGeVector3d::kZAxis;
            break;
        default: break;
        }
        return Acad::eOk;
    });
    AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(m_normal);
    m_position = toWorld * pos;
    m_alignment = hasAlign ? toWorld * align : m_position;
    return es;
}
