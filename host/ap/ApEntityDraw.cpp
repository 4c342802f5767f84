// Entities drawn into display lists through worldDraw, with their geometry standing in while
// a class draws nothing; draw order of a block; layer visibility.
#include "host/ap/ApEntityDraw.h"

#include <cmath>
#include <memory>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbCurve.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRender.h"
#include "host/db/AcDbSortentsTable.h"
#include "host/db/AcDbText.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

GiTraits traitsOf(const AcDbEntity* e)
{
    GiTraits t;
    t.color = e->entityColor();
    t.layer = static_cast<AcGiLayerKey>(e->layerId().asOldId());
    t.linetype = static_cast<AcGiLinetypeKey>(e->linetypeId().asOldId());
    t.lineWeight = static_cast<int>(e->lineWeight());
    t.linetypeScale = e->linetypeScale();
    return t;
}

void addCurvePieces(const AcDbCurve* curve, const GiTraits& traits, GiDisplayList& list)
{
    AcDbCurvePieces pieces;
    curve->getPieces(pieces);
    Adesk::GsMarker marker = 1;
    for (const AcDbCurvePiece& piece : pieces) {
        GiPrimitive p;
        p.traits = traits;
        p.traits.marker = marker++;
        if (piece.isArc) {
            const AcGeCircArc3d& a = piece.arc;
            p.kind = GiPrimitiveKind::kArc;
            p.center = a.center();
            p.radius = a.radius();
            p.normal = a.normal();
            p.startVector = (a.startPoint() - a.center()).normal();
            p.sweep = a.endAng() - a.startAng();
            if (p.radius <= 0.0)
                continue;
        } else {
            AcGePoint3d s, e;
            if (!piece.line.hasStartPoint(s) || !piece.line.hasEndPoint(e))
                continue;
            p.kind = GiPrimitiveKind::kPolyline;
            p.points = {s, e};
        }
        list.primitives.push_back(std::move(p));
    }
}

void addExtentsBox(const AcDbEntity* e, const GiTraits& traits, GiDisplayList& list)
{
    AcDbExtents ext;
    if (e->getGeomExtents(ext) != Acad::eOk || ext.isEmpty())
        return;
    const AcGePoint3d& a = ext.minPoint();
    const AcGePoint3d& b = ext.maxPoint();
    GiPrimitive p;
    p.kind = GiPrimitiveKind::kPolygon;
    p.traits = traits;
    p.traits.fill = kAcGiFillAlways;
    p.points = {a, AcGePoint3d(b.x, a.y, a.z), AcGePoint3d(b.x, b.y, a.z), AcGePoint3d(a.x, b.y, a.z)};
    list.primitives.push_back(std::move(p));
}

} // namespace

void apDrawEntity(AcDbEntity* entity, GiDisplayList& list, bool forPicking)
{
    if (!entity)
        return;
    const size_t before = list.size();
    const GiTraits traits = traitsOf(entity);
    GiRecordingOptions options;
    options.database = entity->database();
    {
        GiRecordingWorldDraw draw(list, options);
        acdbDrawEntity(entity, &draw);
    }
    if (list.size() != before)
        return;
    if (const AcDbCurve* curve = AcDbCurve::cast(entity)) {
        addCurvePieces(curve, traits, list);
    } else if (const AcDbText* text = AcDbText::cast(entity)) {
        GiRecordingWorldDraw draw(list, options);
        draw.setTraits(traits);
        const double r = text->rotation();
        draw.geometry().text(text->position(), text->normal(), AcGeVector3d(std::cos(r), std::sin(r), 0.0),
                             text->height(), text->widthFactor(), text->oblique(), text->textStringConst());
    }
    if (forPicking && list.size() == before)
        addExtentsBox(entity, traits, list);
}

std::vector<AcDbObjectId> apDrawOrder(AcDbDatabase* db, AcDbObjectId blockId)
{
    std::vector<AcDbObjectId> out;
    if (!db)
        return out;
    if (blockId.isNull())
        blockId = db->modelSpaceId();
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, blockId, AcDb::kForRead) != Acad::eOk)
        return out;
    AcDbObjectIdArray ids;
    AcDbSortentsTable* sortents = nullptr;
    if (block->getSortentsTable(sortents, AcDb::kForRead, false) == Acad::eOk && sortents) {
        sortents->getFullDrawOrder(ids);
        sortents->close();
    } else {
        ids = block->entityIds();
    }
    block->close();
    for (int i = 0; i < ids.length(); ++i) {
        const AcDbObjectId id = ids[i];
        if (id.isValid() && !id.isErased())
            out.push_back(id);
    }
    return out;
}

const ApLayerState::Entry& ApLayerState::entry(AcDbObjectId layerId)
{
    for (const Entry& e : m_cache)
        if (e.id == layerId)
            return e;
    Entry e;
    e.id = layerId;
    AcDbLayerTableRecord* layer = nullptr;
    if (acdbOpenObject(layer, layerId, AcDb::kForRead) == Acad::eOk) {
        e.visible = !layer->isOff() && !layer->isFrozen();
        e.locked = layer->isLocked();
        layer->close();
    }
    m_cache.push_back(e);
    return m_cache.back();
}

bool ApLayerState::visible(AcDbObjectId layerId)
{
    return entry(layerId).visible;
}

bool ApLayerState::locked(AcDbObjectId layerId)
{
    return entry(layerId).locked;
}
