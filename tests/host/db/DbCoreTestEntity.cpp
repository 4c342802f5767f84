// Runtime class of the test entity.
#include "DbCoreTestEntity.h"

ACRX_DXF_DEFINE_MEMBERS(DbCoreTestEntity, AcDbEntity, 33, 228, 0, DBCORE_TEST, "dbcore tests")
