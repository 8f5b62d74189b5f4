#include "database/link.h"
#include "database/dataSources.h"
#include "database/rowReader.h"
#include <QFile>
#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace database {

namespace {

// The drivers of unixODBC that have no wide calls, those of SQLite and of Access files, and MariaDB's, whose wide calls
// (3.1.15) take a low byte of D8 to DB (勘, 盘, 还) for half of a surrogate pair: given such a text with its length
// they write behind their own buffer, ended by a NUL they refuse it where it has many, and they cut the ends of values
// off.
TextForm callsOf(const QString &driver) {
#ifndef Q_OS_WIN
    for (const QStringView narrow : {u"sqlite", u"mdb", u"maria"})
        if (driver.contains(narrow, Qt::CaseInsensitive))
            return TextForm::Utf8;
#endif
    Q_UNUSED(driver)
    return TextForm::Wide;
}

// SQLite's driver says no more than "connect failed" of a file that is not there.
platform::Failure explained(const QString &pairs, const platform::Failure &failure) {
    const QString file = connectionValue(pairs, u"Database");
    const bool sqlite = connectionValue(pairs, u"Driver").contains(u"sqlite", Qt::CaseInsensitive);
    return sqlite && !QFile::exists(file) ? platform::Failure{u"数据库文件“"_s + file + u"”不存在", failure.number}
                                          : failure;
}

// What tells a file from another one that took its name. Empty where there is no file.
QString identityOf(const QString &file) {
#ifdef Q_OS_WIN
    return file; // an open database cannot be replaced there
#else
    struct stat facts {};
    if (file.isEmpty() || ::stat(QFile::encodeName(file).constData(), &facts) != 0)
        return {};
    return QString::number(facts.st_dev) + u':' + QString::number(facts.st_ino);
#endif
}

} // namespace

Link::Link(const QString &connectionString, const Facts &facts)
    : m_connectionString(connectionString)
    , m_number(facts.number)
    , m_connection(SQL_HANDLE_DBC, m_environment.get())
    , m_tables(facts.tables) {}

Link::~Link() {
    if (!m_calls)
        return;
    m_calls.reset();
    m_statement.reset();
    m_keyQuestion.reset();
    SQLDisconnect(m_connection.get());
}

platform::Result<std::unique_ptr<Link>> Link::connect(const QString &connectionString, const Facts &facts) {
    std::unique_ptr<Link> link(new Link(connectionString, facts));
    if (!link->m_connection)
        return link->m_environment.failure(TextForm::Wide);
    if (const platform::Status opened = link->open(); !opened)
        return opened.failure();
    return link;
}

platform::Status Link::open() {
    if (!bracesAreClosed(m_connectionString))
        return platform::Failure{u"连接字符串里有“{”而没有“}”"_s};
    const QString name = connectionValue(m_connectionString, u"DSN");
    const QString source = pairsOfDataSource(name);
    m_form = callsOf(connectionValue(m_connectionString, u"Driver") + connectionValue(source, u"Driver"));
    // unixODBC finds no data source by the wide characters of a Chinese name: what stands under that name goes ahead.
    const bool hidden = m_form == TextForm::Wide && name.toUtf8().size() != name.size();
    QString text = driverText(hidden ? QString(source + m_connectionString) : m_connectionString, source);
    // A pool of the driver manager would hand back to us what we ended. It finds its links by the letters of the text,
    // so no two of ours are the same; no driver knows the word.
    if (driverManagerPools())
        text += (text.endsWith(u';') ? u"Link=%1;"_s : u";Link=%1;"_s).arg(m_number);
    // A limit of the driver's own in the text stays the only one: PostgreSQL's driver refuses two.
    m_limits = timeLimits(m_connectionString, source);
    if (m_limits.login.count() > 0 && !QString(text + source).contains(u"connect_timeout", Qt::CaseInsensitive))
        SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_LOGIN_TIMEOUT,
                           reinterpret_cast<SQLPOINTER>(m_limits.login.count()), SQL_IS_UINTEGER);
    const std::vector<int> others = CallLimit::sockets();
    if (platform::Status connected = odbcConnect(m_connection, text, m_form); !connected)
        return explained(text + u';' + source, connected.failure());
    std::vector<int> own = CallLimit::sockets();
    std::erase_if(own, [&](int socket) { return std::find(others.begin(), others.end(), socket) != others.end(); });
    m_calls.emplace(std::move(own));
    return learn();
}

void Link::retire() const {
    if (m_server == Server::Sqlite)
        (void)firstColumn(u"PRAGMA wal_checkpoint(TRUNCATE)"_s); // it works when its result is fetched
}

bool Link::works() const {
    if (answeredJustNow())
        return true;
    switch (m_server) {
    case Server::Sqlite:
        return identityOf(m_file) == m_fileIdentity;
    case Server::MariaDb:
        return takesStatements();
    case Server::PostgreSql:
    case Server::SqlServer:
        return run(u"select 1"_s).ok();
    case Server::Other:
        break;
    }
    return !lost();
}

// For a loop's sake, which comes back within a millisecond: what ended the server in between has closed the socket as a
// rule, and that is seen without a round trip. What falls off the net within that moment is not, nor is it in the
// middle of a statement.
bool Link::answeredJustNow() const {
    constexpr std::chrono::milliseconds moment(100);
    return m_answered && std::chrono::steady_clock::now() - *m_answered < moment && m_calls->quiet();
}

bool Link::leftAlone(const platform::Failure &failure) const {
    constexpr qint32 notReady = 1047; // a node that lost sight of its cluster
    return m_server == Server::MariaDb && failure.number == notReady;
}

// A node of a cluster that lost sight of the others goes on talking, and refuses each statement but settings and
// questions about nothing stored; this is the least that it refuses. Nor does the driver prepare it, as it does a
// select.
bool Link::takesStatements() const {
    return m_server != Server::MariaDb || run(u"rollback"_s).ok();
}

bool Link::lost() const {
    return m_calls->struck() || isDead() || !takesStatements();
}

bool Link::isDead() const {
    const CallLimit::Call call(*m_calls, m_limits.login);
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(m_connection.get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof(dead), nullptr);
    return dead == SQL_CD_TRUE;
}

// A server that has a limit of its own was told it; the others' drivers are told with each statement.
platform::Status Link::start(const OdbcHandle &handle, const QString &statement) const {
    if (!handle)
        return m_connection.failure(m_form);
    // Braces and question marks in a value are text, nothing for the driver to look into.
    SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
    if (m_server == Server::SqlServer || m_server == Server::Other)
        SQLSetStmtAttrW(handle.get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(m_limits.statement.count()),
                        SQL_IS_UINTEGER);
    return odbcExecute(handle, statement, m_form);
}

std::unique_ptr<OdbcHandle> Link::statementHandle() const {
    m_answered.reset();
    return m_statement ? std::move(m_statement) : std::make_unique<OdbcHandle>(SQL_HANDLE_STMT, m_connection.get());
}

// After a failure a handle is not used again: what a driver left in it nobody knows.
void Link::wentWell(std::unique_ptr<OdbcHandle> handle) const {
    m_answered = std::chrono::steady_clock::now();
    if (SQL_SUCCEEDED(SQLFreeStmt(handle->get(), SQL_CLOSE)))
        m_statement = std::move(handle);
}

platform::Failure Link::told(const platform::Failure &failure) const {
    return m_calls->struck() ? platform::Failure{u"数据库服务器没有应答，连接已断开"_s, failure.number} : failure;
}

platform::Status Link::execute(const QString &statement) const {
    const CallLimit::Call call(*m_calls, m_limits.silence());
    auto handle = statementHandle();
    if (const platform::Status ran = start(*handle, rewrite(statement, m_server, m_tables)); !ran)
        return told(ran.failure());
    wentWell(std::move(handle));
    return platform::success();
}

platform::Result<std::shared_ptr<ResultTable>> Link::query(const QString &statement) const {
    const QString spelled = rewrite(statement, m_server, m_tables);
    for (const Fetching fetching : {Fetching::Bound, Fetching::Unbound}) {
        const CallLimit::Call call(*m_calls, m_limits.silence());
        auto handle = statementHandle();
        if (const platform::Status ran = start(*handle, spelled); !ran)
            return told(ran.failure());
        const auto rows = readRows(*handle, m_form, fetching);
        if (!rows)
            return told(rows.failure());
        wentWell(std::move(handle));
        if (rows.value())
            return rows.value();
    }
    Q_UNREACHABLE();
}

platform::Status Link::run(const QString &statement) const {
    const CallLimit::Call call(*m_calls, m_limits.login);
    return start(OdbcHandle(SQL_HANDLE_STMT, m_connection.get()), statement);
}

platform::Result<QStringList> Link::firstColumn(const QString &statement) const {
    const CallLimit::Call call(*m_calls, m_limits.login);
    const OdbcHandle handle(SQL_HANDLE_STMT, m_connection.get());
    if (const platform::Status ran = start(handle, statement); !ran)
        return ran.failure();
    const auto rows = readRows(handle, m_form, Fetching::Unbound);
    if (!rows)
        return rows.failure();
    QStringList values;
    for (int row = 0; rows.value() && row < rows.value()->rowCount(); ++row)
        values.append(rows.value()->text(row, 0));
    return values;
}

// Asks a new link what it is, and makes its server read statements as they are meant: a backslash in a literal is a
// backslash, else a title could end its literal and go on as a statement. A server that refuses any of it is not worked
// with.
platform::Status Link::learn() {
    std::array<SQLWCHAR, 128> name{};
    SQLGetInfoW(m_connection.get(), SQL_DBMS_NAME, name.data(), SQLSMALLINT(sizeof(name) - sizeof(SQLWCHAR)), nullptr);
    m_server = serverOf(fromOdbc(name.data(), qsizetype(name.size())));
    const qint64 seconds = m_limits.statement.count();
    switch (m_server) {
    case Server::PostgreSql:
        if (seconds > 0)
            (void)run(u"set statement_timeout=%1"_s.arg(seconds * 1000));
        return run(u"set standard_conforming_strings=on"_s);
    case Server::MariaDb:
        if (seconds > 0)
            (void)run(u"set max_statement_time=%1"_s.arg(seconds)); // MySQL has none of that name
        (void)run(u"set wsrep_sync_wait=1"_s); // a cluster's node: reads wait for what went in over another one
        if (platform::Status ready = run(u"rollback"_s); !ready)
            return ready;
        if (platform::Status safe = run(u"set sql_mode=concat(@@sql_mode,',NO_BACKSLASH_ESCAPES')"_s); !safe)
            return safe;
        return learnTables();
    case Server::Sqlite:
        return learnFile();
    case Server::SqlServer:
    case Server::Other:
        break;
    }
    return platform::success();
}

platform::Status Link::learnTables() {
    const auto tables =
        firstColumn(u"select table_name from information_schema.tables where table_schema=database()"_s);
    if (!tables)
        return tables.failure();
    for (QString &table : m_tables)
        for (const QString &own : tables.value())
            if (own.compare(table, Qt::CaseInsensitive) == 0)
                table = own;
    return platform::success();
}

platform::Status Link::learnFile() {
    const auto file = firstColumn(u"select file from pragma_database_list where name='main'"_s);
    if (!file)
        return file.failure();
    m_file = file.value().value(0);
    m_fileIdentity = identityOf(m_file);
    return platform::success();
}

} // namespace database
