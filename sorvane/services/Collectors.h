// Collecting entities of a drawing's model space by kind: the module's own objects (with
// or without those inside block references) and the kinds the refresh paths work on.
#pragma once

#include "host/db/AcDbObjectId.h"

class AcDbDatabase;
class AcDbEntity;

// Object kinds: 1 or 2 chains and height marks, 3 height marks only; a negative kind also
// looks inside block references (but not external references).
// Appends the matching model space entities of the database (null: the working one) to
// ids, which isn't emptied first; the length of ids.
int GetSorvaneObjects(AcDbObjectIdArray& ids, int kind, AcDbDatabase* pDb);
// Appends the entity (or, with descend, the matching entities of the block it
// references) if it is of the kind; 1 if the entity itself was added.
int AddSorvaneObject(AcDbEntity* pEntity, AcDbObjectIdArray& ids, int kind, int descend);

// Entity kinds: 0 all (only with an array), 1 native aligned, rotated and arc dimensions,
// 2 chains, 3 height marks, 4 plan marks, 5 section marks and bases, 6 chains and height
// marks, 8 entities holding a handle in SORVANE_UT_MARK; negative: the same and every
// block reference.
// With ids the matching model space entities are appended; with null ids they are
// refreshed instead and marked changed. The number of entities visited.
int GetEntities(AcDbDatabase* pDb, AcDbObjectIdArray* pIds, int kind);
int GetEntities(AcDbObjectIdArray* pIds, int kind);
