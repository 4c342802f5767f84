// Entity colours live with the display layer (host/gi), which the database
// builds on; this header keeps the database's include path working.
#pragma once

#include "host/gi/AcCmColor.h"
