// What the drawing-wide services need to know of the module's own entities: which kind an
// entity is, and the few changes a redraw or a refresh makes to it.
#pragma once

class AcDbObject;
class AcDbEntity;

// A chain (SVdim) that isn't a height mark.
bool IsChain(const AcDbObject* pObject);
// A height mark (SVdimHeight), of any kind.
bool IsHeightMark(const AcDbObject* pObject);
// A height mark in plan (not a section mark or a base plane).
bool IsPlanMark(const AcDbObject* pObject);
// A chain or a height mark.
bool IsSorvaneEntity(const AcDbObject* pObject);

// Display statuses a redraw can clear, as indices of the entity's integer parameters.
enum {
    kStatusSum = 20,
    kStatusWipeOut = 21,
    kStatusAltUnits = 22,
};
// Sets the integer parameter to 0 (follow the global switch) if the entity's parameter
// array reaches that far. The entity is open for write.
void ClearEntityStatus(AcDbEntity* pEntity, int iIndex);
// Recomputes a height mark from its two stored reference points. Open for write.
void ResetHeightMark(AcDbEntity* pEntity);
// The refresh after a change of the drawing: a chain re-places its texts, a height mark
// takes its current height again. Open for write.
void RefreshSorvaneEntity(AcDbEntity* pEntity);
