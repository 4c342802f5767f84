// The process's one application services object.
#include "host/db/AcDbHostApplicationServices.h"

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices services;
    return &services;
}
