// Measures the turns of the event loop during a long run in its window.
#pragma once

#include "benchStage.h"
#include "scaleReport.h"
#include "turnProbe.h"
#include <QPushButton>

namespace bench {

// Runs one of the long loops in its real window, from the press of its button, and presses its stop button after so
// many seconds. A message box answers the press, and so does the end of the run.
using WatchedRun = std::function<void(TurnProbe &probe, double pressAfter)>;

void watch(TurnProbe &probe, BenchHost &host, double pressAfter, QPushButton *stop, const std::function<void()> &run);

// Adds rows with the longest gap between two turns and the longest wait for the answer to a stop.
void tellTurns(ScaleReport &report, const QString &loop, const WatchedRun &run);

} // namespace bench
