#include "database/link.h"
#include "database/dataSources.h"
#include "database/rowReader.h"
#include "database/sqlDialect.h"
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

// The driver of SQLite reports only "connect failed" for a missing file.
platform::Failure explained(const DriverRow &driver, const QString &pairs, const platform::Failure &failure) {
    const QString file = connectionValue(pairs, u"Database");
    return rowOf(driver.server).file && !QFile::exists(file)
               ? platform::Failure{u"数据库文件“"_s + file + u"”不存在", failure.number}
               : failure;
}

// Returns a property of the driver or its server, which is ASCII.
QString said(const OdbcHandle &connection, SQLUSMALLINT fact) {
    std::array<SQLWCHAR, 128> text{};
    SQLGetInfoW(connection.get(), fact, text.data(), SQLSMALLINT(sizeof(text) - sizeof(SQLWCHAR)), nullptr);
    return fromOdbc(text.data(), qsizetype(text.size()));
}

// Returns a text that distinguishes a file from another one with the same name; empty if there is no file.
QString identityOf(const QString &file) {
#ifdef Q_OS_WIN
    return file; // Windows does not allow an open database to be replaced
#else
    struct stat facts {};
    if (file.isEmpty() || ::stat(QFile::encodeName(file).constData(), &facts) != 0)
        return {};
    return QString::number(facts.st_dev) + u':' + QString::number(facts.st_ino);
#endif
}

} // namespace

Link::Link(const QString &connectionString, const QStringList &tables, const DriverRow &driver)
    : m_connectionString(connectionString)
    , m_connection(SQL_HANDLE_DBC, m_environment.get())
    , m_driver(&driver)
    , m_server(&rowOf(driver.server))
    , m_tables(tables) {}

Link::~Link() {
    if (!m_calls)
        return;
    m_calls.reset();
    m_statement.reset();
    m_keyQuestion.reset();
    SQLDisconnect(m_connection.get());
}

platform::Result<std::unique_ptr<Link>> Link::connect(const QString &connectionString, const Facts &facts) {
    if (!bracesAreClosed(connectionString))
        return platform::Failure{u"连接字符串里有“{”而没有“}”"_s};
    const QString source = pairsOfDataSource(connectionValue(connectionString, u"DSN"));
    const DriverRow *driver = facts.driver ? facts.driver : &namedDriver(connectionString, source);
    auto certainty = facts.driver ? Certainty::Known : Certainty::Guessed;
    for (bool again = false;; again = true, certainty = Certainty::Known) {
        std::unique_ptr<Link> link(new Link(connectionString, facts.tables, *driver));
        if (!link->m_connection)
            return link->m_environment.failure(TextForm::Wide);
        if (const platform::Status opened =
                link->open(source, certainty, QString::number(facts.number) + (again ? u"a" : u""));
            !opened)
            return opened.failure();
        const DriverRow &right = link->learnDriver();
        if (!again && !isOpenedAsFor(right, *driver)) {
            driver = &right;
            continue;
        }
        if (const platform::Status learned = link->learn(); !learned)
            return learned.failure();
        return link;
    }
}

platform::Status Link::open(const QString &dataSource, Certainty certainty, const QString &number) {
    const QString name = connectionValue(m_connectionString, u"DSN");
    // unixODBC does not find a data source with a Chinese name through the wide calls: the pairs of the source are put
    // before the text instead.
    const bool hidden = m_driver->calls == TextForm::Wide && name.toUtf8().size() != name.size();
    QString text = driverText(hidden ? QString(dataSource + m_connectionString) : m_connectionString, dataSource,
                              *m_driver, certainty);
    // A pool of the driver manager would return connections that the program has closed. It finds them by the whole
    // text, so a number makes each text unique; no driver uses this key.
    if (driverManagerPools())
        text += (text.endsWith(u';') ? u"Link=%1;"_s : u";Link=%1;"_s).arg(number);
    // A limit of the driver's own in the text must remain the only one: PostgreSQL's driver rejects two.
    m_limits = timeLimits(m_connectionString, dataSource);
    if (m_limits.login.count() > 0 && !QString(text + dataSource).contains(u"connect_timeout", Qt::CaseInsensitive))
        SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_LOGIN_TIMEOUT,
                           reinterpret_cast<SQLPOINTER>(m_limits.login.count()), SQL_IS_UINTEGER);
    const std::vector<int> others = CallLimit::sockets();
    if (platform::Status connected = odbcConnect(m_connection, text, m_driver->calls); !connected)
        return explained(*m_driver, text + u';' + dataSource, connected.failure());
    std::vector<int> own = CallLimit::sockets();
    std::erase_if(own, [&](int socket) { return std::ranges::find(others, socket) != others.end(); });
    m_calls.emplace(std::move(own));
    return platform::success();
}

void Link::retire() {
    if (m_server->file)
        (void)firstColumn(u"PRAGMA wal_checkpoint(TRUNCATE)"_s); // takes effect when its result is fetched
}

bool Link::works() {
    if (answeredJustNow())
        return true;
    if (m_server->file)
        return identityOf(m_file) == m_fileIdentity;
    return m_server->ping.isEmpty() ? !lost() : run(m_server->ping.toString()).ok();
}

// For loops that use a link again within a millisecond: if the server ended in between, it has usually closed the
// socket, which is visible without a round trip. A network failure in that moment is not detected, as it is not during
// a statement.
bool Link::answeredJustNow() const {
    constexpr std::chrono::milliseconds moment(100);
    return m_answered && std::chrono::steady_clock::now() - *m_answered < moment && m_calls->quiet();
}

bool Link::leftAlone(const platform::Failure &failure) const {
    return m_server->leftAlone != 0 && failure.number == m_server->leftAlone;
}

// A node of a cluster that lost the other nodes still answers, but refuses each statement except settings and queries
// that read no table.
bool Link::lost() {
    return m_calls->struck() || isDead() || (!m_server->nodePing.isEmpty() && !run(m_server->nodePing.toString()));
}

bool Link::isDead() {
    const CallLimit::Call call(*m_calls, m_limits.login);
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(m_connection.get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof(dead), nullptr);
    return dead == SQL_CD_TRUE;
}

// A server with a limit of its own got it at the start of the session; the other drivers get it with each statement.
platform::Status Link::start(const OdbcHandle &handle, const QString &statement) const {
    if (!handle)
        return m_connection.failure(m_driver->calls);
    // Braces and question marks in a value are text, which the driver must not interpret.
    SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
    if (m_server->limitPerStatement)
        SQLSetStmtAttrW(handle.get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(m_limits.statement.count()),
                        SQL_IS_UINTEGER);
    return odbcExecute(handle, statement, m_driver->calls);
}

std::unique_ptr<OdbcHandle> Link::statementHandle() {
    m_answered.reset();
    return m_statement ? std::move(m_statement) : std::make_unique<OdbcHandle>(SQL_HANDLE_STMT, m_connection.get());
}

// Keeps the handle for the next call. The handle of a failed call is not used again, since its state is undefined.
void Link::wentWell(std::unique_ptr<OdbcHandle> handle) {
    m_answered = std::chrono::steady_clock::now();
    if (SQL_SUCCEEDED(SQLFreeStmt(handle->get(), SQL_CLOSE)))
        m_statement = std::move(handle);
}

platform::Failure Link::told(const platform::Failure &failure) const {
    return m_calls->struck() ? platform::Failure{u"数据库服务器没有应答，连接已断开"_s, failure.number} : failure;
}

platform::Status Link::execute(const QString &statement) {
    const CallLimit::Call call(*m_calls, m_limits.silence());
    auto handle = statementHandle();
    if (const platform::Status ran = start(*handle, rewrite(statement, m_server->server, m_tables)); !ran)
        return told(ran.failure());
    wentWell(std::move(handle));
    return platform::success();
}

platform::Result<std::shared_ptr<ResultTable>> Link::query(const QString &statement) {
    const QString spelled = rewrite(statement, m_server->server, m_tables);
    for (const Fetching fetching : {Fetching::Bound, Fetching::Unbound}) {
        const CallLimit::Call call(*m_calls, m_limits.silence());
        auto handle = statementHandle();
        if (const platform::Status ran = start(*handle, spelled); !ran)
            return told(ran.failure());
        const auto rows = readRows(*handle, m_driver->calls, fetching);
        if (!rows)
            return told(rows.failure());
        wentWell(std::move(handle));
        if (rows.value())
            return rows.value();
    }
    Q_UNREACHABLE();
}

platform::Status Link::run(const QString &statement) {
    const CallLimit::Call call(*m_calls, m_limits.login);
    return start(OdbcHandle(SQL_HANDLE_STMT, m_connection.get()), statement);
}

platform::Result<QStringList> Link::firstColumn(const QString &statement) {
    const CallLimit::Call call(*m_calls, m_limits.login);
    const OdbcHandle handle(SQL_HANDLE_STMT, m_connection.get());
    if (const platform::Status ran = start(handle, statement); !ran)
        return ran.failure();
    const auto rows = readRows(handle, m_driver->calls, Fetching::Unbound);
    if (!rows)
        return rows.failure();
    QStringList values;
    for (int row = 0; rows.value() && row < rows.value()->rowCount(); ++row)
        values.append(rows.value()->text(row, 0));
    return values;
}

// Until this is called, the rows of driver and server are assumptions.
const DriverRow &Link::learnDriver() {
    const QString server = said(m_connection, SQL_DBMS_NAME);
    m_driver = &driverNamed(said(m_connection, SQL_DRIVER_NAME), server, *m_driver);
    m_server = &serverNamed(server);
    return *m_driver;
}

// Starts the session. Fails if the server refuses a statement that it must accept.
platform::Status Link::learn() {
    const qint64 seconds = m_limits.statement.count();
    for (const SessionStatement &statement : m_server->start) {
        const bool isLimit = statement.text.contains(u"%1");
        if (isLimit && seconds == 0)
            continue;
        const QString text = statement.text.toString();
        const platform::Status ran = run(isLimit ? text.arg(seconds) : text);
        if (!ran && statement.refused == SessionStatement::Refused::Fails)
            return ran;
    }
    if (m_server->namesByCase)
        return learnTables();
    return m_server->file ? learnFile() : platform::success();
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
