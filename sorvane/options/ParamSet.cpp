// Sizing and clearing of one parameter set.
#include "options/ParamSet.h"

#include "options/ParamTable.h"

void CParamSet::Reset()
{
    arrayDouble.RemoveAll();
    arrayString.RemoveAll();
    arrayInt.RemoveAll();
    arrayDouble.SetSize(kSetDoubles);
    arrayString.SetSize(kSetStrings);
    arrayInt.SetSize(kSetInts);
}
