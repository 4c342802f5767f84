// Grip editing: GRIP_STRETCH moves one grip of an entity through moveGripPointsAt. The
// script's grip drag reaches it through the editor's grip hook, so it runs as a command of
// its own (command reactors, CMDNAMES, one undo group).
#include "host/ap/ApCmdSupport.h"
#include "host/ap/ApHost.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/ed/acedads.h"

namespace {

struct PendingDrag {
    bool set = false;
    AcDbObjectId entity;
    int index = 0;
    AcGePoint3d to;
    bool done = false;
};
PendingDrag gPending;

// The grip's position; false when the entity has no such grip.
bool gripPoint(AcDbObjectId id, int index, AcGePoint3d& at)
{
    AcDbEntity* e = nullptr;
    if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk)
        return false;
    AcGePoint3dArray grips;
    AcDbIntArray osnap, geomIds;
    const bool ok = e->getGripPoints(grips, osnap, geomIds) == Acad::eOk && index >= 0 && index < grips.length();
    if (ok)
        at = grips[index];
    e->close();
    return ok;
}

bool moveGrip(AcDbObjectId id, int index, const AcGePoint3d& to)
{
    AcGePoint3d from;
    if (!gripPoint(id, index, from)) {
        apcmd::say(L"The object has no grip " + std::to_wstring(index) + L".");
        return false;
    }
    AcDbIntArray indices;
    indices.append(index);
    bool ok = false;
    apcmd::forEachForWrite({id}, [&](AcDbEntity* e) { ok = e->moveGripPointsAt(indices, to - from) == Acad::eOk; });
    return ok;
}

void cmdGripStretch()
{
    if (!apcmd::database())
        return;
    if (gPending.set) {
        gPending.set = false;
        gPending.done = moveGrip(gPending.entity, gPending.index, gPending.to);
        return;
    }
    AcDbObjectId id;
    AcGePoint3d pick, from, to;
    if (apcmd::entSel(L"\nSelect object: ", id, pick) != RTNORM)
        return;
    int index = 0;
    acedInitGet(RSG_NONULL | RSG_NONEG, nullptr);
    if (acedGetInt(L"\nGrip index: ", &index) != RTNORM)
        return;
    if (!gripPoint(id, index, from)) {
        apcmd::say(L"The object has no grip " + std::to_wstring(index) + L".");
        return;
    }
    if (apcmd::getPoint(L"\nSpecify stretch point: ", to, &from) != RTNORM)
        return;
    moveGrip(id, index, to);
}

} // namespace

void apRegisterGripCommand()
{
    apcmd::add(L"GRIP_STRETCH", cmdGripStretch);
}

bool apGripDrag(AcDbObjectId entity, int gripIndex, const AcGePoint3d& to)
{
    gPending = PendingDrag{true, entity, gripIndex, to, false};
    const int rc = acedRunCommand(L"GRIP_STRETCH");
    const bool ok = rc == RTNORM && gPending.done;
    gPending = PendingDrag{};
    return ok;
}
