// AcDbLine: data, parameters, transformation, grips and filing of a straight segment.
#include "host/db/AcDbLine.h"

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbFilerFields.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, LINE, "")

AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : m_start(start), m_end(end) {}

AcGePoint3d AcDbLine::startPoint() const
{
    assertReadEnabled();
    return m_start;
}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point)
{
    assertWriteEnabled();
    m_start = point;
    return Acad::eOk;
}

AcGePoint3d AcDbLine::endPoint() const
{
    assertReadEnabled();
    return m_end;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point)
{
    assertWriteEnabled();
    m_end = point;
    return Acad::eOk;
}

double AcDbLine::thickness() const
{
    assertReadEnabled();
    return m_thickness;
}

Acad::ErrorStatus AcDbLine::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

AcGeVector3d AcDbLine::normal() const
{
    assertReadEnabled();
    return m_normal;
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

Acad::ErrorStatus AcDbLine::getStartParam(double& param) const
{
    assertReadEnabled();
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getEndParam(double& param) const
{
    assertReadEnabled();
    param = m_start.distanceTo(m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    double len = m_start.distanceTo(m_end);
    double tol = onCurveTolerance(len);
    if (param < -tol || param > len + tol)
        return Acad::eInvalidInput;
    point = len > 0.0 ? m_start + (m_end - m_start) * (param / len) : m_start;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    double len = m_start.distanceTo(m_end);
    if (len == 0.0) {
        param = 0.0;
        return point.distanceTo(m_start) <= onCurveTolerance(0.0) ? Acad::eOk : Acad::eInvalidInput;
    }
    AcGeVector3d dir = (m_end - m_start) / len;
    double t = (point - m_start).dotProduct(dir);
    double tol = onCurveTolerance(len);
    if (t < -tol || t > len + tol || (m_start + dir * t).distanceTo(point) > tol)
        return Acad::eInvalidInput;
    param = std::min(std::max(t, 0.0), len);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d p;
    Acad::ErrorStatus es = getPointAtParam(param, p);
    if (es == Acad::eOk)
        dist = param;
    return es;
}

Acad::ErrorStatus AcDbLine::getParamAtDist(double dist, double& param) const
{
    AcGePoint3d p;
    Acad::ErrorStatus es = getPointAtParam(dist, p);
    if (es == Acad::eOk)
        param = dist;
    return es;
}

void AcDbLine::getPieces(AcDbCurvePieces& pieces) const
{
    assertReadEnabled();
    pieces.push_back(AcDbCurvePiece::fromLine(AcGeLineSeg3d(m_start, m_end)));
}

Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& xform)
{
    assertWriteEnabled();
    m_start.transformBy(xform);
    m_end.transformBy(xform);
    AcGeVector3d n;
    if (AcDbCurveGeom::unitNormal(xform * m_normal, n)) {
        m_thickness *= (xform * m_normal).length();
        m_normal = n;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    gripPoints.append(m_start);
    gripPoints.append(m_start + (m_end - m_start) * 0.5);
    gripPoints.append(m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    bool moveStart = false, moveEnd = false;
    for (int i = 0; i < indices.length(); ++i) {
        moveStart = moveStart || indices[i] == 0 || indices[i] == 1;
        moveEnd = moveEnd || indices[i] == 2 || indices[i] == 1;
    }
    if (moveStart)
        m_start += offset;
    if (moveEnd)
        m_end += offset;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    assertReadEnabled();
    stretchPoints.append(m_start);
    stretchPoints.append(m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i) {
        if (indices[i] == 0)
            m_start += offset;
        else if (indices[i] == 1)
            m_end += offset;
    }
    return Acad::eOk;
}

void AcDbLine::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  LINE      Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n              from point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_start.x, m_start.y, m_start.z);
    acutPrintf(L"\n                to point, X=%10.4f  Y=%10.4f  Z=%10.4f", m_end.x, m_end.y, m_end.z);
    acutPrintf(L"\n                  Length = %10.4f", m_start.distanceTo(m_end));
}

Acad::ErrorStatus AcDbLine::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::write(filer, m_start, m_end, m_thickness, m_normal);
}

Acad::ErrorStatus AcDbLine::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbFilerFields::read(filer, m_start, m_end, m_thickness, m_normal);
}

Acad::ErrorStatus AcDbLine::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbLine");
    AcDbCurveGeom::writeThickness(filer, m_thickness);
    filer->writePoint3d(AcDb::kDxfXCoord, m_start);
    filer->writePoint3d(acdbDxfCode(11), m_end);
    AcDbCurveGeom::writeNormal(filer, m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbCurveGeom::readDxfGroups(filer, [this](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 10: m_start = AcDbCurveGeom::point(rb); break;
        case 11: m_end = AcDbCurveGeom::point(rb); break;
        default: AcDbCurveGeom::readThicknessOrNormal(rb, m_thickness, m_normal); break;
        }
        return Acad::eOk;
    });
}
