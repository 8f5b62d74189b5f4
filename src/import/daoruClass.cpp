#include "import/daoruClass.h"
#include "import/recordRow.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace importing {

Daoru daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::Host &host) {
    if (marc.isEmpty())
        return {};
    const std::optional<RecordRow> row = recordRow(marc);
    if (!row) {
        const QString damaged = u"当前marc数据地址目次区数据出现错误！"_s;
        host.tell(damaged);
        return {.fault = damaged};
    }
    auto connection = database::Connection::open(state.links, state.connectionString);
    if (!connection) {
        host.tell(u"【"_s + connection.failure().description + u"】", u"系统操作提示"_s);
        return {.fault = connection.failure().description};
    }
    if (const platform::Status in = connection.value().execute(insertStatement(*row)); !in)
        return {.fault = in.failure().description};
    return {.wentIn = true, .key = connection.value().lastKey()};
}

} // namespace importing
