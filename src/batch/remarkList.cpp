#include "batch/remarkList.h"
#include "platform/byteFile.h"
#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

template <class Value>
bool allows(const std::optional<Value> &wanted, const Value &value) {
    return !wanted || *wanted == value;
}

} // namespace

RemarkList::RemarkList(std::shared_ptr<const marc::PreReadStore> records, RuleBook rules)
    : m_records(std::move(records))
    , m_rules(std::move(rules)) {}

QString RemarkList::text(int row, int column) const {
    const Remark &remark = this->remark(row);
    switch (column) {
    case LevelColumn:
        return nameOf(remark.level).toString();
    case RuleColumn:
        return m_rules.labelOf(ruleOf(remark));
    case TagColumn:
        return remark.tag.text();
    case RecordColumn:
        return remark.record < 0 ? QString() : QString::number(remark.record + 1);
    case TitleColumn:
        return titleOf(remark);
    default:
        return m_rules.wordsOf(remark);
    }
}

QString RemarkList::titleOf(const Remark &remark) const {
    const bool isListed = m_records && remark.record >= 0 && remark.record < m_records->rowCount();
    return isListed ? m_records->title(remark.record) : QString();
}

void RemarkList::add(Remark remark) {
    const auto id = quint32(m_all.size());
    const Place place{remark.record, groupOf(remark)};
    Group &group = m_groups[place.group];
    ++m_counts[size_t(remark.kind)];
    ++group.remarks;
    m_silencedCount += group.isSilenced;
    m_isSorted = m_isSorted && (m_order.empty() || m_places[m_order.back()].record <= place.record);
    m_order.push_back(id);
    if (group.isShown)
        m_shown.push_back(id);
    m_places.push_back(place);
    m_all.push_back(std::move(remark));
}

bool RemarkList::passes(const Group &group, const RemarkFilter &filter) {
    return allows(filter.level, group.level) && allows(filter.rule, group.rule) && allows(filter.tag, group.tag);
}

quint32 RemarkList::groupOf(const Remark &remark) {
    const auto &[at, isNew] =
        m_groupOf.try_emplace({remark.level, ruleOf(remark), remark.tag}, quint32(m_groups.size()));
    if (isNew) {
        m_groups.push_back({remark.level, ruleOf(remark), remark.tag});
        judge(m_groups.back());
    }
    return at->second;
}

void RemarkList::judge(Group &group) const {
    group.isSilenced = m_silenced.contains(group.rule, group.tag);
    group.isShown = !group.isSilenced && passes(group, m_filter);
}

void RemarkList::judgeAll() {
    m_silencedCount = 0;
    for (Group &group : m_groups) {
        judge(group);
        m_silencedCount += group.isSilenced ? group.remarks : 0;
    }
    listShown();
}

void RemarkList::listShown() {
    m_shown.clear();
    std::ranges::copy_if(m_order, std::back_inserter(m_shown),
                         [this](quint32 id) { return m_groups[m_places[id].group].isShown; });
}

// Counts first how many remarks each record has, which gives the place of its first one: there may be millions.
void RemarkList::sort() {
    if (m_isSorted)
        return;
    std::vector<quint32> places;
    const auto slot = [](const Place &place) { return size_t(place.record + 1); };
    for (const Place &place : m_places) {
        if (slot(place) + 2 > places.size())
            places.resize(slot(place) + 2);
        ++places[slot(place) + 1];
    }
    std::partial_sum(places.begin(), places.end(), places.begin());
    for (quint32 id = 0; id < m_places.size(); ++id)
        m_order[places[slot(m_places[id])]++] = id;
    m_isSorted = true;
    listShown();
}

void RemarkList::setFilter(const RemarkFilter &filter) {
    m_filter = filter;
    judgeAll();
}

void RemarkList::silence(const SilencedRules &rules) {
    m_silenced = SilencedNumbers(rules, m_rules);
    judgeAll();
}

bool RemarkList::dropSome() {
    constexpr size_t dropped = 10'000;
    const size_t rest = m_all.size() - std::min(m_all.size(), dropped);
    m_all.erase(m_all.begin() + qptrdiff(rest), m_all.end());
    m_places.erase(m_places.begin() + qptrdiff(rest), m_places.end());
    return rest > 0;
}

template <class Value>
RemarkList::Choices<Value> RemarkList::choicesOf(const RemarkFilter &filter, Value Group::*value) const {
    Choices<Value> choices;
    for (const Group &group : m_groups) {
        if (group.isSilenced || !passes(group, filter))
            continue;
        choices.all += group.remarks;
        choices.of[group.*value] += group.remarks;
    }
    return choices;
}

RemarkList::Choices<schema::Level> RemarkList::byLevel() const {
    return choicesOf({.level = {}, .rule = m_filter.rule, .tag = m_filter.tag}, &Group::level);
}

RemarkList::Choices<int> RemarkList::byRule() const {
    return choicesOf({.level = m_filter.level, .rule = {}, .tag = m_filter.tag}, &Group::rule);
}

RemarkList::Choices<Tag> RemarkList::byTag() const {
    return choicesOf({.level = m_filter.level, .rule = m_filter.rule, .tag = {}}, &Group::tag);
}

int RemarkList::rowOf(int id) const {
    const auto found = std::ranges::find(m_shown, quint32(id));
    return found == m_shown.end() ? -1 : int(found - m_shown.begin());
}

std::vector<int> RemarkList::records() const {
    std::vector<char> isFound; // by record
    for (const Place &place : m_places) {
        if (place.record < 0 || m_groups[place.group].isSilenced)
            continue;
        if (size_t(place.record) >= isFound.size())
            isFound.resize(size_t(place.record) + 1);
        isFound[size_t(place.record)] = true;
    }
    std::vector<int> records;
    for (size_t record = 0; record < isFound.size(); ++record)
        if (isFound[record])
            records.push_back(int(record));
    return records;
}

QString RemarkList::tabSeparated(QStringView lineEnd) const {
    QString table = platform::tabSeparated(headings.toString().split(u'|')) + lineEnd;
    for (int row = 0; row < rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column)
            cells.append(text(row, column));
        table += platform::tabSeparated(cells) + lineEnd;
    }
    return table;
}

platform::Status saveRemarks(const QString &path, const RemarkList &remarks) {
    const QString table = QChar(QChar::ByteOrderMark) + remarks.tabSeparated(u"\r\n");
    return platform::writeWholeFile(path, table.toUtf8());
}

} // namespace batch
