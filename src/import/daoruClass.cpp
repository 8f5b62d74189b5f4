#include "import/daoruClass.h"
#include "import/recordRow.h"
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace importing {

namespace {

// Returns the key of the record's row if it is the only row after the earlier keys. If there are other rows, another
// user is importing too, and a row with the same record may be theirs.
std::optional<qint64> keyInStore(const marc::RawRecord &marc, database::Connection &connection,
                                 const QList<qint64> &earlier) {
    const auto last = std::ranges::max_element(earlier);
    if (last == earlier.end())
        return std::nullopt;
    const auto rows = connection.query(u"select top 2 zskid,marc from taolutable where zskid>"_s +
                                       QString::number(*last) + u" order by zskid");
    if (!rows || rows.value()->rowCount() != 1 || rows.value()->text(0, 1) != marc)
        return std::nullopt;
    bool isNumber = false;
    const qint64 key = rows.value()->text(0, 0).toLongLong(&isNumber);
    return isNumber ? std::optional(key) : std::nullopt;
}

Daoru withoutAnswer(const QString &fault, const std::optional<qint64> &key) {
    if (key)
        return {.wentIn = true, .key = key};
    return {.fault = fault + u"；没有收到应答，可能已经入库，请先查重"};
}

} // namespace

Daoru daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::RunBoxes &boxes,
                  const QList<qint64> &earlier) {
    if (marc.isEmpty())
        return {};
    const std::optional<RecordRow> row = recordRow(marc);
    if (!row) {
        const QString damaged = u"当前marc数据地址目次区数据出现错误！"_s;
        boxes.tell(damaged);
        return {.fault = damaged};
    }
    auto connection = database::Connection::open(state.links, state.connectionString);
    if (!connection) {
        boxes.tell(u"【"_s + connection.failure().description + u"】", u"系统操作提示"_s);
        return {.fault = connection.failure().description};
    }
    const auto in = connection.value().insert(insertStatement(*row), u"zskid"_s);
    if (!in) {
        const QString fault = in.failure().description;
        return connection.value().lost() ? withoutAnswer(fault, keyInStore(marc, connection.value(), earlier))
                                         : Daoru{.fault = fault};
    }
    return {.wentIn = true, .key = in.value() ? in.value() : keyInStore(marc, connection.value(), earlier)};
}

} // namespace importing
