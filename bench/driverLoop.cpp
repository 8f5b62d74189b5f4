#include "driverLoop.h"
#include <QString>

namespace bench {

namespace {

SQLCHAR *bytes(const QByteArray &text) {
    return reinterpret_cast<SQLCHAR *>(const_cast<char *>(text.data()));
}

} // namespace

DriverLoop::DriverLoop(const QString &connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    m_open = SQL_SUCCEEDED(SQLDriverConnect(m_connection, nullptr, bytes(connectionString.toUtf8()), SQL_NTS, nullptr,
                                            0, nullptr, SQL_DRIVER_NOPROMPT)) &&
             SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement));
}

DriverLoop::~DriverLoop() {
    if (m_statement)
        SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
    if (m_open)
        SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

bool DriverLoop::execute(const QByteArray &statement) {
    const bool done = SQL_SUCCEEDED(SQLExecDirect(m_statement, bytes(statement), SQLINTEGER(statement.size())));
    SQLFreeStmt(m_statement, SQL_CLOSE);
    return done;
}

void DriverLoop::bind(int columns) {
    for (size_t i = 0; i < size_t(columns); ++i)
        SQLBindCol(m_statement, SQLUSMALLINT(i + 1), SQL_C_CHAR, m_values[i].data(), SQLLEN(m_values[i].size()),
                   &m_sizes[i]);
}

int DriverLoop::fetchAll(const QByteArray &statement) {
    int rows = 0;
    if (SQL_SUCCEEDED(SQLExecDirect(m_statement, bytes(statement), SQLINTEGER(statement.size()))))
        while (SQL_SUCCEEDED(SQLFetch(m_statement)))
            ++rows;
    SQLFreeStmt(m_statement, SQL_CLOSE);
    return rows;
}

bool DriverLoop::fetchOne(const QByteArray &statement) {
    const bool done = SQL_SUCCEEDED(SQLExecDirect(m_statement, bytes(statement), SQLINTEGER(statement.size()))) &&
                      SQL_SUCCEEDED(SQLFetch(m_statement));
    SQLFreeStmt(m_statement, SQL_CLOSE);
    return done;
}

} // namespace bench
