// The report about a proof of a batch, as values: the number of records for each level, and one entry for each rule.
// Remarks that the user has silenced are counted separately.
#pragma once

#include "batch/proofFacts.h"
#include "batch/remarkList.h"
#include <array>
#include <map>
#include <vector>

namespace batch {

// The remarks of one rule with one level.
struct RuleEntry {
    QString label;
    schema::Level level = schema::Level::Error;
    QString example; // the words of its first remark
    int remarks = 0;
    std::vector<int> records; // rows of the list, counted from 0, in ascending order, each once
    std::map<Tag, int> tags;  // number of remarks; without an entry for those without a tag
};

struct SilencedEntry {
    QString label;
    int remarks = 0;
};

struct BatchReport {
    ProofFacts facts;
    std::array<int, schema::levelCount> records{}; // records by the gravest level of their remarks
    int remarks = 0;
    std::vector<RuleEntry> rules;        // by level, then by descending number of remarks
    std::vector<SilencedEntry> silenced; // in the order of the rules
    QStringList notChecked;              // remarks about the whole batch

    // Returns the number of records without a remark.
    int clean() const;
};

inline constexpr size_t mostFrequentShown = 10;
// Returns the entries with the most remarks, at most `most`. Entries with equally many are in the order of the report.
std::vector<const RuleEntry *> mostFrequent(const BatchReport &report, size_t most = mostFrequentShown);

// Makes the report in steps of a few milliseconds. The list must not change meanwhile.
class ReportWork {
public:
    ReportWork(const RemarkList &remarks, ProofFacts facts);

    bool step(); // returns whether more steps are needed
    int percent() const;
    // Returns the report, after the last step.
    BatchReport take() { return std::move(m_report); }

private:
    void add(const Remark &remark);
    void endEntry(RuleEntry &entry);
    void finish();

    const RemarkList &m_remarks;
    BatchReport m_report;
    size_t m_next = 0; // remark
    std::map<std::pair<schema::Level, int>, RuleEntry> m_entries;
    std::map<int, int> m_silenced; // remarks by rule
    std::vector<quint8> m_gravest; // of each row; levelCount: no remark
};

} // namespace batch
