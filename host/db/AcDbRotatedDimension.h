// AcDbRotatedDimension: a linear dimension measured along a fixed direction (rotation).
#pragma once

#include "host/db/AcDbDimension.h"

class AcDbRotatedDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbRotatedDimension);
    AcDbRotatedDimension() = default;
    AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* dimText = nullptr,
                         AcDbObjectId dimStyle = AcDbObjectId::kNull);

    SV_DIMENSION_POINT(xLine1Point, setXLine1Point, m_xLine1)
    SV_DIMENSION_POINT(xLine2Point, setXLine2Point, m_xLine2)
    SV_DIMENSION_POINT(dimLinePoint, setDimLinePoint, m_dimLine)
    double rotation() const { assertReadEnabled(); return m_rotation; }
    Acad::ErrorStatus setRotation(double angle) { assertWriteEnabled(); m_rotation = angle; return Acad::eOk; }
    double oblique() const { assertReadEnabled(); return m_oblique; }
    Acad::ErrorStatus setOblique(double angle) { assertWriteEnabled(); m_oblique = angle; return Acad::eOk; }

    // |(x line 2 - x line 1) . direction of the rotation| in the dimension's plane.
    double rawMeasurement() const override;

protected:
    SV_DIMENSION_KIND_HOOKS;
    void transformKind(const AcGeMatrix3d& xform) override;

private:
    AcGePoint3d m_xLine1, m_xLine2, m_dimLine;
    double m_rotation = 0.0;
    double m_oblique = 0.0;
};
