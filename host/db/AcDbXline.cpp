// AcDbXline: the infinite line as a curve, its transformation and filing.
#include "host/db/AcDbXline.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbXline, AcDbCurve, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, XLINE, "")

Acad::ErrorStatus AcDbXline::setUnitDir(const AcGeVector3d& direction)
{
    AcGeVector3d d;
    if (!AcDbCurveGeom::unitNormal(direction, d))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_dir = d;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::getStartParam(double&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbXline::getEndParam(double&) const { return Acad::eNotApplicable; }

Acad::ErrorStatus AcDbXline::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    if (!std::isfinite(param))
        return Acad::eInvalidInput;
    point = m_base + m_dir * param;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    double t = (point - m_base).dotProduct(m_dir);
    if ((m_base + m_dir * t).distanceTo(point) > onCurveTolerance(std::fabs(t)))
        return Acad::eInvalidInput;
    param = t;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::getDistAtParam(double param, double& dist) const
{
    dist = std::fabs(param);
    return std::isfinite(param) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbXline::getParamAtDist(double dist, double& param) const
{
    param = dist;
    return std::isfinite(dist) ? Acad::eOk : Acad::eInvalidInput;
}

void AcDbXline::getPieces(AcDbCurvePieces& pieces) const
{
    assertReadEnabled();
    pieces.push_back(AcDbCurvePiece::fromLine(AcGeLine3d(m_base, m_dir)));
}

Acad::ErrorStatus AcDbXline::transformBy(const AcGeMatrix3d& xform)
{
    AcGeVector3d d;
    if (!AcDbCurveGeom::unitNormal(xform * m_dir, d))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_base.transformBy(xform);
    m_dir = d;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_base);
    gripPoints.append(m_base + m_dir);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i) {
        if (indices[i] == 0) {
            m_base += offset;
        } else if (indices[i] == 1) {
            AcGeVector3d d;
            if (AcDbCurveGeom::unitNormal(m_dir + offset, d))
                m_dir = d;
        }
    }
    return Acad::eOk;
}

void AcDbXline::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  XLINE     Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n              basis point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_base.x, m_base.y, m_base.z);
    acutPrintf(L"\n                direction, X=%10.4f  Y=%10.4f  Z=%10.4f", m_dir.x, m_dir.y, m_dir.z);
}

Acad::ErrorStatus AcDbXline::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writePoint3d(m_base);
    filer->writeVector3d(m_dir);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbXline::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readPoint3d(&m_base);
    filer->readVector3d(&m_dir);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbXline::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbXline");
    filer->writePoint3d(AcDb::kDxfXCoord, m_base);
    filer->writeVector3d(acdbDxfCode(11), m_dir);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbXline::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbCurveGeom::readDxfGroups(filer, [this](const resbuf& rb, const std::wstring&) {
        if (rb.restype == 10)
            m_base = AcDbCurveGeom::point(rb);
        else if (rb.restype == 11 && !AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_dir))
            m_dir = AcGeVector3d::kXAxis;
        return Acad::eOk;
    });
}
