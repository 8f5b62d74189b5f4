#include "turnProbe.h"
#include <algorithm>
#include <utility>

namespace bench {

void TurnProbe::begin(double pressAfter, std::function<void()> press) {
    m_pressAfter = pressAfter;
    m_press = std::move(press);
    m_pressed.reset();
    m_answer.reset();
    m_last = m_longest = 0;
    m_timer.start(1, Qt::PreciseTimer, this);
    m_clock.start();
}

void TurnProbe::answered() {
    if (m_pressed && !m_answer)
        m_answer = double(m_clock.nsecsElapsed()) / 1e9 - *m_pressed;
}

void TurnProbe::end() {
    turn();
    m_end = m_last;
    m_timer.stop();
}

double TurnProbe::turn() {
    const double now = double(m_clock.nsecsElapsed()) / 1e9;
    m_longest = std::max(m_longest, now - m_last);
    return std::exchange(m_last, now);
}

void TurnProbe::timerEvent(QTimerEvent *) {
    const double before = turn();
    if (m_pressed || m_last < m_pressAfter)
        return;
    m_pressed = before;
    m_press();
}

} // namespace bench
