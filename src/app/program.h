// The program from its first step to its last, on a machine that is handed in.
#pragma once

#include "platform/host.h"

namespace app {

// Runs start-up and, where it goes on, the event loop; the exit code of the process.
int runProgram(platform::Host &host);

} // namespace app
