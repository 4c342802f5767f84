// The user's selection of the module's objects, native dimensions or texts, with the main
// panel out of the way while the user picks.
#pragma once

#include "host/db/AcDbObjectId.h"

// Entity name filters of the selection kinds (group 0, "," for alternatives):
// 1 dimensions and texts, 3/4/51 height marks, 5 texts, 50 chains, 52 the module's
// objects, others native dimensions.
// Asks for a selection of that kind and appends the ids; the length of ids, or 0 when
// the user cancelled.
int GetSelectedEntities(AcDbObjectIdArray& ids, int kind);
// The same with the caller's prompt: 1 dimensions or texts, 5 texts, 3/4 height marks,
// others native dimensions.
int SelectIds(AcDbObjectIdArray& ids, const wchar_t* prompt, int kind);
// A selection filtered by entity name (null: any), or by either of two names.
int SelectFiltered(AcDbObjectIdArray& ids, const wchar_t* prompt, const wchar_t* filter,
                   const wchar_t* alternative);
