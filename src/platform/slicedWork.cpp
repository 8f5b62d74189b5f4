#include "platform/slicedWork.h"
#include <QDeadlineTimer>
#include <utility>

namespace platform {

SlicedWork::SlicedWork(std::chrono::milliseconds slice, Step step, Report report)
    : m_slice(slice)
    , m_step(std::move(step)) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, report = std::move(report)] { report(advance()); });
}

bool SlicedWork::advance() {
    const QDeadlineTimer end(m_slice);
    bool more = m_step();
    while (more && !end.hasExpired())
        more = m_step();
    if (!more)
        stop();
    return more;
}

} // namespace platform
