// The picker: hit tests on each selectable entity's display list.
#include "host/ap/ApPicker.h"

#include <functional>

#include "host/ap/ApEntityDraw.h"
#include "host/db/AcDbCurve.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/gi/GiHitTest.h"

namespace {

AcGePoint2d flat(const AcGePoint3d& p)
{
    return AcGePoint2d(p.x, p.y);
}

// Calls f(id, entity, list) for each selectable entity of the working database; f returns
// false to stop.
void forEachDrawn(const std::function<bool(AcDbObjectId, AcDbEntity*, const GiDisplayList&)>& f)
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    for (AcDbObjectId id : apSelectableEntities(db)) {
        AcDbEntity* e = nullptr;
        if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk)
            continue;
        GiDisplayList list;
        apDrawEntity(e, list, true);
        const bool go = f(id, e, list);
        e->close();
        if (!go)
            break;
    }
}

// The point on the entity nearest to p (p itself when it is no curve).
AcGePoint3d nearestOn(const AcDbEntity* e, const AcGePoint3d& p)
{
    AcGePoint3d q = p;
    if (const AcDbCurve* c = AcDbCurve::cast(e))
        if (c->getClosestPointTo(p, q) != Acad::eOk)
            q = p;
    return q;
}

// The marker of the first drawn part, and a point of it.
bool firstPart(const GiDisplayList& list, Adesk::GsMarker& marker, AcGePoint3d& point)
{
    for (const GiPrimitive& p : list.primitives) {
        marker = p.baseMarker >= 0 ? p.markerOf(0) : p.traits.marker;
        if (!p.points.empty())
            point = p.points.front();
        else if (p.kind == GiPrimitiveKind::kCircle || p.kind == GiPrimitiveKind::kArc)
            point = p.arcStart();
        else if (p.text)
            point = p.text->position;
        return true;
    }
    return false;
}

} // namespace

std::vector<AcDbObjectId> apSelectableEntities(AcDbDatabase* db)
{
    std::vector<AcDbObjectId> out;
    if (!db)
        return out;
    ApLayerState layers(db);
    for (AcDbObjectId id : apDrawOrder(db, db->currentSpaceId())) {
        AcDbEntity* e = nullptr;
        if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk)
            continue;
        const bool shown = e->visibility() == AcDb::kVisible && layers.visible(e->layerId());
        e->close();
        if (shown)
            out.push_back(id);
    }
    return out;
}

std::vector<AcEdPickHit> ApPicker::pickAt(const AcGePoint3d& point, double aperture)
{
    std::vector<AcEdPickHit> out;
    forEachDrawn([&](AcDbObjectId id, AcDbEntity* e, const GiDisplayList& list) {
        const std::vector<GiHit> hits = giHitPoint(list, flat(point), aperture);
        if (hits.empty())
            return true;
        const GiHit* best = &hits.front();
        for (const GiHit& h : hits)
            if (h.distance < best->distance)
                best = &h;
        AcEdPickHit hit;
        hit.id = id;
        hit.marker = best->marker;
        hit.point = nearestOn(e, point);
        out.push_back(hit);
        return true;
    });
    return out;
}

std::vector<AcEdPickHit> ApPicker::window(const AcGePoint3d& corner1, const AcGePoint3d& corner2, bool crossing)
{
    std::vector<AcEdPickHit> out;
    forEachDrawn([&](AcDbObjectId id, AcDbEntity*, const GiDisplayList& list) {
        if (list.empty())
            return true;
        const size_t n = crossing ? giHitCrossing(list, flat(corner1), flat(corner2)).size()
                                  : giHitWindow(list, flat(corner1), flat(corner2)).size();
        if (crossing ? n > 0 : n == list.size()) {
            AcEdPickHit hit;
            hit.id = id;
            firstPart(list, hit.marker, hit.point);
            out.push_back(hit);
        }
        return true;
    });
    return out;
}

std::vector<AcEdPickHit> ApPicker::fence(const std::vector<AcGePoint3d>& points)
{
    std::vector<AcEdPickHit> out;
    std::vector<AcGePoint2d> line;
    for (const AcGePoint3d& p : points)
        line.push_back(flat(p));
    if (line.size() < 2)
        return out;
    forEachDrawn([&](AcDbObjectId id, AcDbEntity*, const GiDisplayList& list) {
        const std::vector<size_t> crossed = giHitFence(list, line);
        if (!crossed.empty()) {
            AcEdPickHit hit;
            hit.id = id;
            Adesk::GsMarker unused = 0;
            firstPart(list, unused, hit.point);
            const GiPrimitive& p = list.primitives[crossed.front()];
            hit.marker = p.baseMarker >= 0 ? p.markerOf(0) : p.traits.marker;
            out.push_back(hit);
        }
        return true;
    });
    return out;
}

std::vector<AcDbObjectId> ApPicker::all()
{
    return apSelectableEntities(acdbHostApplicationServices()->workingDatabase());
}

bool ApPicker::pickEntity(AcDbObjectId id, Adesk::GsMarker marker, AcEdPickHit& hit)
{
    AcDbEntity* e = nullptr;
    if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk)
        return false;
    bool ok = e->visibility() == AcDb::kVisible;
    if (ok) {
        ApLayerState layers(e->database());
        ok = layers.visible(e->layerId());
    }
    if (ok) {
        GiDisplayList list;
        apDrawEntity(e, list, true);
        Adesk::GsMarker first = 0;
        AcGePoint3d point;
        firstPart(list, first, point);
        hit.id = id;
        hit.marker = marker != 0 ? marker : first;
        hit.point = point;
    }
    e->close();
    return ok;
}
