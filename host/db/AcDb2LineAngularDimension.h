// AcDb2LineAngularDimension: the angle between two lines, on the side of the arc point.
#pragma once

#include "host/db/AcDbDimension.h"

class AcDb2LineAngularDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDb2LineAngularDimension);
    AcDb2LineAngularDimension() = default;
    AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End,
                              const AcGePoint3d& xLine2Start, const AcGePoint3d& xLine2End,
                              const AcGePoint3d& arcPoint, const ACHAR* dimText = nullptr,
                              AcDbObjectId dimStyle = AcDbObjectId::kNull);

    SV_DIMENSION_POINT(xLine1Start, setXLine1Start, m_l1s)
    SV_DIMENSION_POINT(xLine1End, setXLine1End, m_l1e)
    SV_DIMENSION_POINT(xLine2Start, setXLine2Start, m_l2s)
    SV_DIMENSION_POINT(xLine2End, setXLine2End, m_l2e)
    SV_DIMENSION_POINT(arcPoint, setArcPoint, m_arcPoint)

    // Radians, in [0, pi]: the sector of the two lines that holds the arc point.
    double rawMeasurement() const override;
    bool isLinearMeasure() const override { return false; }

protected:
    SV_DIMENSION_KIND_HOOKS;

private:
    AcGePoint3d m_l1s, m_l1e, m_l2s, m_l2e, m_arcPoint;
};
