#include "batch/batchReport.h"
#include <algorithm>
#include <numeric>
#include <utility>

namespace batch {

namespace {
constexpr size_t remarksPerStep = 5000;
}

int BatchReport::clean() const {
    return facts.proved - std::accumulate(records.begin(), records.end(), 0);
}

std::vector<const RuleEntry *> mostFrequent(const BatchReport &report, size_t most) {
    std::vector<const RuleEntry *> entries;
    for (const RuleEntry &entry : report.rules)
        entries.push_back(&entry);
    std::ranges::stable_sort(entries, std::ranges::greater(), &RuleEntry::remarks);
    entries.resize(std::min(entries.size(), most));
    return entries;
}

ReportWork::ReportWork(const RemarkList &remarks, ProofFacts facts)
    : m_remarks(remarks)
    , m_gravest(size_t(std::max(facts.rows, 0)), quint8(schema::levelCount)) {
    m_report.facts = std::move(facts);
}

bool ReportWork::step() {
    const auto &all = m_remarks.all();
    const size_t end = std::min(m_next + remarksPerStep, all.size());
    while (m_next < end)
        add(all[m_next++]);
    if (m_next < all.size())
        return true;
    finish();
    return false;
}

int ReportWork::percent() const {
    return m_remarks.all().empty() ? 100 : int(100 * m_next / m_remarks.all().size());
}

void ReportWork::add(const Remark &remark) {
    if (remark.record < 0) {
        m_report.notChecked.append(m_remarks.rules().wordsOf(remark));
        return;
    }
    const int rule = ruleOf(remark);
    if (m_remarks.isSilenced(remark)) {
        ++m_silenced[rule];
        return;
    }
    ++m_report.remarks;
    RuleEntry &entry = m_entries[{remark.level, rule}];
    if (entry.remarks++ == 0) {
        entry.label = m_remarks.rules().labelOf(rule);
        entry.level = remark.level;
        entry.example = m_remarks.rules().wordsOf(remark);
    }
    if (entry.records.empty() || entry.records.back() != remark.record)
        entry.records.push_back(remark.record);
    if (!remark.tag.isEmpty())
        ++entry.tags[remark.tag];
    if (size_t(remark.record) < m_gravest.size()) {
        quint8 &gravest = m_gravest[size_t(remark.record)];
        gravest = std::min(gravest, quint8(remark.level));
    }
}

void ReportWork::finish() {
    for (const quint8 level : m_gravest)
        if (level < schema::levelCount)
            ++m_report.records[level];
    for (auto &[key, entry] : m_entries) {
        if (!std::ranges::is_sorted(entry.records)) { // several look-ups, one after the other
            std::ranges::sort(entry.records);
            entry.records.erase(std::unique(entry.records.begin(), entry.records.end()), entry.records.end());
        }
        m_report.rules.push_back(std::move(entry));
    }
    std::ranges::stable_sort(m_report.rules, [](const RuleEntry &one, const RuleEntry &other) {
        return std::pair(one.level, -one.remarks) < std::pair(other.level, -other.remarks);
    });
    for (const auto &[rule, remarks] : m_silenced)
        m_report.silenced.push_back({m_remarks.rules().labelOf(rule), remarks});
}

} // namespace batch
