// AcDbRadialDimension: a radius from the centre to a chord point.
#pragma once

#include "host/db/AcDbDimension.h"

class AcDbRadialDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimension);
    AcDbRadialDimension() = default;
    AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                        const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    SV_DIMENSION_POINT(center, setCenter, m_center)
    SV_DIMENSION_POINT(chordPoint, setChordPoint, m_chord)
    double leaderLength() const { assertReadEnabled(); return m_leaderLength; }
    Acad::ErrorStatus setLeaderLength(double length) { assertWriteEnabled(); m_leaderLength = length; return Acad::eOk; }

    double rawMeasurement() const override;

protected:
    SV_DIMENSION_KIND_HOOKS;

private:
    AcGePoint3d m_center, m_chord;
    double m_leaderLength = 0.0;
};
