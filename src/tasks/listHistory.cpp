#include "tasks/listHistory.h"
#include "marc/fieldLookup.h"
#include <algorithm>
#include <utility>

namespace tasks {

namespace {
QString titleOf(const marc::RawRecord &record) {
    return marc::readZd(record, u"200a", {}).value_or(QString());
}
} // namespace

void ListHistory::put(int row, const marc::RawRecord &record, const QString &title) {
    const int moment = m_records->replacements();
    m_put(row, record, title);
    if (!m_own.empty() && m_own.back().to == moment)
        m_own.back().to = m_records->replacements();
    else
        m_own.push_back({moment, m_records->replacements()});
}

void ListHistory::begin(ChangePreview &preview, const QString &task) {
    m_preview = &preview;
    m_next = 0;
    m_refused.clear();
    m_runs.push_back({.task = task, .done = {}, .titles = {}, .end = m_records->replacements()});
}

int ListHistory::total() const {
    return m_preview ? int(m_preview->records().size()) : 0;
}

bool ListHistory::step() {
    if (int(m_next) < total()) {
        const int row = m_preview->records()[m_next].row;
        ListOutcome outcome = m_preview->make(m_next++);
        if (!outcome.why.isEmpty())
            m_refused.push_back({row, outcome.why});
        if (!outcome.record.isEmpty()) {
            Run &run = m_runs.back();
            const QString title = m_records->title(row), made = titleOf(outcome.record);
            if (title != titleOf(m_records->record(row)))
                run.titles.insert(row, title);
            run.done.push_back({row, m_records->replacements()});
            put(row, outcome.record, made.isEmpty() ? title : made);
            run.end = m_records->replacements();
        }
    }
    const bool more = int(m_next) < total();
    if (!more && m_runs.back().done.empty())
        m_runs.pop_back();
    return more;
}

std::vector<int> ListHistory::changedSince() const {
    std::vector<int> rows;
    if (m_runs.empty())
        return rows;
    const Run &run = m_runs.back();
    for (int moment = run.end; moment < m_records->replacements(); ++moment) {
        const auto own =
            std::ranges::find_if(m_own, [&](const Span &span) { return span.from <= moment && moment < span.to; });
        if (own != m_own.end())
            moment = own->to - 1;
        else
            rows.push_back(m_records->replacedRow(moment));
    }
    std::ranges::sort(rows);
    std::vector<int> done;
    for (const Done &one : run.done)
        done.push_back(one.row);
    std::ranges::sort(done);
    std::vector<int> both;
    std::ranges::set_intersection(rows, done, std::back_inserter(both));
    return both;
}

void ListHistory::beginUndo(std::vector<int> keep) {
    m_keep = std::move(keep);
    m_undone = 0;
}

bool ListHistory::undoStep() {
    if (m_runs.empty())
        return false;
    Run &run = m_runs.back();
    if (!run.done.empty()) {
        const Done done = run.done.back();
        run.done.pop_back();
        if (!std::ranges::binary_search(m_keep, done.row)) {
            const marc::RawRecord before = m_records->replacedRecord(done.moment);
            const auto title = run.titles.constFind(done.row);
            put(done.row, before, title == run.titles.constEnd() ? titleOf(before) : *title);
            ++m_undone;
        }
    }
    if (!run.done.empty())
        return true;
    m_runs.pop_back();
    return false;
}

} // namespace tasks
