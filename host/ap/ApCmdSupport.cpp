// Input in world coordinates, selections as ids, appending and writing entities for the
// built-in commands; and the registration of the command group.
#include "host/ap/ApCmdSupport.h"

#include <stdexcept>

#include "host/ap/ApCommands.h"
#include "host/ap/ApText.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/acedads.h"
#include "host/ge/geassign.h"

namespace apcmd {

namespace {

void toAds(const AcGePoint3d& p, ads_point out)
{
    out[0] = p.x;
    out[1] = p.y;
    out[2] = p.z;
}

// The base in UCS for the editor's input functions.
const ads_real* baseUcs(const AcGePoint3d* baseWcs, ads_point storage)
{
    if (!baseWcs)
        return nullptr;
    AcGePoint3d ucs;
    acdbWcs2Ucs(*baseWcs, ucs);
    toAds(ucs, storage);
    return storage;
}

} // namespace

AcDbDatabase* database()
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!db)
        say(L"No drawing is open.");
    return db;
}

void say(const std::wstring& text)
{
    acutPrintf(L"\n%s", text.c_str());
}

void fail(const std::wstring& text)
{
    throw std::runtime_error(apText::utf8(text));
}

int getPoint(const ACHAR* prompt, AcGePoint3d& wcs, const AcGePoint3d* baseWcs)
{
    ads_point base, result;
    const int rc = acedGetPoint(baseUcs(baseWcs, base), prompt, result);
    if (rc == RTNORM)
        acdbUcs2Wcs(asPnt3d(result), wcs);
    return rc;
}

int getDist(const ACHAR* prompt, double& value, const AcGePoint3d* baseWcs)
{
    ads_point base;
    return acedGetDist(baseUcs(baseWcs, base), prompt, &value);
}

int getAngle(const ACHAR* prompt, double& radians, const AcGePoint3d* baseWcs)
{
    ads_point base;
    return acedGetAngle(baseUcs(baseWcs, base), prompt, &radians);
}

int entSel(const ACHAR* prompt, AcDbObjectId& id, AcGePoint3d& wcs)
{
    ads_name ent;
    ads_point pt;
    const int rc = acedEntSel(prompt, ent, pt);
    if (rc != RTNORM)
        return rc;
    if (acdbGetObjectId(id, ent) != Acad::eOk)
        return RTERROR;
    acdbUcs2Wcs(asPnt3d(pt), wcs);
    return RTNORM;
}

int getKeyword(const ACHAR* prompt, const ACHAR* keywords, std::wstring& result, const ACHAR* def)
{
    acedInitGet(0, keywords);
    ACHAR buffer[133] = {};
    const int rc = acedGetKword(prompt, buffer, 133);
    if (rc == RTNORM)
        result = buffer;
    else if (rc == RTNONE && def)
        result = def;
    return rc == RTNONE && def ? RTNORM : rc;
}

bool select(std::vector<AcDbObjectId>& ids, const ACHAR* mode, const void* p1, const void* p2)
{
    ids.clear();
    ads_name ss;
    if (acedSSGet(mode, p1, p2, nullptr, ss) != RTNORM)
        return false;
    Adesk::Int32 n = 0;
    acedSSLength(ss, &n);
    for (Adesk::Int32 i = 0; i < n; ++i) {
        ads_name ent;
        AcDbObjectId id;
        if (acedSSName(ss, i, ent) == RTNORM && acdbGetObjectId(id, ent) == Acad::eOk)
            ids.push_back(id);
    }
    acedSSFree(ss);
    return !ids.empty();
}

AcDbObjectId appendBeside(AcDbEntity* entity, AcDbObjectId owner)
{
    if (!entity)
        return AcDbObjectId::kNull;
    AcDbDatabase* db = owner.isNull() ? acdbHostApplicationServices()->workingDatabase() : owner.database();
    if (!db) {
        delete entity;
        return AcDbObjectId::kNull;
    }
    if (owner.isNull())
        owner = db->currentSpaceId();
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, owner, AcDb::kForWrite) != Acad::eOk) {
        delete entity;
        return AcDbObjectId::kNull;
    }
    AcDbObjectId id;
    const Acad::ErrorStatus es = block->appendAcDbEntity(id, entity);
    block->close();
    if (es != Acad::eOk) {
        delete entity;
        return AcDbObjectId::kNull;
    }
    entity->close();
    return id;
}

AcDbObjectId append(AcDbEntity* entity, AcDbDatabase* db)
{
    if (!entity)
        return AcDbObjectId::kNull;
    if (!db)
        db = acdbHostApplicationServices()->workingDatabase();
    if (!db) {
        delete entity;
        return AcDbObjectId::kNull;
    }
    entity->setDatabaseDefaults(db);
    return appendBeside(entity, db->currentSpaceId());
}

int forEachForWrite(const std::vector<AcDbObjectId>& ids, const std::function<void(AcDbEntity*)>& f)
{
    int done = 0, locked = 0, other = 0;
    for (AcDbObjectId id : ids) {
        AcDbEntity* e = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbEntity(e, id, AcDb::kForWrite);
        if (es != Acad::eOk) {
            (es == Acad::eOnLockedLayer ? locked : other)++;
            continue;
        }
        f(e);
        e->close();
        ++done;
    }
    if (locked)
        say(std::to_wstring(locked) + (locked == 1 ? L" was" : L" were") + L" on a locked layer.");
    if (other)
        say(std::to_wstring(other) + L" could not be opened.");
    return done;
}

void add(const ACHAR* name, void (*fn)(), int flags)
{
    if (!acedRegCmds->lookupGlobalCmd(name) || std::wstring(acedRegCmds->lookupGlobalCmd(name)->commandGroup()) !=
                                                   AP_COMMAND_GROUP)
        acedRegCmds->addCommand(AP_COMMAND_GROUP, name, name, flags, fn);
}

} // namespace apcmd

void apRegisterHostCommands()
{
    apRegisterDrawCommands();
    apRegisterDimCommands();
    apRegisterEditCommands();
    apRegisterFileCommands();
    apRegisterUtilityCommands();
    apRegisterLayerCommands();
    apRegisterMatchPropCommand();
    apRegisterGripCommand();
}

void apRemoveHostCommands()
{
    acedRegCmds->removeGroup(AP_COMMAND_GROUP);
}
