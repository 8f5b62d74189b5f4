// What has come to the windows of all that was sent to them: the last message left by XServer::mark(), and how many
// presses of a mouse button. Lives in the thread of the windows; may be asked from any.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QWindow>
#include <atomic>

namespace tour {

class XServer;

class Arrivals final : public QObject, private QAbstractNativeEventFilter {
public:
    static constexpr const char *message = "_TOUR_MARK";

    explicit Arrivals(XServer &server);

    quintptr window() const { return m_window.winId(); } // where the messages go
    quint32 mark() const { return m_mark; }
    int presses() const { return m_presses; }

private:
    bool nativeEventFilter(const QByteArray &eventType, void *event, qintptr *result) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    QWindow m_window; // never shown
    quint32 m_atom;
    std::atomic<quint32> m_mark = 0;
    std::atomic_int m_presses = 0;
};

} // namespace tour
