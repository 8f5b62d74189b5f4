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
    const int row = m_next++;
    if (const QByteArrayView gbk = m_records->encodedBytes(row); !gbk.isEmpty())
        marc::showRecord(gbk, m_shown);
    else if (const marc::RawRecord record = m_records->record(row); !record.isEmpty())
        marc::showRecord(record, m_shown);
    else
        return {};
    ++m_proved;
    if (m_shown.damaged) { // nothing else can be checked
        remark(Kind::Directory, {}, 0, u"目次区损坏，字段读不出来"_s);
        return std::exchange(m_remarks, {});
    }
    if (m_shown.cutOff)
        remark(Kind::Directory, {}, 0, u"目次区的字段互相重叠，未能全部列出"_s);
    std::ranges::move(m_check.remarksOn(row, m_shown.rows), std::back_inserter(m_remarks));
    compare(identityOf(m_shown.rows));
    return std::exchange(m_remarks, {});
}

int BatchProof::total() const {
    int rows = m_records->rowCount();
    while (rows > 0 && !m_records->hasRecord(rows - 1)) // a list starts with empty rows
        --rows;
    return rows;
}

void BatchProof::remark(Kind kind, const QString &tag, int fieldRow, const QString &text) {
    m_remarks.emplace_back(m_next - 1, kind, tag, fieldRow, text);
}

void BatchProof::compare(const BookIdentity &identity) {
    int toldOf = SoughtBooks::none;
    for (const marc::IsbnKey isbn : identity.isbns) {
        const int first = m_books.recordWith(isbn);
        if (first == SoughtBooks::none || first == toldOf)
            continue;
        toldOf = first;
        remark(Kind::InBatch, u"010"_s, identity.fieldRow,
               u"与第 %1 条的ISBN相同：《%2》"_s.arg(QString::number(toldOf + 1), m_records->title(toldOf)));
    }
    if (!identity.isEmpty())
        m_books.add(m_next - 1, identity);
}

} // namespace batch
