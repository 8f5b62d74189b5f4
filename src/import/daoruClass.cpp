#include "import/daoruClass.h"
#include "import/recordRow.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace importing {

bool daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::Host &host) {
    if (marc.isEmpty())
        return false;
    const std::optional<RecordRow> row = recordRow(marc);
    if (!row) {
        host.tell(u"当前marc数据地址目次区数据出现错误！"_s);
        return false;
    }
    auto connection = database::Connection::open(state.links, state.connectionString);
    if (!connection) {
        host.tell(u"【"_s + connection.failure().description + u"】", u"系统操作提示"_s);
        return false;
    }
    return connection.value().execute(insertStatement(*row)).ok();
}

} // namespace importing
