// The entities of a block (model space, paper space, a block definition) as ids, taken
// while the block is open and used after it is closed again.
#pragma once

#include "host/db/AcDbObjectId.h"

class AcDbDatabase;

// The live entities of the named block of the database, in block order; false (ids left
// as they were) when the block can't be opened.
bool GetBlockEntityIds(AcDbDatabase* pDb, const wchar_t* blockName, AcDbObjectIdArray& ids);
// The same for a block record by its id.
bool GetBlockEntityIds(AcDbObjectId blockId, AcDbObjectIdArray& ids);
