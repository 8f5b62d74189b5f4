#include "targets/targetLink.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace targets {

namespace {

constexpr auto slice = 8ms; // of delivering records, with what their receivers do

} // namespace

TargetLink::TargetLink(Target target, Limits limits)
    : m_target(std::move(target))
    , m_limits(limits)
    , m_delivery(
          slice, [this] { return deliverNext(); }, [](bool) {}) {
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        const bool connecting = m_stage == Stage::Connecting;
        fail(overLimit(connecting ? LinkFault::Kind::ConnectLimit : LinkFault::Kind::AnswerLimit,
                       connecting ? m_limits.connecting : m_limits.answering, m_target));
    });
}

TargetLink::~TargetLink() {
    closeWire();
}

void TargetLink::search(const QByteArray &query, int count) {
    m_hits = 0;
    if (!m_wire && !openWire())
        return;
    if (!m_wire->search(query, count))
        return refuse({LinkFault::Kind::BadQuery, u"检索式不对"_s});
    begin(0, count);
}

// Returns false after a call of refuse().
bool TargetLink::openWire() {
    m_relay.reset(new Relay(m_target));
    if (const platform::Status opened = m_relay->open(); !opened)
        return refuse({LinkFault::Kind::Unreachable, opened.failure().description}), false;
    m_wire = targets::openWire(m_target, m_relay->port());
    if (!m_wire)
        return refuse(notBuilt()), false;
    connect(m_relay.get(), &Relay::connected, this, [this] { serve(); });
    connect(m_relay.get(), &Relay::sent, this, &TargetLink::sent);
    connect(m_relay.get(), &Relay::broken, this, [this](const LinkFault &fault) {
        if (isBusy())
            fail(fault);
        else
            closeWire();
    });
    return true;
}

void TargetLink::refuse(const LinkFault &fault) {
    m_stage = Stage::Connecting;
    const auto later = [this, fault, request = ++m_request] {
        if (request == m_request)
            fail(fault);
    };
    QMetaObject::invokeMethod(this, later, Qt::QueuedConnection);
}

void TargetLink::fetch(qint64 from, int count) {
    count = int(std::clamp<qint64>(m_hits - from, 0, count));
    if (count > 0)
        m_wire->fetch(from, count);
    begin(from, count);
}

// Serves the wire from the event loop, so that no signal is sent during a call of the user.
void TargetLink::begin(qint64 from, int count) {
    ++m_request;
    m_at = from;
    m_until = from + count;
    m_stage = isConnected() ? Stage::Waiting : Stage::Connecting;
    m_limit.start(m_stage == Stage::Connecting ? m_limits.connecting : m_limits.answering);
    QMetaObject::invokeMethod(
        this, [this] { serve(); }, Qt::QueuedConnection);
}

void TargetLink::stop() {
    ++m_request;
    m_stage = Stage::Idle;
    m_limit.stop();
    m_delivery.stop();
    closeWire();
}

void TargetLink::closeWire() {
    m_readable.reset();
    m_writable.reset();
    m_socket = -1;
    m_wire.reset();
    m_relay.reset();
    m_toldConnected = false;
}

void TargetLink::serve() {
    if (!m_wire || (m_stage != Stage::Connecting && m_stage != Stage::Waiting))
        return;
    m_wire->process();
    if (m_stage == Stage::Connecting && isConnected()) {
        m_stage = Stage::Waiting;
        m_limit.start(m_limits.answering);
    }
    watchSocket();
    if (m_wire->isIdle())
        answer();
    else
        tellConnected();
}

void TargetLink::tellConnected() {
    if (!isConnected() || std::exchange(m_toldConnected, true))
        return;
    m_serverName = m_wire->serverName();
    Q_EMIT connected();
}

// The library may use another socket with the same number after a connection was made again.
void TargetLink::watchSocket() {
    const Wire::Wanted wanted = m_wire->wanted();
    if (wanted.socket != m_socket || m_wire->connections() != m_connections) {
        m_readable.reset();
        m_writable.reset();
        m_socket = wanted.socket;
        m_connections = m_wire->connections();
        if (m_socket < 0)
            return;
        const auto watch = [this](QSocketNotifier::Type type, bool read) {
            Notifier notifier(new QSocketNotifier(m_socket, type));
            connect(notifier.get(), &QSocketNotifier::activated, this, [this, read] {
                m_wire->ready(read, !read);
                serve();
            });
            return notifier;
        };
        m_readable = watch(QSocketNotifier::Read, true);
        m_writable = watch(QSocketNotifier::Write, false);
    }
    if (m_readable) {
        m_readable->setEnabled(wanted.read);
        m_writable->setEnabled(wanted.write);
    }
}

// After the answer the socket is not watched: a connection that the server closes is noticed by the next request.
void TargetLink::answer() {
    m_limit.stop();
    if (m_readable) {
        m_readable->setEnabled(false);
        m_writable->setEnabled(false);
    }
    if (const Wire::Error error = m_wire->error(); error.number != 0)
        return fail(faultOf(error, m_target));
    m_hits = m_wire->hits();
    m_until = std::min(m_until, m_hits);
    m_stage = Stage::Delivering;
    m_delivery.start();
    tellConnected();
}

// Delivers one record. Returns whether there may be more.
bool TargetLink::deliverNext() {
    if (m_stage != Stage::Delivering)
        return false;
    if (m_at >= m_until) {
        endRequest();
        return false;
    }
    const qint64 at = m_at++;
    QString why;
    if (const auto bytes = m_wire->record(at, why))
        Q_EMIT arrived({at, *bytes});
    else
        Q_EMIT missing(at, why.isEmpty() ? u"服务器没有送来"_s : u"服务器答："_s + why);
    return true;
}

void TargetLink::endRequest() {
    m_delivery.stop();
    m_stage = Stage::Idle;
    Q_EMIT answered();
}

void TargetLink::fail(const LinkFault &fault) {
    m_limit.stop();
    m_stage = Stage::Idle;
    if (!fault.leavesConnection())
        closeWire();
    Q_EMIT failed(fault);
}

} // namespace targets
