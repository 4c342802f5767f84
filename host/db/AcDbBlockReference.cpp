// AcDbBlockReference: placement, transformation, explode and filing of a block insert.
#include "host/db/AcDbBlockReference.h"

#include <cmath>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbOpen.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, INSERT, "")

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : m_block(blockTableRecord), m_position(position)
{
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale)
{
    if (scale.sx == 0.0 || scale.sy == 0.0 || scale.sz == 0.0)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_scale = scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    assertReadEnabled();
    AcGePoint3d origin;
    AcDbBlockTableRecord* rec = nullptr;
    if (!m_block.isNull() && acdbOpenObject(rec, m_block, AcDb::kForRead, true) == Acad::eOk) {
        origin = rec->origin();
        rec->close();
    }
    return AcGeMatrix3d::translation(m_position.asVector()) * AcGeMatrix3d::planeToWorld(m_normal) *
           AcGeMatrix3d::rotation(m_rotation, AcGeVector3d::kZAxis) * AcGeMatrix3d::scaling(m_scale) *
           AcGeMatrix3d::translation(-origin.asVector());
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& xform)
{
    AcGeVector3d x = AcDbCurveGeom::ocsDirection(m_normal, m_rotation);
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es = AcDbCurveGeom::planarImage(xform, m_normal, x, image);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    double zScale = (xform * m_normal).length();
    m_position.transformBy(xform);
    m_normal = image.newNormal;
    // A mirror image is a reference with a negative x scale turned half round.
    m_rotation = AcDbCurveGeom::ocsAngle(m_normal, image.mirrored ? -image.newXAxis : image.newXAxis);
    m_scale.sx *= image.mirrored ? -image.scale : image.scale;
    m_scale.sy *= image.scale;
    m_scale.sz *= zScale;
    return Acad::eOk;
}

void AcDbBlockReference::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

Acad::ErrorStatus AcDbBlockReference::explode(AcDbVoidPtrArray& entitySet) const
{
    assertReadEnabled();
    AcDbBlockTableRecord* rec = nullptr;
    Acad::ErrorStatus es = acdbOpenObject(rec, m_block, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    AcGeMatrix3d xform = blockTransform();
    AcDbVoidPtrArray made;
    AcDbBlockTableRecordIterator* it = nullptr;
    rec->newIterator(it);
    for (; it && !it->done() && es == Acad::eOk; it->step()) {
        AcDbEntity* ent = nullptr;
        if (it->getEntity(ent, AcDb::kForRead) != Acad::eOk)
            continue;
        AcDbEntity* copy = nullptr;
        es = ent->getTransformedCopy(xform, copy);
        ent->close();
        if (es == Acad::eOk && copy)
            made.append(copy);
    }
    delete it;
    rec->close();
    if (es != Acad::eOk) {
        for (int i = 0; i < made.length(); ++i)
            delete static_cast<AcDbEntity*>(made[i]);
        return es;
    }
    for (int i = 0; i < made.length(); ++i)
        entitySet.append(made[i]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcDbBlockTableRecord* rec = nullptr;
    if (acdbOpenObject(rec, m_block, AcDb::kForRead) != Acad::eOk)
        return Acad::eInvalidExtents;
    AcGeMatrix3d xform = blockTransform();
    AcDbExtents all;
    AcDbBlockTableRecordIterator* it = nullptr;
    rec->newIterator(it);
    for (; it && !it->done(); it->step()) {
        AcDbEntity* ent = nullptr;
        if (it->getEntity(ent, AcDb::kForRead) != Acad::eOk)
            continue;
        AcDbExtents e;
        if (ent->getGeomExtents(e) == Acad::eOk) {
            e.transformBy(xform);
            all.addExt(e);
        }
        ent->close();
    }
    delete it;
    rec->close();
    if (all.isEmpty())
        return Acad::eInvalidExtents;
    extents = all;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_position);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    if (indices.length() > 0)
        m_position += offset;
    return Acad::eOk;
}

void AcDbBlockReference::list() const
{
    assertReadEnabled();
    std::wstring name = AcDbCurveGeom::recordName(m_block);
    acutPrintf(L"\n                  BLOCK REFERENCE  Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n                  Block Name: \"%s\"", (name.empty() ? m_blockName : name).c_str());
    acutPrintf(L"\n                at point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_position.x, m_position.y, m_position.z);
    acutPrintf(L"\n   X scale factor: %10.4f\n   Y scale factor: %10.4f", m_scale.sx, m_scale.sy);
}

Acad::ErrorStatus AcDbBlockReference::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeHardPointerId(m_block);
    filer->writeString(m_blockName.c_str());
    filer->writePoint3d(m_position);
    filer->writeScale3d(m_scale);
    filer->writeDouble(m_rotation);
    filer->writeVector3d(m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbBlockReference::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcDbHardPointerId block;
    filer->readHardPointerId(&block);
    m_block = block;
    filer->readString(m_blockName);
    filer->readPoint3d(&m_position);
    filer->readScale3d(&m_scale);
    filer->readDouble(&m_rotation);
    filer->readVector3d(&m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbBlockReference::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    std::wstring name = AcDbCurveGeom::recordName(m_block);
    filer->writeSubclassMarker(L"AcDbBlockReference");
    filer->writeString(AcDb::kDxfBlockName, (name.empty() ? m_blockName : name).c_str());
    filer->writePoint3d(AcDb::kDxfXCoord, AcGeMatrix3d::worldToPlane(m_normal) * m_position);
    if (m_scale.sx != 1.0)
        filer->writeDouble(acdbDxfCode(41), m_scale.sx);
    if (m_scale.sy != 1.0)
        filer->writeDouble(acdbDxfCode(42), m_scale.sy);
    if (m_scale.sz != 1.0)
        filer->writeDouble(acdbDxfCode(43), m_scale.sz);
    if (m_rotation != 0.0)
        filer->writeAngle(AcDb::kDxfAngle, m_rotation);
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbBlockReference::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGePoint3d ocs = AcGeMatrix3d::worldToPlane(m_normal) * m_position;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        double v = rb.resval.rreal;
        switch (rb.restype) {
        case 2:
            m_blockName = rb.resval.rstring ? rb.resval.rstring : L"";
            m_block = AcDbCurveGeom::recordId(filer->database(), AcDbCurveGeom::Table::kBlock, m_blockName);
            break;
        case 10: ocs = AcDbCurveGeom::point(rb); break;
        case 41: if (v != 0.0) m_scale.sx = v; break;
        case 42: if (v != 0.0) m_scale.sy = v; break;
        case 43: if (v != 0.0) m_scale.sz = v; break;
        case 50: m_rotation = v * AcDbCurveGeom::kPi / 180.0; break;
        case 210:
            if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_normal))
                m_normal = AcGeVector3d::kZAxis;
            break;
        default: break;
        }
        return Acad::eOk;
    });
    m_position = AcGeMatrix3d::planeToWorld(m_normal) * ocs;
    return es;
}
