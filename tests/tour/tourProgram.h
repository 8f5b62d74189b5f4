// The program as the tour runs it: on the real machine, but the end of the process comes back to the tour.
#pragma once

#include "platform/desktop/qtHost.h"
#include "tour/tourDriver.h"
#include <functional>

namespace tour {

class TourHost final : public platform::QtHost {
public:
    using QtHost::QtHost;
    void endProcess() override;
    bool openInShell(const QString &target) override; // there is no desktop to hand it to
};

// Runs the program from its start to its end, with the script driving it from a thread of its own.
void runProgram(TourDriver &driver, const std::function<void(TourDriver &)> &script);

// Runs the program with nobody to drive it, as the second start beside the first.
void runSecondProgram();

} // namespace tour
