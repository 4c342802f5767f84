// AcDbArcDimension and AcDb2LineAngularDimension: the dimensions measured round a centre.
#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDbArcDimension.h"

#include <cmath>

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbArcDimension, AcDbDimension, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ARC_DIMENSION, "")
ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        DIMENSION, "")

using AcDbCurveGeom::kTwoPi;
using AcDbCurveGeom::normalizeAngle;

AcDbArcDimension::AcDbArcDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                                   const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint, const ACHAR* dimText,
                                   AcDbObjectId dimStyle)
    : m_center(centerPoint), m_xLine1(xLine1Point), m_xLine2(xLine2Point), m_arcPoint(arcPoint)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

void AcDbArcDimension::getArcAngles(double& startAngle, double& endAngle) const
{
    assertReadEnabled();
    AcGeVector3d n = normal();
    double a1 = AcDbCurveGeom::ocsAngle(n, m_xLine1 - m_center);
    double a2 = AcDbCurveGeom::ocsAngle(n, m_xLine2 - m_center);
    double ap = AcDbCurveGeom::ocsAngle(n, m_arcPoint - m_center);
    double sweep = normalizeAngle(a2 - a1);
    if (normalizeAngle(ap - a1) <= sweep) {
        startAngle = a1;
        endAngle = a1 + sweep;
    } else {
        startAngle = a2;
        endAngle = a2 + (kTwoPi - sweep);
    }
}

double AcDbArcDimension::rawMeasurement() const
{
    double s = 0.0, e = 0.0;
    getArcAngles(s, e);
    AcGeVector3d r = m_xLine1 - m_center;
    r -= normal() * r.dotProduct(normal());
    return r.length() * (e - s);
}

int AcDbArcDimension::numDefPoints() const { return 6; }

AcGePoint3d AcDbArcDimension::defPoint(int i) const
{
    const AcGePoint3d* pts[] = {&m_xLine1, &m_xLine2, &m_center, &m_arcPoint, &m_leader1, &m_leader2};
    return *pts[i];
}

void AcDbArcDimension::setDefPoint(int i, const AcGePoint3d& p)
{
    AcGePoint3d* pts[] = {&m_xLine1, &m_xLine2, &m_center, &m_arcPoint, &m_leader1, &m_leader2};
    *pts[i] = p;
}

int AcDbArcDimension::dxfKind() const { return 8; }
AcGePoint3d AcDbArcDimension::dxfDefPoint() const { return m_arcPoint; }
void AcDbArcDimension::setDxfDefPoint(const AcGePoint3d& p) { m_arcPoint = p; }

void AcDbArcDimension::dxfOutKind(AcDbDxfFiler* filer) const
{
    double s = 0.0, e = 0.0;
    getArcAngles(s, e);
    filer->writeSubclassMarker(L"AcDbArcDimension");
    filer->writePoint3d(acdbDxfCode(13), m_xLine1);
    filer->writePoint3d(acdbDxfCode(14), m_xLine2);
    filer->writePoint3d(acdbDxfCode(15), m_center);
    filer->writeDouble(AcDb::kDxfReal, s);
    filer->writeDouble(acdbDxfCode(41), e);
    filer->writeInt16(AcDb::kDxfInt16, m_isPartial ? 1 : 0);
    filer->writeInt16(acdbDxfCode(71), m_hasLeader ? 1 : 0);
    filer->writePoint3d(acdbDxfCode(16), m_leader1);
    filer->writePoint3d(acdbDxfCode(17), m_leader2);
}

void AcDbArcDimension::dxfInKind(const resbuf& rb, const std::wstring&)
{
    switch (rb.restype) {
    case 13: m_xLine1 = AcDbCurveGeom::point(rb); break;
    case 14: m_xLine2 = AcDbCurveGeom::point(rb); break;
    case 15: m_center = AcDbCurveGeom::point(rb); break;
    case 16: m_leader1 = AcDbCurveGeom::point(rb); break;
    case 17: m_leader2 = AcDbCurveGeom::point(rb); break;
    case 70: m_isPartial = rb.resval.rint != 0; break;
    case 71: m_hasLeader = rb.resval.rint != 0; break;
    default: break;  // 40/41 follow from the points
    }
}

void AcDbArcDimension::dwgOutKind(AcDbDwgFiler* filer) const
{
    for (int i = 0; i < numDefPoints(); ++i)
        filer->writePoint3d(defPoint(i));
    filer->writeBool(m_hasLeader);
    filer->writeBool(m_isPartial);
}

void AcDbArcDimension::dwgInKind(AcDbDwgFiler* filer)
{
    for (int i = 0; i < numDefPoints(); ++i) {
        AcGePoint3d p;
        filer->readPoint3d(&p);
        setDefPoint(i, p);
    }
    filer->readBool(&m_hasLeader);
    filer->readBool(&m_isPartial);
}

AcDb2LineAngularDimension::AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End,
                                                     const AcGePoint3d& xLine2Start, const AcGePoint3d& xLine2End,
                                                     const AcGePoint3d& arcPoint, const ACHAR* dimText,
                                                     AcDbObjectId dimStyle)
    : m_l1s(xLine1Start), m_l1e(xLine1End), m_l2s(xLine2Start), m_l2e(xLine2End), m_arcPoint(arcPoint)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

double AcDb2LineAngularDimension::rawMeasurement() const
{
    assertReadEnabled();
    AcGeMatrix3d toOcs = AcGeMatrix3d::worldToPlane(normal());
    auto flat = [&toOcs](const AcGePoint3d& p) {
        AcGePoint3d q = toOcs * p;
        return AcGePoint2d(q.x, q.y);
    };
    AcGePoint2d a = flat(m_l1s), b = flat(m_l2s), ap = flat(m_arcPoint);
    AcGeVector2d d1 = flat(m_l1e) - a, d2 = flat(m_l2e) - b;
    double den = d1.x * d2.y - d1.y * d2.x;
    if (d1.isZeroLength() || d2.isZeroLength() || std::fabs(den) < 1e-12 * d1.length() * d2.length())
        return 0.0;  // parallel lines enclose no angle
    double t = ((b.x - a.x) * d2.y - (b.y - a.y) * d2.x) / den;
    AcGePoint2d c = a + d1 * t;
    double apAngle = (ap - c).angle();
    // Of the four sectors the two lines make, the one counter-clockwise from one ray to the
    // next that holds the arc point.
    for (double s1 : {1.0, -1.0})
        for (double s2 : {1.0, -1.0}) {
            double a1 = (d1 * s1).angle(), a2 = (d2 * s2).angle();
            for (int order = 0; order < 2; ++order) {
                double from = order ? a2 : a1, to = order ? a1 : a2;
                double sweep = normalizeAngle(to - from);
                if (sweep <= AcDbCurveGeom::kPi && normalizeAngle(apAngle - from) <= sweep)
                    return sweep;
            }
        }
    return d1.angleTo(d2);
}

int AcDb2LineAngularDimension::numDefPoints() const { return 5; }

AcGePoint3d AcDb2LineAngularDimension::defPoint(int i) const
{
    const AcGePoint3d* pts[] = {&m_l1s, &m_l1e, &m_l2s, &m_l2e, &m_arcPoint};
    return *pts[i];
}

void AcDb2LineAngularDimension::setDefPoint(int i, const AcGePoint3d& p)
{
    AcGePoint3d* pts[] = {&m_l1s, &m_l1e, &m_l2s, &m_l2e, &m_arcPoint};
    *pts[i] = p;
}

int AcDb2LineAngularDimension::dxfKind() const { return 2; }
AcGePoint3d AcDb2LineAngularDimension::dxfDefPoint() const { return m_l2e; }
void AcDb2LineAngularDimension::setDxfDefPoint(const AcGePoint3d& p) { m_l2e = p; }

void AcDb2LineAngularDimension::dxfOutKind(AcDbDxfFiler* filer) const
{
    filer->writeSubclassMarker(L"AcDb2LineAngularDimension");
    filer->writePoint3d(acdbDxfCode(13), m_l1s);
    filer->writePoint3d(acdbDxfCode(14), m_l1e);
    filer->writePoint3d(acdbDxfCode(15), m_l2s);
    filer->writePoint3d(acdbDxfCode(16), AcGeMatrix3d::worldToPlane(normal()) * m_arcPoint);
}

void AcDb2LineAngularDimension::dxfInKind(const resbuf& rb, const std::wstring&)
{
    switch (rb.restype) {
    case 13: m_l1s = AcDbCurveGeom::point(rb); break;
    case 14: m_l1e = AcDbCurveGeom::point(rb); break;
    case 15: m_l2s = AcDbCurveGeom::point(rb); break;
    // The arc point is read in object coordinates; the normal is known by now (210 comes
    // in the common part before this subclass).
    case 16: m_arcPoint = AcGeMatrix3d::planeToWorld(normal()) * AcDbCurveGeom::point(rb); break;
    default: break;
    }
}

void AcDb2LineAngularDimension::dwgOutKind(AcDbDwgFiler* filer) const
{
    for (int i = 0; i < numDefPoints(); ++i)
        filer->writePoint3d(defPoint(i));
}

void AcDb2LineAngularDimension::dwgInKind(AcDbDwgFiler* filer)
{
    for (int i = 0; i < numDefPoints(); ++i) {
        AcGePoint3d p;
        filer->readPoint3d(&p);
        setDefPoint(i, p);
    }
}
