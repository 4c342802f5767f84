// The one instance pointer of the option object.
#include "options/GlobDimOptions.h"

CGlobDimOptions* pGlobDimOptions = nullptr;
