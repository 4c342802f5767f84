// Editing commands: MOVE, COPY, ROTATE, SCALE, MIRROR, STRETCH, ERASE and EXPLODE. Moves
// and the like call the entity's transformBy; copies are clones made through the filer and
// then transformed; STRETCH hands the stretch points inside its window to the entity.
#include <algorithm>

#include "host/ap/ApCmdSupport.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/acedads.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePlane.h"

using apcmd::getPoint;

namespace {

void report(int failed, const wchar_t* what)
{
    if (failed)
        apcmd::say(std::to_wstring(failed) + (failed == 1 ? L" object" : L" objects") + L" could not be " + what +
                   L".");
}

void transformAll(const std::vector<AcDbObjectId>& ids, const AcGeMatrix3d& m)
{
    int failed = 0;
    apcmd::forEachForWrite(ids, [&](AcDbEntity* e) {
        if (e->transformBy(m) != Acad::eOk)
            ++failed;
    });
    report(failed, L"transformed");
}

// Clones the entities beside themselves (through the filer, as the platform copies) and
// transforms the clones. The clones' ids.
std::vector<AcDbObjectId> copyAll(const std::vector<AcDbObjectId>& ids, const AcGeMatrix3d& m)
{
    std::vector<AcDbObjectId> made;
    if (ids.empty())
        return made;
    AcDbDatabase* db = ids.front().database();
    AcDbObjectId owner;
    {
        AcDbEntity* e = nullptr;
        if (acdbOpenAcDbEntity(e, ids.front(), AcDb::kForRead) != Acad::eOk)
            return made;
        owner = e->ownerId();
        e->close();
    }
    AcDbObjectIdArray source;
    for (AcDbObjectId id : ids)
        source.append(id);
    AcDbIdMapping map;
    if (!db || db->deepCloneObjects(source, owner, map) != Acad::eOk) {
        apcmd::say(L"The objects could not be copied.");
        return made;
    }
    for (AcDbObjectId id : ids) {
        const AcDbObjectId clone = map.lookup(id);
        if (!clone.isNull())
            made.push_back(clone);
    }
    transformAll(made, m);
    return made;
}

AcGeVector3d ucsZ()
{
    AcGePoint3d origin;
    AcGeVector3d x, y;
    acedGetCurrentUcs(origin, x, y);
    return x.crossProduct(y).normal();
}

void cmdMove()
{
    std::vector<AcDbObjectId> ids;
    AcGePoint3d base, to;
    if (!apcmd::database() || !apcmd::select(ids) || getPoint(L"\nSpecify base point: ", base) != RTNORM ||
        getPoint(L"\nSpecify second point: ", to, &base) != RTNORM)
        return;
    transformAll(ids, AcGeMatrix3d::translation(to - base));
}

void cmdCopy()
{
    std::vector<AcDbObjectId> ids;
    AcGePoint3d base, to;
    if (!apcmd::database() || !apcmd::select(ids) || getPoint(L"\nSpecify base point: ", base) != RTNORM)
        return;
    while (getPoint(L"\nSpecify second point or <exit>: ", to, &base) == RTNORM)
        copyAll(ids, AcGeMatrix3d::translation(to - base));
}

void cmdRotate()
{
    std::vector<AcDbObjectId> ids;
    AcGePoint3d base;
    double angle = 0.0;
    if (!apcmd::database() || !apcmd::select(ids) || getPoint(L"\nSpecify base point: ", base) != RTNORM)
        return;
    acedInitGet(RSG_NONULL, nullptr);
    if (apcmd::getAngle(L"\nSpecify rotation angle: ", angle, &base) != RTNORM)
        return;
    transformAll(ids, AcGeMatrix3d::rotation(angle, ucsZ(), base));
}

void cmdScale()
{
    std::vector<AcDbObjectId> ids;
    AcGePoint3d base;
    double factor = 0.0;
    if (!apcmd::database() || !apcmd::select(ids) || getPoint(L"\nSpecify base point: ", base) != RTNORM)
        return;
    acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, nullptr);
    if (apcmd::getDist(L"\nSpecify scale factor: ", factor, &base) != RTNORM || factor <= 0.0)
        return;
    transformAll(ids, AcGeMatrix3d::scaling(factor, base));
}

void cmdMirror()
{
    std::vector<AcDbObjectId> ids;
    AcGePoint3d a, b;
    if (!apcmd::database() || !apcmd::select(ids) ||
        getPoint(L"\nSpecify first point of mirror line: ", a) != RTNORM ||
        getPoint(L"\nSpecify second point of mirror line: ", b, &a) != RTNORM)
        return;
    if (a.isEqualTo(b)) {
        apcmd::say(L"The mirror line needs two different points.");
        return;
    }
    std::wstring erase;
    if (apcmd::getKeyword(L"\nErase source objects? [Yes/No] <No>: ", L"Yes No", erase, L"No") != RTNORM)
        return;
    // The mirror plane stands on the line, perpendicular to the drawing plane.
    const AcGeVector3d normal = (b - a).crossProduct(ucsZ()).normal();
    copyAll(ids, AcGeMatrix3d::mirroring(AcGePlane(a, normal)));
    if (erase == L"Yes")
        apcmd::forEachForWrite(ids, [](AcDbEntity* e) { e->erase(); });
}

void cmdErase()
{
    std::vector<AcDbObjectId> ids;
    if (!apcmd::database() || !apcmd::select(ids))
        return;
    apcmd::forEachForWrite(ids, [](AcDbEntity* e) { e->erase(); });
}

void cmdExplode()
{
    std::vector<AcDbObjectId> ids;
    if (!apcmd::database() || !apcmd::select(ids))
        return;
    int failed = 0;
    apcmd::forEachForWrite(ids, [&](AcDbEntity* e) {
        AcDbVoidPtrArray parts;
        if (e->explode(parts) != Acad::eOk || parts.length() == 0) {
            for (int i = 0; i < parts.length(); ++i)
                delete static_cast<AcDbEntity*>(parts[i]);
            ++failed;
            return;
        }
        // The parts keep the properties explode gave them.
        for (int i = 0; i < parts.length(); ++i)
            apcmd::appendBeside(static_cast<AcDbEntity*>(parts[i]), e->ownerId());
        e->erase();
    });
    report(failed, L"exploded");
}

// The stretch points of each entity inside the window move; an entity with none inside
// stays as it is.
void cmdStretch()
{
    std::vector<AcDbObjectId> ids;
    AcGePoint3d c1, c2, base, to;
    if (!apcmd::database())
        return;
    apcmd::say(L"Select objects to stretch by crossing-window.");
    if (getPoint(L"\nSpecify first corner: ", c1) != RTNORM ||
        getPoint(L"\nSpecify opposite corner: ", c2, &c1) != RTNORM)
        return;
    AcGePoint3d u1, u2;
    acdbWcs2Ucs(c1, u1);
    acdbWcs2Ucs(c2, u2);
    ads_point p1 = {u1.x, u1.y, u1.z}, p2 = {u2.x, u2.y, u2.z};
    if (!apcmd::select(ids, L"_C", p1, p2)) {
        apcmd::say(L"Nothing lies in the window.");
        return;
    }
    if (getPoint(L"\nSpecify base point: ", base) != RTNORM ||
        getPoint(L"\nSpecify second point: ", to, &base) != RTNORM)
        return;
    const double xmin = std::min(u1.x, u2.x), xmax = std::max(u1.x, u2.x);
    const double ymin = std::min(u1.y, u2.y), ymax = std::max(u1.y, u2.y);
    const AcGeVector3d offset = to - base;
    int failed = 0;
    apcmd::forEachForWrite(ids, [&](AcDbEntity* e) {
        AcGePoint3dArray points;
        if (e->getStretchPoints(points) != Acad::eOk)
            return;
        AcDbIntArray inside;
        for (int i = 0; i < points.length(); ++i) {
            AcGePoint3d u;
            acdbWcs2Ucs(points[i], u);
            if (u.x >= xmin && u.x <= xmax && u.y >= ymin && u.y <= ymax)
                inside.append(i);
        }
        if (inside.length() > 0 && e->moveStretchPointsAt(inside, offset) != Acad::eOk)
            ++failed;
    });
    report(failed, L"stretched");
}

} // namespace

void apRegisterEditCommands()
{
    apcmd::add(L"MOVE", cmdMove, ACRX_CMD_USEPICKSET);
    apcmd::add(L"COPY", cmdCopy, ACRX_CMD_USEPICKSET);
    apcmd::add(L"ROTATE", cmdRotate, ACRX_CMD_USEPICKSET);
    apcmd::add(L"SCALE", cmdScale, ACRX_CMD_USEPICKSET);
    apcmd::add(L"MIRROR", cmdMirror, ACRX_CMD_USEPICKSET);
    apcmd::add(L"ERASE", cmdErase, ACRX_CMD_USEPICKSET);
    apcmd::add(L"EXPLODE", cmdExplode, ACRX_CMD_USEPICKSET);
    apcmd::add(L"STRETCH", cmdStretch);
}
