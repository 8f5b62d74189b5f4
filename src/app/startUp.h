// The first code that runs: ensures one instance per machine, and shows the main window, or the connection dialog if no
// connection is stored yet.
#pragma once

#include "database/sublib.h"
#include "platform/host.h"
#include <functional>

namespace app {

// Returns the names of the database tables as spelled in the schema scripts.
QStringList tableNames();

struct StartUpWindows {
    std::function<void()> showConnectionDialog; // modally
    std::function<void()> showMain;             // without waiting
};

struct StartUpFindings {
    platform::Status codePage; // on failure the program reports it and ends
    bool anotherInstanceRuns = false;
    QString executableFolder; // contains the configuration files of the installation
};

// Fills the session state. Returns whether the program shall enter its event loop; otherwise it shall end.
bool startUp(platform::Host &host, const StartUpFindings &found, database::SessionState &state,
             const StartUpWindows &windows);

} // namespace app
