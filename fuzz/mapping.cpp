// A record on its way into the database: row, statement, and the statement as rewritten for each server.
#include "app/startUp.h"
#include "database/sqlDialect.h"
#include "database/sqlTokens.h"
#include "fuzz/apart.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "import/recordRow.h"
#include "platform/codepage936.h"
#include <QFile>
#include <array>
#include <memory>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using database::Server;

namespace fuzz {

namespace {

constexpr auto servers =
    std::to_array<Server>({Server::Sqlite, Server::PostgreSql, Server::MariaDb, Server::SqlServer});

// The maximum number of characters in each text column, in the statement's order; the record's own column follows.
constexpr auto widths = std::to_array<qsizetype>({50, 30, 20, 13, 10, 30, 10, 10, 50, 30, 10, 8, 50, 50, 10});

// An in-memory SQLite database without an ODBC driver, so that the server itself parses the statement.
class Store {
public:
    Store() {
        QFile schema(QStringLiteral(FUZZ_SCHEMA));
        require(schema.open(QIODevice::ReadOnly) && sqlite3_open(":memory:", &m_store) == SQLITE_OK &&
                    sqlite3_exec(m_store, schema.readAll(), nullptr, nullptr, nullptr) == SQLITE_OK,
                "the database in memory is created");
    }
    Store(const Store &) = delete;
    Store &operator=(const Store &) = delete;
    ~Store() { sqlite3_close(m_store); }

    void takes(const QString &statement, const QString &record) {
        const QByteArray text = statement.toUtf8();
        const char *behind = nullptr;
        sqlite3_stmt *insert = nullptr;
        require(sqlite3_prepare_v2(m_store, text, -1, &insert, &behind) == SQLITE_OK && !*behind,
                "the text is one valid statement");
        require(sqlite3_step(insert) == SQLITE_DONE, "the row is inserted");
        sqlite3_finalize(insert);
        sqlite3_stmt *select = nullptr;
        sqlite3_prepare_v2(m_store, "select marc, count(*) from taoluTable", -1, &select, nullptr);
        require(sqlite3_step(select) == SQLITE_ROW && sqlite3_column_int(select, 1) == 1, "one row was inserted");
        const auto *stored = reinterpret_cast<const char *>(sqlite3_column_text(select, 0));
        require(QString::fromUtf8(stored) == record, "the database returns the record unchanged");
        sqlite3_finalize(select);
        sqlite3_exec(m_store, "delete from taoluTable", nullptr, nullptr, nullptr);
    }

private:
    sqlite3 *m_store = nullptr;
};

void checkStatement(const importing::RecordRow &row, const QString &record) {
    const QString statement = importing::insertStatement(row);
    const Apart parts = apart(statement);
    require(parts.literals.size() == qsizetype(widths.size()) + 1, "there is a literal for each text column");
    require(parts.literals.last() == record, "the record is inserted unchanged");
    for (size_t i = 0; i < widths.size(); ++i)
        require(parts.literals[qsizetype(i)].size() <= widths[i], "a value is cut to the width of its column");

    importing::RecordRow bare;
    bare.pages = row.pages;
    bare.price = row.price;
    const QString bareStatement = importing::insertStatement(bare);
    for (const Server server : servers) {
        const Apart spelled = apart(database::rewrite(statement, server, app::tableNames()));
        require(spelled.literals == parts.literals, "rewriting keeps the literals");
        require(spelled.outside == apart(database::rewrite(bareStatement, server, app::tableNames())).outside,
                "the text outside the literals does not depend on the record");
    }
    static const std::unique_ptr<Store> store = std::make_unique<Store>();
    if (!record.contains(u'\0'))
        store->takes(database::rewrite(statement, Server::Sqlite, app::tableNames()), record);
}

void checkRecord(const QString &record) {
    if (const auto row = importing::recordRow(record))
        checkStatement(*row, record);
}

// Returns the record with each two-byte character replaced by "x'", so that the directory stays valid.
QString withApostrophes(const QString &record) {
    QString text;
    for (const QChar c : record)
        text += platform::gbkLength(QStringView(&c, 1)) == 2 ? u"x'"_s : QString(c);
    return text;
}

} // namespace

void mapping(QByteArrayView bytes) {
    const QString record = platform::decode(bytes);
    checkRecord(record);
    checkRecord(withApostrophes(record));

    QString joined;
    for (const database::Token &token : database::tokensOf(record)) {
        require(!token.text.isEmpty(), "no token is empty");
        joined += token.text;
    }
    require(joined == record, "the tokens join to the whole text");
    for (const Server server : servers)
        require(database::rewrite(record, server, app::tableNames()).isEmpty() == record.isEmpty(),
                "only an empty text is rewritten to an empty one");
}

} // namespace fuzz
