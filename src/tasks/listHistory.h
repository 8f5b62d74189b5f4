// Carries out previews on the records of a list and undoes the last one. The list keeps each record that it replaced,
// so that undoing restores exactly that record.
#pragma once

#include "tasks/changePreview.h"
#include <QHash>

namespace tasks {

class ListHistory {
public:
    // Replaces the record and the title of a row, by PreReadStore::setRecord() and setTitle().
    using Put = std::function<void(int row, const marc::RawRecord &record, const QString &title)>;
    ListHistory(std::shared_ptr<const marc::PreReadStore> records, Put put)
        : m_records(std::move(records))
        , m_put(std::move(put)) {}

    // begin() starts to carry out the preview, which must remain valid until the last step.
    void begin(ChangePreview &preview, const QString &task);
    bool step();                                 // does the next record; returns whether there is more
    int position() const { return int(m_next); } // of total()
    int total() const;
    const std::vector<RefusedRecord> &refused() const { return m_refused; } // of the last run

    // The last run that was not undone.
    bool canUndo() const { return !m_runs.empty(); }
    const QString &task() const { return m_runs.back().task; }
    int changed() const { return m_runs.empty() ? 0 : int(m_runs.back().done.size()); } // records
    // Returns the rows that were changed by other means since the last run, in ascending order.
    std::vector<int> changedSince() const;

    // beginUndo() starts to undo the last run. Records of `keep`, in ascending order, stay as they are.
    void beginUndo(std::vector<int> keep);
    bool undoStep();                        // the next record, in reverse order; returns whether there is more
    int undone() const { return m_undone; } // records restored so far

private:
    struct Done {
        int row;
        int moment; // of the replacement; see PreReadStore::replacedRecord()
    };
    struct Run {
        QString task;
        std::vector<Done> done;
        QHash<int, QString> titles; // before the run, of rows with another title than that of the record
        int end = 0;                // PreReadStore::replacements() after the run
    };
    void put(int row, const marc::RawRecord &record, const QString &title);

    std::shared_ptr<const marc::PreReadStore> m_records;
    Put m_put;
    ChangePreview *m_preview = nullptr;
    size_t m_next = 0;
    std::vector<RefusedRecord> m_refused;
    std::vector<Run> m_runs;
    struct Span {
        int from;
        int to; // the moment after the last one
    };
    std::vector<Span> m_own; // moments of the replacements made here, in ascending order
    std::vector<int> m_keep;
    int m_undone = 0;
};

} // namespace tasks
