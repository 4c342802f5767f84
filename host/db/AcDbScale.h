// Annotation scales: the SCALE objects of the scale list and the annotation scale handle.
#pragma once

#include <string>

#include "host/db/AcDbObject.h"

// One entry of the "ACAD_SCALELIST" dictionary: "1:50" is 1 paper unit to 50 drawing units.
class AcDbScale : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbScale);
    AcDbScale();

    Acad::ErrorStatus getScaleName(std::wstring& name) const;
    const ACHAR* scaleName() const;
    Acad::ErrorStatus setScaleName(const ACHAR* name);
    double paperUnits() const;
    double drawingUnits() const;
    // eInvalidInput for units <= 0.
    Acad::ErrorStatus setPaperUnits(double units);
    Acad::ErrorStatus setDrawingUnits(double units);
    bool isUnitScale() const;
    Acad::ErrorStatus setIsUnitScale(bool unit);
    // paper / drawing units.
    double scale() const;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbScale", 70 (0), 300, 140, 141, 290.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    std::wstring m_name = L"1:1";
    double m_paper = 1.0;
    double m_drawing = 1.0;
    bool m_unit = false;
};

// The current annotation scale of a drawing, as AcDbDatabase::cannoscale() gives it.
class AcDbAnnotationScale : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotationScale);
    AcDbAnnotationScale() = default;
    AcDbAnnotationScale(std::wstring name, double paperUnits, double drawingUnits)
        : m_name(std::move(name)), m_paper(paperUnits), m_drawing(drawingUnits) {}

    Acad::ErrorStatus getName(std::wstring& name) const { name = m_name; return Acad::eOk; }
    const ACHAR* name() const { return m_name.c_str(); }
    // paper / drawing units: 1:50 gives 0.02. eInvalidInput when drawing units are 0.
    Acad::ErrorStatus getScale(double& scale) const;
    Acad::ErrorStatus getPaperUnits(double& units) const { units = m_paper; return Acad::eOk; }
    Acad::ErrorStatus getDrawingUnits(double& units) const { units = m_drawing; return Acad::eOk; }
    Acad::ErrorStatus setName(const ACHAR* name) { m_name = name ? name : L""; return Acad::eOk; }
    Acad::ErrorStatus setPaperUnits(double units) { m_paper = units; return Acad::eOk; }
    Acad::ErrorStatus setDrawingUnits(double units) { m_drawing = units; return Acad::eOk; }
    bool matchScaleId(AcDbObjectId) const { return false; }

private:
    std::wstring m_name = L"1:1";
    double m_paper = 1.0;
    double m_drawing = 1.0;
};
