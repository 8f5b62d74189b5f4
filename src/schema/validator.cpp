#include "schema/validator.h"
#include <bitset>
#include <utility>

namespace schema {

namespace {

constexpr qsizetype keptOfValue = 40; // characters of a value that a finding keeps
constexpr size_t mostFindings = 1000; // about one record

} // namespace

Validator::Validator(std::shared_ptr<const Schema> schema, const QDate &today)
    : m_schema(std::move(schema))
    , m_rules(m_schema->rules, today)
    , m_counts(tagCount) {}

const std::vector<Finding> &Validator::validate(const RecordView &record) {
    m_findings.clear();
    std::ranges::fill(m_counts, 0);
    const bool hasLeader = !record.fields().empty() && record.fields()[0].tag == leaderTag;
    m_types = hasLeader ? recordTypes(record.fields()[0].value) : 0;
    for (const Field &field : record.fields())
        checkField(record, field);
    checkMissing();
    if (isOn(Check::ExternalRule))
        m_rules.run(record, m_types, isOn(Check::GivenUp), m_findings);
    return m_findings;
}

void Validator::report(Check check, const Place &place, QStringView value, qint16 start, qint16 end) {
    if (!isOn(check) || m_findings.size() >= mostFindings)
        return;
    m_findings.push_back({.level = levelOf(check),
                          .check = check,
                          .tag = m_tag,
                          .occurrence = m_occurrence,
                          .indicator = place.indicator,
                          .code = place.code,
                          .start = start,
                          .end = end,
                          .element = place.element,
                          .value = value.left(keptOfValue).toString()});
}

void Validator::checkField(const RecordView &record, const Field &field) {
    const Place place{.element = field.element};
    const FieldRules *rules = m_schema->field(field.tag);
    m_tag = qint16(field.tag);
    m_occurrence = field.tag == unknownTag ? 1 : ++m_counts[size_t(field.tag)];
    if (!rules) {
        if (field.tag != leaderTag)
            report(Check::UndefinedField, place, field.tagText);
        return;
    }
    if (rules->deprecated)
        report(Check::DeprecatedField, place);
    if (m_occurrence > 1 && !rules->repeatable)
        report(Check::NonrepeatableField, place);
    if (field.tag == leaderTag || field.tag < firstDataTag) {
        if (!isOn(Check::InvalidFieldValue))
            return;
        checkValue(field.value, *rules, place);
        for (const TypedRules &typed : rules->byType) {
            if (isOn(Check::RecordTypes) && (typed.types & m_types))
                checkValue(field.value, typed, place);
        }
        return;
    }
    if (isOn(Check::InvalidIndicator))
        checkIndicators(field, *rules);
    if (rules->hasSubfields)
        checkSubfields(record.subfields(field), *rules, field);
}

// Reports one fault for an indicator that violates its pattern or its list of codes, or both.
void Validator::checkIndicators(const Field &field, const FieldRules &rules) {
    for (const int index : {0, 1}) {
        const auto &allowed = rules.indicators[index];
        const char16_t sign = field.indicators[size_t(index)];
        const QStringView value(&sign, sign ? 1 : 0);
        if (!allowed)
            continue;
        const bool matches = !allowed->pattern || allowed->pattern->match(value) == Matching::Yes;
        const bool listed = !allowed->codes || !*allowed->codes || (*allowed->codes)->contains(value);
        if (!matches || !listed)
            report(Check::InvalidIndicator, {.indicator = qint8(index + 1), .element = field.element}, value);
    }
}

void Validator::checkSubfields(std::span<const Subfield> subfields, const FieldRules &rules, const Field &field) {
    std::bitset<128> seen;
    for (const Subfield &subfield : subfields) {
        const Place place{.code = subfield.code, .element = subfield.element};
        const SubfieldRules *own = rules.subfield(subfield.code);
        if (!own) {
            report(Check::UndefinedSubfield, place, subfield.value);
            continue;
        }
        if (own->deprecated)
            report(Check::DeprecatedSubfield, place);
        if (seen.test(subfield.code) && !own->repeatable)
            report(Check::NonrepeatableSubfield, place, subfield.value);
        seen.set(subfield.code);
        if (isOn(Check::InvalidSubfieldValue))
            checkValue(subfield.value, *own, place);
    }
    for (const SubfieldRules &own : rules.subfields) {
        if (own.required && !seen.test(own.code))
            report(Check::MissingSubfield, {.code = own.code, .element = field.element});
    }
}

void Validator::checkMissing() {
    for (const int index : m_schema->required) {
        const FieldRules &rules = m_schema->fields[size_t(index)];
        if (m_counts[size_t(rules.tag)] > 0)
            continue;
        m_tag = qint16(rules.tag);
        m_occurrence = 0;
        report(Check::MissingField, {});
    }
}

void Validator::checkValue(QStringView value, const ValueRules &rules, const Place &place) {
    if (rules.pattern) {
        const Matching matching = rules.pattern->match(value);
        if (matching != Matching::Yes)
            report(matching == Matching::No ? Check::PatternMismatch : Check::GivenUp, place, value);
    }
    if (!rules.positions.empty())
        checkPositions(value, rules, place);
    checkCodes(value, rules.codes, place, -1);
}

// If a value is too short, only the first missing position is reported; the positions after it are not checked.
void Validator::checkPositions(QStringView value, const ValueRules &rules, const Place &place) {
    for (const PositionRules &position : rules.positions) {
        const qint16 start = qint16(position.start), end = qint16(position.end);
        if (value.size() <= position.end) {
            report(Check::InvalidPosition, place, value, start, end);
            return;
        }
        const QStringView part = value.sliced(position.start, position.end - position.start + 1);
        if (position.pattern) {
            const Matching matching = position.pattern->match(part);
            if (matching != Matching::Yes)
                report(matching == Matching::No ? Check::PatternMismatch : Check::GivenUp, place, part, start, end);
        }
        checkCodes(part, position.codes, place, start);
        checkFlags(part, position.flags, place, start);
    }
}

// `start` is -1 for a value as a whole.
void Validator::checkCodes(QStringView value, const CodeListUse &codes, const Place &place, qint16 start) {
    const qint16 end = start < 0 ? start : qint16(start + value.size() - 1);
    if (!codes) {
        report(Check::UndefinedCodelist, place, value, start, end);
    } else if (*codes && !(*codes)->contains(value)) {
        report(Check::UndefinedCode, place, value, start, end);
    } else if (*codes && (*codes)->isDeprecated(value)) {
        report(Check::DeprecatedCode, place, value, start, end);
    }
}

void Validator::checkFlags(QStringView value, const CodeListUse &flags, const Place &place, qint16 start) {
    if (!flags) {
        report(Check::UndefinedCodelist, place, value, start, qint16(start + value.size() - 1));
        return;
    }
    if (!*flags || (*flags)->isEmpty())
        return;
    const qsizetype length = (*flags)->length();
    for (qsizetype at = 0; at < value.size(); at += length) {
        const QStringView flag = value.sliced(at, qMin(length, value.size() - at));
        if (!(*flags)->contains(flag))
            report(Check::InvalidFlag, place, flag, qint16(start + at), qint16(start + at + flag.size() - 1));
    }
}

} // namespace schema
