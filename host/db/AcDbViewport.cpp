// AcDbViewport: the paper-space viewport's data, frozen layers and filing.
#include "host/db/AcDbViewport.h"

#include <cmath>

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbOpen.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, VIEWPORT, "")

namespace {
bool positive(double v) { return v > 0.0 && std::isfinite(v); }
}

Acad::ErrorStatus AcDbViewport::setWidth(double w)
{
    if (!positive(w))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_width = w;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setHeight(double h)
{
    if (!positive(h))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_height = h;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setViewHeight(double h)
{
    if (!positive(h))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_viewHeight = h;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setViewDirection(const AcGeVector3d& v)
{
    AcGeVector3d d;
    if (!AcDbCurveGeom::unitNormal(v, d))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_direction = d;
    return Acad::eOk;
}

double AcDbViewport::customScale() const
{
    assertReadEnabled();
    return m_viewHeight > 0.0 ? m_height / m_viewHeight : 1.0;
}

Acad::ErrorStatus AcDbViewport::setLocked(bool on)
{
    assertWriteEnabled();
    m_flags = on ? (m_flags | kLocked) : (m_flags & ~kLocked);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::freezeLayersInViewport(const AcDbObjectIdArray& layerIds)
{
    assertWriteEnabled();
    for (int i = 0; i < layerIds.length(); ++i)
        if (!layerIds[i].isNull() && !m_frozen.contains(layerIds[i]))
            m_frozen.append(layerIds[i]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::thawLayersInViewport(const AcDbObjectIdArray& layerIds)
{
    assertWriteEnabled();
    AcDbObjectIdArray kept;
    for (int i = 0; i < m_frozen.length(); ++i)
        if (!layerIds.contains(m_frozen[i]))
            kept.append(m_frozen[i]);
    m_frozen = kept;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::thawAllLayersInViewport()
{
    assertWriteEnabled();
    m_frozen.setLogicalLength(0);
    return Acad::eOk;
}

bool AcDbViewport::isLayerFrozenInViewport(AcDbObjectId layerId) const
{
    assertReadEnabled();
    return m_frozen.contains(layerId);
}

Acad::ErrorStatus AcDbViewport::getFrozenLayerList(AcDbObjectIdArray& layerIds) const
{
    assertReadEnabled();
    layerIds = m_frozen;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::transformBy(const AcGeMatrix3d& xform)
{
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es = AcDbCurveGeom::planarImage(xform, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, image);
    if (es != Acad::eOk)
        return es;
    if (!image.newXAxis.isCodirectionalTo(AcGeVector3d::kXAxis) || image.mirrored)
        return Acad::eNotApplicable;  // a viewport stays an upright box on the sheet
    assertWriteEnabled();
    m_center.transformBy(xform);
    m_width *= image.scale;
    m_height *= image.scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcGeVector3d half(m_width / 2.0, m_height / 2.0, 0.0);
    extents = AcDbExtents();
    extents.addPoint(m_center - half);
    extents.addPoint(m_center + half);
    return Acad::eOk;
}

void AcDbViewport::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  VIEWPORT  Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n                  Center point: X=%10.4f  Y=%10.4f", m_center.x, m_center.y);
    acutPrintf(L"\n                  Width: %10.4f  Height: %10.4f  Status: %s", m_width, m_height, m_on ? L"On" : L"Off");
}

Acad::ErrorStatus AcDbViewport::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writePoint3d(m_center);
    filer->writeDouble(m_width);
    filer->writeDouble(m_height);
    filer->writePoint2d(m_viewCenter);
    filer->writeDouble(m_viewHeight);
    filer->writePoint3d(m_target);
    filer->writeVector3d(m_direction);
    filer->writeDouble(m_twist);
    filer->writeInt16(m_number);
    filer->writeBool(m_on);
    filer->writeInt32(m_flags);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_frozen.length()));
    for (int i = 0; i < m_frozen.length(); ++i)
        filer->writeSoftPointerId(m_frozen[i]);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewport::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readPoint3d(&m_center);
    filer->readDouble(&m_width);
    filer->readDouble(&m_height);
    filer->readPoint2d(&m_viewCenter);
    filer->readDouble(&m_viewHeight);
    filer->readPoint3d(&m_target);
    filer->readVector3d(&m_direction);
    filer->readDouble(&m_twist);
    filer->readInt16(&m_number);
    filer->readBool(&m_on);
    filer->readInt32(&m_flags);
    Adesk::UInt32 n = 0;
    filer->readUInt32(&n);
    m_frozen.setLogicalLength(0);
    for (Adesk::UInt32 i = 0; i < n && filer->filerStatus() == Acad::eOk; ++i) {
        AcDbSoftPointerId id;
        if (filer->readSoftPointerId(&id) == Acad::eOk)
            m_frozen.append(id);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewport::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbViewport");
    filer->writePoint3d(AcDb::kDxfXCoord, m_center);
    filer->writeDouble(acdbDxfCode(40), m_width);
    filer->writeDouble(acdbDxfCode(41), m_height);
    filer->writeInt16(acdbDxfCode(68), static_cast<Adesk::Int16>(m_on ? 1 : 0));
    filer->writeInt16(acdbDxfCode(69), m_number);
    filer->writePoint2d(acdbDxfCode(12), m_viewCenter);
    filer->writePoint2d(acdbDxfCode(13), AcGePoint2d());
    filer->writePoint2d(acdbDxfCode(14), AcGePoint2d(10.0, 10.0));
    filer->writePoint2d(acdbDxfCode(15), AcGePoint2d(10.0, 10.0));
    filer->writeVector3d(acdbDxfCode(16), m_direction);
    filer->writePoint3d(acdbDxfCode(17), m_target);
    filer->writeDouble(acdbDxfCode(42), 50.0);
    filer->writeDouble(acdbDxfCode(43), 0.0);
    filer->writeDouble(acdbDxfCode(44), 0.0);
    filer->writeDouble(acdbDxfCode(45), m_viewHeight);
    filer->writeAngle(acdbDxfCode(50), 0.0);
    filer->writeAngle(acdbDxfCode(51), m_twist);
    filer->writeInt16(acdbDxfCode(72), 1000);
    for (int i = 0; i < m_frozen.length(); ++i)
        filer->writeObjectId(acdbDxfCode(331), m_frozen[i]);
    filer->writeInt32(acdbDxfCode(90), m_flags | (m_on ? 0 : 0x20000));
    filer->writeString(AcDb::kDxfText, L"");
    filer->writeInt16(acdbDxfCode(281), 0);
    filer->writeInt16(acdbDxfCode(71), 1);
    filer->writeInt16(acdbDxfCode(74), 0);
    filer->writePoint3d(acdbDxfCode(110), AcGePoint3d());
    filer->writeVector3d(acdbDxfCode(111), AcGeVector3d::kXAxis);
    filer->writeVector3d(acdbDxfCode(112), AcGeVector3d::kYAxis);
    filer->writeInt16(acdbDxfCode(79), 0);
    filer->writeDouble(acdbDxfCode(146), 0.0);
    filer->writeInt16(acdbDxfCode(170), 0);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewport::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    m_frozen.setLogicalLength(0);
    bool statusSeen = false;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        double v = rb.resval.rreal;
        switch (rb.restype) {
        case 10: m_center = AcDbCurveGeom::point(rb); break;
        case 12: m_viewCenter.set(rb.resval.rpoint[0], rb.resval.rpoint[1]); break;
        case 16: if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_direction)) m_direction = AcGeVector3d::kZAxis; break;
        case 17: m_target = AcDbCurveGeom::point(rb); break;
        case 40: if (positive(v)) m_width = v; break;
        case 41: if (positive(v)) m_height = v; break;
        case 45: if (positive(v)) m_viewHeight = v; break;
        case 51: m_twist = v * AcDbCurveGeom::kPi / 180.0; break;
        case 68: m_on = rb.resval.rint != 0; statusSeen = true; break;
        case 69: m_number = rb.resval.rint; break;
        case 90: m_flags = rb.resval.rlong & ~0x20000; if (!statusSeen) m_on = (rb.resval.rlong & 0x20000) == 0; break;
        case 331: {
            AcDbObjectId id;
            if (acdbGetObjectId(id, rb.resval.rlname) == Acad::eOk && !id.isNull())
                m_frozen.append(id);
            break;
        }
        default: break;
        }
        return Acad::eOk;
    });
    return es;
}
