// AcDbSolid: a filled triangle or quadrilateral. The points keep the DXF order: the third
// and fourth are swapped against the outline order (0, 1, 3, 2 goes round).
#pragma once

#include "host/db/AcDbEntity.h"

class AcDbSolid : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSolid);
    AcDbSolid() = default;
    // A triangle repeats its third point as the fourth.
    AcDbSolid(const AcGePoint3d& pt0, const AcGePoint3d& pt1, const AcGePoint3d& pt2);
    AcDbSolid(const AcGePoint3d& pt0, const AcGePoint3d& pt1, const AcGePoint3d& pt2, const AcGePoint3d& pt3);

    // World points, index 0..3; eInvalidIndex otherwise.
    Acad::ErrorStatus getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const;
    Acad::ErrorStatus setPointAt(Adesk::UInt16 index, const AcGePoint3d& point);
    double thickness() const { assertReadEnabled(); return m_thickness; }
    Acad::ErrorStatus setThickness(double t) { assertWriteEnabled(); m_thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { assertReadEnabled(); return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbTrace", 10-13 in object coordinates, 39, 210.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_pts[4];
    double m_thickness = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
