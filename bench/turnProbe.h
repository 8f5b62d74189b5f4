// Measures how long a window keeps its user waiting: the gaps between two turns of the event loop, and the time from
// the press of a button to its effect. Accurate to a millisecond. Excludes the time in which the thread was ready to
// run but other processes used the cores.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <limits>
#include <optional>

namespace bench {

class TurnProbe final : public QObject {
public:
    static constexpr double never = std::numeric_limits<double>::infinity();

    // Starts measuring; calls `press` in the first turn after `pressAfter` seconds.
    void begin(double pressAfter, std::function<void()> press);
    // Marks the effect of the press; only the first call after the press counts.
    void answered();
    void end();

    double seconds() const { return m_end; }
    double longestGap() const { return m_longest; }
    // Returns the seconds from the last turn before the press, because a user may press at any moment between two
    // turns. Returns std::nullopt if the run ended before the press.
    std::optional<double> answer() const { return m_answer; }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    double now() const; // seconds since begin()
    double turn();      // records a turn; returns the time of the previous one

    QBasicTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_waitedBefore = 0; // nanoseconds spent waiting for a core
    double m_last = 0;
    double m_longest = 0;
    double m_end = 0;
    double m_pressAfter = never;
    std::function<void()> m_press;
    std::optional<double> m_pressed; // the time of the turn before the press
    std::optional<double> m_answer;
};

} // namespace bench
