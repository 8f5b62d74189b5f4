#include "batch/recordCheck.h"
#include "batch/bookIdentity.h"
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

RecordCheck::RecordCheck(ProofOne proof, schema::SchemaInForce *source)
    : m_proof(std::move(proof))
    , m_source(source) {
    renew();
}

void RecordCheck::renew() {
    m_format.emplace(m_source);
    if (m_source)
        m_checks = m_source->checks();
}

std::vector<Remark> RecordCheck::remarksOn(int record, const marc::FieldRows &rows) {
    m_record = record;
    takeFaults(rows);
    checkNumbers(rows);
    if (const QString complaint = m_format->takeComplaint(); !complaint.isEmpty())
        m_remarks.emplace_back(-1, Kind::Unchecked, QString(), 0, complaint);
    m_format->addRemarks(record, rows, m_remarks);
    return std::exchange(m_remarks, {});
}

void RecordCheck::remark(Kind kind, const QString &tag, int fieldRow, const QString &text) {
    m_remarks.emplace_back(m_record, kind, tag, fieldRow, text);
}

void RecordCheck::takeFaults(const marc::FieldRows &rows) {
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

void RecordCheck::checkNumbers(const marc::FieldRows &rows) {
    for (const qsizetype element : subfieldsOf(rows, u"010", u"$a"))
        if (const auto fault = marc::isbn13Fault(rows[element].value))
            remark(Kind::Isbn, u"010"_s, gridRow(element), *fault);
    for (const qsizetype element : subfieldsOf(rows, u"011", u"$a"))
        if (const auto fault = marc::issnFault(rows[element].value))
            remark(Kind::Issn, u"011"_s, gridRow(element), *fault);
}

} // namespace batch
