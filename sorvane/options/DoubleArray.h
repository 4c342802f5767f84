// CDoubleArray: the growable array of doubles that parameter sets and
// entities keep their numeric parameters in.
#pragma once

#include "host/mfc/CArray.h"

class CDoubleArray : public CArray<double, double> {};
