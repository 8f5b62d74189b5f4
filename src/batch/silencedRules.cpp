#include "batch/silencedRules.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace batch {

namespace {
constexpr QChar separator = u'\t'; // between tag and key
}

SilencedRules::SilencedRules(const QStringList &texts) {
    for (const QString &text : texts) {
        if (const qsizetype at = text.indexOf(separator); at >= 0 && at + 1 < text.size())
            add({text.sliced(at + 1), text.first(at)});
    }
}

QStringList SilencedRules::toTexts() const {
    QStringList texts;
    for (const SilencedRule &rule : m_rules)
        texts.append(rule.tag + separator + rule.key);
    return texts;
}

void SilencedRules::add(const SilencedRule &rule) {
    if (std::ranges::find(m_rules, rule) == m_rules.end())
        m_rules.push_back(rule);
}

void SilencedRules::remove(const SilencedRule &rule) {
    std::erase(m_rules, rule);
}

bool SilencedRules::mayBeSilenced(Kind kind) {
    return kind != Kind::Unchecked && kind != Kind::Refused && kind != Kind::LeftOut;
}

SilencedNumbers::SilencedNumbers(const SilencedRules &rules, const RuleBook &book) {
    for (const SilencedRule &silenced : rules.all())
        for (int rule = 0; rule < book.count(); ++rule) {
            const bool maybe = rule >= int(kindCount) || SilencedRules::mayBeSilenced(Kind(rule));
            if (maybe && book.keyOf(rule) == silenced.key)
                m_rules.emplace_back(rule, Tag(silenced.tag));
        }
    std::ranges::sort(m_rules);
}

bool SilencedNumbers::contains(int rule, const Tag &tag) const {
    return std::ranges::binary_search(m_rules, std::pair(rule, Tag())) ||
           std::ranges::binary_search(m_rules, std::pair(rule, tag));
}

} // namespace batch
