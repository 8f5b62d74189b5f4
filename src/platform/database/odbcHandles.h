// The handles of the ODBC driver manager, freed by their owners' end, and the driver's own words about a failure. Only
// the .cpp files of this folder include this: the C headers of ODBC spread macros.
#pragma once

#include "platform/result.h"
#include <QString>
#include <QStringView>
#include <utility>

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace platform {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "texts go to the driver manager as UTF-16");

class OdbcHandle {
public:
    // Holds nothing where the driver manager refuses.
    OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent)
        : m_kind(kind) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &m_handle)))
            m_handle = SQL_NULL_HANDLE;
    }
    OdbcHandle(const OdbcHandle &) = delete;
    OdbcHandle &operator=(const OdbcHandle &) = delete;
    ~OdbcHandle() {
        if (m_handle)
            SQLFreeHandle(m_kind, m_handle);
    }

    SQLHANDLE get() const { return m_handle; }
    explicit operator bool() const { return m_handle != SQL_NULL_HANDLE; }

    // What the driver says about the last call on this handle: its native number (never 0) and its message.
    Failure failure() const;

private:
    SQLSMALLINT m_kind;
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

// An environment that speaks ODBC 3; it holds nothing where there is no driver manager.
class OdbcEnvironment : public OdbcHandle {
public:
    OdbcEnvironment()
        : OdbcHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
        if (*this)
            SQLSetEnvAttr(get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    }
};

// The driver manager takes texts that it promises not to change by a pointer that is not const.
inline SQLWCHAR *odbcText(const QString &text) {
    return reinterpret_cast<SQLWCHAR *>(
        const_cast<char16_t *>(text.utf16() ? reinterpret_cast<const char16_t *>(text.utf16()) : u""));
}

// A text in a buffer of `capacity` characters, up to its NUL: some drivers count the length they return in bytes.
QString fromOdbc(const SQLWCHAR *buffer, qsizetype capacity);

} // namespace platform
