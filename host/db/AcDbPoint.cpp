// AcDbPoint and AcDbSolid: the simple point-defined entities.
#include "host/db/AcDbPoint.h"
#include "host/db/AcDbSolid.h"

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbFilerFields.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, POINT, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, SOLID, "")

namespace {

Acad::ErrorStatus setUnit(AcGeVector3d& target, const AcGeVector3d& value)
{
    AcGeVector3d n;
    if (!AcDbCurveGeom::unitNormal(value, n))
        return Acad::eInvalidInput;
    target = n;
    return Acad::eOk;
}

void readNormal(const resbuf& rb, AcGeVector3d& normal)
{
    if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), normal))
        normal = AcGeVector3d::kZAxis;
}

}  // namespace

Acad::ErrorStatus AcDbPoint::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    return setUnit(m_normal, normal);
}

Acad::ErrorStatus AcDbPoint::transformBy(const AcGeMatrix3d& xform)
{
    assertWriteEnabled();
    m_position.transformBy(xform);
    AcGeVector3d n;
    if (AcDbCurveGeom::unitNormal(xform * m_normal, n))
        m_normal = n;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    extents = AcDbExtents();
    extents.addPoint(m_position);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_position);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    if (indices.length() > 0)
        m_position += offset;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                            const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                            AcDbIntArray&) const
{
    assertReadEnabled();
    if (osnapMode == AcDb::kOsModeNode || osnapMode == AcDb::kOsModeNear)
        snapPoints.append(m_position);
    return Acad::eOk;
}

void AcDbPoint::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  POINT     Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n                  at point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_position.x, m_position.y, m_position.z);
}

Acad::ErrorStatus AcDbPoint::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::write(filer, m_position, m_thickness, m_normal, m_rotation);
}

Acad::ErrorStatus AcDbPoint::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::read(filer, m_position, m_thickness, m_normal, m_rotation);
}

Acad::ErrorStatus AcDbPoint::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbPoint");
    filer->writePoint3d(AcDb::kDxfXCoord, m_position);
    if (m_thickness != 0.0)
        filer->writeDouble(AcDb::kDxfThickness, m_thickness);
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    if (m_rotation != 0.0)
        filer->writeAngle(AcDb::kDxfAngle, m_rotation);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPoint::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbCurveGeom::readDxfGroups(filer, [this](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 10: m_position = AcDbCurveGeom::point(rb); break;
        case 39: m_thickness = rb.resval.rreal; break;
        case 50: m_rotation = rb.resval.rreal * AcDbCurveGeom::kPi / 180.0; break;
        case 210: readNormal(rb, m_normal); break;
        default: break;
        }
        return Acad::eOk;
    });
}

AcDbSolid::AcDbSolid(const AcGePoint3d& pt0, const AcGePoint3d& pt1, const AcGePoint3d& pt2)
    : AcDbSolid(pt0, pt1, pt2, pt2)
{
}

AcDbSolid::AcDbSolid(const AcGePoint3d& pt0, const AcGePoint3d& pt1, const AcGePoint3d& pt2, const AcGePoint3d& pt3)
    : m_pts{pt0, pt1, pt2, pt3}
{
}

Acad::ErrorStatus AcDbSolid::getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const
{
    assertReadEnabled();
    if (index > 3)
        return Acad::eInvalidIndex;
    point = m_pts[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::setPointAt(Adesk::UInt16 index, const AcGePoint3d& point)
{
    if (index > 3)
        return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_pts[index] = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    return setUnit(m_normal, normal);
}

Acad::ErrorStatus AcDbSolid::transformBy(const AcGeMatrix3d& xform)
{
    assertWriteEnabled();
    for (AcGePoint3d& p : m_pts)
        p.transformBy(xform);
    AcGeVector3d n;
    if (AcDbCurveGeom::unitNormal(xform * m_normal, n))
        m_normal = n;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    extents = AcDbExtents();
    for (const AcGePoint3d& p : m_pts)
        extents.addPoint(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    for (const AcGePoint3d& p : m_pts)
        gripPoints.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i)
        if (indices[i] >= 0 && indices[i] < 4)
            m_pts[indices[i]] += offset;
    return Acad::eOk;
}

void AcDbSolid::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  SOLID     Layer: \"%s\"", layerName().c_str());
    for (const AcGePoint3d& p : m_pts)
        acutPrintf(L"\n                  point, X=%10.4f  Y=%10.4f  Z=%10.4f", p.x, p.y, p.z);
}

Acad::ErrorStatus AcDbSolid::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    for (const AcGePoint3d& p : m_pts)
        filer->writePoint3d(p);
    filer->writeDouble(m_thickness);
    filer->writeVector3d(m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSolid::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    for (AcGePoint3d& p : m_pts)
        filer->readPoint3d(&p);
    filer->readDouble(&m_thickness);
    filer->readVector3d(&m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSolid::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGeMatrix3d toOcs = AcGeMatrix3d::worldToPlane(m_normal);
    filer->writeSubclassMarker(L"AcDbTrace");
    for (int i = 0; i < 4; ++i)
        filer->writePoint3d(acdbDxfCode(10 + i), toOcs * m_pts[i]);
    if (m_thickness != 0.0)
        filer->writeDouble(AcDb::kDxfThickness, m_thickness);
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSolid::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGePoint3d ocs[4];
    bool hasFourth = false;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        if (rb.restype >= 10 && rb.restype <= 13) {
            ocs[rb.restype - 10] = AcDbCurveGeom::point(rb);
            hasFourth = hasFourth || rb.restype == 13;
        } else if (rb.restype == 39) {
            m_thickness = rb.resval.rreal;
        } else if (rb.restype == 210) {
            readNormal(rb, m_normal);
        }
        return Acad::eOk;
    });
    if (!hasFourth)
        ocs[3] = ocs[2];
    AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(m_normal);
    for (int i = 0; i < 4; ++i)
        m_pts[i] = toWorld * ocs[i];
    return es;
}
