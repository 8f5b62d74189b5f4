#include "tasks/changePreview.h"
#include <algorithm>
#include <limits>
#include <utility>

namespace tasks {

namespace {
constexpr size_t keptRecords = 64; // more than a view shows at once
constexpr size_t mostRefused = 1000;
constexpr size_t mostChanges = std::numeric_limits<qint16>::max(); // of a record
} // namespace

ChangePreview::ChangePreview(Source source, ListRecord run, size_t steps, const QDateTime &now)
    : m_source(std::move(source))
    , m_run(std::move(run))
    , m_steps(steps)
    , m_now(now)
    , m_moment(m_source.records->replacements()) {}

ListOutcome ChangePreview::look(int row, int number, const Wishes &wishes) {
    if (row == m_source.busyRow)
        return {.record = {}, .why = QStringLiteral("还有没收下的手工修改"), .altered = {}};
    return m_run.change(m_source.records->record(row), {number, m_now},
                        m_source.remarks ? m_source.remarks(row) : QSet<QString>(), wishes);
}

bool ChangePreview::step() {
    if (m_next < total())
        lookAtNext();
    return m_next < total();
}

void ChangePreview::lookAtNext() {
    const int row = m_source.rows[size_t(m_next++)];
    const ListOutcome outcome = look(row, m_number, {.list = true});
    if (outcome.record.isEmpty() && outcome.why.isEmpty())
        return;
    const auto record = quint32(m_records.size());
    m_records.push_back({row, quint32(m_marks.size()), m_number});
    if (outcome.record.isEmpty()) {
        m_marks.push_back({.record = record, .step = refusedRecord});
        if (m_refused.size() < mostRefused)
            m_refused.push_back({row, outcome.why});
        return;
    }
    const std::vector<Change> &changes = m_run.changes();
    for (size_t i = 0; i < std::min(changes.size(), mostChanges); ++i)
        m_marks.push_back({.record = record,
                           .step = qint16(changes[i].step),
                           .index = quint16(i),
                           .doubtful = !changes[i].doubt.isEmpty()});
    for (size_t i = 0; i < outcome.altered.size() && changes.size() + i < mostChanges; ++i)
        m_marks.push_back({.record = record, .step = alteredByWriter, .index = quint16(changes.size() + i)});
    m_number = int(m_run.nextNumber());
}

quint32 ChangePreview::endOf(quint32 record) const {
    return record + 1 < m_records.size() ? m_records[record + 1].first : quint32(m_marks.size());
}

const std::vector<Change> &ChangePreview::changesOf(quint32 record) {
    const auto known = std::ranges::find(m_shown, record, &Shown::record);
    if (known != m_shown.end())
        return known->changes;
    ListOutcome outcome = look(m_records[record].row, m_records[record].number, {.list = true});
    Shown shown{record, {}};
    if (outcome.record.isEmpty()) {
        shown.changes.push_back({.step = refusedRecord, .tag = {}, .toTag = {}, .before = {}, .after = outcome.why});
    } else {
        shown.changes = m_run.changes();
        std::ranges::move(outcome.altered, std::back_inserter(shown.changes));
    }
    if (m_shown.size() >= keptRecords)
        m_shown.pop_front();
    m_shown.push_back(std::move(shown));
    return m_shown.back().changes;
}

const Change &ChangePreview::change(quint32 id) {
    static const Change none;
    const std::vector<Change> &changes = changesOf(m_marks[id].record);
    return m_marks[id].index < changes.size() ? changes[m_marks[id].index] : none;
}

void ChangePreview::setOut(quint32 id, bool out) {
    if (m_marks[id].step < 0)
        return;
    const quint32 record = m_marks[id].record;
    if (!out)
        m_records[record].out = false;
    const std::vector<Change> changes = changesOf(record);
    const Change chosen = changes.at(m_marks[id].index);
    for (quint32 other = m_records[record].first; other < endOf(record); ++other)
        if (isSame(changes.at(m_marks[other].index), chosen))
            m_marks[other].out = out;
}

void ChangePreview::setRecordOut(quint32 id, bool out) {
    const quint32 record = m_marks[id].record;
    if (m_marks[id].step == refusedRecord)
        return;
    m_records[record].out = out;
    for (quint32 other = m_records[record].first; !out && other < endOf(record); ++other)
        m_marks[other].out = false;
}

namespace {

// Counts changes in the order of their records.
class Counter {
public:
    explicit Counter(size_t counts)
        : counts(counts)
        , m_last(counts, std::numeric_limits<quint32>::max()) {}
    void add(size_t at, quint32 record) {
        ++counts[at].changes;
        counts[at].records += std::exchange(m_last[at], record) == record ? 0 : 1;
    }
    std::vector<ChangePreview::Count> counts;

private:
    std::vector<quint32> m_last;
};

} // namespace

std::vector<ChangePreview::Count> ChangePreview::counts() const {
    Counter counter(m_steps + 3);
    for (const Mark &mark : m_marks) {
        if (mark.out || m_records[mark.record].out)
            continue;
        counter.add(mark.step >= 0               ? size_t(mark.step)
                    : mark.step == refusedRecord ? refusedAt()
                                                 : alteredAt(),
                    mark.record);
        if (mark.doubtful)
            counter.add(doubtfulAt(), mark.record);
    }
    return std::move(counter.counts);
}

ChangePreview::Count ChangePreview::all() const {
    Counter counter(1);
    for (const Mark &mark : m_marks)
        if (mark.step >= 0 && !mark.out && !m_records[mark.record].out)
            counter.add(0, mark.record);
    return counter.counts[0];
}

ListOutcome ChangePreview::make(size_t record) {
    const Record &at = m_records[record];
    if (at.out || m_marks[at.first].step == refusedRecord)
        return {};
    std::vector<Change> without;
    for (quint32 id = at.first; id < endOf(quint32(record)); ++id)
        if (m_marks[id].out)
            without.push_back(change(id));
    return look(at.row, at.number, {.without = without.empty() ? nullptr : &without});
}

} // namespace tasks
