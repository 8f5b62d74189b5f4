// The first code that runs: one instance a machine, and the one setting that decides between the main window and the
// connection dialog of a first run.
#pragma once

#include "database/sublib.h"
#include "platform/host.h"
#include <functional>

namespace app {

// The tables of the database, as the schema scripts spell them.
QStringList tableNames();

struct StartUpWindows {
    std::function<void()> showConnectionDialog; // modally
    std::function<void()> showMain;             // without waiting
};

struct StartUpFindings {
    platform::Status codePage; // nothing can be done without the characters
    bool anotherInstanceRuns = false;
    QString executableFolder; // where the configuration files came to
};

// Fills the session state; whether the program goes on into its event loop. Otherwise it ends.
bool startUp(platform::Host &host, const StartUpFindings &found, database::SessionState &state,
             const StartUpWindows &windows);

} // namespace app
