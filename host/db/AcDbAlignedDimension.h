// AcDbAlignedDimension: a linear dimension measured along the line through its two points.
#pragma once

#include "host/db/AcDbDimension.h"

class AcDbAlignedDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbAlignedDimension);
    AcDbAlignedDimension() = default;
    AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* dimText = nullptr,
                         AcDbObjectId dimStyle = AcDbObjectId::kNull);

    SV_DIMENSION_POINT(xLine1Point, setXLine1Point, m_xLine1)
    SV_DIMENSION_POINT(xLine2Point, setXLine2Point, m_xLine2)
    SV_DIMENSION_POINT(dimLinePoint, setDimLinePoint, m_dimLine)
    double oblique() const { assertReadEnabled(); return m_oblique; }
    Acad::ErrorStatus setOblique(double angle) { assertWriteEnabled(); m_oblique = angle; return Acad::eOk; }

    // |x line 2 - x line 1|.
    double rawMeasurement() const override;

protected:
    SV_DIMENSION_KIND_HOOKS;

private:
    AcGePoint3d m_xLine1, m_xLine2, m_dimLine;
    double m_oblique = 0.0;
};
