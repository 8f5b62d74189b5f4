// Owners of the handles of the ODBC driver manager, and the conversion of texts passed to it. Only the .cpp files of
// this folder include this header, since the C headers of ODBC define many macros.
#pragma once

#include "database/servers.h"
#include "platform/result.h"

#ifdef Q_OS_WIN
#define SQL_NOUNICODEMAP // names without W are the narrow calls, as elsewhere
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace database {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "texts are passed to the driver manager as UTF-16");

struct Fault : platform::Failure {
    QString state; // SQLSTATE
};

class OdbcHandle {
public:
    // Null if the driver manager refuses the handle.
    OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);
    OdbcHandle(const OdbcHandle &) = delete;
    OdbcHandle &operator=(const OdbcHandle &) = delete;
    ~OdbcHandle();

    SQLHANDLE get() const { return m_handle; }
    explicit operator bool() const { return m_handle != SQL_NULL_HANDLE; }

    // Returns what the driver reports about the last call on this handle: its native error number (never 0) and its
    // message.
    Fault failure(TextForm form) const;

private:
    SQLSMALLINT m_kind;
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

// An ODBC 3 environment; null if there is no driver manager.
class OdbcEnvironment : public OdbcHandle {
public:
    OdbcEnvironment();
};

// Texts are passed NUL-terminated, without a length, so these functions fail for a text that contains a NUL.
// odbcConnect() also fails for a connection text longer than the driver manager's buffer. SQL_NO_DATA is a success.
platform::Status odbcConnect(const OdbcHandle &connection, const QString &text, TextForm form);
platform::Status odbcExecute(const OdbcHandle &statement, const QString &text, TextForm form);
platform::Status odbcPrepare(const OdbcHandle &statement, const QString &text, TextForm form);

// Gets the name of a column (numbered from 1), its type and its size in characters. Returns false if the driver fails.
struct ColumnFacts {
    QString name;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
};
bool odbcDescribe(SQLHSTMT statement, SQLUSMALLINT number, TextForm form, ColumnFacts &facts);

// Returns the text in a driver's buffer of `capacity` characters, up to its NUL: not all drivers return its length in
// characters.
QString fromOdbc(const SQLWCHAR *buffer, qsizetype capacity);
QString fromOdbc(const SQLCHAR *buffer, qsizetype capacity);

} // namespace database
