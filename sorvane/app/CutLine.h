// Chains by a cut line: the user draws a line across walls and every crossing
// with an object becomes a point of a new chain.
#pragma once

#include "host/ge/AcGeArrays.h"

class AcDbCurve;

// Asks for the cut line (two points for type 2, else until Enter), finds the
// crossings and places a chain of iType through them.
void MakeDimByLine(int iType);
// The crossings of the curve with the objects its vertices fence in, in the
// order of the selection (WCS); at most the first 100 objects count. Their
// number.
int GetIntersectPoints(const AcDbCurve* pCurve, AcGePoint3dArray& points);
// Drops later points that equal an earlier one; the number left.
int RemoveDuplicatePoints(AcGePoint3dArray& points);
