// All symbol tables and their records in one include.
#pragma once

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/AcDbViewTables.h"
