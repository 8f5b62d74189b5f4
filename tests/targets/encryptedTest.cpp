// A search by SRU over TLS: a front in this thread decrypts for the real server.
#include "catalogueServers.h"
#include "support/testFolder.h"
#include "targets/search.h"
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTest>

using namespace targets;

namespace {

class TlsFront final : public QTcpServer {
public:
    TlsFront(const QByteArray &certificate, const QByteArray &key, int realPort)
        : m_certificate(certificate)
        , m_key(key, QSsl::Rsa)
        , m_realPort(realPort) {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
    }

protected:
    void incomingConnection(qintptr descriptor) override {
        auto *near = new QSslSocket(this);
        auto *far = new QTcpSocket(near);
        near->setLocalCertificate(m_certificate);
        near->setPrivateKey(m_key);
        near->setSocketDescriptor(descriptor);
        far->connectToHost(QHostAddress::LocalHost, quint16(m_realPort));
        connect(near, &QSslSocket::readyRead, far, [near, far] { far->write(near->readAll()); });
        connect(far, &QTcpSocket::readyRead, near, [near, far] { near->write(far->readAll()); });
        connect(far, &QTcpSocket::disconnected, near, &QSslSocket::disconnectFromHost);
        near->startServerEncryption();
    }

private:
    QSslCertificate m_certificate;
    QSslKey m_key;
    int m_realPort;
};

QByteArray makeCertificate(const TestFolder &folder, const QString &host) {
    QProcess openssl;
    openssl.start(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s, u"-days"_s, u"2"_s,
                                 u"-subj"_s, u"/CN="_s + host, u"-addext"_s, u"subjectAltName=DNS:"_s + host,
                                 u"-keyout"_s, folder.path(u"key"_s), u"-out"_s, folder.path(u"certificate"_s)});
    EXPECT_TRUE(openssl.waitForFinished() && openssl.exitCode() == 0);
    return folder.read(u"certificate"_s);
}

} // namespace

TEST(Encrypted, OnlyATrustedCertificateOfTheHostIsAccepted) {
    struct Row {
        QString host; // that the certificate names
        bool trusted;
        QString words;
    };
    const Row rows[] = {{u"localhost"_s, true, u"已取 3 条，共 3 条"_s},
                        {u"localhost"_s, false, u"的加密连接不成：证书是它自己签的，本机不认"_s},
                        {u"example.org"_s, true, u"的加密连接不成：证书是给别的主机的"_s}};
    const QSslConfiguration usual = QSslConfiguration::defaultConfiguration();
    for (const Row &row : rows) {
        const TestFolder folder;
        const QByteArray certificate = makeCertificate(folder, row.host);
        const TlsFront front(certificate, folder.read(u"key"_s), portOf(u"open"_s));
        QSslConfiguration trusting = usual;
        if (row.trusted)
            trusting.addCaCertificate(QSslCertificate(certificate));
        QSslConfiguration::setDefaultConfiguration(trusting);
        Target target = openBySru(QueryLanguage::Pqf);
        target.host = u"localhost"_s;
        target.port = front.serverPort();
        target.encrypted = true;
        target.password = u"geheim"_s;
        Search search({target});
        search.start({.isbn = u"978-7-02-000220-7"_s});
        EXPECT_TRUE(QTest::qWaitFor([&] { return !search.isActive(); }, 30'000));
        EXPECT_TRUE(search.progress(0).words().endsWith(row.words)) << search.progress(0).words().toStdString();
    }
    QSslConfiguration::setDefaultConfiguration(usual);
}
