// The handles of the ODBC driver manager, freed by their owners' end, and the texts that go through them. Only the .cpp
// files of this folder include this: the C headers of ODBC spread macros.
#pragma once

#include "database/servers.h"
#include "platform/result.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace database {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "texts go to the driver manager as UTF-16");

struct Fault : platform::Failure {
    QString state; // SQLSTATE
};

class OdbcHandle {
public:
    // Holds nothing where the driver manager refuses.
    OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);
    OdbcHandle(const OdbcHandle &) = delete;
    OdbcHandle &operator=(const OdbcHandle &) = delete;
    ~OdbcHandle();

    SQLHANDLE get() const { return m_handle; }
    explicit operator bool() const { return m_handle != SQL_NULL_HANDLE; }

    // What the driver says about the last call on this handle: its native number (never 0) and its message.
    Fault failure(TextForm form) const;

private:
    SQLSMALLINT m_kind;
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

// An environment that speaks ODBC 3; it holds nothing where there is no driver manager.
class OdbcEnvironment : public OdbcHandle {
public:
    OdbcEnvironment();
};

// Texts go out ended by a NUL and never with a length, so one that holds a NUL is refused as a whole; so is
// a connection text that is longer than the driver manager's room. No data is a success.
platform::Status odbcConnect(const OdbcHandle &connection, const QString &text, TextForm form);
platform::Status odbcExecute(const OdbcHandle &statement, const QString &text, TextForm form);
platform::Status odbcPrepare(const OdbcHandle &statement, const QString &text, TextForm form);

// The name of a column (from 1), its type and its size in characters; false where the driver fails.
struct ColumnFacts {
    QString name;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
};
bool odbcDescribe(SQLHSTMT statement, SQLUSMALLINT number, TextForm form, ColumnFacts &facts);

// The text in a driver's buffer of `capacity` characters, up to its NUL: not all drivers count the length that they
// return beside it in characters.
QString fromOdbc(const SQLWCHAR *buffer, qsizetype capacity);
QString fromOdbc(const SQLCHAR *buffer, qsizetype capacity);

} // namespace database
