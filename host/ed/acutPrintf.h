// The console line belongs to the runtime layer (host/rx), below the database;
// this header keeps the editor's include path working.
#pragma once

#include "host/rx/acutPrintf.h"
