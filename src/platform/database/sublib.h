// The state that all database work shares, and the pair of helpers by which windows open and drop a session.
#pragma once

#include "platform/database/connection.h"
#include "platform/host.h"
#include <optional>

namespace platform {

// Filled once at start-up; read-only afterwards.
struct SessionState {
    QString connectionString;
};

// An open session, or none. Owned by the procedure that opens it.
using DbSession = std::optional<Connection>;

// 0 on success. -1 on failure, after a critical box "连接数据库失败" titled "错误提示"; the session then is empty.
int openConnection(DbSession &conn, const SessionState &state, Host &host);

// Ends the session by release; the number of the error seen while releasing, 0 when none.
int closeConnection(DbSession &conn);

} // namespace platform
