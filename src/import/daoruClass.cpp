#include "import/daoruClass.h"
#include "import/recordRow.h"

using namespace Qt::StringLiterals;

namespace importing {

QString daoruRecord(const marc::RawRecord &marc, const platform::SessionState &state, platform::Host &host) {
    if (marc.isEmpty())
        return {};
    const std::optional<RecordRow> row = recordRow(marc);
    if (!row) {
        host.tell(u"当前marc数据地址目次区数据出现错误！"_s, u"操作提示"_s);
        return {};
    }
    auto connection = platform::Connection::open(state.connectionString);
    if (!connection) {
        host.tell(u"【"_s + connection.failure().description + u"】", u"系统操作提示"_s);
        return {};
    }
    return connection.value().execute(insertStatement(*row)) ? u"yes"_s : QString();
}

} // namespace importing
