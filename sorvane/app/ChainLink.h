// The frame's view of the chain entity: the few things the entry, the context
// menu, MATCHPROP and the panel ask of a chain, kept in one place.
#pragma once

#include "host/mfc/afxcoll.h"
#include "options/DoubleArray.h"

class AcDbObject;
class AcRxClass;

// Registers the chain's runtime class (a class of that name that is not the
// chain's own stops the module through acrx_abort).
void RegisterChainClass();
// The chain's class descriptor; null while the chain is not part of the module.
AcRxClass* ChainClass();

// The chain's parameter arrays, or FALSE when the object is no chain.
BOOL GetChainArrays(AcDbObject* pObject, CStringArray*& pStrings, CUIntArray*& pInts, CDoubleArray*& pDoubles);
// The chain's type: 0 horizontal, 1 vertical, 2 aligned, 3 arc; -1 for no chain.
int GetChainType(AcDbObject* pObject);
// The target chain takes the source chain's parameters. FALSE if either is no
// chain.
BOOL CopyChainParameters(AcDbObject* pSource, AcDbObject* pTarget);
