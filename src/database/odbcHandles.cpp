#include "database/odbcHandles.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace database {

namespace {

// The size of a buffer as passed to the driver, without its last character, which always stays NUL.
template <class Character, size_t Size>
SQLSMALLINT room(const std::array<Character, Size> &) {
    return SQLSMALLINT(Size - 1);
}

// The driver manager takes texts that it does not change by a non-const pointer.
SQLWCHAR *wide(const QString &text) {
    return reinterpret_cast<SQLWCHAR *>(const_cast<ushort *>(text.utf16()));
}

SQLCHAR *narrow(const QByteArray &text) {
    return reinterpret_cast<SQLCHAR *>(const_cast<char *>(text.data()));
}

// Reads one diagnostic record; returns false if there are no more.
template <class Character, class Call>
bool diagnostic(Call call, SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record, Fault &fault) {
    std::array<Character, 8> state{};
    std::array<Character, 4096> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(call(kind, handle, record, state.data(), &native, message.data(), room(message), &length)))
        return false;
    fault.description = fromOdbc(message.data(), qsizetype(message.size())).trimmed();
    fault.state = fromOdbc(state.data(), qsizetype(state.size()));
    if (native != 0)
        fault.number = native;
    return true;
}

template <class Character, class Call>
bool describe(Call call, SQLHSTMT statement, SQLUSMALLINT number, ColumnFacts &facts) {
    std::array<Character, 512> name;
    name.front() = name.back() = 0;
    SQLSMALLINT length = 0, digits = 0, nullable = 0;
    const SQLRETURN described =
        call(statement, number, name.data(), room(name), &length, &facts.type, &facts.size, &digits, &nullable);
    facts.name = fromOdbc(name.data(), qsizetype(name.size()));
    return SQL_SUCCEEDED(described);
}

// The driver manager's pool copies a connection text to 1,024 bytes without a check.
constexpr qsizetype longestConnectionText = 1023;

template <class Character, class Call>
SQLRETURN connectBy(Call call, SQLHDBC connection, Character *text) {
    std::array<Character, 2048> completed{};
    SQLSMALLINT length = 0;
    return call(connection, nullptr, text, SQL_NTS, completed.data(), room(completed), &length, SQL_DRIVER_NOPROMPT);
}

// Every text passed to a driver goes through this function, NUL-terminated and without a length. Given a length,
// MariaDB's driver (3.1.15) counts the characters of a wide text wrongly (it takes 盘, 勘 and others for half of a
// pair) and then writes beyond its own buffer.
template <class WideCall, class NarrowCall>
platform::Status handOver(const OdbcHandle &handle, const QString &text, TextForm form, WideCall wideCall,
                          NarrowCall narrowCall) {
    if (text.contains(QChar(0)))
        return platform::Failure{u"内容中含有空字符（NUL），数据库不能接受"_s};
    const SQLRETURN result = form == TextForm::Wide ? wideCall(wide(text)) : narrowCall(narrow(text.toUtf8()));
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
        return platform::success();
    return handle.failure(form);
}

} // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent)
    : m_kind(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &m_handle)))
        m_handle = SQL_NULL_HANDLE;
}

OdbcHandle::~OdbcHandle() {
    if (m_handle)
        SQLFreeHandle(m_kind, m_handle);
}

Fault OdbcHandle::failure(TextForm form) const {
    Fault failure;
    const auto next = [&](SQLSMALLINT record) {
        return form == TextForm::Wide ? diagnostic<SQLWCHAR>(SQLGetDiagRecW, m_kind, m_handle, record, failure)
                                      : diagnostic<SQLCHAR>(SQLGetDiagRec, m_kind, m_handle, record, failure);
    };
    for (SQLSMALLINT record = 1; m_handle && failure.description.isEmpty() && next(record);)
        ++record;
    if (failure.description.isEmpty())
        failure.description = m_handle ? u"ODBC"_s : u"没有可用的ODBC驱动程序管理器"_s;
    return failure;
}

OdbcEnvironment::OdbcEnvironment()
    : OdbcHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    if (*this)
        SQLSetEnvAttr(get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
}

platform::Status odbcConnect(const OdbcHandle &connection, const QString &text, TextForm form) {
    if (text.toUtf8().size() > longestConnectionText)
        return platform::Failure{u"连接字符串太长，最多%1个字节"_s.arg(longestConnectionText)};
    return handOver(
        connection, text, form,
        [&](SQLWCHAR *given) { return connectBy<SQLWCHAR>(SQLDriverConnectW, connection.get(), given); },
        [&](SQLCHAR *given) { return connectBy<SQLCHAR>(SQLDriverConnect, connection.get(), given); });
}

platform::Status odbcExecute(const OdbcHandle &statement, const QString &text, TextForm form) {
    return handOver(
        statement, text, form, [&](SQLWCHAR *given) { return SQLExecDirectW(statement.get(), given, SQL_NTS); },
        [&](SQLCHAR *given) { return SQLExecDirect(statement.get(), given, SQL_NTS); });
}

platform::Status odbcPrepare(const OdbcHandle &statement, const QString &text, TextForm form) {
    return handOver(
        statement, text, form, [&](SQLWCHAR *given) { return SQLPrepareW(statement.get(), given, SQL_NTS); },
        [&](SQLCHAR *given) { return SQLPrepare(statement.get(), given, SQL_NTS); });
}

bool odbcDescribe(SQLHSTMT statement, SQLUSMALLINT number, TextForm form, ColumnFacts &facts) {
    return form == TextForm::Wide ? describe<SQLWCHAR>(SQLDescribeColW, statement, number, facts)
                                  : describe<SQLCHAR>(SQLDescribeCol, statement, number, facts);
}

QString fromOdbc(const SQLWCHAR *buffer, qsizetype capacity) {
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(buffer),
                              std::ranges::find(buffer, buffer + capacity, SQLWCHAR(0)) - buffer);
}

QString fromOdbc(const SQLCHAR *buffer, qsizetype capacity) {
    return QString::fromUtf8(reinterpret_cast<const char *>(buffer),
                             std::ranges::find(buffer, buffer + capacity, SQLCHAR(0)) - buffer);
}

} // namespace database
