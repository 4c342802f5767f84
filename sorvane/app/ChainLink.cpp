// What the frame asks of a chain, answered by SVdim.
#include "app/ChainLink.h"

#include "proxy/SVbasic.h"

void RegisterChainClass()
{
    SVdim::rxInit();
}

AcRxClass* ChainClass()
{
    return SVdim::desc();
}

BOOL GetChainArrays(AcDbObject* pObject, CStringArray*& pStrings, CUIntArray*& pInts, CDoubleArray*& pDoubles)
{
    SVdim* pChain = SVdim::cast(pObject);
    if (!pChain)
        return FALSE;
    pStrings = &pChain->arrayString;
    pInts = &pChain->arrayInt;
    pDoubles = &pChain->arrayDouble;
    return TRUE;
}

int GetChainType(AcDbObject* pObject)
{
    const SVdim* pChain = SVdim::cast(pObject);
    return pChain ? pChain->m_dimType : -1;
}

BOOL CopyChainParameters(AcDbObject* pSource, AcDbObject* pTarget)
{
    const SVdim* pFrom = SVdim::cast(pSource);
    SVdim* pTo = SVdim::cast(pTarget);
    if (!pFrom || !pTo || pFrom == pTo)
        return FALSE;
    pTo->assertWriteEnabled();
    pTo->arrayDouble.Copy(pFrom->arrayDouble);
    pTo->arrayString.Copy(pFrom->arrayString);
    pTo->arrayInt.Copy(pFrom->arrayInt);
    return TRUE;
}
