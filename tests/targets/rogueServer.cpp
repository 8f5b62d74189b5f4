#include "rogueServer.h"
#include <QTcpServer>
#include <QTcpSocket>
#include <limits>

RogueServer::RogueServer(Misconduct misconduct, int passed, int realPort)
    : m_misconduct(misconduct)
    , m_passed(passed)
    , m_realPort(realPort) {
    start();
    m_port = m_listening.get_future().get();
}

RogueServer::~RogueServer() {
    m_ended = true;
    wait();
}

void RogueServer::run() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    m_listening.set_value(server.serverPort());
    while (!m_ended) {
        if (server.waitForNewConnection(20))
            serve(*server.nextPendingConnection());
    }
}

void RogueServer::serve(QTcpSocket &client) {
    QTcpSocket real;
    real.connectToHost(QHostAddress::LocalHost, quint16(m_realPort));
    real.waitForConnected();
    const int passed = m_misconduct == Misconduct::OtherSyntax ? std::numeric_limits<int>::max() : m_passed;
    for (int exchange = 0; exchange < passed && isOpen(client); ++exchange) {
        client.write(realAnswer(client, real));
        client.flush();
    }
    switch (m_misconduct) {
    case Misconduct::Silent:
        while (isOpen(client))
            request(client);
        break;
    case Misconduct::ClosesAtOnce:
    case Misconduct::OtherSyntax:
        break;
    case Misconduct::ClosesInTheMiddle: {
        const QByteArray answer = realAnswer(client, real);
        client.write(answer.first(answer.size() / 2));
        break;
    }
    case Misconduct::Garbage:
        request(client);
        client.write(QByteArray("\x01\x85\xFF\xFF\xFF\xFF\xFF\x00\x13", 9).repeated(1000));
        break;
    case Misconduct::EndlessBer: // an answer of indefinite length, with ever more elements
        return flood(client, "\xB7\x80", QByteArray("\x04\x02xx").repeated(1 << 12));
    case Misconduct::EndlessChunks:
        return flood(client, "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n",
                     QByteArray("1\r\nx\r\n").repeated(1 << 12));
    case Misconduct::EndlessText:
        return flood(client, "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n\r\n<a>", QByteArray(1 << 15, 'x'));
    case Misconduct::Trickle:
        return trickle(client, realAnswer(client, real));
    }
    client.waitForBytesWritten();
    client.disconnectFromHost();
}

bool RogueServer::isOpen(const QTcpSocket &client) const {
    return !m_ended && client.state() == QAbstractSocket::ConnectedState;
}

QByteArray RogueServer::request(QTcpSocket &client) const {
    while (isOpen(client) && !client.waitForReadyRead(20)) {
    }
    return client.readAll();
}

QByteArray RogueServer::realAnswer(QTcpSocket &client, QTcpSocket &real) const {
    QByteArray bytes = request(client);
    if (m_misconduct == Misconduct::OtherSyntax && bytes.startsWith('\xB6')) // a search by Z39.50
        bytes.replace("\x13\x05\x01", "\x13\x05\x0A");                       // UNIMARC, USMARC
    if (bytes.isEmpty())                                                     // the client has closed the connection
        return {};
    real.write(bytes);
    real.waitForReadyRead(5000);
    return real.readAll();
}

void RogueServer::trickle(QTcpSocket &client, const QByteArray &answer) const {
    for (const char byte : answer) {
        if (!isOpen(client))
            break;
        client.write(&byte, 1);
        client.waitForReadyRead(100); // 10 bytes a second
    }
}

void RogueServer::flood(QTcpSocket &client, const QByteArray &start, const QByteArray &more) const {
    request(client);
    client.write(start);
    while (isOpen(client)) {
        client.write(more);
        client.waitForBytesWritten(100);
    }
}
