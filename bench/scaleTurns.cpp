#include "scaleTurns.h"
#include <algorithm>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

void watch(TurnProbe &probe, BenchHost &host, double pressAfter, QPushButton *stop, const std::function<void()> &run) {
    host.told = [&probe] { probe.answered(); };
    probe.begin(pressAfter, [stop] { stop->click(); });
    run();
    settle();
    probe.answered();
    probe.end();
}

namespace {

// Writes out pending disk data first, so that a gap is caused by the run itself.
void runOnQuietDisk(const WatchedRun &run, TurnProbe &probe, double pressAfter) {
    ::sync();
    run(probe, pressAfter);
}

} // namespace

void tellTurns(ScaleReport &report, const QString &loop, const WatchedRun &run) {
    constexpr double longestGap = 0.1, longestAnswer = 0.05; // seconds
    TurnProbe probe;
    runOnQuietDisk(run, probe, TurnProbe::never);
    const double whole = probe.seconds();
    double gap = probe.longestGap();
    double answer = 0;
    for (const double part : {0.2, 0.5, 0.8}) {
        runOnQuietDisk(run, probe, part * whole);
        gap = std::max(gap, probe.longestGap());
        answer = std::max(answer, probe.answer().value_or(0));
    }
    report.table.bound(loop + u": longest gap between event turns", gap, longestGap);
    report.table.bound(loop + u": a stop is answered", answer, longestAnswer);
}

} // namespace bench
