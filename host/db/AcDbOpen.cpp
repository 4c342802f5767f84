// Opening by id, and entity names.
#include "host/db/AcDbOpen.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbStub.h"

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    obj = nullptr;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbStub* stub = id.stub();
    if (stub->removed)
        return Acad::ePermanentlyErased;
    if (!stub->object)
        return Acad::eUnknownHandle;
    const Acad::ErrorStatus es = AcDbObjectAccess::open(stub->object, mode, openErased);
    if (es == Acad::eOk)
        obj = stub->object;
    return es;
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    return acdbOpenAcDbObject(obj, id, mode, openErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    return acdbOpenObject(entity, id, mode, openErased);
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name)
{
    id.setNull();
    if (!name || name[0] == 0)
        return Acad::eInvalidAdsName;
    id.setFromOldId(name[0]);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id)
{
    if (!name)
        return Acad::eInvalidAdsName;
    name[0] = id.asOldId();
    name[1] = 0;
    return id.isNull() ? Acad::eNullObjectId : Acad::eOk;
}

int acdbHandEnt(const ACHAR* handle, ads_name entres)
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    const AcDbHandle h(handle);
    AcDbObjectId id;
    if (!db || h.isNull() || db->getAcDbObjectId(id, false, h) != Acad::eOk || !id.isValid() || id.isErased())
        return RTERROR;
    acdbGetAdsName(entres, id);
    return RTNORM;
}
