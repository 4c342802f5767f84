// Entities as display lists, for picking and pictures. An entity draws itself through
// worldDraw; while it draws nothing (a class without its own drawing yet) its geometry
// stands in: a curve by its straight and circular pieces (piece i carries marker i + 1, as a
// polyline's segments do), a single-line text by its text, anything else - for picking
// only - by its filled extents box.
#pragma once

#include <vector>

#include "host/db/AcDbObjectId.h"
#include "host/gi/GiDisplayList.h"

class AcDbDatabase;
class AcDbEntity;

// Appends what the entity draws to list; with forPicking, the extents-box stand-in too.
void apDrawEntity(AcDbEntity* entity, GiDisplayList& list, bool forPicking);

// The live entities of a block (model space for the null id, the current space for
// currentSpace) in draw order: the sort-entities table's order, first drawn first.
std::vector<AcDbObjectId> apDrawOrder(AcDbDatabase* db, AcDbObjectId blockId);

// Whether a layer is shown (on and not frozen); caches per database while it lives.
class ApLayerState {
public:
    explicit ApLayerState(AcDbDatabase* db) : m_db(db) {}
    bool visible(AcDbObjectId layerId);
    bool locked(AcDbObjectId layerId);

private:
    struct Entry {
        AcDbObjectId id;
        bool visible = true;
        bool locked = false;
    };
    const Entry& entry(AcDbObjectId layerId);
    AcDbDatabase* m_db;
    std::vector<Entry> m_cache;
};
