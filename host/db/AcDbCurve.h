// AcDbCurve: the parametric curve interface of the native curves, and the operations that
// every curve shares because each can hand out its straight and circular pieces.
#pragma once

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbEntity.h"

class AcDbCurve : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);
    AcDbCurve() = default;

    // Parameters. Points off the curve give eInvalidInput (within the point tolerance of
    // 1e-6 relative to the curve's size); parameters outside the range eInvalidInput.
    virtual Adesk::Boolean isClosed() const { return false; }
    virtual Adesk::Boolean isPeriodic() const { return false; }
    virtual Acad::ErrorStatus getStartParam(double& param) const = 0;
    virtual Acad::ErrorStatus getEndParam(double& param) const = 0;
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const = 0;
    virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const = 0;
    virtual Acad::ErrorStatus getDistAtParam(double param, double& dist) const = 0;
    virtual Acad::ErrorStatus getParamAtDist(double dist, double& param) const = 0;
    virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const;
    virtual Acad::ErrorStatus getPointAtDist(double dist, AcGePoint3d& point) const;
    // Unit tangent direction times the speed of the parameter, by a small central step.
    virtual Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const;
    // The nearest curve point; extend looks along the curve made unbounded (lines become
    // infinite, arcs whole circles).
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve,
                                                Adesk::Boolean extend = false) const;
    virtual Acad::ErrorStatus getArea(double& area) const;

    // The curve's straight and circular pieces in world coordinates, in parameter order.
    virtual void getPieces(AcDbCurvePieces& pieces) const = 0;
    // The pieces as an extension sees them: by default every piece made unbounded.
    virtual void getExtendedPieces(AcDbCurvePieces& pieces) const;

    // Shared by every curve: intersections with other curves (other entities give none),
    // extents of the pieces, and the osnap modes end, mid, centre, quadrant, nearest.
    Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect intType, AcGePoint3dArray& points,
                                    Adesk::GsMarker thisGsMarker = 0,
                                    Adesk::GsMarker otherGsMarker = 0) const override;
    Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect intType, const AcGePlane& projPlane,
                                    AcGePoint3dArray& points, Adesk::GsMarker thisGsMarker = 0,
                                    Adesk::GsMarker otherGsMarker = 0) const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    using AcDbEntity::getOsnapPoints;
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                     const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                     const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                     AcDbIntArray& geomIds) const override;

protected:
    // A point counts as on the curve within this distance.
    static double onCurveTolerance(double size) { return 1e-6 * (size > 1.0 ? size : 1.0); }
};
