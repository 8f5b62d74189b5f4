// The state shared by all database work, and the two helpers by which windows open and close a session.
#pragma once

#include "database/connection.h"
#include "platform/host.h"
#include <optional>

namespace database {

// The connection text is set once at start-up and read-only afterwards.
struct SessionState {
    LinkPool &links;
    QString connectionString;
};

// An open session, or none. Owned by the procedure that opens it.
using DbSession = std::optional<Connection>;

// Opens the session and returns true. Otherwise shows a critical box "连接数据库失败" titled "错误提示", leaves the
// session empty and returns false.
bool openConnection(DbSession &conn, const SessionState &state, platform::Host &host);

// Closes the session by releasing its link, which cannot fail: a link that no longer works is replaced at its next use.
void closeConnection(DbSession &conn);

} // namespace database
