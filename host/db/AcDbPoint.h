// AcDbPoint: a single world point with thickness and the angle of its x axis.
#pragma once

#include "host/db/AcDbEntity.h"

class AcDbPoint : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position) : m_position(position) {}

    AcGePoint3d position() const { assertReadEnabled(); return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { assertWriteEnabled(); m_position = p; return Acad::eOk; }
    double thickness() const { assertReadEnabled(); return m_thickness; }
    Acad::ErrorStatus setThickness(double t) { assertWriteEnabled(); m_thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { assertReadEnabled(); return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double ecsRotation() const { assertReadEnabled(); return m_rotation; }
    Acad::ErrorStatus setEcsRotation(double angle) { assertWriteEnabled(); m_rotation = angle; return Acad::eOk; }

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    using AcDbEntity::getOsnapPoints;
    // Node snaps to the point.
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                     const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                     const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                     AcDbIntArray& geomIds) const override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_position;
    double m_thickness = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_rotation = 0.0;
};
