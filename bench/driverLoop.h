// Runs statements without the program's own layers: one open connection of the driver manager, one statement handle,
// texts in UTF-8.
#pragma once

#include <QByteArray>
#include <array>
#include <sql.h>
#include <sqlext.h>

namespace bench {

class DriverLoop {
public:
    explicit DriverLoop(const QString &connectionString);
    DriverLoop(const DriverLoop &) = delete;
    DriverLoop &operator=(const DriverLoop &) = delete;
    ~DriverLoop();

    bool isOpen() const { return m_open; }
    bool execute(const QByteArray &statement);
    // Binds the first `columns` columns for all following selects.
    void bind(int columns);
    // Runs the select and fetches its first row.
    bool fetchOne(const QByteArray &statement);
    // Runs the select, fetches all rows and returns their number.
    int fetchAll(const QByteArray &statement);
    // Returns the first column of the last fetched row; it must be bound.
    QByteArray firstValue() const { return m_values[0].data(); }

private:
    SQLHENV m_environment = SQL_NULL_HANDLE;
    SQLHDBC m_connection = SQL_NULL_HANDLE;
    SQLHSTMT m_statement = SQL_NULL_HANDLE;
    bool m_open = false;
    std::array<std::array<char, 1024>, 20> m_values{};
    std::array<SQLLEN, 20> m_sizes{};
};

} // namespace bench
