#include "database/servers.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace database {

namespace {

using Refused = SessionStatement::Refused;
using When = AddedPair::When;

// A backslash in a literal must be an ordinary character in every session, or a title could end its literal and
// continue as a statement. A server that refuses this is not used. One driver takes its client encoding from the
// locale.
constexpr auto postgreSqlStart = std::to_array<SessionStatement>({
    {u"set statement_timeout='%1s'", Refused::Ignored},
    {u"set standard_conforming_strings=on"},
    {u"set client_encoding to 'UTF8'"},
});
constexpr auto mariaDbStart = std::to_array<SessionStatement>({
    {u"set max_statement_time=%1", Refused::Ignored}, // MySQL does not have this variable
    {u"set wsrep_sync_wait=1", Refused::Ignored},     // on a cluster node, reads wait for the writes of other nodes
    {u"rollback"},
    {u"set sql_mode=concat(@@sql_mode,',NO_BACKSLASH_ESCAPES')"},
});

constexpr auto servers = std::to_array<ServerRow>({
    {.server = Server::SqlServer,
     .names = {u"SQL Server"},
     .file = false,
     .namesByCase = false,
     .limitPerStatement = true,
     .start = {},
     .ping = u"select 1",
     .nodePing = {},
     .leftAlone = 0,
     // In the same batch as the insert, where inserts by a trigger are not counted.
     .key = {.insert = u"%1;select cast(scope_identity() as bigint)", .notUnderstood = {}, .question = {}},
     .spelling = {}},
    {.server = Server::Sqlite,
     .names = {u"SQLite"},
     .file = true,
     .namesByCase = false,
     .limitPerStatement = false,
     .start = {},
     .ping = {},
     .nodePing = {},
     .leftAlone = 0,
     // Not prepared: every second run of a prepared query returns no row.
     .key = {.insert = {}, .notUnderstood = {}, .question = u"select last_insert_rowid()"},
     // There is no date type: a date is a text that begins with the day.
     .spelling = {.date = u"replace(substr(%1,1,%2),'-','/')",
                  .text = u"substr(cast(%1 as text),1,%2)",
                  .like = u"Like",
                  .folded = {},
                  .after = {},
                  .first = u" limit %1",
                  .quote = u'"'}},
    {.server = Server::PostgreSql,
     .names = {u"PostgreSQL"},
     .file = false,
     .namesByCase = false,
     .limitPerStatement = false,
     .start = postgreSqlStart,
     .ping = u"select 1",
     .nodePing = {},
     .leftAlone = 0,
     // A view with a rule does not support the form that returns the key.
     .key = {.insert = u"%1 returning %2",
             .notUnderstood = {u"42601", u"0A000"},
             .question = u"select lastval()",
             .prepared = true},
     .spelling = {.date = u"cast(to_char(cast(%1 as timestamp),'YYYY/MM/DD') as varchar(%2))",
                  .text = u"cast(%1 as varchar(%2))",
                  .like = u"ILike",
                  .folded = {},
                  .after = u" Escape ''",
                  .first = u" limit %1",
                  .quote = u'"'}},
    {.server = Server::MariaDb,
     .names = {u"MariaDB", u"MySQL"},
     .file = false,
     .namesByCase = true,
     .limitPerStatement = false,
     .start = mariaDbStart,
     .ping = u"rollback",
     .nodePing = u"rollback",
     .leftAlone = 1047,
     .key = {.insert = u"%1 returning %2",
             .notUnderstood = {u"1064", u"1235"},
             .question = u"select last_insert_id()",
             .prepared = true},
     // A column may have any character set and collation; this form of the operand works with all of them. The escape
     // character of a pattern cannot be switched off here, but no typed value contains this one.
     .spelling = {.date = u"cast(date_format(%1,'%Y/%m/%d') as char(%2))",
                  .text = u"cast(%1 as char(%2))",
                  .like = u"Like",
                  .folded = u"convert(%1 using utf8mb4) collate utf8mb4_general_ci",
                  .after = u" Escape '\x1f'",
                  .first = u" limit %1",
                  .quote = u'`'}},
    {.server = Server::Other,
     .names = {},
     .file = false,
     .namesByCase = false,
     .limitPerStatement = true,
     .start = {},
     .ping = {},
     .nodePing = {},
     .leftAlone = 0,
     .key = {},
     .spelling = {}},
});

constexpr bool eachServerHasItsRow() {
    for (size_t i = 0; i < servers.size(); ++i)
        if (servers[i].server != Server(i))
            return false;
    return servers.back().server == Server::Other;
}
static_assert(eachServerHasItsRow(), "the rows must be in the order of the enumerators");

// Results are streamed instead of read whole by the driver; a missing file is not created; a lock is waited for at most
// two seconds, during which the window does not respond.
constexpr auto sqlitePairs = std::to_array<AddedPair>({
    {u"StepAPI", u"1", When::MissingInText},
    {u"NoCreat", u"1", When::Always},
    {u"Timeout", u"2000", When::LongerOrMissing},
});
// After the driver's own reconnecting, a session would lack its settings.
constexpr auto mariaDbPairs = std::to_array<AddedPair>({
    {u"CONN_TIMEOUT", u"%login", When::Missing},
    {u"READ_TIMEOUT", u"%silence", When::Missing},
    {u"WRITE_TIMEOUT", u"%silence", When::Missing},
    {u"CHARSET", u"utf8mb4", When::Always},
    {u"AUTO_RECONNECT", u"0", When::Always},
});
constexpr auto accessPairs = std::to_array<AddedPair>({{u"DBQ", u"%Database", When::MissingInText}});

#ifdef Q_OS_WIN
constexpr TextForm narrow = TextForm::Wide; // the driver manager converts correctly
#else
constexpr TextForm narrow = TextForm::Utf8;
#endif

// The drivers of unixODBC without wide calls are those of SQLite, of Access files and the second one of PostgreSQL.
// MariaDB's (3.1.15) has wide calls that take a low byte of D8 to DB (勘, 盘, 还) for half of a surrogate pair: given a
// length with such a text, they write beyond their own buffer; NUL-terminated, they reject a text with many of these
// characters, and they truncate values.
constexpr auto drivers = std::to_array<DriverRow>({
    {{u"sqlite"}, Server::Sqlite, true, narrow, sqlitePairs},
    {{u"psqlodbca", u"postgresql ansi"}, Server::PostgreSql, false, narrow, {}},
    {{u"psqlodbc", u"postgres"}, Server::PostgreSql, false, TextForm::Wide, {}},
    {{u"maodbc", u"maria"}, Server::MariaDb, false, narrow, mariaDbPairs},
    {{u"myodbc", u"mysql"}, Server::MariaDb, false, TextForm::Wide, mariaDbPairs},
    {{u"tdsodbc", u"freetds", u"sql server", u"sqlsrv"}, Server::SqlServer, false, TextForm::Wide, {}},
    {{u"msodbcsql"}, Server::SqlServer, false, TextForm::Wide, {}},
    {{u"mdb"}, Server::Other, true, narrow, accessPairs},
    {{}, Server::Other, false, TextForm::Wide, {}},
});

template <size_t Size>
bool isNamed(const std::array<QStringView, Size> &names, QStringView said) {
    return std::ranges::any_of(
        names, [said](QStringView name) { return !name.isEmpty() && said.contains(name, Qt::CaseInsensitive); });
}

const DriverRow *driverCalled(QStringView name) {
    const auto found = std::ranges::find_if(drivers, [name](const DriverRow &row) { return isNamed(row.names, name); });
    return found == drivers.end() ? nullptr : &*found;
}

} // namespace

const ServerRow &rowOf(Server server) {
    return servers[size_t(server)];
}

const ServerRow &serverNamed(QStringView dbmsName) {
    const auto found =
        std::ranges::find_if(servers, [dbmsName](const ServerRow &row) { return isNamed(row.names, dbmsName); });
    return found == servers.end() ? servers.back() : *found;
}

const DriverRow &driverNamed(QStringView driverName, QStringView dbmsName, const DriverRow &guess) {
    if (driverName.isEmpty())
        return guess;
    if (const DriverRow *named = driverCalled(driverName))
        return *named;
    // An unknown driver is assumed to have wide calls, and needs the pairs of its server.
    const Server server = serverNamed(dbmsName).server;
    const auto found = std::ranges::find_if(
        drivers, [server](const DriverRow &row) { return row.server == server && row.calls == TextForm::Wide; });
    return found == drivers.end() ? drivers.back() : *found;
}

const DriverRow &guessedDriver(std::span<const QString> names) {
    for (const QString &name : names)
        if (const DriverRow *called = name.isEmpty() ? nullptr : driverCalled(name))
            return *called;
    return drivers.back();
}

bool isOpenedAsFor(const DriverRow &right, const DriverRow &opened) {
    return right.calls == opened.calls && (right.pairs.empty() || right.pairs.data() == opened.pairs.data());
}

} // namespace database
