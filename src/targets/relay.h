// Passes the bytes between YAZ, which connects to a port of the loopback interface, and the server. YAZ would block the
// program while it resolves names and connects, and would trust too much; here Qt does both, encrypts and checks the
// certificate. An answer is handed over in small pieces between other events, and an answer that is too long is ended.
#pragma once

#include "targets/linkFault.h"
#include <QObject>
#include <QTcpServer>

namespace targets {

class Relay : public QObject {
    Q_OBJECT

public:
    static constexpr qint64 longestAnswer = 2 << 20; // bytes of one answer, which has up to Wire::portion records

    explicit Relay(const Target &target);
    ~Relay() override;

    // Listens on a free port of the loopback interface.
    platform::Status open();
    quint16 port() const { return m_server.serverPort(); }
    bool isConnected() const; // to the server, and encrypted if the target is

Q_SIGNALS:
    void connected();
    void sent();                                  // bytes of a request were sent to the server
    void broken(const targets::LinkFault &fault); // an ordinary end of the connection is passed on to YAZ instead

private:
    void accept();
    void connectFar();
    void takeNext();
    void request();
    QByteArray withHost(QByteArray head) const;
    void answer();
    void endNear();
    void tellFailure();
    bool isMoved(const QByteArray &start);
    void fail(LinkFault::Kind kind, const QString &words);
    void drop();

    Target m_target;
    QTcpServer m_server;
    QTcpSocket *m_near = nullptr; // to YAZ
    QTcpSocket *m_far = nullptr;  // to the server
    QByteArray m_head;            // of a request by HTTP, while it is incomplete
    bool m_isConnected = false;
    qint64 m_answered = 0; // bytes of the answer to the last request
};

} // namespace targets
