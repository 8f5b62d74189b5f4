// The rules that the user does not want to see any more: a rule as a whole, or its remarks about one tag.
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
    // Reads what toTexts() returned. Texts of another form are left out.
    explicit SilencedRules(const QStringList &texts);
    QStringList toTexts() const;

    const std::vector<SilencedRule> &all() const { return m_rules; } // in the order they were added, each once
    void add(const SilencedRule &rule);
    void remove(const SilencedRule &rule);

    // Returns whether remarks of the kind may be silenced: not what could not be checked, and not what an import left.
    static bool mayBeSilenced(Kind kind);

private:
    std::vector<SilencedRule> m_rules;
};

// The same for the numbers of one rule book, so that many remarks can be asked for.
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
