#include "platform/database/sublib.h"

namespace platform {

using namespace Qt::StringLiterals;

int openConnection(DbSession &conn, const SessionState &state, Host &host) {
    conn.reset();
    Result<Connection> opened = Connection::open(state.connectionString);
    if (!opened) {
        host.tell(u"连接数据库失败"_s, u"错误提示"_s, Icon::Critical);
        return -1;
    }
    conn.emplace(std::move(opened).value());
    return 0;
}

int closeConnection(DbSession &conn) {
    conn.reset(); // a release cannot fail: a link that no longer works is replaced at its next use
    return 0;
}

} // namespace platform
