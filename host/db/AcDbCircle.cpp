// AcDbCircle: data, parameters, transformation, grips and filing of a full circle.
#include "host/db/AcDbCircle.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbFilerFields.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, CIRCLE, "")

using AcDbCurveGeom::kTwoPi;

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
    : m_center(center), m_radius(std::fabs(radius))
{
    if (!AcDbCurveGeom::unitNormal(normal, m_normal))
        m_normal = AcGeVector3d::kZAxis;
}

AcGePoint3d AcDbCircle::center() const
{
    assertReadEnabled();
    return m_center;
}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& center)
{
    assertWriteEnabled();
    m_center = center;
    return Acad::eOk;
}

double AcDbCircle::radius() const
{
    assertReadEnabled();
    return m_radius;
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius)
{
    if (!(radius > 0.0) || !std::isfinite(radius))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_radius = radius;
    return Acad::eOk;
}

AcGeVector3d AcDbCircle::normal() const
{
    assertReadEnabled();
    return m_normal;
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

double AcDbCircle::thickness() const
{
    assertReadEnabled();
    return m_thickness;
}

Acad::ErrorStatus AcDbCircle::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

double AcDbCircle::circumference() const
{
    assertReadEnabled();
    return kTwoPi * m_radius;
}

Acad::ErrorStatus AcDbCircle::getStartParam(double& param) const
{
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getEndParam(double& param) const
{
    param = kTwoPi;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    if (!std::isfinite(param))
        return Acad::eInvalidInput;
    point = m_center + AcDbCurveGeom::ocsDirection(m_normal, param) * m_radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    AcGeVector3d v = point - m_center;
    double h = v.dotProduct(m_normal);
    AcGeVector3d inPlane = v - m_normal * h;
    if (std::fabs(h) > onCurveTolerance(m_radius) || std::fabs(inPlane.length() - m_radius) > onCurveTolerance(m_radius))
        return Acad::eInvalidInput;
    param = AcDbCurveGeom::ocsAngle(m_normal, inPlane);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getDistAtParam(double param, double& dist) const
{
    assertReadEnabled();
    if (param < -1e-12 || param > kTwoPi + 1e-12)
        return Acad::eInvalidInput;
    dist = param * m_radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getParamAtDist(double dist, double& param) const
{
    assertReadEnabled();
    double len = kTwoPi * m_radius;
    if (dist < -onCurveTolerance(len) || dist > len + onCurveTolerance(len) || m_radius <= 0.0)
        return Acad::eInvalidInput;
    param = dist / m_radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getArea(double& area) const
{
    assertReadEnabled();
    area = AcDbCurveGeom::kPi * m_radius * m_radius;
    return Acad::eOk;
}

void AcDbCircle::getPieces(AcDbCurvePieces& pieces) const
{
    assertReadEnabled();
    pieces.push_back(AcDbCurvePiece::fromArc(
        AcGeCircArc3d(m_center, m_normal, m_normal.perpVector(), m_radius, 0.0, kTwoPi)));
}

Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& xform)
{
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es = AcDbCurveGeom::planarImage(xform, m_normal, m_normal.perpVector(), image);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    m_center.transformBy(xform);
    m_radius *= image.scale;
    m_thickness *= (xform * m_normal).length();
    m_normal = image.newNormal;
    return Acad::eOk;
}

void AcDbCircle::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

Acad::ErrorStatus AcDbCircle::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_center);
    for (int q = 0; q < 4; ++q)
        gripPoints.append(m_center + AcDbCurveGeom::ocsDirection(m_normal, q * AcDbCurveGeom::kPi / 2.0) * m_radius);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i) {
        if (indices[i] == 0) {
            m_center += offset;
            return Acad::eOk;
        }
    }
    for (int i = 0; i < indices.length(); ++i) {
        int q = indices[i];
        if (q < 1 || q > 4)
            continue;
        AcGePoint3d grip = m_center + AcDbCurveGeom::ocsDirection(m_normal, (q - 1) * AcDbCurveGeom::kPi / 2.0) * m_radius;
        AcGeVector3d v = grip + offset - m_center;
        double r = (v - m_normal * v.dotProduct(m_normal)).length();
        if (r > 0.0)
            m_radius = r;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    assertReadEnabled();
    stretchPoints.append(m_center);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    if (indices.length() > 0 && indices[0] == 0)
        m_center += offset;
    return Acad::eOk;
}

void AcDbCircle::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  CIRCLE    Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n            center point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_center.x, m_center.y, m_center.z);
    acutPrintf(L"\n            radius %10.4f", m_radius);
    acutPrintf(L"\n     circumference %10.4f", kTwoPi * m_radius);
}

Acad::ErrorStatus AcDbCircle::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::write(filer, m_center, m_radius, m_normal, m_thickness);
}

Acad::ErrorStatus AcDbCircle::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::read(filer, m_center, m_radius, m_normal, m_thickness);
}

Acad::ErrorStatus AcDbCircle::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    AcDbCurveGeom::writeCirclePart(filer, m_center, m_radius, m_normal, m_thickness);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbCircle::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGePoint3d ocsCenter = AcGeMatrix3d::worldToPlane(m_normal) * m_center;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        AcDbCurveGeom::readCirclePart(rb, ocsCenter, m_radius, m_thickness, m_normal);
        return Acad::eOk;
    });
    m_center = AcGeMatrix3d::planeToWorld(m_normal) * ocsCenter;
    return es;
}
