// AcDbRotatedDimension and AcDbAlignedDimension: the linear dimension kinds.
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbRotatedDimension.h"

#include <cmath>

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        DIMENSION, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        DIMENSION, "")

namespace {

const double kRad = AcDbCurveGeom::kPi / 180.0;

// The aligned subclass both linear kinds write: 13, 14, the rotation (rotated only), 52.
void writeAlignedPart(AcDbDxfFiler* filer, const AcGePoint3d& x1, const AcGePoint3d& x2, const double* rotation,
                      double oblique)
{
    filer->writeSubclassMarker(L"AcDbAlignedDimension");
    filer->writePoint3d(acdbDxfCode(13), x1);
    filer->writePoint3d(acdbDxfCode(14), x2);
    if (rotation)
        filer->writeAngle(AcDb::kDxfAngle, *rotation);
    if (oblique != 0.0)
        filer->writeAngle(acdbDxfCode(52), oblique);
}

}  // namespace

AcDbRotatedDimension::AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point,
                                           const AcGePoint3d& xLine2Point, const AcGePoint3d& dimLinePoint,
                                           const ACHAR* dimText, AcDbObjectId dimStyle)
    : m_xLine1(xLine1Point), m_xLine2(xLine2Point), m_dimLine(dimLinePoint), m_rotation(rotation)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

double AcDbRotatedDimension::rawMeasurement() const
{
    assertReadEnabled();
    AcGeVector3d dir = AcDbCurveGeom::ocsDirection(normal(), m_rotation);
    return std::fabs((m_xLine2 - m_xLine1).dotProduct(dir));
}

int AcDbRotatedDimension::numDefPoints() const { return 3; }
AcGePoint3d AcDbRotatedDimension::defPoint(int i) const { return i == 0 ? m_xLine1 : i == 1 ? m_xLine2 : m_dimLine; }
void AcDbRotatedDimension::setDefPoint(int i, const AcGePoint3d& p) { (i == 0 ? m_xLine1 : i == 1 ? m_xLine2 : m_dimLine) = p; }
int AcDbRotatedDimension::dxfKind() const { return 0; }
AcGePoint3d AcDbRotatedDimension::dxfDefPoint() const { return m_dimLine; }
void AcDbRotatedDimension::setDxfDefPoint(const AcGePoint3d& p) { m_dimLine = p; }

void AcDbRotatedDimension::transformKind(const AcGeMatrix3d& xform)
{
    AcGeVector3d n;
    if (!AcDbCurveGeom::unitNormal(xform * normal(), n))
        return;
    m_rotation = AcDbCurveGeom::ocsAngle(n, xform * AcDbCurveGeom::ocsDirection(normal(), m_rotation));
}

void AcDbRotatedDimension::dxfOutKind(AcDbDxfFiler* filer) const
{
    writeAlignedPart(filer, m_xLine1, m_xLine2, &m_rotation, m_oblique);
    filer->writeSubclassMarker(L"AcDbRotatedDimension");
}

void AcDbRotatedDimension::dxfInKind(const resbuf& rb, const std::wstring&)
{
    switch (rb.restype) {
    case 13: m_xLine1 = AcDbCurveGeom::point(rb); break;
    case 14: m_xLine2 = AcDbCurveGeom::point(rb); break;
    case 50: m_rotation = rb.resval.rreal * kRad; break;
    case 52: m_oblique = rb.resval.rreal * kRad; break;
    default: break;
    }
}

void AcDbRotatedDimension::dwgOutKind(AcDbDwgFiler* filer) const
{
    filer->writePoint3d(m_xLine1);
    filer->writePoint3d(m_xLine2);
    filer->writePoint3d(m_dimLine);
    filer->writeDouble(m_rotation);
    filer->writeDouble(m_oblique);
}

void AcDbRotatedDimension::dwgInKind(AcDbDwgFiler* filer)
{
    filer->readPoint3d(&m_xLine1);
    filer->readPoint3d(&m_xLine2);
    filer->readPoint3d(&m_dimLine);
    filer->readDouble(&m_rotation);
    filer->readDouble(&m_oblique);
}

AcDbAlignedDimension::AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                                           const AcGePoint3d& dimLinePoint, const ACHAR* dimText,
                                           AcDbObjectId dimStyle)
    : m_xLine1(xLine1Point), m_xLine2(xLine2Point), m_dimLine(dimLinePoint)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

double AcDbAlignedDimension::rawMeasurement() const
{
    assertReadEnabled();
    return m_xLine1.distanceTo(m_xLine2);
}

int AcDbAlignedDimension::numDefPoints() const { return 3; }
AcGePoint3d AcDbAlignedDimension::defPoint(int i) const { return i == 0 ? m_xLine1 : i == 1 ? m_xLine2 : m_dimLine; }
void AcDbAlignedDimension::setDefPoint(int i, const AcGePoint3d& p) { (i == 0 ? m_xLine1 : i == 1 ? m_xLine2 : m_dimLine) = p; }
int AcDbAlignedDimension::dxfKind() const { return 1; }
AcGePoint3d AcDbAlignedDimension::dxfDefPoint() const { return m_dimLine; }
void AcDbAlignedDimension::setDxfDefPoint(const AcGePoint3d& p) { m_dimLine = p; }

void AcDbAlignedDimension::dxfOutKind(AcDbDxfFiler* filer) const
{
    writeAlignedPart(filer, m_xLine1, m_xLine2, nullptr, m_oblique);
}

void AcDbAlignedDimension::dxfInKind(const resbuf& rb, const std::wstring&)
{
    switch (rb.restype) {
    case 13: m_xLine1 = AcDbCurveGeom::point(rb); break;
    case 14: m_xLine2 = AcDbCurveGeom::point(rb); break;
    case 52: m_oblique = rb.resval.rreal * kRad; break;
    default: break;
    }
}

void AcDbAlignedDimension::dwgOutKind(AcDbDwgFiler* filer) const
{
    filer->writePoint3d(m_xLine1);
    filer->writePoint3d(m_xLine2);
    filer->writePoint3d(m_dimLine);
    filer->writeDouble(m_oblique);
}

void AcDbAlignedDimension::dwgInKind(AcDbDwgFiler* filer)
{
    filer->readPoint3d(&m_xLine1);
    filer->readPoint3d(&m_xLine2);
    filer->readPoint3d(&m_dimLine);
    filer->readDouble(&m_oblique);
}
