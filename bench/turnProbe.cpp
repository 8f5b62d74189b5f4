#include "turnProbe.h"
#include <algorithm>
#include <cstdio>
#include <utility>

namespace bench {

namespace {

// Returns the nanoseconds that this thread has waited for a core so far, or 0 if the system does not report them.
qint64 waitedForCore() {
    qint64 waited = 0;
    if (std::FILE *told = std::fopen("/proc/thread-self/schedstat", "r")) {
        long long ran = 0, ready = 0;
        if (std::fscanf(told, "%lld %lld", &ran, &ready) == 2)
            waited = ready;
        std::fclose(told);
    }
    return waited;
}

} // namespace

void TurnProbe::begin(double pressAfter, std::function<void()> press) {
    m_pressAfter = pressAfter;
    m_press = std::move(press);
    m_pressed.reset();
    m_answer.reset();
    m_last = m_longest = 0;
    m_timer.start(1, Qt::PreciseTimer, this);
    m_waitedBefore = waitedForCore();
    m_clock.start();
}

void TurnProbe::answered() {
    if (m_pressed && !m_answer)
        m_answer = now() - *m_pressed;
}

void TurnProbe::end() {
    turn();
    m_end = m_last;
    m_timer.stop();
}

double TurnProbe::now() const {
    return double(m_clock.nsecsElapsed() - (waitedForCore() - m_waitedBefore)) / 1e9;
}

double TurnProbe::turn() {
    const double moment = now();
    m_longest = std::max(m_longest, moment - m_last);
    return std::exchange(m_last, moment);
}

void TurnProbe::timerEvent(QTimerEvent *) {
    const double before = turn();
    if (m_pressed || m_last < m_pressAfter)
        return;
    m_pressed = before;
    m_press();
}

} // namespace bench
