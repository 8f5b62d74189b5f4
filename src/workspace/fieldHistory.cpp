#include "workspace/fieldHistory.h"
#include "workspace/fieldEditing.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

QString nameOf(const marc::FieldRows &rows, qsizetype at) {
    const QString tag = tagOf(rows, int(at) + 1);
    const QString own = rows[at].identifier;
    return own == tag ? tag : QString(tag + own);
}

bool same(const marc::FieldRow &one, const marc::FieldRow &other) {
    return one.fieldLabel == other.fieldLabel && one.identifier == other.identifier &&
           one.subfieldLabel == other.subfieldLabel && one.value == other.value;
}

bool looksSame(const RecordState &one, const RecordState &other) {
    return one.leader == other.leader && std::ranges::equal(one.rows, other.rows, same);
}

// Describes the difference between two states of a record.
QString differenceOf(const marc::FieldRows &before, const marc::FieldRows &after) {
    const auto [left, right] = std::ranges::mismatch(before, after, same);
    const qsizetype at = left - before.begin();
    if (after.size() > before.size())
        return u"添加 " + nameOf(after, std::min(at, after.size() - 1));
    if (after.size() < before.size())
        return u"删除 " + nameOf(before, std::min(at, before.size() - 1));
    return u"修改 " + (at < before.size() ? nameOf(before, at) : u"000"_s); // only the leader differs
}

} // namespace

void FieldHistory::begin(const RecordState &state) {
    m_states.assign(1, state);
    m_at = 0;
}

void FieldHistory::note(const RecordState &state) {
    if (!looksSame(m_states[m_at], state)) {
        m_states.resize(++m_at);
        m_states.push_back(state);
        return;
    }
    const bool nowEdited = state.edited && !m_states[m_at].edited;
    m_states[m_at] = state;
    if (nowEdited)
        markEdited();
}

void FieldHistory::markEdited() {
    for (RecordState &state : m_states)
        state.edited = true;
}

std::optional<FieldHistory::Step> FieldHistory::back() {
    if (m_at == 0)
        return std::nullopt;
    const RecordState &after = m_states[m_at];
    const RecordState &before = m_states[--m_at];
    return Step{before, differenceOf(before.rows, after.rows)};
}

std::optional<FieldHistory::Step> FieldHistory::forward() {
    if (m_at + 1 == m_states.size())
        return std::nullopt;
    const RecordState &before = m_states[m_at];
    const RecordState &after = m_states[++m_at];
    return Step{after, differenceOf(before.rows, after.rows)};
}

} // namespace workspace
