// Long work in a window without a loop of its own: a timer runs the work between events, in slices of some
// milliseconds, until it is done or stopped, so that the window stays responsive. Runs that must yield once per record
// loop over Host::yield() instead.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>

namespace platform {

class SlicedWork {
public:
    using Step = std::function<bool()>;            // does a small part of the work; returns whether there is more
    using Report = std::function<void(bool more)>; // called after each slice that the timer ran

    // A slice is at least one step, then as many as begin within `slice`.
    SlicedWork(std::chrono::milliseconds slice, Step step, Report report);
    Q_DISABLE_COPY_MOVE(SlicedWork)

    void start() { m_timer.start(); } // continues work that is active
    void stop() { m_timer.stop(); }
    bool isActive() const { return m_timer.isActive(); }
    // Runs the next slice at once, without a report. Returns whether there is more; if not, the work has ended.
    bool advance();

private:
    std::chrono::milliseconds m_slice;
    Step m_step;
    QTimer m_timer;
};

} // namespace platform
