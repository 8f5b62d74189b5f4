// The first code that runs: one instance a machine, and the one setting that decides between the main window and the
// connection dialog of a first run.
#pragma once

#include "platform/database/sublib.h"
#include "platform/host.h"
#include <functional>

namespace app {

// Where the connection text is kept in the settings store.
inline constexpr QStringView settingApplication = u"Tarvex集成系统";
inline constexpr QStringView settingSection = u"Setting";
inline constexpr QStringView settingKey = u"TarvexPass";
inline constexpr QStringView settingAbsent = u"NotExsists"; // the marker of a first run

struct StartUpWindows {
    std::function<void()> showConnectionDialog; // modally
    std::function<void()> showMain;             // without waiting
};

struct StartUpFindings {
    platform::Status codePage; // nothing can be done without the characters
    bool anotherInstanceRuns = false;
};

// Fills the session state; whether the program goes on into its event loop. Otherwise it ends.
bool startUp(platform::Host &host, const StartUpFindings &found, platform::SessionState &state,
             const StartUpWindows &windows);

} // namespace app
