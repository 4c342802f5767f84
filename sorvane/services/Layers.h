// Layers of a drawing: finding and making them, their status as bits, and getting past a
// frozen or locked layer for the length of one change to an entity on it.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/mfc/CString.h"
#include "host/mfc/afxcoll.h"

class AcDbDatabase;
class AcDbEntity;
class AcDbLayerTableRecord;

// Layer status bits.
enum {
    kLayerOff = 1,
    kLayerFrozen = 2,
    kLayerLocked = 4,
};

// The layer, made when missing: thawed, on, unlocked, continuous, in the colour given
// (7 for 0 or anything from 256 on). A null database means the working one. An existing
// layer is left as it is. Null if it can't be made.
AcDbObjectId GetLayerId(AcDbDatabase* pDb, const wchar_t* name, int color, int plottable);
// 1 and the id if the layer exists; never makes one.
int FindLayerId(const wchar_t* name, AcDbDatabase* pDb, AcDbObjectId& id);
// Empty for the null id or an id that is no layer.
CString GetLayerName(AcDbObjectId id);

// The status bits of the entity's layer; 0 for a null entity or one without a layer.
int GetEntityLayerStatus(AcDbEntity* pEntity);
// The status bits of a layer of the working database; 0 if it is missing.
int GetLayerStatus(const wchar_t* name);
// The status bits of an open layer record.
int GetLayerRecordStatus(const AcDbLayerTableRecord* pLayer);
// Sets the bits of mask to those of value on a layer open for write; the former status.
int SetLayerFlags(AcDbLayerTableRecord* pLayer, int mask, int value);

// Each layer name goes to matching if its status has a bit of mask, else to others.
void SplitLayers(AcDbDatabase* pDb, CStringArray& matching, CStringArray& others, int mask);
void GetLayerNames(AcDbDatabase* pDb, CStringArray& names);
// Of an open drawing by its file name, or of the current one for an empty name.
void GetLayerNames(const CString& drawing, CStringArray& names);
void GetTextStyleNames(const CString& drawing, CStringArray& names);
void GetLayerIds(const wchar_t* drawing, AcDbObjectIdArray& ids);

// Thaws and unlocks the entity's layer; the bits it cleared (2 frozen, 4 locked), for
// RestoreEntityLayer. An off layer is left as it is.
int UnlockEntityLayer(AcDbEntity* pEntity);
// Freezes and locks again what UnlockEntityLayer cleared. 1 when done or nothing to do.
int RestoreEntityLayer(AcDbEntity* pEntity, int bits);
// 1 if the entity's layer is locked; with tell the user is told on the console.
int IsOnLockedLayer(AcDbEntity* pEntity, int tell);

// Puts the entity on the layer, which is made as GetLayerId does when missing.
void SetEntityLayer(AcDbDatabase* pDb, AcDbEntity* pEntity, const wchar_t* name, int color);
// Erases every model space entity on the layer of the working database; 0 if the layer is
// missing.
int RemoveEntsFromLayer(const wchar_t* name);
