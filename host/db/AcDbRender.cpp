// Pictures of a database: the space drawn in draw order into a display list, and the
// renderer told about the drawing's layers, colours and units.
#include "host/db/AcDbRender.h"

#include <memory>
#include <unordered_map>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDraw.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbSortentsTable.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

struct LayerLook {
    bool visible = true;
    bool frozen = false;
    AcCmEntityColor color;
};
using LayerLooks = std::unordered_map<AcGiLayerKey, LayerLook>;

std::shared_ptr<LayerLooks> ReadLayers(AcDbDatabase* db)
{
    auto looks = std::make_shared<LayerLooks>();
    const AcDbPeek peek(db->layerTableId());
    const auto* table = peek.as<AcDbLayerTable>();
    if (!table)
        return looks;
    for (const AcDbObjectId& id : table->recordIds()) {
        const AcDbPeek layerPeek(id);
        const auto* layer = layerPeek.as<AcDbLayerTableRecord>();
        if (!layer || layer->isErased())
            continue;
        LayerLook look;
        look.frozen = layer->isFrozen();
        look.visible = !layer->isOff() && !look.frozen;
        look.color = layer->color().entityColor();
        (*looks)[static_cast<AcGiLayerKey>(id.asOldId())] = look;
    }
    return looks;
}

double UnitsPerMm(AcDb::UnitsValue units)
{
    switch (units) {
    case AcDb::kUnitsInches: return 1.0 / 25.4;
    case AcDb::kUnitsFeet: return 1.0 / 304.8;
    case AcDb::kUnitsCentimeters: return 0.1;
    case AcDb::kUnitsMeters: return 0.001;
    case AcDb::kUnitsKilometers: return 1e-6;
    default: return 1.0;
    }
}

// The space's entity ids in draw order.
AcDbObjectIdArray DrawOrder(AcDbObjectId spaceId)
{
    AcDbObjectIdArray ids;
    AcDbBlockTableRecord* space = nullptr;
    if (acdbOpenObject(space, spaceId, AcDb::kForRead) != Acad::eOk)
        return ids;
    AcDbSortentsTable* sortents = nullptr;
    if (space->getSortentsTable(sortents, AcDb::kForRead) == Acad::eOk && sortents) {
        sortents->getFullDrawOrder(ids);
        sortents->close();
    } else {
        ids = space->entityIds();
    }
    space->close();
    return ids;
}

} // namespace

Adesk::Boolean acdbDrawEntity(AcDbEntity* entity, AcGiWorldDraw* worldDraw)
{
    if (!entity || !worldDraw)
        return Adesk::kTrue;
    acdbSetEntityTraits(entity, worldDraw);
    // An entity that answers false wants a viewportDraw; the plan view of this host draws
    // from world draws only, so what it drew so far is what shows.
    return entity->worldDraw(worldDraw);
}

Acad::ErrorStatus acdbDrawSpace(AcDbDatabase* db, GiDisplayList& out, bool paperSpace, AcGiRegenType regenType)
{
    if (!db)
        return Acad::eNullObjectPointer;
    const std::shared_ptr<LayerLooks> layers = ReadLayers(db);
    GiRecordingOptions options;
    options.regenType = regenType;
    options.database = db;
    GiRecordingWorldDraw draw(out, options);
    for (const AcDbObjectId& id : DrawOrder(paperSpace ? db->paperSpaceId() : db->modelSpaceId())) {
        const AcDbPeek peek(id);
        AcDbEntity* entity = peek.as<AcDbEntity>();
        if (!entity || entity->isErased() || entity->visibility() != AcDb::kVisible)
            continue;
        const auto layer = layers->find(static_cast<AcGiLayerKey>(entity->layerId().asOldId()));
        if (layer != layers->end() && layer->second.frozen)
            continue;  // a frozen layer hides the whole entity, a block insert with its contents
        acdbDrawEntity(entity, &draw);
    }
    return Acad::eOk;
}

GiRenderOptions acdbRenderOptions(AcDbDatabase* db, const AcDbRenderOptions& options)
{
    GiRenderOptions r;
    r.format = options.format;
    r.hasWindow = options.hasWindow;
    r.windowMin = options.windowMin;
    r.windowMax = options.windowMax;
    r.scale = options.scale;
    r.unitsPerMm = options.unitsPerMm > 0.0 ? options.unitsPerMm : db ? UnitsPerMm(db->insunits()) : 1.0;
    r.fitMm = options.fitMm;
    r.marginMm = options.marginMm;
    r.dpi = options.dpi;
    r.background = options.background;
    if (!db)
        return r;
    const std::shared_ptr<LayerLooks> layers = ReadLayers(db);
    r.layerVisible = [layers](AcGiLayerKey key) {
        const auto it = layers->find(key);
        return it == layers->end() || it->second.visible;
    };
    r.layerColor = [layers](AcGiLayerKey key) {
        const auto it = layers->find(key);
        AcCmEntityColor color;
        color.setColorIndex(7);
        return it == layers->end() ? color : it->second.color;
    };
    return r;
}

Acad::ErrorStatus acdbRenderDatabase(AcDbDatabase* db, const AcDbRenderOptions& options, std::string& bytes,
                                     std::string* error)
{
    if (!db)
        return Acad::eNullObjectPointer;
    GiDisplayList list;
    acdbDrawSpace(db, list, options.paperSpace);
    if (!giRenderToBytes({&list}, acdbRenderOptions(db, options), bytes, error))
        return Acad::eInvalidInput;
    return Acad::eOk;
}

Acad::ErrorStatus acdbRenderDatabaseToFile(AcDbDatabase* db, const AcDbRenderOptions& options,
                                           const std::string& path, std::string* error)
{
    if (!db)
        return Acad::eNullObjectPointer;
    GiDisplayList list;
    acdbDrawSpace(db, list, options.paperSpace);
    if (!giRenderToFile({&list}, acdbRenderOptions(db, options), path, error))
        return Acad::eInvalidInput;
    return Acad::eOk;
}
