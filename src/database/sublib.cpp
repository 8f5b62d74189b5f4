#include "database/sublib.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace database {

bool openConnection(DbSession &conn, const SessionState &state, platform::Host &host) {
    conn.reset();
    platform::Result<Connection> opened = Connection::open(state.links, state.connectionString);
    if (!opened) {
        host.tell(u"连接数据库失败"_s, u"错误提示"_s, platform::Icon::Critical);
        return false;
    }
    conn.emplace(std::move(opened).value());
    return true;
}

void closeConnection(DbSession &conn) {
    conn.reset();
}

} // namespace database
