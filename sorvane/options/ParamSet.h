// CParamSet: one complete set of the parameter table, as the option store
// keeps it for each kind of object and as entities copy it.
#pragma once

#include "host/mfc/afxcoll.h"
#include "options/DoubleArray.h"

class CParamSet {
public:
    CDoubleArray arrayDouble;
    CStringArray arrayString;
    CUIntArray arrayInt;

    // Forces the table's sizes (18 doubles, 13 strings, 27 integers) and
    // zeroes or empties every entry.
    void Reset();
};
