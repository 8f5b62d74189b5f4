// The whole program, on the given host.
#pragma once

#include "database/linkPool.h"
#include "platform/host.h"
#include "platform/singleInstance.h"

namespace app {

// Runs the start-up and, if that succeeds, the event loop. Returns the exit code of the process. `claimFolder` is the
// folder in which a second instance detects the first.
int runProgram(platform::Host &host, database::LinkPool &links,
               const QString &claimFolder = platform::SingleInstance::machineFolder());

} // namespace app
