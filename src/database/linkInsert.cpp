// Inserts that tell the key which the server gave: for each record of an import, so no more calls are made than it
// takes.
#include "database/link.h"
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace database {

namespace {

std::optional<qint64> fetchedKey(const OdbcHandle &handle) {
    SQLBIGINT key = 0;
    const bool fetched = SQL_SUCCEEDED(SQLFetch(handle.get())) &&
                         SQL_SUCCEEDED(SQLGetData(handle.get(), 1, SQL_C_SBIGINT, &key, sizeof(key), nullptr));
    return fetched && key > 0 ? std::optional(qint64(key)) : std::nullopt;
}

} // namespace

// A server that does not take the form that returns the key has done nothing by then, be it an old one or a table
// that is a view: the plain form goes to it, now and from then on. It tells what is wrong with the values, too.
platform::Result<std::optional<qint64>> Link::insert(const QString &statement, const QString &keyColumn) const {
    if (m_returnsKeys && (m_server == Server::PostgreSql || m_server == Server::MariaDb)) {
        std::optional<qint64> key;
        const platform::Status returned = insertReturning(statement + u" returning " + keyColumn, key);
        if (returned)
            return key;
        if (leftAlone(returned.failure()) || lost())
            return returned.failure();
        const platform::Status plain = execute(statement);
        m_returnsKeys = !plain;
        if (!plain)
            return plain.failure();
        return lastKey();
    }
    if (const platform::Status in = execute(statement); !in)
        return in.failure();
    return lastKey();
}

platform::Status Link::insertReturning(const QString &statement, std::optional<qint64> &key) const {
    const CallLimit::Call call(*m_calls, m_limits.silence());
    auto handle = statementHandle();
    if (const platform::Status ran = start(*handle, rewrite(statement, m_server, m_tables)); !ran)
        return told(ran.failure());
    key = fetchedKey(*handle);
    wentWell(std::move(handle));
    return platform::success();
}

// Of the last insert over this link.
std::optional<qint64> Link::lastKey() const {
    struct Question {
        Server server;
        QStringView text;
        bool prepared;
    };
    static constexpr auto questions = std::to_array<Question>({
        {Server::Sqlite, u"select last_insert_rowid()", false}, // every second run of a prepared one gives no row
        {Server::PostgreSql, u"select lastval()", true},
        {Server::MariaDb, u"select last_insert_id()", true},
        {Server::SqlServer, u"select cast(@@identity as bigint)", true},
    });
    const auto *question = std::ranges::find(questions, m_server, &Question::server);
    if (question == questions.end())
        return std::nullopt;
    const CallLimit::Call call(*m_calls, m_limits.login);
    m_answered.reset();
    auto handle = std::exchange(m_keyQuestion, nullptr);
    if (!handle) {
        handle = std::make_unique<OdbcHandle>(SQL_HANDLE_STMT, m_connection.get());
        if (!*handle || (question->prepared && !odbcPrepare(*handle, question->text.toString(), m_form)))
            return std::nullopt;
    }
    const bool asked =
        question->prepared ? SQL_SUCCEEDED(SQLExecute(handle->get())) : start(*handle, question->text.toString()).ok();
    const std::optional<qint64> key = asked ? fetchedKey(*handle) : std::nullopt;
    if (!key || !SQL_SUCCEEDED(SQLFreeStmt(handle->get(), SQL_CLOSE)))
        return key;
    m_keyQuestion = std::move(handle);
    m_answered = std::chrono::steady_clock::now();
    return key;
}

} // namespace database
