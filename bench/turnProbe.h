// Watches from inside the event loop how long a window keeps its user waiting: the gaps between the turns in which
// events are let in, and what passes from a press of a button until it has had its effect. Good to a millisecond. The
// time in which the thread was ready to run and other processes had the cores is left out: it is no doing of the
// window.
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

    // Watches from here on, and presses in the first turn that comes after so many seconds.
    void begin(double pressAfter, std::function<void()> press);
    // What was pressed has had its effect: the first call behind the press counts.
    void answered();
    void end();

    double seconds() const { return m_end; }
    double longestGap() const { return m_longest; }
    // From the last turn before the press, since a press may come at any moment between two turns; nothing where the
    // run was over before.
    std::optional<double> answer() const { return m_answer; }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    double now() const; // seconds since the beginning
    double turn();      // notes one; the moment of the one before

    QBasicTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_waitedBefore = 0; // nanoseconds, for a core
    double m_last = 0;
    double m_longest = 0;
    double m_end = 0;
    double m_pressAfter = never;
    std::function<void()> m_press;
    std::optional<double> m_pressed; // the turn before the press
    std::optional<double> m_answer;
};

} // namespace bench
