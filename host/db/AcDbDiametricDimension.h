// AcDbDiametricDimension: a diameter between two opposite chord points.
#pragma once

#include "host/db/AcDbDimension.h"

class AcDbDiametricDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbDiametricDimension);
    AcDbDiametricDimension() = default;
    AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint, double leaderLength,
                           const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    SV_DIMENSION_POINT(chordPoint, setChordPoint, m_chord)
    SV_DIMENSION_POINT(farChordPoint, setFarChordPoint, m_farChord)
    double leaderLength() const { assertReadEnabled(); return m_leaderLength; }
    Acad::ErrorStatus setLeaderLength(double length) { assertWriteEnabled(); m_leaderLength = length; return Acad::eOk; }

    double rawMeasurement() const override;

protected:
    SV_DIMENSION_KIND_HOOKS;

private:
    AcGePoint3d m_chord, m_farChord;
    double m_leaderLength = 0.0;
};
