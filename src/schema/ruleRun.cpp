#include "schema/ruleRun.h"
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr qsizetype patternCost = 400; // a pattern may take many steps per text
constexpr qsizetype keptOfValue = 40;

std::optional<qint64> numberOf(QStringView text) {
    if (text.isEmpty() || text.size() > 18 ||
        !std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; }))
        return std::nullopt;
    return text.toLongLong();
}

bool isFilled(QStringView text) {
    return !text.trimmed().isEmpty();
}

} // namespace

RuleRun::RuleRun(const std::vector<Rule> &rules, const QDate &today)
    : m_rules(rules)
    , m_walk(today) {}

void RuleRun::run(const RecordView &record, RecordTypes types, bool reportGivenUp, std::vector<Finding> &findings) {
    if (!m_walk.begin(record))
        return;
    for (int rule = 0; rule < int(m_rules.size()); ++rule) {
        if (!(m_rules[size_t(rule)].types & types) && m_rules[size_t(rule)].types != ~0U)
            continue;
        m_walk.renewBudget();
        check(rule, findings);
        if (m_walk.givenUp() && reportGivenUp) {
            findings.push_back(
                {.level = levelOf(Check::GivenUp), .check = Check::GivenUp, .rule = qint16(rule), .value = {}});
        }
    }
    m_walk.end();
}

void RuleRun::check(int number, std::vector<Finding> &findings) {
    const Rule &rule = m_rules[size_t(number)];
    const auto checkOnce = [&] {
        m_place = {};
        if (!rule.condition.empty() && !holds(rule.condition[0]))
            return;
        m_conditionPlace = m_place;
        m_place = {};
        if (!holds(rule.consequence) && !m_walk.givenUp())
            findings.push_back(violation(number));
    };
    m_conditionPlace = {};
    if (rule.each.empty())
        return checkOnce();
    for (int i = 0; i < int(m_walk.fields().size()) && !m_walk.givenUp(); ++i) {
        m_walk.setCurrent(i);
        if (rule.each[0].matchesTag(m_walk.fields()[size_t(i)].tag))
            checkOnce();
    }
    m_walk.setCurrent(-1);
}

// The place is that of the value that violates the rule, else that of the field that the rule is checked for, else that
// of the value that made the rule apply; a rule about what is missing may have none.
Finding RuleRun::violation(int number) const {
    const Rule &rule = m_rules[size_t(number)];
    Finding finding{.level = rule.level, .check = Check::ExternalRule, .rule = qint16(number), .value = {}};
    FoundPlace place = m_place;
    if (const int current = m_walk.current(); place.field < 0 && current >= 0)
        place = {current, noCode, m_walk.fields()[size_t(current)].element};
    if (place.field < 0)
        place = m_conditionPlace;
    if (place.field < 0) {
        const Paths &paths = rule.consequence.left.paths;
        if (!paths.empty() && paths[0].isOneTag() && paths[0].firstTag != leaderTag)
            finding.tag = qint16(paths[0].firstTag);
        return finding;
    }
    const Field &field = m_walk.fields()[size_t(place.field)];
    finding.tag = qint16(field.tag);
    finding.code = place.code;
    finding.element = place.element;
    for (int i = 0; i <= place.field; ++i)
        finding.occurrence += m_walk.fields()[size_t(i)].tag == field.tag;
    if (field.tag == unknownTag)
        finding.value = field.tagText.left(keptOfValue).toString();
    return finding;
}

bool RuleRun::holds(const Condition &condition) {
    switch (condition.kind) {
    case Condition::Kind::And:
        return std::ranges::all_of(condition.parts, [this](const Condition &part) { return holds(part); });
    case Condition::Kind::Or:
        return std::ranges::any_of(condition.parts, [this](const Condition &part) { return holds(part); });
    case Condition::Kind::Not:
        return !holds(condition.parts[0]);
    case Condition::Kind::Present:
        return isPresent(condition);
    default:
        return compares(condition);
    }
}

// A field is present even if it is empty; anything else must have more than blanks.
bool RuleRun::isPresent(const Condition &condition) {
    return std::ranges::any_of(condition.left.paths, [this](const Path &path) {
        return m_walk.visit(path, [&](QStringView value, const FoundPlace &place) {
            if (path.part != Path::Part::Field && !isFilled(value))
                return false;
            m_place = place;
            return true;
        });
    });
}

// The place afterwards is that of the value that decided: the first that violates an "every", else the first that
// holds, else the first.
bool RuleRun::compares(const Condition &condition) {
    FoundPlace first;
    const bool decided = m_walk.visitAll(condition.left, [&](QStringView value, const FoundPlace &place) {
        if (first.field < 0)
            first = place;
        if (relates(condition, value) == condition.every)
            return false;
        m_place = place;
        return true;
    });
    if (!decided && !condition.every && first.field >= 0)
        m_place = first;
    return decided != condition.every;
}

bool RuleRun::relates(const Condition &condition, QStringView value) {
    if (condition.kind == Condition::Kind::Is)
        return m_walk.spend(value.size()) && condition.predicate(value);
    if (condition.kind == Condition::Kind::Matches) {
        const Matching matching =
            m_walk.spend(value.size() + patternCost) ? condition.pattern->match(value) : Matching::GivenUp;
        if (matching == Matching::GivenUp)
            m_walk.giveUp();
        return (matching == Matching::Yes) != condition.negated;
    }
    if (condition.kind == Condition::Kind::In) {
        const QStringView sought = value.trimmed();
        return m_walk.visitAll(condition.right, [&](QStringView other, const FoundPlace &) {
            return m_walk.spend(other.size()) && other.contains(sought);
        });
    }
    const bool unequal = condition.kind == Condition::Kind::NotEqual;
    const bool found = m_walk.visitAll(condition.right, [&](QStringView other, const FoundPlace &) {
        return isOrdered(unequal ? Condition::Kind::Equal : condition.kind, value, other);
    });
    return found != unequal;
}

// Digits are compared as numbers; other texts can only be equal.
bool RuleRun::isOrdered(Condition::Kind kind, QStringView value, QStringView other) const {
    const auto left = numberOf(value), right = numberOf(other);
    if (!left || !right)
        return kind == Condition::Kind::Equal && value == other;
    switch (kind) {
    case Condition::Kind::Equal:
        return *left == *right;
    case Condition::Kind::Less:
        return *left < *right;
    case Condition::Kind::LessOrEqual:
        return *left <= *right;
    case Condition::Kind::Greater:
        return *left > *right;
    default:
        return *left >= *right;
    }
}

} // namespace schema
