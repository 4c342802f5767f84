// Explode through drawing: recorded primitives turned into lines, polylines, solids, circles,
// arcs, xlines and texts.
#include "host/db/AcDbExplodeDraw.h"

#include <cmath>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbRender.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/AcDbXline.h"

namespace {

GiRecordingOptions ExplodeOptions(AcDbDatabase* db)
{
    GiRecordingOptions options;
    options.regenType = kAcGiForExplode;
    options.database = db;
    return options;
}

void ApplyTraits(AcDbEntity* entity, const GiTraits& traits)
{
    entity->setColor(AcCmColor(traits.color));
    if (traits.layer != 0)
        entity->setLayer(AcDbObjectId().setFromOldId(static_cast<Adesk::IntPtr>(traits.layer)));
    if (traits.linetype != 0)
        entity->setLinetype(AcDbObjectId().setFromOldId(static_cast<Adesk::IntPtr>(traits.linetype)));
    entity->setLineWeight(static_cast<AcDb::LineWeight>(traits.lineWeight));
}

AcDbObjectId StyleId(AcDbDatabase* db, const ACHAR* name)
{
    AcDbObjectId id;
    if (!db || !name || !*name)
        return id;
    const AcDbPeek peek(db->textStyleTableId());
    if (const auto* table = peek.as<AcDbTextStyleTable>())
        table->getAt(name, id);
    return id;
}

// Points all in the plane across the normal through the first one.
bool IsPlanar(const std::vector<AcGePoint3d>& pts, const AcGeVector3d& normal)
{
    for (const AcGePoint3d& p : pts)
        if (std::fabs((p - pts[0]).dotProduct(normal)) > 1e-9 * (1.0 + p.asVector().length()))
            return false;
    return true;
}

AcDbPolyline* MakePolyline(const std::vector<AcGePoint3d>& pts, const AcGeVector3d& normal, bool closed)
{
    auto* pl = new AcDbPolyline(static_cast<unsigned int>(pts.size()));
    pl->setNormal(normal);
    const AcGeMatrix3d toPlane = AcGeMatrix3d::planeToWorld(normal).inverse();
    for (const AcGePoint3d& p : pts) {
        const AcGePoint3d o = toPlane * p;
        pl->addVertexAt(pl->numVerts(), AcGePoint2d(o.x, o.y));
        pl->setElevation(o.z);
    }
    pl->setClosed(closed);
    return pl;
}

void AddLines(const std::vector<AcGePoint3d>& pts, std::vector<AcDbEntity*>& out)
{
    for (std::size_t i = 0; i + 1 < pts.size(); ++i)
        out.push_back(new AcDbLine(pts[i], pts[i + 1]));
}

void FromPrimitive(const GiPrimitive& p, AcDbDatabase* db, std::vector<AcDbEntity*>& out)
{
    switch (p.kind) {
    case GiPrimitiveKind::kPolyline: {
        const AcGeVector3d n = p.hasNormal ? p.normal : AcGeVector3d::kZAxis;
        if (p.points.size() == 2)
            out.push_back(new AcDbLine(p.points[0], p.points[1]));
        else if (p.points.size() > 2 && IsPlanar(p.points, n))
            out.push_back(MakePolyline(p.points, n, false));
        else
            AddLines(p.points, out);
        return;
    }
    case GiPrimitiveKind::kPolygon: {
        const std::vector<AcGePoint3d>& q = p.points;
        if (p.traits.fill == kAcGiFillAlways && q.size() == 3)
            out.push_back(new AcDbSolid(q[0], q[1], q[2]));
        else if (p.traits.fill == kAcGiFillAlways && q.size() == 4)
            out.push_back(new AcDbSolid(q[0], q[1], q[3], q[2]));  // the solid's own point order
        else if (q.size() >= 3 && IsPlanar(q, AcGeVector3d::kZAxis))
            out.push_back(MakePolyline(q, AcGeVector3d::kZAxis, true));
        else if (q.size() >= 2) {
            std::vector<AcGePoint3d> ring = q;
            ring.push_back(q[0]);
            AddLines(ring, out);
        }
        return;
    }
    case GiPrimitiveKind::kCircle:
        out.push_back(new AcDbCircle(p.center, p.normal, p.radius));
        return;
    case GiPrimitiveKind::kArc: {
        if (p.radius <= 0.0 || p.sweep == 0.0)
            return;
        AcGeVector3d startVector = p.startVector;
        if (p.sweep < 0.0)
            startVector.rotateBy(p.sweep, p.normal);
        const double start = AcDbCurveGeom::ocsAngle(p.normal, startVector);
        out.push_back(new AcDbArc(p.center, p.normal, p.radius, start, start + std::fabs(p.sweep)));
        const AcGePoint3d a = p.arcStart(), b = p.arcEnd();
        if (p.arcType == kAcGiArcChord)
            out.push_back(new AcDbLine(b, a));
        else if (p.arcType == kAcGiArcSector)
            AddLines({b, p.center, a}, out);
        return;
    }
    case GiPrimitiveKind::kXline: {
        if (p.points.size() < 2)
            return;
        auto* xline = new AcDbXline();
        xline->setBasePoint(p.points[0]);
        if (xline->setUnitDir(p.points[1] - p.points[0]) != Acad::eOk) {
            delete xline;
            return;
        }
        out.push_back(xline);
        return;
    }
    case GiPrimitiveKind::kText: {
        if (!p.text)
            return;
        const GiTextData& t = *p.text;
        AcGeVector3d ecsX(1.0, 0.0, 0.0);
        ecsX.transformBy(AcGeMatrix3d::planeToWorld(t.normal));
        const double rotation = ecsX.angleTo(t.direction, t.normal);
        auto* text = new AcDbText(t.position, t.string.c_str(), StyleId(db, t.style.styleName()),
                                  t.style.textSize(), rotation);
        text->setNormal(t.normal);
        text->setWidthFactor(t.style.xScale());
        text->setOblique(t.style.obliquingAngle());
        out.push_back(text);
        return;
    }
    case GiPrimitiveKind::kRay:
        return;
    }
}

} // namespace

AcDbExplodeDraw::AcDbExplodeDraw(AcDbDatabase* db)
    : GiRecordingWorldDraw(*list, ExplodeOptions(db)), m_db(db)
{
}

void AcDbExplodeDraw::takeEntities(AcDbVoidPtrArray& set)
{
    for (const GiPrimitive& p : displayList().primitives) {
        std::vector<AcDbEntity*> made;
        FromPrimitive(p, m_db, made);
        for (AcDbEntity* e : made) {
            ApplyTraits(e, p.traits);
            set.append(e);
        }
    }
    displayList().clear();
}

Acad::ErrorStatus acdbExplodeByDraw(const AcDbEntity* entity, AcDbVoidPtrArray& set)
{
    if (!entity)
        return Acad::eNullEntityPointer;
    AcDbExplodeDraw draw(entity->databaseToUse());
    // Drawing reads the entity only; worldDraw is not const for the platform's own reasons.
    acdbDrawEntity(const_cast<AcDbEntity*>(entity), &draw);
    if (draw.displayList().empty())
        return Acad::eNotApplicable;
    draw.takeEntities(set);
    return Acad::eOk;
}
