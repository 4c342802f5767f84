// Draw order: moving entities to the top or bottom of their own block's sort table, and
// telling the display that entities changed.
#pragma once

#include "host/db/AcDbObjectId.h"

class AcDbObject;
class AcDbSortentsTable;

// Moves each entity, one by one in array order, to the top (or with toBottom to the
// bottom) of its owner's draw order. 0 for an empty array, else 1; a failing entity is
// traced and skipped.
int MyDraworder(const AcDbObjectIdArray& ids, int toBottom);
// All chains and height marks of the working drawing on top.
void TextToFront();
void BringToFront(AcDbObjectId id);
// The sort table of the object's owner block, made if missing and open for write; the
// caller closes it. Null when the object has no owner or the owner can't be opened.
AcDbSortentsTable* get_sort(AcDbObject* pObject);
// Marks the graphics of each entity as changed, so that every view redraws it.
void ObjectsGraphicsModified(const AcDbObjectIdArray& ids);
