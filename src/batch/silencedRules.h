// The rules that the user has silenced: a rule as a whole, or its remarks about one tag.
#pragma once

#include "batch/ruleBook.h"
#include <QStringList>

namespace batch {

struct SilencedRule {
    QString key; // see RuleBook::keyOf()
    QString tag; // empty: all tags

    bool operator==(const SilencedRule &) const = default;
};

class SilencedRules {
public:
    SilencedRules() = default;
    // Reads the result of toTexts(). Texts of another form are ignored.
    explicit SilencedRules(const QStringList &texts);
    QStringList toTexts() const;

    const std::vector<SilencedRule> &all() const { return m_rules; } // in the order they were added, each once
    void add(const SilencedRule &rule);
    void remove(const SilencedRule &rule);

    // Returns whether remarks of the kind may be silenced: all but those about checks that could not run and about
    // records that were not imported.
    static bool mayBeSilenced(Kind kind);

private:
    std::vector<SilencedRule> m_rules;
};

// The same by the numbers of one rule book, for fast look-ups of many remarks.
class SilencedNumbers {
public:
    SilencedNumbers() = default;
    SilencedNumbers(const SilencedRules &rules, const RuleBook &book);

    bool contains(int rule, const Tag &tag) const;
    bool contains(const Remark &remark) const { return contains(ruleOf(remark), remark.tag); }

private:
    std::vector<std::pair<int, Tag>> m_rules; // in ascending order; an empty tag: all tags
};

} // namespace batch
