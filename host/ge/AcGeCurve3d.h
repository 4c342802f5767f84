// AcGeCurve3d lives with AcGeEntity3d; this header is the platform's name for it.
#pragma once

#include "host/ge/AcGeEntity3d.h"
