#include "batch/formatProof.h"
#include "schema/ruleParser.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace batch {

using schema::Check;

namespace {

// Returns the name of the function that rules of the schema call for this number, empty for other kinds of remarks.
QStringView numberOf(Kind kind) {
    return kind == Kind::Isbn ? u"isbn" : kind == Kind::Issn ? u"issn" : u"";
}

} // namespace

FormatProof::FormatProof(schema::SchemaInForce *source)
    : m_schema(source ? source->schema() : nullptr) {
    if (m_schema) {
        m_validator.emplace(m_schema, QDate::currentDate());
        m_validator->setChecks(source->checks());
    }
    if (source)
        m_complaint = source->complaint();
}

// Returns whether the remark, of another proof, reports the same fault.
bool FormatProof::isReportedBy(const Remark &remark, const Remark &finding) const {
    if (remark.tag != finding.tag)
        return false;
    switch (finding.check) {
    case Check::MissingField:
        return remark.kind == Kind::Required;
    case Check::NonrepeatableField:
        return remark.kind == Kind::Repeated;
    case Check::MissingSubfield:
    case Check::NonrepeatableSubfield:
        return remark.kind == Kind::Template;
    case Check::ExternalRule: {
        const schema::Predicate predicate = m_schema->rules[size_t(finding.rule)].consequence.predicate;
        return predicate && predicate == schema::predicateNamed(numberOf(remark.kind)) &&
               remark.fieldRow == finding.fieldRow;
    }
    default:
        return false;
    }
}

void FormatProof::addRemarks(int record, const marc::FieldRows &rows, std::vector<Remark> &remarks) {
    if (!m_validator)
        return;
    m_view.read(rows);
    const auto others = qsizetype(remarks.size());
    for (const schema::Finding &finding : m_validator->validate(m_view)) {
        Remark remark(record, finding);
        const auto end = remarks.begin() + others;
        const auto known =
            std::find_if(remarks.begin(), end, [&](const Remark &other) { return isReportedBy(other, remark); });
        if (known == end)
            remarks.push_back(std::move(remark));
        else if (known->kind == Kind::Repeated)
            known->level = remark.level;
    }
}

} // namespace batch
