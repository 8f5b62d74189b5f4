// Checks records against the rules across fields, in bounded time.
#pragma once

#include "schema/finding.h"
#include "schema/valueWalk.h"

namespace schema {

class RuleRun {
public:
    // The rules must outlive this object.
    RuleRun(const std::vector<Rule> &rules, const QDate &today);

    // Adds one finding for each rule that the record, or one of its fields, violates, and, if `reportGivenUp`, for each
    // rule that takes too long on it.
    void run(const RecordView &record, RecordTypes types, bool reportGivenUp, std::vector<Finding> &findings);

private:
    void check(int rule, std::vector<Finding> &findings);
    bool holds(const Condition &condition);
    bool isPresent(const Condition &condition);
    bool compares(const Condition &condition);
    bool relates(const Condition &condition, QStringView value);
    bool isOrdered(Condition::Kind kind, QStringView value, QStringView other) const;
    Finding violation(int rule) const;

    const std::vector<Rule> &m_rules;
    ValueWalk m_walk;
    FoundPlace m_place; // what the last comparison depended on
    FoundPlace m_conditionPlace;
};

} // namespace schema
