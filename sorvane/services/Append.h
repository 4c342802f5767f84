// Adding new entities to a drawing: to model space of the working drawing or to a block.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/rx/AcadStrc.h"

class AcDbEntity;

// Gives the new entity the colour index and the layer (made if missing) and appends it to
// model space of the working drawing. The caller still owns the open entity and closes it.
void AppendEntity(AcDbEntity* pEntity, const wchar_t* layer, int color);
// Appends to model space of the working drawing, locking it when needed; the entity stays
// open. The id goes to *pId when given.
Acad::ErrorStatus addToDb(AcDbEntity* pEntity, AcDbObjectId* pId = nullptr);
// Appends to the block record given; an invalid id means model space (addToDb).
Acad::ErrorStatus addToTable(AcDbEntity* pEntity, AcDbObjectId blockId);
// addToDb for callers that hold the lock: no lock handling, and the entity is closed.
Acad::ErrorStatus postToDb(AcDbEntity* pEntity, AcDbObjectId* pId = nullptr);
