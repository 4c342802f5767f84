// The picker behind selections: which entities of the current space lie under a pick, in a
// window, on a fence. Each entity is drawn into a display list (see ApEntityDraw.h) and hit
// tested there, so picks follow what is drawn and carry its selection markers. Entities on
// layers that are off or frozen cannot be selected; locked layers can. Results follow draw
// order, the topmost last.
#pragma once

#include "host/ed/AcEdSelection.h"

class AcDbDatabase;

class ApPicker : public AcEdPicker {
public:
    std::vector<AcEdPickHit> pickAt(const AcGePoint3d& point, double aperture) override;
    std::vector<AcEdPickHit> window(const AcGePoint3d& corner1, const AcGePoint3d& corner2, bool crossing) override;
    std::vector<AcEdPickHit> fence(const std::vector<AcGePoint3d>& points) override;
    std::vector<AcDbObjectId> all() override;
    bool pickEntity(AcDbObjectId id, Adesk::GsMarker marker, AcEdPickHit& hit) override;
};

// The entities of the working database's current space on visible layers, in draw order.
std::vector<AcDbObjectId> apSelectableEntities(AcDbDatabase* db);
