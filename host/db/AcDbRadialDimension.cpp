// AcDbRadialDimension and AcDbDiametricDimension: the dimensions of circles.
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbRadialDimension.h"

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        DIMENSION, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        DIMENSION, "")

AcDbRadialDimension::AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                                         double leaderLength, const ACHAR* dimText, AcDbObjectId dimStyle)
    : m_center(center), m_chord(chordPoint), m_leaderLength(leaderLength)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

double AcDbRadialDimension::rawMeasurement() const
{
    assertReadEnabled();
    return m_center.distanceTo(m_chord);
}

int AcDbRadialDimension::numDefPoints() const { return 2; }
AcGePoint3d AcDbRadialDimension::defPoint(int i) const { return i == 0 ? m_center : m_chord; }
void AcDbRadialDimension::setDefPoint(int i, const AcGePoint3d& p) { (i == 0 ? m_center : m_chord) = p; }
int AcDbRadialDimension::dxfKind() const { return 4; }
AcGePoint3d AcDbRadialDimension::dxfDefPoint() const { return m_center; }
void AcDbRadialDimension::setDxfDefPoint(const AcGePoint3d& p) { m_center = p; }

void AcDbRadialDimension::dxfOutKind(AcDbDxfFiler* filer) const
{
    filer->writeSubclassMarker(L"AcDbRadialDimension");
    filer->writePoint3d(acdbDxfCode(15), m_chord);
    filer->writeDouble(AcDb::kDxfReal, m_leaderLength);
}

void AcDbRadialDimension::dxfInKind(const resbuf& rb, const std::wstring&)
{
    if (rb.restype == 15)
        m_chord = AcDbCurveGeom::point(rb);
    else if (rb.restype == 40)
        m_leaderLength = rb.resval.rreal;
}

void AcDbRadialDimension::dwgOutKind(AcDbDwgFiler* filer) const
{
    filer->writePoint3d(m_center);
    filer->writePoint3d(m_chord);
    filer->writeDouble(m_leaderLength);
}

void AcDbRadialDimension::dwgInKind(AcDbDwgFiler* filer)
{
    filer->readPoint3d(&m_center);
    filer->readPoint3d(&m_chord);
    filer->readDouble(&m_leaderLength);
}

AcDbDiametricDimension::AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                                               double leaderLength, const ACHAR* dimText, AcDbObjectId dimStyle)
    : m_chord(chordPoint), m_farChord(farChordPoint), m_leaderLength(leaderLength)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

double AcDbDiametricDimension::rawMeasurement() const
{
    assertReadEnabled();
    return m_chord.distanceTo(m_farChord);
}

int AcDbDiametricDimension::numDefPoints() const { return 2; }
AcGePoint3d AcDbDiametricDimension::defPoint(int i) const { return i == 0 ? m_chord : m_farChord; }
void AcDbDiametricDimension::setDefPoint(int i, const AcGePoint3d& p) { (i == 0 ? m_chord : m_farChord) = p; }
int AcDbDiametricDimension::dxfKind() const { return 3; }
AcGePoint3d AcDbDiametricDimension::dxfDefPoint() const { return m_farChord; }
void AcDbDiametricDimension::setDxfDefPoint(const AcGePoint3d& p) { m_farChord = p; }

void AcDbDiametricDimension::dxfOutKind(AcDbDxfFiler* filer) const
{
    filer->writeSubclassMarker(L"AcDbDiametricDimension");
    filer->writePoint3d(acdbDxfCode(15), m_chord);
    filer->writeDouble(AcDb::kDxfReal, m_leaderLength);
}

void AcDbDiametricDimension::dxfInKind(const resbuf& rb, const std::wstring&)
{
    if (rb.restype == 15)
        m_chord = AcDbCurveGeom::point(rb);
    else if (rb.restype == 40)
        m_leaderLength = rb.resval.rreal;
}

void AcDbDiametricDimension::dwgOutKind(AcDbDwgFiler* filer) const
{
    filer->writePoint3d(m_chord);
    filer->writePoint3d(m_farChord);
    filer->writeDouble(m_leaderLength);
}

void AcDbDiametricDimension::dwgInKind(AcDbDwgFiler* filer)
{
    filer->readPoint3d(&m_chord);
    filer->readPoint3d(&m_farChord);
    filer->readDouble(&m_leaderLength);
}
