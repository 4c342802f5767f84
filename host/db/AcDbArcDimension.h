// AcDbArcDimension: the length of an arc between two extension line points.
#pragma once

#include "host/db/AcDbDimension.h"

class AcDbArcDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbArcDimension);
    AcDbArcDimension() = default;
    AcDbArcDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                     const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint, const ACHAR* dimText = nullptr,
                     AcDbObjectId dimStyle = AcDbObjectId::kNull);

    SV_DIMENSION_POINT(centerPoint, setCenterPoint, m_center)
    SV_DIMENSION_POINT(xLine1Point, setXLine1Point, m_xLine1)
    SV_DIMENSION_POINT(xLine2Point, setXLine2Point, m_xLine2)
    SV_DIMENSION_POINT(arcPoint, setArcPoint, m_arcPoint)
    SV_DIMENSION_POINT(leader1Point, setLeader1Point, m_leader1)
    SV_DIMENSION_POINT(leader2Point, setLeader2Point, m_leader2)
    bool hasLeader() const { assertReadEnabled(); return m_hasLeader; }
    Acad::ErrorStatus setHasLeader(bool on) { assertWriteEnabled(); m_hasLeader = on; return Acad::eOk; }
    bool isPartial() const { assertReadEnabled(); return m_isPartial; }
    Acad::ErrorStatus setIsPartial(bool on) { assertWriteEnabled(); m_isPartial = on; return Acad::eOk; }
    // The arc's angles at the two extension line points, about the normal, start to end on
    // the side of the arc point.
    void getArcAngles(double& startAngle, double& endAngle) const;

    // Radius (centre to x line 1 point) times the angle swept on the arc point's side.
    double rawMeasurement() const override;

protected:
    SV_DIMENSION_KIND_HOOKS;

private:
    AcGePoint3d m_center, m_xLine1, m_xLine2, m_arcPoint, m_leader1, m_leader2;
    bool m_hasLeader = false;
    bool m_isPartial = false;
};
