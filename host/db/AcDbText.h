// AcDbText: single-line text with its position, alignment, height, style and string.
#pragma once

#include <string>

#include "host/db/AcDbEntity.h"

class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText();
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
             double height = 0.0, double rotation = 0.0);

    // Points are world points.
    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGePoint3d alignmentPoint() const;
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    bool isDefaultAlignment() const;  // left / baseline: the alignment point is unused
    double height() const;
    Acad::ErrorStatus setHeight(double height);  // eInvalidInput when not positive
    double widthFactor() const;
    Acad::ErrorStatus setWidthFactor(double factor);
    double oblique() const;  // radians
    Acad::ErrorStatus setOblique(double angle);
    double rotation() const;  // radians, in the object coordinate system
    Acad::ErrorStatus setRotation(double angle);
    double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    // 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit (AcDb::TextHorzMode).
    int horizontalMode() const;
    Acad::ErrorStatus setHorizontalMode(int mode);
    // 0 baseline, 1 bottom, 2 middle, 3 top (AcDb::TextVertMode).
    int verticalMode() const;
    Acad::ErrorStatus setVerticalMode(int mode);
    bool isMirroredInX() const;  // written backward
    Acad::ErrorStatus mirrorInX(bool on);
    bool isMirroredInY() const;  // upside down
    Acad::ErrorStatus mirrorInY(bool on);
    // The string as stored; a copy the caller deletes with delete[].
    ACHAR* textString() const;
    const ACHAR* textStringConst() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);

    // Uniform scaling, rotation and mirroring; a mirrored text is flagged backward and
    // keeps its up direction.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    void getEcs(AcGeMatrix3d& retVal) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_position;
    AcGePoint3d m_alignment;
    double m_height = 0.2;
    double m_widthFactor = 1.0;
    double m_oblique = 0.0;
    double m_rotation = 0.0;
    double m_thickness = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    AcDbObjectId m_style;
    int m_hmode = 0;
    int m_vmode = 0;
    int m_generation = 0;  // 2 backward, 4 upside down
    std::wstring m_text;
};
