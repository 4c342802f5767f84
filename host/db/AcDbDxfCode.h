// What value a DXF group code carries, after the DXF reference's code ranges.
#pragma once

#include "host/db/AcDb.h"

// The kind of value of a group code; kDxfKindUnknown for codes no range covers.
AcDb::DxfValueKind acdbGroupCodeKind(int code);
// For point codes: true for the x code of a point (10-18, 110-112, 210, 1010-1013);
// false for their y and z partners and for every other code.
bool acdbIsPointXCode(int code);
