// AcDb2dPolyline, AcDb2dVertex, AcDbSequenceEnd: the heavy polyline and its records.
#include "host/db/AcDb2dPolyline.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbPolyline.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb2dVertex, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, VERTEX, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, SEQEND, "")
ACRX_DXF_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, POLYLINE, "")

// AcDb2dVertex ----------------------------------------------------------------------------

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth)
    : m_position(position), m_bulge(bulge), m_startWidth(startWidth), m_endWidth(endWidth)
{
}

Acad::ErrorStatus AcDb2dVertex::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writePoint3d(m_position);
    filer->writeDouble(m_bulge);
    filer->writeDouble(m_startWidth);
    filer->writeDouble(m_endWidth);
    filer->writeInt16(static_cast<Adesk::Int16>(m_flags));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dVertex::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readPoint3d(&m_position);
    filer->readDouble(&m_bulge);
    filer->readDouble(&m_startWidth);
    filer->readDouble(&m_endWidth);
    Adesk::Int16 flags = 0;
    filer->readInt16(&flags);
    m_flags = flags;
    return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dVertex::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbVertex");
    filer->writeSubclassMarker(L"AcDb2dVertex");
    filer->writePoint3d(AcDb::kDxfXCoord, m_position);
    if (m_startWidth != 0.0)
        filer->writeDouble(acdbDxfCode(40), m_startWidth);
    if (m_endWidth != 0.0)
        filer->writeDouble(acdbDxfCode(41), m_endWidth);
    if (m_bulge != 0.0)
        filer->writeDouble(acdbDxfCode(42), m_bulge);
    filer->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(m_flags));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dVertex::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbCurveGeom::readDxfGroups(filer, [this](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 10: m_position = AcDbCurveGeom::point(rb); break;
        case 40: m_startWidth = std::fabs(rb.resval.rreal); break;
        case 41: m_endWidth = std::fabs(rb.resval.rreal); break;
        case 42: m_bulge = rb.resval.rreal; break;
        case 70: m_flags = rb.resval.rint; break;
        default: break;
        }
        return Acad::eOk;
    });
}

// AcDb2dPolyline ----------------------------------------------------------------------------

AcDb2dPolyline::~AcDb2dPolyline() = default;

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* vertex)
{
    if (!vertex)
        return Acad::eNullObjectPointer;
    if (vertex->isDatabaseResident())
        return Acad::eAlreadyInDb;
    assertWriteEnabled();
    m_vertices.emplace_back(vertex);
    return Acad::eOk;
}

AcDb2dPolylineVertexIterator* AcDb2dPolyline::vertexIterator() const
{
    assertReadEnabled();
    std::vector<AcDb2dVertex*> list;
    for (const auto& v : m_vertices)
        list.push_back(v.get());
    return new AcDb2dPolylineVertexIterator(std::move(list));
}

AcDb2dVertex* AcDb2dPolyline::vertexAt(int index) const
{
    assertReadEnabled();
    return index >= 0 && index < static_cast<int>(m_vertices.size()) ? m_vertices[index].get() : nullptr;
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex* vertex) const
{
    assertReadEnabled();
    AcGePoint3d p = vertex ? vertex->position() : AcGePoint3d();
    return AcGeMatrix3d::planeToWorld(m_normal) * AcGePoint3d(p.x, p.y, m_elevation);
}

Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

void AcDb2dPolyline::toLightweight(AcDbPolyline& polyline) const
{
    assertReadEnabled();
    unsigned int i = 0;
    for (const auto& v : m_vertices) {
        AcGePoint3d p = v->position();
        polyline.addVertexAt(i++, AcGePoint2d(p.x, p.y), v->bulge(), v->startWidth(), v->endWidth());
    }
    polyline.setClosed(m_closed);
    polyline.setElevation(m_elevation);
    polyline.setNormal(m_normal);
}

#define SV_VIA_LIGHTWEIGHT(call) \
    AcDbPolyline pl;             \
    toLightweight(pl);           \
    return pl.call

Acad::ErrorStatus AcDb2dPolyline::getStartParam(double& p) const { SV_VIA_LIGHTWEIGHT(getStartParam(p)); }
Acad::ErrorStatus AcDb2dPolyline::getEndParam(double& p) const { SV_VIA_LIGHTWEIGHT(getEndParam(p)); }
Acad::ErrorStatus AcDb2dPolyline::getPointAtParam(double param, AcGePoint3d& pt) const { SV_VIA_LIGHTWEIGHT(getPointAtParam(param, pt)); }
Acad::ErrorStatus AcDb2dPolyline::getParamAtPoint(const AcGePoint3d& pt, double& param) const { SV_VIA_LIGHTWEIGHT(getParamAtPoint(pt, param)); }
Acad::ErrorStatus AcDb2dPolyline::getDistAtParam(double param, double& d) const { SV_VIA_LIGHTWEIGHT(getDistAtParam(param, d)); }
Acad::ErrorStatus AcDb2dPolyline::getParamAtDist(double d, double& param) const { SV_VIA_LIGHTWEIGHT(getParamAtDist(d, param)); }
void AcDb2dPolyline::getPieces(AcDbCurvePieces& pieces) const { SV_VIA_LIGHTWEIGHT(getPieces(pieces)); }
void AcDb2dPolyline::getExtendedPieces(AcDbCurvePieces& pieces) const { SV_VIA_LIGHTWEIGHT(getExtendedPieces(pieces)); }
Acad::ErrorStatus AcDb2dPolyline::explode(AcDbVoidPtrArray& set) const
{
    AcDbPolyline pl;
    toLightweight(pl);
    pl.setPropertiesFrom(this);
    return pl.explode(set);
}

#undef SV_VIA_LIGHTWEIGHT

Acad::ErrorStatus AcDb2dPolyline::transformBy(const AcGeMatrix3d& xform)
{
    AcDbPolyline pl;
    toLightweight(pl);
    Acad::ErrorStatus es = pl.transformBy(xform);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    for (unsigned int i = 0; i < m_vertices.size(); ++i) {
        AcGePoint2d p;
        double bulge = 0.0, sw = 0.0, ew = 0.0;
        pl.getPointAt(i, p);
        pl.getBulgeAt(i, bulge);
        pl.getWidthsAt(i, sw, ew);
        AcDb2dVertex& v = *m_vertices[i];
        v.setPosition(AcGePoint3d(p.x, p.y, pl.elevation()));
        v.setBulge(bulge);
        v.setStartWidth(sw);
        v.setEndWidth(ew);
    }
    m_elevation = pl.elevation();
    m_normal = pl.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    for (const auto& v : m_vertices)
        gripPoints.append(vertexPosition(v.get()));
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    AcGeVector3d local = AcGeMatrix3d::worldToPlane(m_normal) * offset;
    for (int i = 0; i < indices.length(); ++i) {
        int k = indices[i];
        if (k >= 0 && k < static_cast<int>(m_vertices.size())) {
            AcGePoint3d p = m_vertices[k]->position();
            m_vertices[k]->setPosition(AcGePoint3d(p.x + local.x, p.y + local.y, p.z));
        }
    }
    return Acad::eOk;
}

void AcDb2dPolyline::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  POLYLINE  Layer: \"%s\"", layerName().c_str());
    acutPrintf(m_closed ? L"\n            Closed" : L"\n            Open");
    for (const auto& v : m_vertices) {
        AcGePoint3d p = vertexPosition(v.get());
        acutPrintf(L"\n          VERTEX    at point, X=%10.4f  Y=%10.4f  Z=%10.4f", p.x, p.y, p.z);
    }
}

Acad::ErrorStatus AcDb2dPolyline::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeBool(m_closed);
    filer->writeInt16(static_cast<Adesk::Int16>(m_type));
    filer->writeDouble(m_elevation);
    filer->writeDouble(m_startWidth);
    filer->writeDouble(m_endWidth);
    filer->writeVector3d(m_normal);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_vertices.size()));
    for (const auto& v : m_vertices)
        v->dwgOutFields(filer);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dPolyline::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readBool(&m_closed);
    Adesk::Int16 type = 0;
    filer->readInt16(&type);
    m_type = type >= 0 && type <= 3 ? static_cast<Poly2dType>(type) : k2dSimplePoly;
    filer->readDouble(&m_elevation);
    filer->readDouble(&m_startWidth);
    filer->readDouble(&m_endWidth);
    filer->readVector3d(&m_normal);
    Adesk::UInt32 n = 0;
    filer->readUInt32(&n);
    m_vertices.clear();
    for (Adesk::UInt32 i = 0; i < n && filer->filerStatus() == Acad::eOk; ++i) {
        auto v = std::make_unique<AcDb2dVertex>();
        if (v->dwgInFields(filer) == Acad::eOk)
            m_vertices.push_back(std::move(v));
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dPolyline::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDb2dPolyline");
    filer->writeInt16(acdbDxfCode(66), 1);
    filer->writePoint3d(AcDb::kDxfXCoord, AcGePoint3d(0.0, 0.0, m_elevation));
    int flags = (m_closed ? 1 : 0) | (m_type == k2dFitCurvePoly ? 2 : 0) | (m_type >= k2dQuadSplinePoly ? 4 : 0);
    filer->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(flags));
    if (m_startWidth != 0.0)
        filer->writeDouble(acdbDxfCode(40), m_startWidth);
    if (m_endWidth != 0.0)
        filer->writeDouble(acdbDxfCode(41), m_endWidth);
    if (m_type >= k2dQuadSplinePoly)
        filer->writeInt16(acdbDxfCode(75), static_cast<Adesk::Int16>(m_type == k2dQuadSplinePoly ? 5 : 6));
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dPolyline::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    return AcDbCurveGeom::readDxfGroups(filer, [this](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 10: m_elevation = rb.resval.rpoint[2]; break;
        case 40: m_startWidth = std::fabs(rb.resval.rreal); break;
        case 41: m_endWidth = std::fabs(rb.resval.rreal); break;
        case 70:
            m_closed = (rb.resval.rint & 1) != 0;
            if (rb.resval.rint & 2)
                m_type = k2dFitCurvePoly;
            break;
        case 75:
            m_type = rb.resval.rint == 5 ? k2dQuadSplinePoly : rb.resval.rint == 6 ? k2dCubicSplinePoly : m_type;
            break;
        case 210:
            if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_normal))
                m_normal = AcGeVector3d::kZAxis;
            break;
        default: break;
        }
        return Acad::eOk;
    });
}
