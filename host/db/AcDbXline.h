// AcDbXline: the infinite construction line through a base point along a unit direction.
#pragma once

#include "host/db/AcDbCurve.h"

class AcDbXline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbXline);
    AcDbXline() = default;

    AcGePoint3d basePoint() const { assertReadEnabled(); return m_base; }
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& p) { assertWriteEnabled(); m_base = p; return Acad::eOk; }
    AcGeVector3d unitDir() const { assertReadEnabled(); return m_dir; }
    // Made unit; eInvalidInput for a zero vector.
    Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction);
    AcGePoint3d secondPoint() const { assertReadEnabled(); return m_base + m_dir; }

    // The parameter is the signed distance from the base point. The line has no ends:
    // start and end parameters and points answer eNotApplicable.
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    void getPieces(AcDbCurvePieces& pieces) const override;

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_base;
    AcGeVector3d m_dir{1.0, 0.0, 0.0};
};
