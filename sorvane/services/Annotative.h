// Annotative scale: recognising the annotative scale word, the drawing's current
// annotation scale, and the annotative flag of an entity.
#pragma once

#include "host/mfc/CString.h"

class AcDbDatabase;
class AcDbEntity;
class AcDbObject;
class AcRxClass;

// 1 if the text is the annotative scale word (string 7102, or the neutral
// "AnnoScale" of older files), in any case; 0 otherwise, also for "".
int IsAnnoScaleText(const CString& strScale);

// The factor of the drawing's current annotation scale (CANNOSCALE), 1:50 giving
// 0.02. A null database means the current drawing. 1.0 when there is no
// annotation scale or it cannot be read.
double GetCurAnnotationScale(AcDbDatabase* pDb);

// 1 if the object is flagged annotative; 0 otherwise, also when its class has
// no annotative extension (a trace line says so).
int IsAnnotative(AcDbObject* pObject);

// Sets the annotative flag. 1 only when the flag really changed; 0 for a null
// entity, a missing extension, a flag already so, or a refused change (a
// resident entity must be open for write). Failures are trace lines only.
int SetAnnotative(AcDbEntity* pEntity, int iOn);

// Gives the class (and its descendants) the host's annotative extension, so the
// module's own entities can be flagged like texts and dimensions. TRUE if attached.
BOOL AddAnnotativeExtension(AcRxClass* pClass);
// Takes the extension off the class again; only for a class given to
// AddAnnotativeExtension.
void RemoveAnnotativeExtension(AcRxClass* pClass);
