#include "batch/formatProof.h"
#include "batch/bookIdentity.h"
#include <algorithm>

namespace batch {

namespace {

using schema::Check;

// Returns whether the remark, of another proof, reports the same fault.
bool isReportedBy(const Remark &remark, const Remark &finding, Check check) {
    if (remark.tag != finding.tag)
        return false;
    switch (check) {
    case Check::MissingField:
        return remark.kind == Kind::Required;
    case Check::NonrepeatableField:
        return remark.kind == Kind::Repeated;
    case Check::MissingSubfield:
    case Check::NonrepeatableSubfield:
        return remark.kind == Kind::Template;
    default:
        return false;
    }
}

} // namespace

FormatProof::FormatProof(schema::SchemaInForce *source)
    : m_tags(schema::tagCount) {
    if (!source)
        return;
    if (auto schema = source->schema())
        m_validator.emplace(std::move(schema), QDate::currentDate());
    m_complaint = source->complaint();
}

std::vector<Remark> FormatProof::remarksOn(const marc::FieldRows &rows, const std::vector<Remark> &others) {
    std::vector<Remark> remarks;
    if (!m_validator)
        return remarks;
    m_view.read(rows);
    for (const schema::Finding &finding : m_validator->validate(m_view)) {
        Remark remark = remarkOf(finding);
        const bool known = std::ranges::any_of(
            others, [&](const Remark &other) { return isReportedBy(other, remark, finding.check); });
        if (!known)
            remarks.push_back(std::move(remark));
    }
    return remarks;
}

Remark FormatProof::remarkOf(const schema::Finding &finding) {
    const schema::Schema &schema = m_validator->schema();
    const bool ofRule = finding.rule >= 0;
    Remark remark{.kind = ofRule ? Kind::Rule : Kind::Format,
                  .fieldRow = finding.element >= 0 ? gridRow(finding.element) : 0,
                  .text = wordsOf(finding, schema),
                  .level = finding.level,
                  .check = finding.check,
                  .rule = finding.rule};
    if (finding.tag == schema::unknownTag) {
        remark.tag = finding.value;
    } else {
        QString &tag = m_tags[size_t(finding.tag)];
        if (tag.isEmpty())
            tag = finding.tag == schema::leaderTag ? QStringLiteral("000") : schema::tagName(finding.tag);
        remark.tag = tag;
    }
    return remark;
}

} // namespace batch
