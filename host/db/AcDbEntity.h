// AcDbEntity: the base of everything drawn: common properties and the geometric operations.
#pragma once

#include <string>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbExtents.h"
#include "host/db/AcDbObject.h"
#include "host/db/AcDbSubent.h"
#include "host/ge/AcGeArrays.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"

// The display layer defines these; entities only pass them through.
class AcGiWorldDraw;
class AcGiViewportDraw;
class AcGiDrawableTraits;

class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);
    AcDbEntity();
    ~AcDbEntity() override;

    // The owning block table record.
    AcDbObjectId blockId() const { return ownerId(); }

    // Common properties -------------------------------------------------------
    // Every setter needs write access; doSubents is accepted for the platform's shape.
    AcDbObjectId layerId() const;
    // A copy of the layer's name ("" without a layer); the caller deletes it with delete[].
    ACHAR* layer() const;
    std::wstring layerName() const;
    // A null id is refused with eNullObjectId, an id that is not a layer record with
    // eWrongObjectType. allowHiddenLayer admits names starting with '*' only then.
    Acad::ErrorStatus setLayer(AcDbObjectId layerId, Adesk::Boolean doSubents = true,
                               bool allowHiddenLayer = false);
    // By name in the entity's database (or the working one): eKeyNotFound if missing.
    Acad::ErrorStatus setLayer(const ACHAR* layerName, Adesk::Boolean doSubents = true,
                               bool allowHiddenLayer = false);

    // 0 ByBlock, 256 ByLayer, 1..255. For a true colour: the nearest index.
    Adesk::UInt16 colorIndex() const;
    // eInvalidInput outside 0..256.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents = true);
    AcCmColor color() const { return AcCmColor(m_color); }
    Acad::ErrorStatus setColor(const AcCmColor& color, Adesk::Boolean doSubents = true);
    AcCmEntityColor entityColor() const { return m_color; }

    AcDbObjectId linetypeId() const;
    ACHAR* linetype() const;  // caller deletes with delete[]
    std::wstring linetypeName() const;
    Acad::ErrorStatus setLinetype(AcDbObjectId linetypeId, Adesk::Boolean doSubents = true);
    Acad::ErrorStatus setLinetype(const ACHAR* linetypeName, Adesk::Boolean doSubents = true);
    double linetypeScale() const;
    // eInvalidInput for a scale <= 0.
    Acad::ErrorStatus setLinetypeScale(double scale, Adesk::Boolean doSubents = true);
    AcDb::Visibility visibility() const;
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, Adesk::Boolean doSubents = true);
    AcDb::LineWeight lineWeight() const;
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, Adesk::Boolean doSubents = true);

    // Layer, colour, linetype, linetype scale and line weight from the database's current
    // values (CLAYER, CECOLOR, CELTYPE, CELTSCALE, CELWEIGHT): the entity's own database,
    // else db, else the working database. Visibility is left as it is, and so is every
    // property a derived class keeps.
    virtual void setDatabaseDefaults();
    virtual void setDatabaseDefaults(AcDbDatabase* db);
    // Hook for derived classes: called by both setDatabaseDefaults with the database used.
    virtual void subSetDatabaseDefaults(AcDbDatabase* db);
    // Copies layer, colour, linetype, linetype scale, line weight and visibility.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* source, Adesk::Boolean doSubents = true);

    // Drawing -----------------------------------------------------------------
    // Base: draws nothing and answers true (viewportDraw is then not called).
    virtual Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw);
    virtual void viewportDraw(AcGiViewportDraw* viewportDraw);
    virtual Adesk::UInt32 viewportDrawLogicalFlags(AcGiViewportDraw*) { return 0; }
    Adesk::UInt32 setAttributes(void* traits) override;
    // Prints the entity's listing to the console; the base prints nothing.
    virtual void list() const;

    // Geometry ----------------------------------------------------------------
    // Base: eNotApplicable.
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform);
    // A transformed copy (clone + transformBy); eNotApplicable if transformBy refuses.
    virtual Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& entity) const;
    // New non-resident entities owned by the caller. Base: eNotApplicable.
    virtual Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const;
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect intType,
                                            AcGePoint3dArray& points,
                                            Adesk::GsMarker thisGsMarker = 0,
                                            Adesk::GsMarker otherGsMarker = 0) const;
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect intType,
                                            const AcGePlane& projPlane, AcGePoint3dArray& points,
                                            Adesk::GsMarker thisGsMarker = 0,
                                            Adesk::GsMarker otherGsMarker = 0) const;
    virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;  // base: eInvalidExtents
    virtual void getEcs(AcGeMatrix3d& retVal) const;  // base: identity

    virtual Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                            AcDbIntArray& geomIds) const;
    virtual Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    virtual Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& stretchPoints) const;
    virtual Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    virtual Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                             const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                             const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                             AcDbIntArray& geomIds) const;
    virtual Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                             const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                             const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                             AcDbIntArray& geomIds, const AcGeMatrix3d& insertionMat) const;

    // Sub-entities: base answers eNotApplicable (paths) and no markers.
    virtual Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker gsMark,
                                                       const AcGePoint3d& pickPoint,
                                                       const AcGeMatrix3d& viewXform, int& numPaths,
                                                       AcDbFullSubentPath*& subentPaths,
                                                       int numInserts = 0,
                                                       AcDbObjectId* entAndInsertStack = nullptr) const;
    virtual Acad::ErrorStatus getGsMarkersAtSubentPath(const AcDbFullSubentPath& subPath,
                                                       AcDbGsMarkerArray& gsMarkers) const;
    // A new non-resident entity for the sub-entity; null when there is none.
    virtual AcDbEntity* subentPtr(const AcDbFullSubentPath& id) const;

    // Filing: layer, linetype, colour, linetype scale, visibility and line weight.
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // DXF: subclass AcDbEntity with 67 (paper space), 8, 6, 62, 420, 370, 48, 60.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcDbObjectId m_layerId;
    AcDbObjectId m_linetypeId;
    AcCmEntityColor m_color;
    double m_linetypeScale = 1.0;
    AcDb::Visibility m_visibility = AcDb::kVisible;
    AcDb::LineWeight m_lineWeight = AcDb::kLnWtByLayer;
};
