#include "batch/remarkList.h"
#include "platform/byteFile.h"
#include <algorithm>
#include <iterator>
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
    ++m_counts[size_t(remark.kind)];
    m_order.push_back(id);
    if (takeIn(remark))
        m_shown.push_back(id);
    m_all.push_back(std::move(remark));
}

bool RemarkList::isShown(const Remark &remark) const {
    return allows(m_filter.level, remark.level) && allows(m_filter.rule, ruleOf(remark)) &&
           allows(m_filter.tag, remark.tag) && !m_silenced.contains(remark);
}

// Counts the remark and returns whether it is shown.
bool RemarkList::takeIn(const Remark &remark) {
    if (m_silenced.contains(remark)) {
        ++m_silencedCount;
        return false;
    }
    const int rule = ruleOf(remark);
    const bool level = allows(m_filter.level, remark.level), ofRule = allows(m_filter.rule, rule),
               tag = allows(m_filter.tag, remark.tag);
    if (ofRule && tag)
        m_byLevel.count(remark.level);
    if (level && tag)
        m_byRule.count(rule);
    if (level && ofRule)
        m_byTag.count(remark.tag);
    return level && ofRule && tag;
}

// Counts first how many remarks each record has, which gives the place of its first one: there may be millions.
// Remarks that were found in the order of their records, as in a run that was stopped, stay as they are.
void RemarkList::sort() {
    if (std::ranges::is_sorted(m_order, {}, [this](quint32 id) { return m_all[id].record; }))
        return;
    std::vector<quint32> places;
    const auto slot = [](const Remark &remark) { return size_t(remark.record + 1); };
    for (const Remark &remark : m_all) {
        if (slot(remark) + 2 > places.size())
            places.resize(slot(remark) + 2);
        ++places[slot(remark) + 1];
    }
    for (size_t at = 1; at < places.size(); ++at)
        places[at] += places[at - 1];
    for (quint32 id = 0; id < m_all.size(); ++id)
        m_order[places[slot(m_all[id])]++] = id;
    m_shown.clear();
    std::ranges::copy_if(m_order, std::back_inserter(m_shown), [this](quint32 id) { return isShown(m_all[id]); });
}

void RemarkList::setFilter(const RemarkFilter &filter) {
    m_filter = filter;
    refilter();
}

void RemarkList::silence(const SilencedRules &rules) {
    m_silenced = SilencedNumbers(rules, m_rules);
    refilter();
}

void RemarkList::refilter() {
    m_shown.clear();
    m_silencedCount = 0;
    m_byLevel = {};
    m_byRule = {};
    m_byTag = {};
    for (const quint32 id : m_order)
        if (takeIn(m_all[id]))
            m_shown.push_back(id);
}

int RemarkList::rowOf(int id) const {
    const auto found = std::ranges::find(m_shown, quint32(id));
    return found == m_shown.end() ? -1 : int(found - m_shown.begin());
}

std::vector<int> RemarkList::records() const {
    std::vector<int> records;
    for (const Remark &remark : m_all)
        if (remark.record >= 0 && !isSilenced(remark))
            records.push_back(remark.record);
    std::ranges::sort(records);
    const auto rest = std::ranges::unique(records);
    records.erase(rest.begin(), rest.end());
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
