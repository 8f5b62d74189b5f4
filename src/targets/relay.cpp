#include "targets/relay.h"
#include <QSslSocket>
#include <utility>

using namespace Qt::StringLiterals;
using Kind = targets::LinkFault::Kind;

namespace targets {

namespace {

constexpr qint64 piece = 8 << 10;        // bytes handed to YAZ in one turn of the event loop
constexpr qint64 shortAnswer = 64 << 10; // bytes that are handed over without waiting for the next turn
constexpr qint64 farBuffer = 256 << 10;  // bytes read ahead from the server
constexpr qint64 longestHead = 64 << 10; // of a request by HTTP

// Returns the fault of the certificate; empty if the errors are others.
QString wordsOf(const QList<QSslError> &errors) {
    for (const QSslError &error : errors) {
        switch (error.error()) {
        case QSslError::SelfSignedCertificate:
        case QSslError::SelfSignedCertificateInChain:
            return u"证书是它自己签的，本机不认"_s;
        case QSslError::UnableToGetLocalIssuerCertificate:
        case QSslError::UnableToVerifyFirstCertificate:
        case QSslError::CertificateUntrusted:
            return u"签发证书的机构本机不认"_s;
        case QSslError::HostNameMismatch:
            return u"证书是给别的主机的"_s;
        case QSslError::CertificateExpired:
        case QSslError::CertificateNotYetValid:
            return u"证书不在有效期内（也请看本机的日期）"_s;
        default:
            break;
        }
    }
    return {};
}

QString certificateFault(const QTcpSocket *socket) {
    const auto *encrypted = qobject_cast<const QSslSocket *>(socket);
    return encrypted ? wordsOf(encrypted->sslHandshakeErrors()) : QString();
}

} // namespace

Relay::Relay(const Target &target)
    : m_target(target) {
    connect(&m_server, &QTcpServer::newConnection, this, [this] { accept(); });
}

Relay::~Relay() {
    drop();
}

platform::Status Relay::open() {
    if (!m_server.listen(QHostAddress::LocalHost))
        return platform::Failure{m_server.errorString()};
    return platform::success();
}

bool Relay::isConnected() const {
    return m_isConnected;
}

// Takes the place of the previous connection: YAZ has one at a time.
void Relay::accept() {
    QTcpSocket *const accepted = m_server.nextPendingConnection();
    if (!accepted)
        return;
    drop();
    m_near = accepted;
    m_near->setReadBufferSize(longestHead);
    m_near->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_near, &QTcpSocket::readyRead, this, [this] { request(); });
    connect(m_near, &QTcpSocket::bytesWritten, this, [this] { takeNext(); });
    connectFar();
}

// Runs in a later turn of the event loop, so that YAZ takes one piece before it gets the next one. Posts no event if
// nothing is left to hand over.
void Relay::takeNext() {
    if (m_far && (m_far->bytesAvailable() > 0 || m_far->state() == QAbstractSocket::UnconnectedState))
        QMetaObject::invokeMethod(
            this, [this] { answer(); }, Qt::QueuedConnection);
}

// QSslSocket passes on each signal of an inner socket, even without encryption, so it is used only where needed.
void Relay::connectFar() {
    auto *const encrypted = m_target.encrypted ? new QSslSocket(this) : nullptr;
    m_far = encrypted ? encrypted : new QTcpSocket(this);
    m_far->setReadBufferSize(farBuffer);
    const auto established = [this] {
        m_isConnected = true;
        m_far->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        Q_EMIT connected();
        request();
    };
    connect(m_far, &QTcpSocket::readyRead, this, [this] { answer(); });
    connect(m_far, &QTcpSocket::disconnected, this, [this] { answer(); });
    connect(m_far, &QTcpSocket::errorOccurred, this, [this] { tellFailure(); });
    QString host = m_target.host;
    host.remove(u'[').remove(u']');
    if (encrypted) {
        connect(encrypted, &QSslSocket::encrypted, this, established);
        encrypted->connectToHostEncrypted(host, quint16(m_target.port));
    } else {
        connect(m_far, &QTcpSocket::connected, this, established);
        m_far->connectToHost(host, quint16(m_target.port));
    }
}

void Relay::request() {
    if (!m_near || !m_isConnected || m_near->bytesAvailable() == 0)
        return;
    m_answered = 0;
    QByteArray bytes = m_near->readAll();
    if (m_target.protocol == Protocol::Sru) {
        m_head += bytes;
        if (!m_head.contains("\r\n\r\n"))
            return;
        bytes = withHost(std::exchange(m_head, {}));
    }
    m_far->write(bytes);
    m_far->flush();
    Q_EMIT sent();
}

// YAZ names the host to which it connects, which is this program.
QByteArray Relay::withHost(QByteArray head) const {
    const qsizetype at = head.indexOf("\r\nHost:");
    const qsizetype end = at < 0 ? -1 : head.indexOf("\r\n", at + 2);
    if (end < 0)
        return head;
    const int usual = m_target.encrypted ? 443 : 80;
    const QByteArray port = m_target.port == usual ? QByteArray() : ':' + QByteArray::number(m_target.port);
    const QByteArray line = "\r\nHost: " + m_target.host.toLatin1() + port;
    return head.replace(at, end - at, line);
}

// Hands over one piece when the previous one has been taken.
void Relay::answer() {
    if (!m_near || !m_far || m_near->bytesToWrite() > 0)
        return;
    const QByteArray bytes = m_far->read(piece);
    if (bytes.isEmpty())
        return endNear();
    if (m_answered == 0 && isMoved(bytes))
        return;
    m_answered += bytes.size();
    if (m_answered > longestAnswer)
        return fail(Kind::Unreadable, u"一次应答超过 %1 MB，不再读"_s.arg(longestAnswer >> 20));
    m_near->write(bytes);
    if (m_answered <= shortAnswer)
        m_near->flush();
}

// Ends the connection to YAZ after the server has ended its own and everything was handed over.
void Relay::endNear() {
    if (m_far->state() == QAbstractSocket::UnconnectedState && m_isConnected) {
        m_isConnected = false;
        m_near->disconnectFromHost();
    }
}

// YAZ would follow a redirection by a connection of its own.
bool Relay::isMoved(const QByteArray &start) {
    if (m_target.protocol != Protocol::Sru || !start.startsWith("HTTP/1.") || start.mid(9, 1) != "3")
        return false;
    const qsizetype at = start.toLower().indexOf("\r\nlocation:");
    constexpr qsizetype name = 11;
    const QByteArray place = at < 0 ? QByteArray() : start.mid(at + name, start.indexOf("\r\n", at + 2) - at - name);
    fail(Kind::Moved, u"服务器换了地址："_s + QString::fromLatin1(place.trimmed().left(200)));
    return true;
}

// An error of an established connection is treated as its end.
void Relay::tellFailure() {
    if (m_isConnected)
        return answer();
    const QString address = addressOf(m_target), certificate = certificateFault(m_far);
    switch (m_far->error()) {
    case QAbstractSocket::HostNotFoundError:
        return fail(Kind::Unreachable, u"找不到主机 %1"_s.arg(m_target.host));
    case QAbstractSocket::SslHandshakeFailedError:
    case QAbstractSocket::SslInternalError:
    case QAbstractSocket::SslInvalidUserDataError:
        return fail(Kind::Unreachable, u"和 %1 的加密连接不成：%2"_s.arg(
                                           address, certificate.isEmpty() ? m_far->errorString() : certificate));
    default:
        return fail(Kind::Unreachable, u"连不上 %1"_s.arg(address));
    }
}

void Relay::fail(Kind kind, const QString &words) {
    drop();
    Q_EMIT broken({kind, words});
}

// The sockets are deleted later, since one of them may be sending a signal.
void Relay::drop() {
    m_isConnected = false;
    m_head.clear();
    for (QTcpSocket *socket : {m_near, m_far}) {
        if (!socket)
            continue;
        socket->disconnect(this);
        socket->abort();
        socket->deleteLater();
    }
    m_near = nullptr;
    m_far = nullptr;
}

} // namespace targets
