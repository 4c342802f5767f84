// Explode through drawing: a world draw of regen type kAcGiForExplode whose primitives become
// new entities, so that an entity's explode shows exactly what its worldDraw draws.
#pragma once

#include <memory>

#include "host/db/AcDbEntity.h"
#include "host/gi/GiRecordingDraw.h"

namespace AcDbExplodeDrawDetail {
// Holds the list so that it exists before the recording draw that writes into it.
struct ListHolder {
    std::unique_ptr<GiDisplayList> list = std::make_unique<GiDisplayList>();
};
}  // namespace AcDbExplodeDrawDetail

class AcDbExplodeDraw : private AcDbExplodeDrawDetail::ListHolder, public GiRecordingWorldDraw {
public:
    // db resolves text style names to records; null leaves exploded texts on no style.
    explicit AcDbExplodeDraw(AcDbDatabase* db = nullptr);

    // What was drawn so far, as new entities not in a database, appended to set (the caller
    // owns them); the drawing starts again empty. Each primitive becomes:
    //   polyline of 2 points: AcDbLine; of more: an AcDbPolyline when its points lie in one
    //     plane across its normal, else AcDbLines;
    //   polygon filled with 3 or 4 points: AcDbSolid; any other polygon: a closed AcDbPolyline;
    //   circle: AcDbCircle; arc: AcDbArc (a sector or chord arc adds its closing lines);
    //   xline: AcDbXline; text: AcDbText with height, width factor, oblique and rotation;
    //   rays are left out (the database has no ray entity).
    // Colour, layer, linetype and line weight come from the primitive's traits.
    void takeEntities(AcDbVoidPtrArray& set);

private:
    AcDbDatabase* m_db;
};

// entity->worldDraw into an explode draw, the entities appended to set. eNotApplicable when
// the entity draws nothing.
Acad::ErrorStatus acdbExplodeByDraw(const AcDbEntity* entity, AcDbVoidPtrArray& set);
