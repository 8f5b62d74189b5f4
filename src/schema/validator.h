// Validates records against a schema. One object validates many records, one after the other; it keeps its buffers.
#pragma once

#include "schema/finding.h"
#include "schema/ruleRun.h"
#include <QDate>
#include <memory>

namespace schema {

class Validator {
public:
    // `today` is the day with which rules compare dates.
    Validator(std::shared_ptr<const Schema> schema, const QDate &today);

    void setChecks(Checks checks) { m_checks = checks; }
    const Schema &schema() const { return *m_schema; }

    // Returns the findings of the record, valid until the next call: those of its fields in their order, then missing
    // fields, then those of rules across fields in the order of the schema.
    const std::vector<Finding> &validate(const RecordView &record);

private:
    // The part of a field that a value belongs to.
    struct Place {
        qint8 indicator = 0;
        char16_t code = noCode;
        int element = -1;
    };

    void checkField(const RecordView &record, const Field &field);
    void checkIndicators(const Field &field, const FieldRules &rules);
    void checkSubfields(std::span<const Subfield> subfields, const FieldRules &rules, const Field &field);
    void checkMissing();
    void checkValue(QStringView value, const ValueRules &rules, const Place &place);
    void checkPositions(QStringView value, const ValueRules &rules, const Place &place);
    void checkCodes(QStringView value, const CodeListUse &codes, const Place &place, qint16 start);
    void checkFlags(QStringView value, const CodeListUse &flags, const Place &place, qint16 start);
    void report(Check check, const Place &place, QStringView value = {}, qint16 start = -1, qint16 end = -1);
    bool isOn(Check check) const { return m_checks.test(size_t(check)); }

    std::shared_ptr<const Schema> m_schema;
    RuleRun m_rules;
    Checks m_checks = allChecks;
    std::vector<Finding> m_findings;
    std::vector<qint16> m_counts; // by tag, in the current record
    qint16 m_tag = unknownTag;    // current field
    qint16 m_occurrence = 0;
    RecordTypes m_types = 0;
};

} // namespace schema
