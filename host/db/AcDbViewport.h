// AcDbViewport: a paper-space window onto model space: its box on the sheet, the view it
// shows, and the layers frozen in it.
#pragma once

#include "host/db/AcDbEntity.h"
#include "host/ge/AcGePoint2d.h"

class AcDbViewport : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewport);
    AcDbViewport() = default;

    AcGePoint3d centerPoint() const { assertReadEnabled(); return m_center; }
    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& p) { assertWriteEnabled(); m_center = p; return Acad::eOk; }
    double width() const { assertReadEnabled(); return m_width; }
    Acad::ErrorStatus setWidth(double w);
    double height() const { assertReadEnabled(); return m_height; }
    Acad::ErrorStatus setHeight(double h);
    AcGePoint2d viewCenter() const { assertReadEnabled(); return m_viewCenter; }
    Acad::ErrorStatus setViewCenter(const AcGePoint2d& p) { assertWriteEnabled(); m_viewCenter = p; return Acad::eOk; }
    double viewHeight() const { assertReadEnabled(); return m_viewHeight; }
    Acad::ErrorStatus setViewHeight(double h);
    AcGePoint3d viewTarget() const { assertReadEnabled(); return m_target; }
    Acad::ErrorStatus setViewTarget(const AcGePoint3d& p) { assertWriteEnabled(); m_target = p; return Acad::eOk; }
    AcGeVector3d viewDirection() const { assertReadEnabled(); return m_direction; }
    Acad::ErrorStatus setViewDirection(const AcGeVector3d& v);
    double twistAngle() const { assertReadEnabled(); return m_twist; }
    Acad::ErrorStatus setTwistAngle(double a) { assertWriteEnabled(); m_twist = a; return Acad::eOk; }
    // Model units per paper unit the other way round: height / viewHeight.
    double customScale() const;
    Adesk::Int16 number() const { assertReadEnabled(); return m_number; }
    Acad::ErrorStatus setNumber(Adesk::Int16 n) { assertWriteEnabled(); m_number = n; return Acad::eOk; }
    bool isOn() const { assertReadEnabled(); return m_on; }
    Acad::ErrorStatus setOn() { assertWriteEnabled(); m_on = true; return Acad::eOk; }
    Acad::ErrorStatus setOff() { assertWriteEnabled(); m_on = false; return Acad::eOk; }
    bool isLocked() const { assertReadEnabled(); return (m_flags & kLocked) != 0; }
    Acad::ErrorStatus setLocked(bool on);

    // Layers frozen in this viewport only.
    Acad::ErrorStatus freezeLayersInViewport(const AcDbObjectIdArray& layerIds);
    Acad::ErrorStatus thawLayersInViewport(const AcDbObjectIdArray& layerIds);
    Acad::ErrorStatus thawAllLayersInViewport();
    bool isLayerFrozenInViewport(AcDbObjectId layerId) const;
    Acad::ErrorStatus getFrozenLayerList(AcDbObjectIdArray& layerIds) const;
    // The display is redrawn by the display layer; here it only answers eOk.
    Acad::ErrorStatus updateDisplay() const { return Acad::eOk; }

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    static constexpr Adesk::Int32 kLocked = 0x4000;
    AcGePoint3d m_center;
    double m_width = 1.0;
    double m_height = 1.0;
    AcGePoint2d m_viewCenter;
    double m_viewHeight = 1.0;
    AcGePoint3d m_target;
    AcGeVector3d m_direction{0.0, 0.0, 1.0};
    double m_twist = 0.0;
    Adesk::Int16 m_number = 2;
    bool m_on = true;
    Adesk::Int32 m_flags = 0;
    AcDbObjectIdArray m_frozen;
};
