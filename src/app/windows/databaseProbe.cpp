#include "app/windows/databaseProbe.h"
#include "platform/paths.h"
#include <chrono>

using namespace Qt::StringLiterals;

namespace app {

namespace {
constexpr std::chrono::seconds patience(5);
}

DatabaseProbe::DatabaseProbe(QObject *parent)
    : QObject(parent) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, &m_call, &QTcpSocket::abort);
    connect(&m_patience, &QTimer::timeout, this, [this] { tellOf(u"没有应答", true); });
    connect(&m_call, &QTcpSocket::connected, this, [this] {
        m_patience.stop();
        m_call.abort();
        tellOf(u"可以连接");
    });
    connect(&m_call, &QTcpSocket::errorOccurred, this, [this] {
        m_patience.stop();
        tellOf(u"连接不上", true);
    });
}

void DatabaseProbe::tellOf(QStringView state, bool unreachable) {
    const QString server = m_where.server.isEmpty() ? QString() : QString(u"（" + m_where.server + u"）");
    const QString words = u"数据库：" + m_where.name + server;
    Q_EMIT told(state.isEmpty() ? words : QString(words + u"，" + state), unreachable);
}

void DatabaseProbe::ask(const QString &connectionString) {
    m_call.abort();
    m_patience.stop();
    m_where = database::whereabouts(connectionString);
    if (!m_where.file.isEmpty())
        return platform::fileExists(m_where.file) ? tellOf(u"可以使用") : tellOf(u"文件不存在", true);
    if (m_where.server.isEmpty() || m_where.port <= 0 || m_where.port > 65535)
        return tellOf({});
    tellOf(u"正在查看……");
    m_patience.start();
    m_call.connectToHost(m_where.server, quint16(m_where.port));
}

} // namespace app
