#include "batch/remark.h"
#include "platform/byteFile.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

constexpr std::array<QStringView, kindCount> names = {
    u"未能检查", u"目次区", u"必备字段", u"重复字段", u"模板", u"ISBN", u"ISSN",
    u"批内重复", u"查重",   u"未成功",   u"已跳过",   u"格式", u"规则",
};

// Returns a name as "规则提示", which is as wide as the other kinds.
QString nameWithLevel(const Remark &remark) {
    const QString name = nameOf(remark.kind).toString();
    const bool hasLevel = remark.kind == Kind::Format || remark.kind == Kind::Rule;
    return hasLevel ? QString(name + schema::nameOf(remark.level)) : name;
}

} // namespace

QStringView nameOf(Kind kind) {
    return names[size_t(kind)];
}

QString RemarkList::text(int row, int column) const {
    const Remark &remark = this->remark(row);
    switch (column) {
    case 0:
        return remark.record < 0 ? QString() : QString::number(remark.record + 1);
    case 1:
        return remark.title;
    case 2:
        return nameWithLevel(remark);
    case 3:
        return remark.tag;
    default:
        return remark.text;
    }
}

void RemarkList::add(Remark remark) {
    ++m_counts[size_t(remark.kind)];
    m_order.push_back(m_all.size());
    if (isShown(remark))
        m_shown.push_back(m_all.size());
    m_all.push_back(std::move(remark));
}

void RemarkList::clear() {
    *this = RemarkList();
}

void RemarkList::sort() {
    std::ranges::stable_sort(m_order, {}, [this](size_t id) { return m_all[id].record; });
    setFilter(m_filter);
}

void RemarkList::setFilter(std::optional<Kind> kind) {
    m_filter = kind;
    m_shown.clear();
    for (const size_t id : m_order)
        if (isShown(m_all[id]))
            m_shown.push_back(id);
}

int RemarkList::rowOf(int id) const {
    const auto found = std::ranges::find(m_shown, size_t(id));
    return found == m_shown.end() ? -1 : int(found - m_shown.begin());
}

std::vector<int> RemarkList::records() const {
    std::vector<int> records;
    for (const Remark &remark : m_all)
        if (remark.record >= 0)
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
