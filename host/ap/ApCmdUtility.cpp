// UNDO, U, REDO, LIST, SETVAR and UCS.
#include <cmath>

#include "host/ap/ApCmdSupport.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/acedads.h"

namespace {

void undo(int count)
{
    AcDbDatabase* db = apcmd::database();
    if (!db)
        return;
    if (db->undo(count) != Acad::eOk)
        apcmd::say(L"Nothing to undo.");
}

void cmdUndo()
{
    int count = 1;
    acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
    const int rc = acedGetInt(L"\nEnter the number of operations to undo <1>: ", &count);
    if (rc == RTNONE)
        count = 1;
    else if (rc != RTNORM)
        return;
    undo(count);
}

void cmdU()
{
    undo(1);
}

void cmdRedo()
{
    apcmd::say(L"REDO is not available: undone steps are not kept.");
}

void cmdList()
{
    std::vector<AcDbObjectId> ids;
    if (!apcmd::database() || !apcmd::select(ids))
        return;
    for (AcDbObjectId id : ids) {
        AcDbEntity* e = nullptr;
        if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk)
            continue;
        e->list();
        e->close();
    }
}

void cmdSetvar()
{
    ACHAR name[133] = {};
    if (acedGetString(0, L"\nEnter variable name: ", name, 133) != RTNORM || !name[0])
        return;
    if (!AcEdSysVars::isDefined(name) && !AcEdSysVars::isDrawingVariable(name))
        apcmd::fail(L"unknown variable " + std::wstring(name));
    const std::wstring prompt =
        L"\nEnter new value for " + std::wstring(name) + L" <" + AcEdSysVars::valueText(name) + L">: ";
    ACHAR value[1024] = {};
    const int rc = acedGetString(1, prompt.c_str(), value, 1024);
    if (rc != RTNORM || !value[0])
        return;
    const std::wstring why = AcEdSysVars::setFromText(name, value);
    if (!why.empty())
        apcmd::fail(std::wstring(name) + L": " + why);
}

void setUcs(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y)
{
    if (!acedSetCurrentUcs(origin, x, y))
        apcmd::say(L"The axes must not be parallel.");
}

void cmdUcs()
{
    AcGePoint3d origin;
    AcGeVector3d x, y;
    acedGetCurrentUcs(origin, x, y);
    acedInitGet(0, L"World Z 3point");
    AcGePoint3d at;
    const int rc = apcmd::getPoint(L"\nSpecify origin of UCS or [World/Z/3point] <World>: ", at);
    if (rc == RTNONE) {
        acedSetWorldUcs();
        return;
    }
    if (rc == RTNORM) {
        setUcs(at, x, y);
        return;
    }
    if (rc != RTKWORD)
        return;
    ACHAR kw[64] = {};
    acedGetInput(kw, 64);
    const std::wstring keyword = kw;
    if (keyword == L"World") {
        acedSetWorldUcs();
    } else if (keyword == L"Z") {
        double angle = 0.0;
        const int arc = apcmd::getAngle(L"\nSpecify rotation angle about Z axis <90>: ", angle, &origin);
        if (arc == RTNONE)
            angle = 1.57079632679489661923;
        else if (arc != RTNORM)
            return;
        const AcGeVector3d z = x.crossProduct(y).normal();
        setUcs(origin, x.rotateBy(angle, z), y.rotateBy(angle, z));
    } else {
        AcGePoint3d o, px, py;
        const int orc = apcmd::getPoint(L"\nSpecify new origin point <0,0,0>: ", o);
        if (orc == RTNONE)
            o = origin;
        else if (orc != RTNORM)
            return;
        if (apcmd::getPoint(L"\nSpecify point on positive portion of X-axis: ", px, &o) != RTNORM ||
            apcmd::getPoint(L"\nSpecify point on positive-Y portion of the UCS XY plane: ", py, &o) != RTNORM)
            return;
        setUcs(o, px - o, py - o);
    }
}

} // namespace

void apRegisterUtilityCommands()
{
    apcmd::add(L"UNDO", cmdUndo);
    apcmd::add(L"U", cmdU);
    apcmd::add(L"REDO", cmdRedo);
    apcmd::add(L"LIST", cmdList, ACRX_CMD_USEPICKSET);
    apcmd::add(L"SETVAR", cmdSetvar, ACRX_CMD_TRANSPARENT);
    apcmd::add(L"UCS", cmdUcs);
}
