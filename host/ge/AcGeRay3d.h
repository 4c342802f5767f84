// AcGeRay3d lives with the other straight curves; this header is the platform's name for it.
#pragma once

#include "host/ge/AcGeLinearEnt3d.h"
