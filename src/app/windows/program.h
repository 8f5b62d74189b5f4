// The program from its first step to its last, on a machine that is handed in.
#pragma once

#include "database/linkPool.h"
#include "platform/host.h"
#include "platform/singleInstance.h"

namespace app {

// Runs start-up and, where it goes on, the event loop; the exit code of the process. The folder is the one in which a
// second start finds the first.
int runProgram(platform::Host &host, database::LinkPool &links,
               const QString &claimFolder = platform::SingleInstance::machineFolder());

} // namespace app
