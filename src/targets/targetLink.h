// One target as the searches use it: searches and fetches records, one request after the other, over one connection
// that is made when it is needed and made again after it was lost. Everything runs in the event loop of the thread.
#pragma once

#include "platform/slicedWork.h"
#include "targets/linkFault.h"
#include "targets/relay.h"
#include "targets/wire.h"
#include <QSocketNotifier>
#include <QTimer>

namespace targets {

struct Limits {
    std::chrono::milliseconds connecting{10'000}; // until the server has accepted the connection
    std::chrono::milliseconds answering{30'000};  // until the answer to one request is complete
};

// A record as it arrived.
struct Answer {
    qint64 at = 0;        // position in the result, counted from 0
    QByteArrayView bytes; // valid until the next request
};

class TargetLink : public QObject {
    Q_OBJECT

public:
    explicit TargetLink(Target target, Limits limits = {});
    ~TargetLink() override;

    const Target &target() const { return m_target; }
    bool isBusy() const { return m_stage != Stage::Idle; }

    // A request may be made only while the link is not busy. It ends by answered() or by failed(); the link is then no
    // longer busy, and the next request may be made during these signals. A search delivers the first `count` records,
    // fetch() any others of the same search; `count` is at most Wire::portion.
    void search(const QByteArray &query, int count);
    void fetch(qint64 from, int count);
    // Sends no request, but fails with this fault as a request would.
    void refuse(const LinkFault &fault);
    // Ends the request at once, without a signal, and closes the connection.
    void stop();

    qint64 hits() const { return m_hits; }
    // The name that the server reported at the start of the session; may be empty.
    const QString &serverName() const { return m_serverName; }

Q_SIGNALS:
    void connected(); // once for each connection
    void sent();      // a part of the request is on its way to the server
    void arrived(const targets::Answer &record);
    void missing(qint64 at, const QString &why); // a record that did not arrive
    void answered();                             // all records of the request have been delivered
    void failed(const targets::LinkFault &fault);

private:
    enum class Stage { Idle, Connecting, Waiting, Delivering };
    // Ends the work on a socket, also during its signal.
    struct Release {
        void operator()(QSocketNotifier *notifier) const {
            notifier->setEnabled(false);
            notifier->deleteLater();
        }
        void operator()(Relay *relay) const {
            relay->disconnect();
            relay->deleteLater();
        }
    };
    using Notifier = std::unique_ptr<QSocketNotifier, Release>;

    void begin(qint64 from, int count);
    bool openWire();
    bool isConnected() const { return m_relay->isConnected() && m_wire->isConnected(); }
    void serve();
    void watchSocket();
    void tellConnected();
    void answer();
    bool deliverNext();
    void endRequest();
    void fail(const LinkFault &fault);
    void closeWire();

    Target m_target;
    Limits m_limits;
    std::unique_ptr<Relay, Release> m_relay; // outlives the wire
    std::unique_ptr<Wire> m_wire;
    Notifier m_readable;
    Notifier m_writable;
    qintptr m_socket = -1;
    int m_connections = 0; // of the wire when the notifiers were made
    QTimer m_limit;
    platform::SlicedWork m_delivery;
    Stage m_stage = Stage::Idle;
    quint64 m_request = 0; // a number for each request
    bool m_toldConnected = false;
    qint64 m_at = 0; // of the next record to deliver
    qint64 m_until = 0;
    qint64 m_hits = 0;
    QString m_serverName;
};

} // namespace targets
