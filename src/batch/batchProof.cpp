#include "batch/batchProof.h"
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

BatchProof::BatchProof(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof, schema::SchemaInForce *schema)
    : m_records(std::move(records))
    , m_check(std::move(proof), schema) {}

std::vector<Remark> BatchProof::step() {
    m_remarks.clear();
    const int row = m_next++;
    const marc::RawRecord record = m_records->record(row);
    if (record.isEmpty())
        return {};
    ++m_proved;
    const marc::ShownRecord shown = marc::showRecord(record);
    if (shown.damaged) { // nothing else can be checked
        remark(Kind::Directory, {}, 0, u"目次区损坏，字段读不出来"_s);
        return std::exchange(m_remarks, {});
    }
    if (shown.cutOff)
        remark(Kind::Directory, {}, 0, u"目次区的字段互相重叠，未能全部列出"_s);
    std::ranges::move(m_check.remarksOn(row, shown.rows), std::back_inserter(m_remarks));
    compare(identityOf(shown.rows));
    return std::exchange(m_remarks, {});
}

int BatchProof::total() const {
    int rows = m_records->rowCount();
    while (rows > 0 && m_records->record(rows - 1).isEmpty()) // a list starts with empty rows
        --rows;
    return rows;
}

void BatchProof::remark(Kind kind, const QString &tag, int fieldRow, const QString &text) {
    m_remarks.emplace_back(m_next - 1, kind, tag, fieldRow, text);
}

void BatchProof::compare(BookIdentity identity) {
    const int row = m_next - 1;
    int toldOf = -1;
    for (const marc::IsbnKey isbn : identity.isbns) {
        const auto first = m_firstOf.constFind(isbn);
        if (first == m_firstOf.constEnd()) {
            m_firstOf.insert(isbn, row);
        } else if (*first != toldOf) {
            toldOf = *first;
            remark(Kind::InBatch, identity.tag, identity.fieldRow,
                   u"与第 %1 条的ISBN相同：《%2》"_s.arg(QString::number(toldOf + 1), m_records->title(toldOf)));
        }
    }
    if (!identity.isEmpty())
        m_sought.push_back({row, std::move(identity)});
}

} // namespace batch
