// Inserts that report the key which the server gave. An import makes one for each record, so no call is made that is
// not needed.
#include "database/link.h"
#include "database/sqlDialect.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace database {

namespace {

std::optional<qint64> fetchedKey(const OdbcHandle &handle) {
    SQLBIGINT key = 0;
    const bool fetched = SQL_SUCCEEDED(SQLFetch(handle.get())) &&
                         SQL_SUCCEEDED(SQLGetData(handle.get(), 1, SQL_C_SBIGINT, &key, sizeof(key), nullptr));
    return fetched && key != 0 ? std::optional(qint64(key)) : std::nullopt;
}

// A batch gives a result for each of its statements, and for those of a trigger: the key is in the last one.
platform::Result<std::optional<qint64>> keyOfLastResult(const OdbcHandle &handle, TextForm form) {
    std::optional<qint64> key;
    for (SQLRETURN more = SQL_SUCCESS; more != SQL_NO_DATA; more = SQLMoreResults(handle.get())) {
        if (!SQL_SUCCEEDED(more))
            return handle.failure(form);
        SQLSMALLINT columns = 0;
        if (SQL_SUCCEEDED(SQLNumResultCols(handle.get(), &columns)) && columns > 0)
            key = fetchedKey(handle);
    }
    return key;
}

} // namespace

// An insert is sent once. Only a server that says that it does not understand the form that returns the key, be it an
// old one or a table that is a view, has done nothing by then: it gets the plain form, then and for the link's time.
platform::Result<std::optional<qint64>> Link::insert(const QString &statement, const QString &keyColumn) {
    if (!m_server->key.insert.isEmpty() && m_returning != Returning::Unknown) {
        const QString spelled = rewrite(statement, m_server->server, m_tables);
        auto returned = insertReturning(m_server->key.insert.toString().arg(spelled, keyColumn));
        if (returned || m_returning != Returning::Unknown)
            return returned;
    }
    if (const platform::Status in = execute(statement); !in)
        return in.failure();
    return lastKey();
}

platform::Result<std::optional<qint64>> Link::insertReturning(const QString &statement) {
    const CallLimit::Call call(*m_calls, m_limits.silence());
    auto handle = statementHandle();
    if (const platform::Status ran = start(*handle, statement); !ran) {
        if (m_returning == Returning::Untried && !isUnderstood(handle->failure(m_driver->calls)))
            m_returning = Returning::Unknown;
        return told(ran.failure());
    }
    auto key = keyOfLastResult(*handle, m_driver->calls);
    if (!key)
        return told(key.failure());
    m_returning = Returning::Understood;
    wentWell(std::move(handle));
    return key;
}

bool Link::isUnderstood(const Fault &fault) const {
    const auto isFault = [&fault](QStringView one) {
        return !one.isEmpty() && (one == fault.state || one == QString::number(fault.number));
    };
    return std::ranges::none_of(m_server->key.notUnderstood, isFault);
}

// Of the last insert over this link.
std::optional<qint64> Link::lastKey() {
    const QString question = m_server->key.question.toString();
    if (question.isEmpty())
        return std::nullopt;
    const CallLimit::Call call(*m_calls, m_limits.login);
    m_answered.reset();
    auto handle = std::exchange(m_keyQuestion, nullptr);
    const bool prepared = m_server->key.prepared;
    if (!handle) {
        handle = std::make_unique<OdbcHandle>(SQL_HANDLE_STMT, m_connection.get());
        if (!*handle || (prepared && !odbcPrepare(*handle, question, m_driver->calls)))
            return std::nullopt;
    }
    const bool asked = prepared ? SQL_SUCCEEDED(SQLExecute(handle->get())) : start(*handle, question).ok();
    const std::optional<qint64> key = asked ? fetchedKey(*handle) : std::nullopt;
    if (!key || !SQL_SUCCEEDED(SQLFreeStmt(handle->get(), SQL_CLOSE)))
        return key;
    m_keyQuestion = std::move(handle);
    m_answered = std::chrono::steady_clock::now();
    return key;
}

} // namespace database
