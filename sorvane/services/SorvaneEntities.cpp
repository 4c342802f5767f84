// The module's entities as the drawing services see them. Height marks are known by their
// registered class; their own operations are reached once that class is in the module.
#include "services/SorvaneEntities.h"

#include "host/rx/AcRxClass.h"
#include "proxy/SVbasic.h"

namespace {

bool IsOfClassNamed(const AcDbObject* pObject, const wchar_t* className)
{
    const AcRxClass* pClass = acrxFindAcRxClass(className);
    return pObject && pClass && pObject->isKindOf(pClass);
}

} // namespace

bool IsHeightMark(const AcDbObject* pObject)
{
    return IsOfClassNamed(pObject, L"SVdimHeight");
}

bool IsChain(const AcDbObject* pObject)
{
    return SVdim::cast(pObject) != nullptr && !IsHeightMark(pObject);
}

bool IsPlanMark(const AcDbObject*)
{
    // The plan flag belongs to the height-mark class, which isn't part of the module yet.
    return false;
}

bool IsSorvaneEntity(const AcDbObject* pObject)
{
    return SVdim::cast(pObject) != nullptr || IsHeightMark(pObject);
}

void ClearEntityStatus(AcDbEntity* pEntity, int iIndex)
{
    SVdim* pChain = SVdim::cast(pEntity);
    if (pChain && iIndex >= 0 && pChain->arrayInt.GetSize() > iIndex)
        pChain->arrayInt[iIndex] = 0;
}

void ResetHeightMark(AcDbEntity* pEntity)
{
    if (pEntity && pEntity->isWriteEnabled())
        pEntity->recordGraphicsModified(true);
}

void RefreshSorvaneEntity(AcDbEntity* pEntity)
{
    if (pEntity && pEntity->isWriteEnabled())
        pEntity->recordGraphicsModified(true);
}
