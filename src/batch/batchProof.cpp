#include "batch/batchProof.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

Kind kindOf(proof::FaultKind kind) {
    switch (kind) {
    case proof::FaultKind::Missing:
        return Kind::Required;
    case proof::FaultKind::Repeated:
        return Kind::Repeated;
    case proof::FaultKind::Subfield:
        return Kind::Template;
    default:
        return Kind::Isbn;
    }
}

} // namespace

BatchProof::BatchProof(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof, schema::SchemaInForce *schema)
    : m_records(std::move(records))
    , m_proof(std::move(proof))
    , m_format(schema) {}

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
    takeFaults(shown.rows);
    checkNumbers(shown.rows);
    checkFormat(shown.rows);
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

void BatchProof::takeFaults(const marc::FieldRows &rows) {
    const proof::RecordFaults found = m_proof(rows);
    const QString complaint = found.unread ? found.unread->description : found.complaint;
    if (!complaint.isEmpty() && complaint != m_complaint) {
        m_complaint = complaint;
        m_remarks.emplace_back(-1, Kind::Unchecked, QString(), 0, m_complaint);
    }
    for (const auto *faults : {&found.structural, &found.byTemplate, &found.isbn})
        for (const proof::Fault &fault : *faults) {
            const Kind kind = kindOf(fault.kind);
            // The ISBN proof knows only the form with ten digits and reports every ISBN with thirteen.
            if (kind == Kind::Isbn && fault.element && marc::isIsbn13(rows[*fault.element].value))
                continue;
            remark(kind, fault.tag, fault.element ? gridRow(*fault.element) : 0, fault.words.simplified());
        }
}

void BatchProof::checkNumbers(const marc::FieldRows &rows) {
    for (const qsizetype element : subfieldsOf(rows, u"010", u"$a"))
        if (const auto fault = marc::isbn13Fault(rows[element].value))
            remark(Kind::Isbn, u"010"_s, gridRow(element), *fault);
    for (const qsizetype element : subfieldsOf(rows, u"011", u"$a"))
        if (const auto fault = marc::issnFault(rows[element].value))
            remark(Kind::Issn, u"011"_s, gridRow(element), *fault);
}

void BatchProof::checkFormat(const marc::FieldRows &rows) {
    if (const QString complaint = m_format.takeComplaint(); !complaint.isEmpty())
        m_remarks.emplace_back(-1, Kind::Unchecked, QString(), 0, complaint);
    m_format.addRemarks(m_next - 1, rows, m_remarks);
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
