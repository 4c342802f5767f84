// Opening objects by id, and entity names (ads_name) to ids and back.
#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObject.h"
#include "host/db/adsdef.h"

// Opens the object of id in mode (see AcDbObject for which combinations succeed).
// eNullObjectId for the null id, eUnknownHandle for a placeholder that was never filled,
// ePermanentlyErased for an object removed for good, eWasErased for an erased object
// unless openErased, eOnLockedLayer for kForWrite of an entity on a locked layer,
// eAtMaxReaders past 256 readers. On failure obj is null.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
// As acdbOpenAcDbObject; eNotThatKindOfClass when it is no entity (nothing stays open).
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false);
// Opens as T; eNotThatKindOfClass when the object is not a T (nothing stays open).
template <typename T>
Acad::ErrorStatus acdbOpenObject(T*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false)
{
    AcDbObject* base = nullptr;
    obj = nullptr;
    Acad::ErrorStatus es = acdbOpenAcDbObject(base, id, mode, openErased);
    if (es != Acad::eOk)
        return es;
    obj = T::cast(base);
    if (!obj) {
        base->close();
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}

// The id of an entity name; eInvalidAdsName for a name that holds no id.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id);
// The entity name of a hex handle in the working database: RTNORM, or RTERROR.
int acdbHandEnt(const ACHAR* handle, ads_name entres);
