// AcDbArc: data, parameters, transformation, grips and filing of a circular arc.
#include "host/db/AcDbArc.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbFilerFields.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbCurve, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, ARC, "")

using AcDbCurveGeom::kTwoPi;
using AcDbCurveGeom::normalizeAngle;

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
    : AcDbArc(center, AcGeVector3d::kZAxis, radius, startAngle, endAngle)
{
}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle)
    : m_center(center), m_radius(std::fabs(radius)), m_startAngle(normalizeAngle(startAngle)),
      m_endAngle(normalizeAngle(endAngle))
{
    if (!AcDbCurveGeom::unitNormal(normal, m_normal))
        m_normal = AcGeVector3d::kZAxis;
}

AcGePoint3d AcDbArc::center() const
{
    assertReadEnabled();
    return m_center;
}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& center)
{
    assertWriteEnabled();
    m_center = center;
    return Acad::eOk;
}

double AcDbArc::radius() const
{
    assertReadEnabled();
    return m_radius;
}

Acad::ErrorStatus AcDbArc::setRadius(double radius)
{
    if (!(radius > 0.0) || !std::isfinite(radius))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_radius = radius;
    return Acad::eOk;
}

AcGeVector3d AcDbArc::normal() const
{
    assertReadEnabled();
    return m_normal;
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

double AcDbArc::thickness() const
{
    assertReadEnabled();
    return m_thickness;
}

Acad::ErrorStatus AcDbArc::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

double AcDbArc::startAngle() const
{
    assertReadEnabled();
    return m_startAngle;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle)
{
    if (!std::isfinite(angle))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_startAngle = normalizeAngle(angle);
    return Acad::eOk;
}

double AcDbArc::endAngle() const
{
    assertReadEnabled();
    return m_endAngle;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle)
{
    if (!std::isfinite(angle))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_endAngle = normalizeAngle(angle);
    return Acad::eOk;
}

double AcDbArc::totalAngle() const
{
    assertReadEnabled();
    double sweep = normalizeAngle(m_endAngle - m_startAngle);
    return sweep > 0.0 ? sweep : kTwoPi;
}

AcGeCircArc3d AcDbArc::geArc() const
{
    return AcGeCircArc3d(m_center, m_normal, m_normal.perpVector(), m_radius, m_startAngle,
                         m_startAngle + totalAngle());
}

Acad::ErrorStatus AcDbArc::getStartParam(double& param) const
{
    assertReadEnabled();
    param = m_startAngle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getEndParam(double& param) const
{
    param = m_startAngle + totalAngle();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getPointAtParam(double param, AcGePoint3d& point) const
{
    double end = m_startAngle + totalAngle();
    if (!std::isfinite(param) || param < m_startAngle - 1e-9 || param > end + 1e-9)
        return Acad::eInvalidInput;
    point = m_center + AcDbCurveGeom::ocsDirection(m_normal, param) * m_radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    AcGeVector3d v = point - m_center;
    double h = v.dotProduct(m_normal);
    AcGeVector3d inPlane = v - m_normal * h;
    double tol = onCurveTolerance(m_radius);
    if (std::fabs(h) > tol || std::fabs(inPlane.length() - m_radius) > tol)
        return Acad::eInvalidInput;
    double sweep = totalAngle();
    double d = normalizeAngle(AcDbCurveGeom::ocsAngle(m_normal, inPlane) - m_startAngle);
    double angTol = m_radius > 0.0 ? tol / m_radius : 0.0;
    if (d > sweep + angTol) {
        if (kTwoPi - d <= angTol)
            d = 0.0;  // just before the start
        else
            return Acad::eInvalidInput;
    }
    param = m_startAngle + std::min(d, sweep);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d p;
    Acad::ErrorStatus es = getPointAtParam(param, p);
    if (es == Acad::eOk)
        dist = (param - m_startAngle) * m_radius;
    return es;
}

Acad::ErrorStatus AcDbArc::getParamAtDist(double dist, double& param) const
{
    assertReadEnabled();
    double len = totalAngle() * m_radius;
    if (m_radius <= 0.0 || dist < -onCurveTolerance(len) || dist > len + onCurveTolerance(len))
        return Acad::eInvalidInput;
    param = m_startAngle + dist / m_radius;
    return Acad::eOk;
}

void AcDbArc::getPieces(AcDbCurvePieces& pieces) const
{
    assertReadEnabled();
    pieces.push_back(AcDbCurvePiece::fromArc(geArc()));
}

Acad::ErrorStatus AcDbArc::transformBy(const AcGeMatrix3d& xform)
{
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es = AcDbCurveGeom::planarImage(xform, m_normal, m_normal.perpVector(), image);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    AcGeCircArc3d arc = geArc();
    AcGePoint3d s = xform * arc.startPoint(), e = xform * arc.endPoint();
    if (image.mirrored)
        std::swap(s, e);
    bool whole = totalAngle() >= kTwoPi;
    m_center.transformBy(xform);
    m_radius *= image.scale;
    m_thickness *= (xform * m_normal).length();
    m_normal = image.newNormal;
    m_startAngle = AcDbCurveGeom::ocsAngle(m_normal, s - m_center);
    m_endAngle = whole ? m_startAngle : AcDbCurveGeom::ocsAngle(m_normal, e - m_center);
    return Acad::eOk;
}

void AcDbArc::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

Acad::ErrorStatus AcDbArc::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    AcGeCircArc3d arc = geArc();
    gripPoints.append(arc.startPoint());
    gripPoints.append(arc.evalPoint(0.5 * (arc.startAng() + arc.endAng())));
    gripPoints.append(arc.endPoint());
    gripPoints.append(m_center);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setFromThreePoints(const AcGePoint3d& s, const AcGePoint3d& m, const AcGePoint3d& e)
{
    AcGe::ErrorCondition err = AcGe::kOk;
    AcGeCircArc3d arc;
    arc.set(s, m, e, err);
    if (err != AcGe::kOk || arc.radius() <= 0.0)
        return Acad::eInvalidInput;
    AcGePoint3d start = arc.startPoint(), end = arc.endPoint();
    AcGeVector3d n = arc.normal();
    if (n.dotProduct(m_normal) < 0.0) {
        // Keep the entity's side: the same points run the other way round.
        n = -n;
        std::swap(start, end);
    }
    m_center = arc.center();
    m_radius = arc.radius();
    m_normal = n;
    m_startAngle = AcDbCurveGeom::ocsAngle(n, start - m_center);
    m_endAngle = AcDbCurveGeom::ocsAngle(n, end - m_center);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    AcGePoint3dArray grips;
    AcDbIntArray modes, ids;
    getGripPoints(grips, modes, ids);
    bool moved[4] = {false, false, false, false};
    for (int i = 0; i < indices.length(); ++i)
        if (indices[i] >= 0 && indices[i] < 4)
            moved[indices[i]] = true;
    if (moved[3] || (moved[0] && moved[1] && moved[2])) {
        m_center += offset;
        return Acad::eOk;
    }
    for (int g = 0; g < 3; ++g)
        if (moved[g])
            grips[g] += offset;
    return setFromThreePoints(grips[0], grips[1], grips[2]);
}

Acad::ErrorStatus AcDbArc::getStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    assertReadEnabled();
    AcGeCircArc3d arc = geArc();
    stretchPoints.append(arc.startPoint());
    stretchPoints.append(arc.endPoint());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    AcDbIntArray grips;
    for (int i = 0; i < indices.length(); ++i)
        grips.append(indices[i] == 0 ? 0 : 2);
    return moveGripPointsAt(grips, offset);
}

void AcDbArc::list() const
{
    assertReadEnabled();
    const double deg = 180.0 / AcDbCurveGeom::kPi;
    acutPrintf(L"\n                  ARC       Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n            center point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_center.x, m_center.y, m_center.z);
    acutPrintf(L"\n            radius %10.4f", m_radius);
    acutPrintf(L"\n             start angle %7.2f\n               end angle %7.2f", m_startAngle * deg,
               m_endAngle * deg);
    acutPrintf(L"\n                  length %10.4f", m_radius * totalAngle());
}

Acad::ErrorStatus AcDbArc::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::write(filer, m_center, m_radius, m_normal, m_thickness, m_startAngle, m_endAngle);
}

Acad::ErrorStatus AcDbArc::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::read(filer, m_center, m_radius, m_normal, m_thickness, m_startAngle, m_endAngle);
}

Acad::ErrorStatus AcDbArc::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    AcDbCurveGeom::writeCirclePart(filer, m_center, m_radius, m_normal, m_thickness);
    filer->writeSubclassMarker(L"AcDbArc");
    filer->writeAngle(AcDb::kDxfAngle, m_startAngle);
    filer->writeAngle(acdbDxfCode(51), m_endAngle);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbArc::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGePoint3d ocsCenter = AcGeMatrix3d::worldToPlane(m_normal) * m_center;
    const double rad = AcDbCurveGeom::kPi / 180.0;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 50: m_startAngle = normalizeAngle(rb.resval.rreal * rad); break;
        case 51: m_endAngle = normalizeAngle(rb.resval.rreal * rad); break;
        default: AcDbCurveGeom::readCirclePart(rb, ocsCenter, m_radius, m_thickness, m_normal); break;
        }
        return Acad::eOk;
    });
    m_center = AcGeMatrix3d::planeToWorld(m_normal) * ocsCenter;
    return es;
}
