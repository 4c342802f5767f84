// The one global tolerance object of the geometry library.
#include "host/ge/AcGeTol.h"

AcGeTol AcGeContext::gTol;
