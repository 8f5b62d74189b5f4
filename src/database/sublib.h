// The state that all database work shares, and the pair of helpers by which windows open and drop a session.
#pragma once

#include "database/connection.h"
#include "platform/host.h"
#include <optional>

namespace database {

// The text is filled in once at start-up and read-only afterwards.
struct SessionState {
    LinkPool &links;
    QString connectionString;
};

// An open session, or none. Owned by the procedure that opens it.
using DbSession = std::optional<Connection>;

// Whether it is open; if not, after a critical box "连接数据库失败" titled "错误提示", and the session is empty.
bool openConnection(DbSession &conn, const SessionState &state, platform::Host &host);

// Ends the session by release, which cannot fail: a link that no longer works is replaced at its next use.
void closeConnection(DbSession &conn);

} // namespace database
