// AcDbPolyline: vertices, segment geometry, parameters, transformation and filing.
#include "host/db/AcDbPolyline.h"

#include <cmath>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbLine.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, LWPOLYLINE, "")

using AcDbCurveGeom::kTwoPi;
using AcDbCurveGeom::normalizeAngle;

AcDbPolyline::AcDbPolyline(unsigned int numVerts)
{
    m_verts.reserve(numVerts);
}

unsigned int AcDbPolyline::numVerts() const
{
    assertReadEnabled();
    return static_cast<unsigned int>(m_verts.size());
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& pt, double bulge,
                                            double startWidth, double endWidth)
{
    if (index > m_verts.size())
        return Acad::eInvalidIndex;
    if (!std::isfinite(bulge) || !std::isfinite(pt.x) || !std::isfinite(pt.y))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    Vertex v;
    v.pt = pt;
    v.bulge = bulge;
    v.startWidth = startWidth > 0.0 ? startWidth : 0.0;
    v.endWidth = endWidth > 0.0 ? endWidth : 0.0;
    m_verts.insert(m_verts.begin() + index, v);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index)
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_verts.erase(m_verts.begin() + index);
    return Acad::eOk;
}

AcGePoint3d AcDbPolyline::toWorld(const AcGePoint2d& pt) const
{
    return AcGeMatrix3d::planeToWorld(m_normal) * AcGePoint3d(pt.x, pt.y, m_elevation);
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& pt) const
{
    assertReadEnabled();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    pt = m_verts[index].pt;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& pt) const
{
    assertReadEnabled();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    pt = toWorld(m_verts[index].pt);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& pt)
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_verts[index].pt = pt;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const
{
    assertReadEnabled();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    bulge = m_verts[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    if (!std::isfinite(bulge))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_verts[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    assertReadEnabled();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    startWidth = m_verts[index].startWidth;
    endWidth = m_verts[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    if (startWidth < 0.0 || endWidth < 0.0)
        return Acad::eNegativeValueNotAllowed;
    assertWriteEnabled();
    m_verts[index].startWidth = startWidth;
    m_verts[index].endWidth = endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const
{
    assertReadEnabled();
    width = m_verts.empty() ? 0.0 : m_verts[0].startWidth;
    for (const Vertex& v : m_verts)
        if (v.startWidth != width || v.endWidth != width)
            return Acad::eInvalidInput;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width)
{
    if (width < 0.0)
        return Acad::eNegativeValueNotAllowed;
    assertWriteEnabled();
    for (Vertex& v : m_verts)
        v.startWidth = v.endWidth = width;
    return Acad::eOk;
}

bool AcDbPolyline::hasWidth() const
{
    assertReadEnabled();
    for (const Vertex& v : m_verts)
        if (v.startWidth != 0.0 || v.endWidth != 0.0)
            return true;
    return false;
}

bool AcDbPolyline::hasBulges() const
{
    assertReadEnabled();
    for (const Vertex& v : m_verts)
        if (v.bulge != 0.0)
            return true;
    return false;
}

Adesk::Boolean AcDbPolyline::isClosed() const
{
    assertReadEnabled();
    return m_closed;
}

void AcDbPolyline::setClosed(Adesk::Boolean closed)
{
    assertWriteEnabled();
    m_closed = closed;
}

bool AcDbPolyline::hasPlinegen() const
{
    assertReadEnabled();
    return m_plinegen;
}

void AcDbPolyline::setPlinegen(bool on)
{
    assertWriteEnabled();
    m_plinegen = on;
}

double AcDbPolyline::elevation() const
{
    assertReadEnabled();
    return m_elevation;
}

void AcDbPolyline::setElevation(double elevation)
{
    assertWriteEnabled();
    m_elevation = elevation;
}

double AcDbPolyline::thickness() const
{
    assertReadEnabled();
    return m_thickness;
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

AcGeVector3d AcDbPolyline::normal() const
{
    assertReadEnabled();
    return m_normal;
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

unsigned int AcDbPolyline::numSegments() const
{
    size_t n = m_verts.size();
    if (n < 2)
        return 0;
    return static_cast<unsigned int>(m_closed ? n : n - 1);
}

bool AcDbPolyline::segmentEnds(unsigned int index, const Vertex*& a, const Vertex*& b) const
{
    if (index >= numSegments())
        return false;
    a = &m_verts[index];
    b = &m_verts[(index + 1) % m_verts.size()];
    return true;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const
{
    assertReadEnabled();
    if (m_verts.empty())
        return kEmpty;
    if (m_verts.size() == 1)
        return index == 0 ? kPoint : kEmpty;
    const Vertex *a = nullptr, *b = nullptr;
    if (!segmentEnds(index, a, b))
        return kEmpty;
    if (a->pt.isEqualTo(b->pt))
        return kCoincident;
    return a->bulge != 0.0 ? kArc : kLine;
}

bool AcDbPolyline::segmentPiece(unsigned int index, AcDbCurvePiece& piece) const
{
    const Vertex *a = nullptr, *b = nullptr;
    if (!segmentEnds(index, a, b))
        return false;
    AcDbBulgeArc arc;
    if (!AcDbCurveGeom::bulgeArc(a->pt, b->pt, a->bulge, arc)) {
        piece = AcDbCurvePiece::fromLine(AcGeLineSeg3d(toWorld(a->pt), toWorld(b->pt)));
        return true;
    }
    // Counter-clockwise about the normal: a clockwise segment starts at its end vertex.
    double start = arc.sweep > 0.0 ? arc.startAngle : normalizeAngle(arc.startAngle + arc.sweep);
    piece = AcDbCurvePiece::fromArc(AcGeCircArc3d(toWorld(arc.center), m_normal, m_normal.perpVector(), arc.radius,
                                                  start, start + std::fabs(arc.sweep)));
    return true;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const
{
    assertReadEnabled();
    const Vertex *a = nullptr, *b = nullptr;
    if (!segmentEnds(index, a, b))
        return Acad::eInvalidIndex;
    line.set(toWorld(a->pt), toWorld(b->pt));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const
{
    assertReadEnabled();
    AcDbCurvePiece piece;
    if (!segmentPiece(index, piece))
        return Acad::eInvalidIndex;
    if (!piece.isArc)
        return Acad::eNotApplicable;
    arc = piece.arc;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const
{
    assertReadEnabled();
    const Vertex *a = nullptr, *b = nullptr;
    if (!segmentEnds(index, a, b))
        return Acad::eInvalidIndex;
    AcDbBulgeArc ba;
    if (!AcDbCurveGeom::bulgeArc(a->pt, b->pt, a->bulge, ba))
        return Acad::eNotApplicable;
    bool cw = ba.sweep < 0.0;
    // A clockwise arc measures its angles clockwise from the reference vector.
    double start = cw ? normalizeAngle(-ba.startAngle) : ba.startAngle;
    arc.set(ba.center, ba.radius, start, start + std::fabs(ba.sweep), AcGeVector2d::kXAxis, cw);
    return Acad::eOk;
}

double AcDbPolyline::segmentLength(unsigned int index) const
{
    const Vertex *a = nullptr, *b = nullptr;
    if (!segmentEnds(index, a, b))
        return 0.0;
    AcDbBulgeArc arc;
    if (AcDbCurveGeom::bulgeArc(a->pt, b->pt, a->bulge, arc))
        return arc.radius * std::fabs(arc.sweep);
    return a->pt.distanceTo(b->pt);
}

double AcDbPolyline::length() const
{
    assertReadEnabled();
    double len = 0.0;
    for (unsigned int i = 0; i < numSegments(); ++i)
        len += segmentLength(i);
    return len;
}

Acad::ErrorStatus AcDbPolyline::getStartParam(double& param) const
{
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getEndParam(double& param) const
{
    assertReadEnabled();
    param = static_cast<double>(numSegments());
    return m_verts.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    unsigned int segs = numSegments();
    if (m_verts.empty() || !std::isfinite(param) || param < -1e-9 || param > segs + 1e-9)
        return Acad::eInvalidInput;
    if (segs == 0) {
        point = toWorld(m_verts[0].pt);
        return Acad::eOk;
    }
    unsigned int i = std::min(static_cast<unsigned int>(std::max(param, 0.0)), segs - 1);
    double t = std::min(std::max(param - i, 0.0), 1.0);
    const Vertex *a = nullptr, *b = nullptr;
    segmentEnds(i, a, b);
    AcDbBulgeArc arc;
    if (AcDbCurveGeom::bulgeArc(a->pt, b->pt, a->bulge, arc)) {
        double ang = arc.startAngle + t * arc.sweep;
        point = toWorld(arc.center + AcGeVector2d(std::cos(ang), std::sin(ang)) * arc.radius);
    } else {
        point = toWorld(a->pt + (b->pt - a->pt) * t);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    if (m_verts.empty())
        return Acad::eDegenerateGeometry;
    double tol = onCurveTolerance(length());
    if (numSegments() == 0) {
        param = 0.0;
        return toWorld(m_verts[0].pt).distanceTo(point) <= tol ? Acad::eOk : Acad::eInvalidInput;
    }
    for (unsigned int i = 0; i < numSegments(); ++i) {
        AcDbCurvePiece piece;
        segmentPiece(i, piece);
        AcGePoint3d c = piece.curve().closestPointTo(point);
        if (c.distanceTo(point) > tol)
            continue;
        const Vertex *a = nullptr, *b = nullptr;
        segmentEnds(i, a, b);
        AcGePoint3d local = AcGeMatrix3d::worldToPlane(m_normal) * c;
        AcGePoint2d p(local.x, local.y);
        AcDbBulgeArc arc;
        double t = 0.0;
        if (AcDbCurveGeom::bulgeArc(a->pt, b->pt, a->bulge, arc)) {
            double d = normalizeAngle((p - arc.center).angle() - arc.startAngle);
            if (arc.sweep < 0.0)
                d = normalizeAngle(-d);
            if (d > std::fabs(arc.sweep) + 1e-9)
                d = 0.0;  // just before the start, within the tolerance
            t = d / std::fabs(arc.sweep);
        } else {
            double len = a->pt.distanceTo(b->pt);
            t = len > 0.0 ? p.distanceTo(a->pt) / len : 0.0;
        }
        param = i + std::min(std::max(t, 0.0), 1.0);
        return Acad::eOk;
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPolyline::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d p;
    Acad::ErrorStatus es = getPointAtParam(param, p);
    if (es != Acad::eOk)
        return es;
    unsigned int segs = numSegments();
    dist = 0.0;
    unsigned int i = 0;
    for (; i < segs && i + 1 <= param; ++i)
        dist += segmentLength(i);
    if (i < segs)
        dist += (param - i) * segmentLength(i);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getParamAtDist(double dist, double& param) const
{
    assertReadEnabled();
    double total = length();
    double tol = onCurveTolerance(total);
    if (m_verts.empty() || dist < -tol || dist > total + tol)
        return Acad::eInvalidInput;
    double rest = std::max(dist, 0.0);
    for (unsigned int i = 0; i < numSegments(); ++i) {
        double len = segmentLength(i);
        if (rest <= len || i + 1 == numSegments()) {
            param = i + (len > 0.0 ? std::min(rest / len, 1.0) : 0.0);
            return Acad::eOk;
        }
        rest -= len;
    }
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArea(double& area) const
{
    assertReadEnabled();
    double sum = 0.0;
    for (unsigned int i = 0; i < m_verts.size(); ++i) {
        const Vertex& a = m_verts[i];
        const Vertex& b = m_verts[(i + 1) % m_verts.size()];
        sum += a.pt.x * b.pt.y - b.pt.x * a.pt.y;
    }
    sum *= 0.5;
    for (unsigned int i = 0; i < m_verts.size(); ++i) {
        const Vertex& a = m_verts[i];
        AcDbBulgeArc arc;
        if (AcDbCurveGeom::bulgeArc(a.pt, m_verts[(i + 1) % m_verts.size()].pt, a.bulge, arc))
            sum += 0.5 * arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep));
    }
    area = std::fabs(sum);
    return Acad::eOk;
}

void AcDbPolyline::getPieces(AcDbCurvePieces& pieces) const
{
    assertReadEnabled();
    for (unsigned int i = 0; i < numSegments(); ++i) {
        AcDbCurvePiece piece;
        if (segmentPiece(i, piece))
            pieces.push_back(piece);
    }
}

void AcDbPolyline::getExtendedPieces(AcDbCurvePieces& pieces) const
{
    getPieces(pieces);
    if (m_closed || pieces.empty())
        return;
    pieces.front() = AcDbCurveGeom::extended(pieces.front());
    pieces.back() = AcDbCurveGeom::extended(pieces.back());
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& xform)
{
    AcDbCurveGeom::PlanarImage image;
    Acad::ErrorStatus es = AcDbCurveGeom::planarImage(xform, m_normal, m_normal.perpVector(), image);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    AcGeMatrix3d toLocal = AcGeMatrix3d::worldToPlane(image.newNormal) * xform;
    for (Vertex& v : m_verts) {
        AcGePoint3d p = toLocal * toWorld(v.pt);
        v.pt.set(p.x, p.y);
        m_elevation = p.z;
        if (image.mirrored)
            v.bulge = -v.bulge;
        v.startWidth *= image.scale;
        v.endWidth *= image.scale;
    }
    if (m_verts.empty())
        m_elevation = (toLocal * toWorld(AcGePoint2d())).z;
    m_thickness *= (xform * m_normal).length();
    m_normal = image.newNormal;
    return Acad::eOk;
}

void AcDbPolyline::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

Acad::ErrorStatus AcDbPolyline::explode(AcDbVoidPtrArray& entitySet) const
{
    assertReadEnabled();
    for (unsigned int i = 0; i < numSegments(); ++i) {
        AcDbCurvePiece piece;
        segmentPiece(i, piece);
        AcDbEntity* ent = nullptr;
        if (piece.isArc) {
            const Vertex *a = nullptr, *b = nullptr;
            segmentEnds(i, a, b);
            AcDbBulgeArc ba;
            AcDbCurveGeom::bulgeArc(a->pt, b->pt, a->bulge, ba);
            double s = ba.sweep > 0.0 ? ba.startAngle : ba.startAngle + ba.sweep;
            double e = ba.sweep > 0.0 ? ba.startAngle + ba.sweep : ba.startAngle;
            auto* arc = new AcDbArc(piece.arc.center(), m_normal, ba.radius, s, e);
            arc->setThickness(m_thickness);
            ent = arc;
        } else {
            AcGePoint3d s, e;
            piece.line.hasStartPoint(s);
            piece.line.hasEndPoint(e);
            auto* line = new AcDbLine(s, e);
            line->setNormal(m_normal);
            line->setThickness(m_thickness);
            ent = line;
        }
        ent->setPropertiesFrom(this);
        entitySet.append(ent);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    return getStretchPoints(gripPoints);
}

Acad::ErrorStatus AcDbPolyline::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    return moveStretchPointsAt(indices, offset);
}

Acad::ErrorStatus AcDbPolyline::getStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    assertReadEnabled();
    for (const Vertex& v : m_verts)
        stretchPoints.append(toWorld(v.pt));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    AcGeVector3d local = AcGeMatrix3d::worldToPlane(m_normal) * offset;
    for (int i = 0; i < indices.length(); ++i) {
        int k = indices[i];
        if (k >= 0 && k < static_cast<int>(m_verts.size()))
            m_verts[k].pt += AcGeVector2d(local.x, local.y);
    }
    return Acad::eOk;
}

void AcDbPolyline::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  LWPOLYLINE  Layer: \"%s\"", layerName().c_str());
    acutPrintf(m_closed ? L"\n            Closed" : L"\n            Open");
    for (size_t i = 0; i < m_verts.size(); ++i) {
        AcGePoint3d p = toWorld(m_verts[i].pt);
        acutPrintf(L"\n          at point  X=%10.4f  Y=%10.4f  Z=%10.4f", p.x, p.y, p.z);
        if (m_verts[i].bulge != 0.0)
            acutPrintf(L"\n             bulge %10.4f", m_verts[i].bulge);
    }
    acutPrintf(L"\n            length %10.4f", length());
}

Acad::ErrorStatus AcDbPolyline::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeBool(m_closed);
    filer->writeBool(m_plinegen);
    filer->writeDouble(m_elevation);
    filer->writeDouble(m_thickness);
    filer->writeVector3d(m_normal);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_verts.size()));
    for (const Vertex& v : m_verts) {
        filer->writePoint2d(v.pt);
        filer->writeDouble(v.bulge);
        filer->writeDouble(v.startWidth);
        filer->writeDouble(v.endWidth);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readBool(&m_closed);
    filer->readBool(&m_plinegen);
    filer->readDouble(&m_elevation);
    filer->readDouble(&m_thickness);
    filer->readVector3d(&m_normal);
    Adesk::UInt32 n = 0;
    filer->readUInt32(&n);
    m_verts.clear();
    // Read one by one: a damaged count ends with the filer's error, not a huge allocation.
    for (Adesk::UInt32 i = 0; i < n && filer->filerStatus() == Acad::eOk; ++i) {
        Vertex v;
        filer->readPoint2d(&v.pt);
        filer->readDouble(&v.bulge);
        filer->readDouble(&v.startWidth);
        filer->readDouble(&v.endWidth);
        if (filer->filerStatus() == Acad::eOk)
            m_verts.push_back(v);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbPolyline");
    filer->writeInt32(AcDb::kDxfInt32, static_cast<Adesk::Int32>(m_verts.size()));
    filer->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>((m_closed ? 1 : 0) | (m_plinegen ? 128 : 0)));
    double constWidth = 0.0;
    bool constant = getConstantWidth(constWidth) == Acad::eOk;
    if (constant)
        filer->writeDouble(acdbDxfCode(43), constWidth);
    if (m_elevation != 0.0 || filer->includesDefaultValues())
        filer->writeDouble(AcDb::kDxfElevation, m_elevation);
    if (m_thickness != 0.0 || filer->includesDefaultValues())
        filer->writeDouble(AcDb::kDxfThickness, m_thickness);
    for (const Vertex& v : m_verts) {
        filer->writePoint2d(AcDb::kDxfXCoord, v.pt);
        if (!constant) {
            filer->writeDouble(acdbDxfCode(40), v.startWidth);
            filer->writeDouble(acdbDxfCode(41), v.endWidth);
        }
        if (v.bulge != 0.0)
            filer->writeDouble(acdbDxfCode(42), v.bulge);
    }
    if (m_normal != AcGeVector3d::kZAxis || filer->includesDefaultValues())
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    m_verts.clear();
    double constWidth = -1.0;
    bool ownWidths = false;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        switch (rb.restype) {
        case 10: {
            Vertex v;
            v.pt.set(rb.resval.rpoint[0], rb.resval.rpoint[1]);
            m_verts.push_back(v);
            break;
        }
        case 40: case 41: case 42:
            if (!m_verts.empty()) {
                double& field = rb.restype == 40 ? m_verts.back().startWidth
                                : rb.restype == 41 ? m_verts.back().endWidth : m_verts.back().bulge;
                field = rb.restype == 42 ? rb.resval.rreal : std::fabs(rb.resval.rreal);
                ownWidths = ownWidths || rb.restype != 42;
            }
            break;
        case 43: constWidth = std::fabs(rb.resval.rreal); break;
        case 70:
            m_closed = (rb.resval.rint & 1) != 0;
            m_plinegen = (rb.resval.rint & 128) != 0;
            break;
        case 38: m_elevation = rb.resval.rreal; break;
        case 39: m_thickness = rb.resval.rreal; break;
        case 210:
            if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_normal))
                m_normal = AcGeVector3d::kZAxis;
            break;
        default: break;
        }
        return Acad::eOk;
    });
    if (constWidth > 0.0 && !ownWidths)
        for (Vertex& v : m_verts)
            v.startWidth = v.endWidth = constWidth;
    return es;
}
