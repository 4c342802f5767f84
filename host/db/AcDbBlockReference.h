// AcDbBlockReference: an insert of a block table record, placed by position, scale,
// rotation and normal.
#pragma once

#include <string>

#include "host/db/AcDbEntity.h"

class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    AcDbObjectId blockTableRecord() const { assertReadEnabled(); return m_block; }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId blockId) { assertWriteEnabled(); m_block = blockId; return Acad::eOk; }
    AcGePoint3d position() const { assertReadEnabled(); return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { assertWriteEnabled(); m_position = p; return Acad::eOk; }
    AcGeScale3d scaleFactors() const { assertReadEnabled(); return m_scale; }
    // eInvalidInput for a zero factor.
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    double rotation() const { assertReadEnabled(); return m_rotation; }
    Acad::ErrorStatus setRotation(double angle) { assertWriteEnabled(); m_rotation = angle; return Acad::eOk; }
    AcGeVector3d normal() const { assertReadEnabled(); return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    // Block coordinates to world: translation to the position, the object coordinate system
    // of the normal, the rotation, the scale, and the block's base point moved to the origin.
    AcGeMatrix3d blockTransform() const;
    // The block name as read from a file when the block could not be found.
    const std::wstring& blockName() const { assertReadEnabled(); return m_blockName; }

    // Keeps scale along the plane uniform-or-mirrored; a mirror shows as a negative x scale.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    void getEcs(AcGeMatrix3d& retVal) const override;
    // Copies of the block's entities, transformed by blockTransform().
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbBlockReference", 2, 10 (object coordinates), 41-43, 50, 210.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcDbObjectId m_block;
    std::wstring m_blockName;
    AcGePoint3d m_position;
    AcGeScale3d m_scale;
    double m_rotation = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
