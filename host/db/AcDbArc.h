// AcDbArc: a circular arc by centre (world), radius, normal and the start and end angles in
// the object coordinate system of the normal; it runs counter-clockwise about the normal.
#pragma once

#include "host/db/AcDbCurve.h"

class AcDbArc : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
            double endAngle);

    AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    double radius() const;
    Acad::ErrorStatus setRadius(double radius);
    AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    // Angles in [0, 2pi) as stored.
    double startAngle() const;
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const;
    Acad::ErrorStatus setEndAngle(double angle);
    // The swept angle, in (0, 2pi].
    double totalAngle() const;
    double length() const { return radius() * totalAngle(); }
    // The same arc as a geometry arc (reference vector: the object x axis).
    AcGeCircArc3d geArc() const;

    // The parameter is the object angle, from startAngle() to startAngle() + totalAngle().
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    void getPieces(AcDbCurvePieces& pieces) const override;

    // A mirrored arc keeps a normal that is the image of its normal; start and end change
    // places so that it still runs counter-clockwise.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    void getEcs(AcGeMatrix3d& retVal) const override;
    // Grips: start, middle, end (reshape through the three), centre (moves the arc).
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& stretchPoints) const override;
    Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    // Takes the arc's shape from three world points (start, a point on it, end).
    Acad::ErrorStatus setFromThreePoints(const AcGePoint3d& s, const AcGePoint3d& m, const AcGePoint3d& e);

    AcGePoint3d m_center;
    double m_radius = 1.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_thickness = 0.0;
    double m_startAngle = 0.0;
    double m_endAngle = AcDbCurveGeom::kPi;
};
