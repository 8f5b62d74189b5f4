// A server that misbehaves, in a thread of its own. It passes the first exchanges on to a real server, so that the
// client is in the middle of its work.
#pragma once

#include <QThread>
#include <atomic>
#include <future>

class QTcpSocket;

enum class Misconduct {
    Silent,
    ClosesAtOnce,
    ClosesInTheMiddle,
    Garbage,
    EndlessBer,
    EndlessChunks,
    EndlessText,
    Trickle,
    OtherSyntax // of the records that come with the answer to a search; else it behaves
};

class RogueServer final : public QThread {
public:
    // `passed`: exchanges with the server at this port of the loopback interface before the misconduct begins.
    RogueServer(Misconduct misconduct, int passed, int realPort);
    ~RogueServer() override;
    int port() const { return m_port; }

private:
    void run() override;
    void serve(QTcpSocket &client);
    bool isOpen(const QTcpSocket &client) const;
    QByteArray request(QTcpSocket &client) const;
    QByteArray realAnswer(QTcpSocket &client, QTcpSocket &real) const;
    void trickle(QTcpSocket &client, const QByteArray &answer) const;
    void flood(QTcpSocket &client, const QByteArray &start, const QByteArray &more) const;

    Misconduct m_misconduct;
    int m_passed;
    int m_realPort;
    int m_port = 0;
    std::promise<int> m_listening;
    std::atomic<bool> m_ended = false;
};
