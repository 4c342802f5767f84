// AcDbMText: data, transformation and filing of paragraph text.
#include "host/db/AcDbMText.h"

#include <cmath>
#include <cstring>

#include "host/db/AcDbAnnotativeObjectPE.h"
#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbMTextFormat.h"
#include "host/db/acutads.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, MTEXT, "")

AcDbMText::AcDbMText()
{
    acdbInitAnnotativeObjectPE();
}

namespace {
constexpr size_t kChunk = 250;
}

AcGePoint3d AcDbMText::location() const { assertReadEnabled(); return m_location; }
Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& p) { assertWriteEnabled(); m_location = p; return Acad::eOk; }
AcGeVector3d AcDbMText::normal() const { assertReadEnabled(); return m_normal; }
AcGeVector3d AcDbMText::direction() const { assertReadEnabled(); return m_direction; }
double AcDbMText::textHeight() const { assertReadEnabled(); return m_height; }
double AcDbMText::width() const { assertReadEnabled(); return m_width; }
AcDbMText::AttachmentPoint AcDbMText::attachment() const { assertReadEnabled(); return static_cast<AttachmentPoint>(m_attachment); }
AcDbMText::FlowDirection AcDbMText::flowDirection() const { assertReadEnabled(); return static_cast<FlowDirection>(m_flow); }
AcDbObjectId AcDbMText::textStyle() const { assertReadEnabled(); return m_style; }
Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style) { assertWriteEnabled(); m_style = style; return Acad::eOk; }
int AcDbMText::lineSpacingStyle() const { assertReadEnabled(); return m_spacingStyle; }
double AcDbMText::lineSpacingFactor() const { assertReadEnabled(); return m_spacingFactor; }
const std::wstring& AcDbMText::contentsString() const { assertReadEnabled(); return m_contents; }
std::wstring AcDbMText::text() const { return AcDbMTextFormat::plainText(contentsString()); }

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal)
{
    AcGeVector3d n;
    if (!AcDbCurveGeom::unitNormal(normal, n))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    double rot = rotation();
    m_normal = n;
    m_direction = AcDbCurveGeom::ocsDirection(m_normal, rot);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction)
{
    AcGeVector3d d = direction - m_normal * direction.dotProduct(m_normal);
    if (!AcDbCurveGeom::unitNormal(d, d))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_direction = d;
    return Acad::eOk;
}

double AcDbMText::rotation() const
{
    assertReadEnabled();
    return AcDbCurveGeom::ocsAngle(m_normal, m_direction);
}

Acad::ErrorStatus AcDbMText::setRotation(double angle)
{
    if (!std::isfinite(angle))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_direction = AcDbCurveGeom::ocsDirection(m_normal, angle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height)
{
    if (!(height > 0.0) || !std::isfinite(height))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_height = height;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setWidth(double width)
{
    if (width < 0.0 || !std::isfinite(width))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_width = width;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment)
{
    if (attachment < kTopLeft || attachment > kBottomRight)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_attachment = attachment;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setFlowDirection(FlowDirection direction)
{
    if (direction < kLtoR || direction > kByStyle)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_flow = direction;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setLineSpacingStyle(int style)
{
    if (style < 1 || style > 2)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_spacingStyle = style;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor)
{
    if (!(factor >= 0.25 && factor <= 4.0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_spacingFactor = factor;
    return Acad::eOk;
}

ACHAR* AcDbMText::contents() const
{
    assertReadEnabled();
    return acutNewString(m_contents.c_str());
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text)
{
    assertWriteEnabled();
    m_contents = text ? text : L"";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& xform)
{
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es = AcDbCurveGeom::planarImage(xform, m_normal, m_direction, image);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    m_location.transformBy(xform);
    m_height *= image.scale;
    m_width *= image.scale;
    m_normal = image.newNormal;
    if (image.mirrored) {
        // Paragraph text cannot run backward: it keeps reading forward, its box mirrored.
        m_direction = image.newYAxis.crossProduct(m_normal);
        int column = (m_attachment - 1) % 3;
        m_attachment += (column == 0 ? 2 : column == 2 ? -2 : 0);
    } else {
        m_direction = image.newXAxis;
    }
    return Acad::eOk;
}

void AcDbMText::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

Acad::ErrorStatus AcDbMText::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_location);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i)
        if (indices[i] == 0) {
            m_location += offset;
            break;
        }
    return Acad::eOk;
}

void AcDbMText::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  MTEXT     Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n         Location:    X=%10.4f  Y=%10.4f  Z=%10.4f", m_location.x, m_location.y, m_location.z);
    acutPrintf(L"\n         Width:       %10.4f\n         Text height: %10.4f", m_width, m_height);
    acutPrintf(L"\n         Contents:    %s", m_contents.c_str());
}

Acad::ErrorStatus AcDbMText::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writePoint3d(m_location);
    filer->writeVector3d(m_normal);
    filer->writeVector3d(m_direction);
    filer->writeDouble(m_height);
    filer->writeDouble(m_width);
    filer->writeInt16(static_cast<Adesk::Int16>(m_attachment));
    filer->writeInt16(static_cast<Adesk::Int16>(m_flow));
    filer->writeHardPointerId(m_style);
    filer->writeInt16(static_cast<Adesk::Int16>(m_spacingStyle));
    filer->writeDouble(m_spacingFactor);
    filer->writeString(m_contents.c_str());
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readPoint3d(&m_location);
    filer->readVector3d(&m_normal);
    filer->readVector3d(&m_direction);
    filer->readDouble(&m_height);
    filer->readDouble(&m_width);
    Adesk::Int16 att = 0, flow = 0, spacing = 0;
    filer->readInt16(&att);
    filer->readInt16(&flow);
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    m_style = style;
    filer->readInt16(&spacing);
    filer->readDouble(&m_spacingFactor);
    filer->readString(m_contents);
    m_attachment = att;
    m_flow = flow;
    m_spacingStyle = spacing;
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbMText");
    filer->writePoint3d(AcDb::kDxfXCoord, m_location);
    filer->writeDouble(AcDb::kDxfReal, m_height);
    filer->writeDouble(acdbDxfCode(41), m_width);
    filer->writeInt16(acdbDxfCode(71), static_cast<Adesk::Int16>(m_attachment));
    filer->writeInt16(acdbDxfCode(72), static_cast<Adesk::Int16>(m_flow));
    size_t pos = 0;
    while (m_contents.size() - pos > kChunk) {
        filer->writeString(acdbDxfCode(3), m_contents.substr(pos, kChunk).c_str());
        pos += kChunk;
    }
    filer->writeString(AcDb::kDxfText, m_contents.substr(pos).c_str());
    std::wstring style = AcDbCurveGeom::recordName(m_style);
    filer->writeString(AcDb::kDxfTextStyleName, style.empty() ? L"Standard" : style.c_str());
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    filer->writeVector3d(acdbDxfCode(11), m_direction);
    filer->writeInt16(acdbDxfCode(73), static_cast<Adesk::Int16>(m_spacingStyle));
    filer->writeDouble(acdbDxfCode(44), m_spacingFactor);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    std::wstring chunks, last;
    bool hasDirection = false;
    double rotationDeg = 0.0;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        const ACHAR* s = rb.resval.rstring ? rb.resval.rstring : L"";
        switch (rb.restype) {
        case 1: last = s; break;
        case 3: chunks += s; break;
        case 7: m_style = AcDbCurveGeom::recordId(filer->database(), AcDbCurveGeom::Table::kTextStyle, s); break;
        case 10: m_location = AcDbCurveGeom::point(rb); break;
        case 11: m_direction = AcDbCurveGeom::vector(rb); hasDirection = true; break;
        case 40: if (rb.resval.rreal > 0.0) m_height = rb.resval.rreal; break;
        case 41: m_width = std::fabs(rb.resval.rreal); break;
        case 44: if (rb.resval.rreal >= 0.25 && rb.resval.rreal <= 4.0) m_spacingFactor = rb.resval.rreal; break;
        case 50: rotationDeg = rb.resval.rreal; break;
        case 71: if (rb.resval.rint >= kTopLeft && rb.resval.rint <= kBottomRight) m_attachment = rb.resval.rint; break;
        case 72: if (rb.resval.rint >= kLtoR && rb.resval.rint <= kByStyle) m_flow = rb.resval.rint; break;
        case 73: if (rb.resval.rint >= 1 && rb.resval.rint <= 2) m_spacingStyle = rb.resval.rint; break;
        case 210:
            if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_normal))
                m_normal = AcGeVector3d::kZAxis;
            break;
        default: break;
        }
        return Acad::eOk;
    });
    m_contents = chunks + last;
    AcGeVector3d d = m_direction - m_normal * m_direction.dotProduct(m_normal);
    if (!hasDirection || !AcDbCurveGeom::unitNormal(d, m_direction))
        m_direction = AcDbCurveGeom::ocsDirection(m_normal, rotationDeg * AcDbCurveGeom::kPi / 180.0);
    return es;
}
