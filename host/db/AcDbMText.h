// AcDbMText: paragraph text whose contents keep their inline format codes verbatim.
#pragma once

#include <string>

#include "host/db/AcDbEntity.h"

class AcDbMText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    enum AttachmentPoint {
        kTopLeft = 1, kTopCenter, kTopRight, kMiddleLeft, kMiddleCenter, kMiddleRight,
        kBottomLeft, kBottomCenter, kBottomRight,
    };
    enum FlowDirection { kLtoR = 1, kRtoL = 2, kTtoB = 3, kBtoT = 4, kByStyle = 5 };

    AcDbMText();

    AcGePoint3d location() const;  // world
    Acad::ErrorStatus setLocation(const AcGePoint3d& point);
    AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    // The world direction of the text's x axis, perpendicular to the normal.
    AcGeVector3d direction() const;
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    // The angle of direction() in the object coordinate system.
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    double textHeight() const;
    Acad::ErrorStatus setTextHeight(double height);  // eInvalidInput when not positive
    double width() const;  // 0: no wrapping
    Acad::ErrorStatus setWidth(double width);
    AttachmentPoint attachment() const;
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    FlowDirection flowDirection() const;
    Acad::ErrorStatus setFlowDirection(FlowDirection direction);
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    int lineSpacingStyle() const;  // 1 at least, 2 exactly
    Acad::ErrorStatus setLineSpacingStyle(int style);
    double lineSpacingFactor() const;
    Acad::ErrorStatus setLineSpacingFactor(double factor);  // 0.25 to 4.0

    // The contents with their format codes, as set; a copy the caller deletes with delete[].
    ACHAR* contents() const;
    const std::wstring& contentsString() const;
    Acad::ErrorStatus setContents(const ACHAR* text);
    // The text without format codes (see AcDbMTextFormat::plainText).
    std::wstring text() const;

    // Uniform scaling and rotation; a mirrored text stays readable: its direction keeps the
    // letters' up direction and the attachment swaps left and right.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    void getEcs(AcGeMatrix3d& retVal) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // Contents longer than 250 characters go out in 3 chunks before the final 1.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_location;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    AcGeVector3d m_direction{1.0, 0.0, 0.0};
    double m_height = 0.2;
    double m_width = 0.0;
    int m_attachment = kTopLeft;
    int m_flow = kLtoR;
    AcDbObjectId m_style;
    int m_spacingStyle = 1;
    double m_spacingFactor = 1.0;
    std::wstring m_contents;
};
