// AcDbEntity: common properties, their filing and the base geometric operations.
#include "host/db/AcDbEntity.h"

#include <cwchar>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

namespace {

AcDbDatabase* lookupDb(const AcDbEntity* ent)
{
    AcDbDatabase* db = ent->database();
    return db ? db : acdbHostApplicationServices()->workingDatabase();
}

std::wstring nameOf(AcDbObjectId id)
{
    AcDbPeek peek(id);
    const AcDbSymbolTableRecord* rec = peek.as<AcDbSymbolTableRecord>();
    return rec ? rec->name() : std::wstring();
}

ACHAR* copyOf(const std::wstring& s)
{
    return acutNewString(s.c_str());
}

AcDbObjectId findRecord(AcDbObjectId tableId, const ACHAR* name)
{
    AcDbPeek peek(tableId);
    const AcDbSymbolTable* table = peek.as<AcDbSymbolTable>();
    AcDbObjectId id;
    if (table)
        table->getAt(name, id);
    return id;
}

}  // namespace

AcDbEntity::AcDbEntity() = default;

AcDbEntity::~AcDbEntity() = default;

AcDbObjectId AcDbEntity::layerId() const
{
    assertReadEnabled();
    return m_layerId;
}

ACHAR* AcDbEntity::layer() const
{
    return copyOf(layerName());
}

std::wstring AcDbEntity::layerName() const
{
    assertReadEnabled();
    return nameOf(m_layerId);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layerId, Adesk::Boolean, bool allowHiddenLayer)
{
    if (layerId.isNull())
        return Acad::eNullObjectId;
    {
        AcDbPeek peek(layerId);
        const AcDbLayerTableRecord* rec = peek.as<AcDbLayerTableRecord>();
        if (!rec)
            return Acad::eWrongObjectType;
        if (!allowHiddenLayer && !rec->name().empty() && rec->name()[0] == L'*')
            return Acad::eInvalidLayer;
    }
    assertWriteEnabled();
    m_layerId = layerId;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, Adesk::Boolean doSubents, bool allowHiddenLayer)
{
    AcDbDatabase* db = lookupDb(this);
    if (!db)
        return Acad::eNoDatabase;
    const AcDbObjectId id = findRecord(db->layerTableId(), name);
    if (id.isNull())
        return Acad::eKeyNotFound;
    return setLayer(id, doSubents, allowHiddenLayer);
}

Adesk::UInt16 AcDbEntity::colorIndex() const
{
    assertReadEnabled();
    return static_cast<Adesk::UInt16>(m_color.colorIndex());
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, Adesk::Boolean)
{
    if (color > 256)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_color.setColorIndex(static_cast<Adesk::Int16>(color));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, Adesk::Boolean)
{
    assertWriteEnabled();
    m_color = color.entityColor();
    return Acad::eOk;
}

AcDbObjectId AcDbEntity::linetypeId() const
{
    assertReadEnabled();
    return m_linetypeId;
}

ACHAR* AcDbEntity::linetype() const
{
    return copyOf(linetypeName());
}

std::wstring AcDbEntity::linetypeName() const
{
    assertReadEnabled();
    return m_linetypeId.isNull() ? std::wstring(L"ByLayer") : nameOf(m_linetypeId);
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, Adesk::Boolean)
{
    if (id.isNull())
        return Acad::eNullObjectId;
    {
        AcDbPeek peek(id);
        if (!peek.as<AcDbLinetypeTableRecord>())
            return Acad::eWrongObjectType;
    }
    assertWriteEnabled();
    m_linetypeId = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, Adesk::Boolean doSubents)
{
    AcDbDatabase* db = lookupDb(this);
    if (!db)
        return Acad::eNoDatabase;
    const AcDbObjectId id = findRecord(db->linetypeTableId(), name);
    if (id.isNull())
        return Acad::eUndefinedLineType;
    return setLinetype(id, doSubents);
}

double AcDbEntity::linetypeScale() const
{
    assertReadEnabled();
    return m_linetypeScale;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, Adesk::Boolean)
{
    if (!(scale > 0.0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_linetypeScale = scale;
    return Acad::eOk;
}

AcDb::Visibility AcDbEntity::visibility() const
{
    assertReadEnabled();
    return m_visibility;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, Adesk::Boolean)
{
    if (visibility != AcDb::kVisible && visibility != AcDb::kInvisible)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_visibility = visibility;
    return Acad::eOk;
}

AcDb::LineWeight AcDbEntity::lineWeight() const
{
    assertReadEnabled();
    return m_lineWeight;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, Adesk::Boolean)
{
    if (weight < AcDb::kLnWtByLwDefault || weight > AcDb::kLnWt211)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_lineWeight = weight;
    return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults()
{
    setDatabaseDefaults(nullptr);
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* given)
{
    AcDbDatabase* db = database();
    if (!db)
        db = given;
    if (!db)
        db = acdbHostApplicationServices()->workingDatabase();
    if (!db)
        return;
    assertWriteEnabled();
    const AcDbObjectId layer = db->clayer();
    if (!layer.isNull())
        m_layerId = layer;
    const AcDbObjectId ltype = db->celtype();
    if (!ltype.isNull())
        m_linetypeId = ltype;
    m_color = db->cecolor().entityColor();
    m_linetypeScale = db->celtscale() > 0 ? db->celtscale() : 1.0;
    m_lineWeight = db->celweight();
    subSetDatabaseDefaults(db);
}

void AcDbEntity::subSetDatabaseDefaults(AcDbDatabase*) {}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* src, Adesk::Boolean)
{
    if (!src)
        return Acad::eNullEntityPointer;
    src->assertReadEnabled();
    assertWriteEnabled();
    m_layerId = src->m_layerId;
    m_linetypeId = src->m_linetypeId;
    m_color = src->m_color;
    m_linetypeScale = src->m_linetypeScale;
    m_visibility = src->m_visibility;
    m_lineWeight = src->m_lineWeight;
    return Acad::eOk;
}

Adesk::Boolean AcDbEntity::worldDraw(AcGiWorldDraw*)
{
    return true;
}

void AcDbEntity::viewportDraw(AcGiViewportDraw*) {}

Adesk::UInt32 AcDbEntity::setAttributes(void*)
{
    return 0;
}

void AcDbEntity::list() const
{
    assertReadEnabled();
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&)
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& entity) const
{
    entity = nullptr;
    AcDbEntity* copy = AcDbEntity::cast(clone());
    if (!copy)
        return Acad::eNotApplicable;
    const Acad::ErrorStatus es = copy->transformBy(xform);
    if (es != Acad::eOk) {
        delete copy;
        return es;
    }
    entity = copy;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray&) const
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&,
                                            Adesk::GsMarker, Adesk::GsMarker) const
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* entity, AcDb::Intersect intType, const AcGePlane&,
                                            AcGePoint3dArray& points, Adesk::GsMarker a, Adesk::GsMarker b) const
{
    return intersectWith(entity, intType, points, a, b);
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents&) const
{
    return Acad::eInvalidExtents;
}

void AcDbEntity::getEcs(AcGeMatrix3d& retVal) const
{
    retVal.setToIdentity();
}

Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray&, AcDbIntArray&, AcDbIntArray&) const
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray&, const AcGeVector3d&)
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getStretchPoints(AcGePoint3dArray& points) const
{
    AcDbIntArray modes, ids;
    return getGripPoints(points, modes, ids);
}

Acad::ErrorStatus AcDbEntity::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    return moveGripPointsAt(indices, offset);
}

Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                             const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray&,
                                             AcDbIntArray&) const
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pick,
                                             const AcGePoint3d& last, const AcGeMatrix3d& view,
                                             AcGePoint3dArray& points, AcDbIntArray& geomIds,
                                             const AcGeMatrix3d&) const
{
    return getOsnapPoints(mode, marker, pick, last, view, points, geomIds);
}

Acad::ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker, const AcGePoint3d&,
                                                       const AcGeMatrix3d&, int& numPaths,
                                                       AcDbFullSubentPath*& subentPaths, int, AcDbObjectId*) const
{
    numPaths = 0;
    subentPaths = nullptr;
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::getGsMarkersAtSubentPath(const AcDbFullSubentPath&, AcDbGsMarkerArray&) const
{
    return Acad::eNotApplicable;
}

AcDbEntity* AcDbEntity::subentPtr(const AcDbFullSubentPath&) const
{
    return nullptr;
}

// Filing ----------------------------------------------------------------------------------

Acad::ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeHardPointerId(m_layerId);
    f->writeHardPointerId(m_linetypeId);
    f->writeUInt8(static_cast<Adesk::UInt8>(m_color.colorMethod()));
    f->writeInt16(m_color.isByColor() ? Adesk::Int16(0) : m_color.colorIndex());
    f->writeUInt32(m_color.rgb());
    f->writeDouble(m_linetypeScale);
    f->writeInt16(static_cast<Adesk::Int16>(m_visibility));
    f->writeInt16(static_cast<Adesk::Int16>(m_lineWeight));
    return f->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    AcDbHardPointerId layer, ltype;
    f->readHardPointerId(&layer);
    f->readHardPointerId(&ltype);
    Adesk::UInt8 method = 0;
    Adesk::Int16 index = 0, vis = 0, weight = 0;
    Adesk::UInt32 rgb = 0;
    double scale = 1.0;
    f->readUInt8(&method);
    f->readInt16(&index);
    f->readUInt32(&rgb);
    f->readDouble(&scale);
    f->readInt16(&vis);
    f->readInt16(&weight);
    if (f->filerStatus() != Acad::eOk)
        return f->filerStatus();
    m_layerId = layer;
    m_linetypeId = ltype;
    if (method == AcCm::kByColor)
        m_color.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
                       static_cast<Adesk::UInt8>(rgb));
    else
        m_color.setColorIndex(index);
    m_linetypeScale = scale;
    m_visibility = vis ? AcDb::kInvisible : AcDb::kVisible;
    m_lineWeight = static_cast<AcDb::LineWeight>(weight);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbEntity"));
    {
        AcDbPeek owner(ownerId());
        const AcDbBlockTableRecord* btr = owner.as<AcDbBlockTableRecord>();
        if (btr && btr->isPaperSpace())
            f->writeInt16(acdbDxfCode(67), 1);
    }
    {
        // The names are written from the records themselves: every entity has a layer, and a
        // copy per entity shows in the time a large drawing takes to save.
        AcDbPeek layerPeek(m_layerId);
        const AcDbSymbolTableRecord* layer = layerPeek.as<AcDbSymbolTableRecord>();
        f->writeString(AcDb::kDxfLayerName, layer && !layer->name().empty() ? layer->name().c_str() : L"0");
    }
    if (!m_linetypeId.isNull()) {
        AcDbPeek ltPeek(m_linetypeId);
        const AcDbSymbolTableRecord* rec = ltPeek.as<AcDbSymbolTableRecord>();
        if (rec) {
            const std::wstring& lt = rec->name();
            if (!lt.empty() && lt != L"ByLayer" && lt != L"BYLAYER")
                f->writeString(AcDb::kDxfLinetypeName, lt.c_str());
        }
    }
    if (m_color.isByColor()) {
        f->writeInt16(AcDb::kDxfColor, m_color.colorIndex());
        f->writeInt32(AcDb::kDxfColorRGB, static_cast<Adesk::Int32>(m_color.rgb()));
    } else if (!m_color.isByLayer()) {
        f->writeInt16(AcDb::kDxfColor, m_color.colorIndex());
    }
    if (m_lineWeight != AcDb::kLnWtByLayer)
        f->writeInt16(AcDb::kDxfLineWeight, static_cast<Adesk::Int16>(m_lineWeight));
    if (m_linetypeScale != 1.0)
        f->writeDouble(AcDb::kDxfLinetypeScale, m_linetypeScale);
    if (m_visibility == AcDb::kInvisible)
        f->writeInt16(AcDb::kDxfVisibility, 1);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    // Files before R13 have no subclass markers: then the common groups are read as long
    // as they come, and the first other group is left for the entity's own part.
    const bool marked = f->atSubclassData(ACRX_T("AcDbEntity"));
    AcDbDatabase* db = f->database() ? f->database() : database();
    resbuf rb;
    bool haveRgb = false;
    Adesk::UInt32 rgb = 0;
    Adesk::Int16 index = 256;
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        switch (rb.restype) {
        case AcDb::kDxfLayerName: {
            const ACHAR* name = rb.resval.rstring ? rb.resval.rstring : L"0";
            AcDbObjectId id = db ? findRecord(db->layerTableId(), name) : AcDbObjectId();
            if (id.isNull() && db) {
                // A drawing may use a layer its table lacks: it is made, as other readers do.
                AcDbLayerTable* table = nullptr;
                if (db->getLayerTable(table, AcDb::kForWrite) == Acad::eOk) {
                    auto* rec = new AcDbLayerTableRecord();
                    if (rec->setName(name) == Acad::eOk && table->add(id, rec) == Acad::eOk)
                        rec->close();
                    else
                        delete rec;
                    table->close();
                }
            }
            if (!id.isNull())
                m_layerId = id;
            break;
        }
        case AcDb::kDxfLinetypeName: {
            const AcDbObjectId id = db ? findRecord(db->linetypeTableId(), rb.resval.rstring) : AcDbObjectId();
            if (!id.isNull())
                m_linetypeId = id;
            break;
        }
        case AcDb::kDxfColor: index = rb.resval.rint; break;
        case AcDb::kDxfColorRGB:
            haveRgb = true;
            rgb = static_cast<Adesk::UInt32>(rb.resval.rlong);
            break;
        case AcDb::kDxfLineWeight: m_lineWeight = static_cast<AcDb::LineWeight>(rb.resval.rint); break;
        case AcDb::kDxfLinetypeScale: m_linetypeScale = rb.resval.rreal > 0 ? rb.resval.rreal : 1.0; break;
        case AcDb::kDxfVisibility: m_visibility = rb.resval.rint ? AcDb::kInvisible : AcDb::kVisible; break;
        case AcDb::kDxfSubclass: f->pushBackItem(); goto done;
        case 67: break;
        default:
            if (!marked) {
                f->pushBackItem();
                goto done;
            }
            break;  // 92/310 proxy graphics, 440 transparency and the like
        }
    }
done:
    if (haveRgb)
        m_color.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
                       static_cast<Adesk::UInt8>(rgb));
    else if (!m_color.setColorIndex(index < 0 ? static_cast<Adesk::Int16>(-index) : index))
        m_color.setColorIndex(256);
    return f->filerStatus();
}
