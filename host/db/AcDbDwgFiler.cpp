// Base behaviour of the binary filer interface.
#include "host/db/AcDbDwgFiler.h"

#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDwgFiler, AcRxObject)

Acad::ErrorStatus AcDbDwgFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                           AcDb::MaintenanceReleaseVersion& maintRelease) const
{
    version = AcDb::kDHL_CURRENT;
    maintRelease = AcDb::kMReleaseCurrent;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDwgFiler::seek(Adesk::Int64, int)
{
    return Acad::eNotApplicable;
}
