// What the built-in commands share: point input in world coordinates, selections as id
// lists, appending to the current space, opening for write with the usual complaints.
// Internal to host/ap.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcChar.h"

class AcDbDatabase;
class AcDbEntity;

namespace apcmd {

// The working database; null writes "No drawing is open." and the caller ends.
AcDbDatabase* database();

// acedGetPoint with the answer (and the base) in WCS. The RT code.
int getPoint(const ACHAR* prompt, AcGePoint3d& wcs, const AcGePoint3d* baseWcs = nullptr);
// acedGetDist / acedGetAngle with a WCS base.
int getDist(const ACHAR* prompt, double& value, const AcGePoint3d* baseWcs = nullptr);
int getAngle(const ACHAR* prompt, double& radians, const AcGePoint3d* baseWcs = nullptr);
// acedEntSel with the pick point in WCS.
int entSel(const ACHAR* prompt, AcDbObjectId& id, AcGePoint3d& wcs);
// A keyword among the list (acedInitGet syntax) or Enter (def is given back). The RT code.
int getKeyword(const ACHAR* prompt, const ACHAR* keywords, std::wstring& result, const ACHAR* def = nullptr);

// acedSSGet (interactive when mode is null); false on Esc or an empty selection.
bool select(std::vector<AcDbObjectId>& ids, const ACHAR* mode = nullptr, const void* p1 = nullptr,
            const void* p2 = nullptr);

// Gives the entity the database's current properties, appends it to the current space and
// closes it. The new id, or null (the entity is then deleted).
AcDbObjectId append(AcDbEntity* entity, AcDbDatabase* db = nullptr);
// Appends to the block that owns owner (or the current space).
AcDbObjectId appendBeside(AcDbEntity* entity, AcDbObjectId owner);

// Opens each entity for write and calls f; a failure to open (a locked layer, an erased
// entity) is counted and reported as one console line. Returns how many f handled.
int forEachForWrite(const std::vector<AcDbObjectId>& ids, const std::function<void(AcDbEntity*)>& f);

// Registers a command of the group.
void add(const ACHAR* name, void (*fn)(), int flags = 0);

// Transcript line of the host (acutPrintf with a leading newline).
void say(const std::wstring& text);

// Ends the command as failed: the editor reports "command NAME failed: text" at the script
// line and the run fails. Only where no object is open.
[[noreturn]] void fail(const std::wstring& text);

} // namespace apcmd

// Each file registers its own commands.
void apRegisterDrawCommands();
void apRegisterDimCommands();
void apRegisterEditCommands();
void apRegisterFileCommands();
void apRegisterUtilityCommands();
void apRegisterLayerCommands();
void apRegisterMatchPropCommand();
void apRegisterGripCommand();
