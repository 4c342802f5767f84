// One run of `sorvane`: open or make the drawing, load the module, run the scripts, save and
// export. Returns the exit status (0 all ran, 1 the script failed, 2 bad usage or an
// unreadable file); messages go to err, the transcript to out unless quiet.
#pragma once

#include <ostream>

#include "cli/CliOptions.h"

int cliRun(const CliOptions& options, std::ostream& out, std::ostream& err);
