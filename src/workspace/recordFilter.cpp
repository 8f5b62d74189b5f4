#include "workspace/recordFilter.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

RecordFilter::RecordFilter(Sources sources)
    : m_sources(std::move(sources)) {}

std::optional<std::vector<int>> RecordFilter::rows() const {
    switch (m_kind) {
    case Kind::Remarked:
        return m_sources.remarked();
    case Kind::Changed:
        return m_sources.changed();
    case Kind::All:
        break;
    }
    return std::nullopt;
}

QString RecordFilter::caption(Kind kind, const std::optional<std::vector<int>> &rows) const {
    const QString name = names[size_t(kind)].toString();
    return kind == m_kind && rows ? u"%1：%2"_s.arg(name).arg(rows->size()) : name;
}

QString RecordFilter::emptyWords(bool proved) const {
    switch (m_kind) {
    case Kind::Remarked:
        return proved ? u"没有发现问题的记录"_s : u"还没有校对结果，请先按“校对全部”"_s;
    case Kind::Changed:
        return u"没有改过而未导入的记录"_s;
    case Kind::All:
        break;
    }
    return {};
}

} // namespace workspace
