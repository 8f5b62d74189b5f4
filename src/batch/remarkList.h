// All remarks of a batch. As a table source, those that are shown: neither silenced by the user nor excluded by the
// filter.
#pragma once

#include "batch/silencedRules.h"
#include "marc/preReadStore.h"
#include "platform/result.h"
#include <deque>
#include <map>
#include <optional>
#include <tuple>

namespace batch {

// A member without a value filters nothing.
struct RemarkFilter {
    std::optional<schema::Level> level;
    std::optional<int> rule; // a number of the list's rule book
    std::optional<Tag> tag;

    bool isEmpty() const { return !level && !rule && !tag; }
    bool operator==(const RemarkFilter &) const = default;
};

class RemarkList final : public platform::TableSource {
public:
    static constexpr QStringView headings = u"级别|规则|字段|记录|题名|说明";
    enum Column { LevelColumn, RuleColumn, TagColumn, RecordColumn, TitleColumn, WordsColumn };

    // `records` are those that the remarks are about; without them there are no titles.
    explicit RemarkList(std::shared_ptr<const marc::PreReadStore> records = nullptr, RuleBook rules = RuleBook());

    int rowCount() const override { return int(m_shown.size()); }
    int columnCount() const override { return WordsColumn + 1; }
    QString text(int row, int column) const override;

    // Remarks are in the order they were added until sort(), which sorts by record, remarks about the whole batch
    // first. Remarks about the same record keep their order.
    void add(Remark remark);
    void sort();
    void setFilter(const RemarkFilter &filter);
    const RemarkFilter &filter() const { return m_filter; }
    void silence(const SilencedRules &rules);
    bool isSilenced(const Remark &remark) const { return m_silenced.contains(remark); }

    const RuleBook &rules() const { return m_rules; }
    const std::deque<Remark> &all() const { return m_all; } // silenced ones too, in the order they were added
    QString titleOf(const Remark &remark) const;
    const Remark &remark(int row) const { return m_all[m_shown.at(size_t(row))]; }
    // The id of a remark never changes. rowOf() returns -1 if the remark is not shown.
    int idOf(int row) const { return int(m_shown.at(size_t(row))); }
    int rowOf(int id) const;

    // Returns the records that have a remark that is not silenced, in ascending order.
    std::vector<int> records() const;

    int count() const { return int(m_all.size()); }
    int count(Kind kind) const { return m_counts[size_t(kind)]; } // silenced ones too
    int silencedCount() const { return m_silencedCount; }
    // Removes the remarks that were added last, a limited number of them; returns whether there are more. Empties a
    // list that is no longer shown in short steps.
    bool dropSome();
    // Returns the number of findings: all remarks except the silenced ones and those of Kind::Unchecked.
    int found() const { return count() - count(Kind::Unchecked) - silencedCount(); }

    // The numbers of remarks that the filter shows if its level, its rule or its tag is ignored, in all and by value.
    template <class Value>
    struct Choices {
        int all = 0;
        std::map<Value, int> of;
    };
    Choices<schema::Level> byLevel() const;
    Choices<int> byRule() const;
    Choices<Tag> byTag() const;

    // Returns the headings and the shown rows with tab-separated cells.
    QString tabSeparated(QStringView lineEnd) const;

private:
    // The remarks of one level, rule and tag: a filter shows all of them or none. A million remarks form some hundred
    // groups at most.
    struct Group {
        schema::Level level;
        int rule;
        Tag tag;
        int remarks = 0;
        bool isSilenced = false;
        bool isShown = false;
    };
    // The data of a remark for sorting and filtering, next to each other in memory.
    struct Place {
        int record;
        quint32 group; // index in m_groups
    };

    static bool passes(const Group &group, const RemarkFilter &filter);
    quint32 groupOf(const Remark &remark);
    void judge(Group &group) const;
    void judgeAll();
    void listShown();
    template <class Value>
    Choices<Value> choicesOf(const RemarkFilter &filter, Value Group::*value) const;

    std::shared_ptr<const marc::PreReadStore> m_records;
    RuleBook m_rules;
    std::deque<Remark> m_all;
    std::deque<Place> m_places;   // of the remarks in m_all
    std::vector<quint32> m_order; // indexes in m_all
    std::vector<quint32> m_shown; // likewise
    bool m_isSorted = true;       // m_order is by record
    RemarkFilter m_filter;
    SilencedNumbers m_silenced;
    int m_silencedCount = 0;
    std::array<int, kindCount> m_counts{};
    std::vector<Group> m_groups;
    std::map<std::tuple<schema::Level, int, Tag>, quint32> m_groupOf;
};

// Writes the shown rows as tab-separated UTF-8 text with a byte order mark, by which spreadsheets detect the encoding.
// On failure an existing file is unchanged.
platform::Status saveRemarks(const QString &path, const RemarkList &remarks);

} // namespace batch
