// A preview of the changes that a task would make to the records of a list. Changes nothing. Keeps a few bytes per
// change, since a list may have a million records; a change is computed again when it is shown. Records and single
// changes can be left out.
//
// The list must not change between the preview and its use; see isCurrent().
#pragma once

#include "marc/preReadStore.h"
#include "tasks/listRecord.h"
#include <deque>
#include <memory>

namespace tasks {

struct RefusedRecord {
    int row = 0; // of the list
    QString why;
};

class ChangePreview {
public:
    struct Source {
        std::shared_ptr<const marc::PreReadStore> records;
        std::vector<int> rows;                         // of the list, in the order of the run
        std::function<QSet<QString>(int row)> remarks; // names of the rules that the record violates; may be empty
        int busyRow = -1; // a record that must not be changed, since its edits are not in the list
    };
    // `steps` is the number of steps of the task. All records get the time `now`.
    ChangePreview(Source source, ListRecord run, size_t steps, const QDateTime &now);

    bool step(); // processes the next record; returns whether there is more
    int looked() const { return m_next; }
    int total() const { return int(m_source.rows.size()); }
    // Returns whether the list has not changed since the preview began.
    bool isCurrent() const { return m_source.records->replacements() == m_moment; }

    // A change has an id, counted from 0 in the order of the run.
    struct Mark {
        quint32 record : 31 = 0; // index in records()
        quint32 out : 1 = false; // left out by the user
        qint16 step = 0;         // alteredByWriter, refusedRecord or the index of the step
        quint16 index : 15 = 0;  // among the changes of the record
        quint16 doubtful : 1 = false;
    };
    static constexpr qint16 alteredByWriter = -1, refusedRecord = -2;
    struct Record {
        int row = 0;
        quint32 first = 0; // id of its first change
        int number = 0;    // for the texts of the task
        bool out = false;  // left out by the user
    };
    const std::deque<Mark> &marks() const { return m_marks; }
    const std::deque<Record> &records() const { return m_records; }
    const Record &recordOf(quint32 id) const { return m_records[m_marks[id].record]; }
    bool isOut(quint32 id) const { return m_marks[id].out || recordOf(id).out; }

    // Returns the change with its texts; of a refused record the reason is in `after`.
    const Change &change(quint32 id);

    // Leaves a change or a record out, or includes it again. A change that occurs twice in a record is left out twice.
    void setOut(quint32 id, bool out);
    void setRecordOut(quint32 id, bool out);

    struct Count {
        int records = 0;
        int changes = 0;
    };
    // Without the changes left out. After the steps: changes by the writer, refused records, doubtful changes.
    std::vector<Count> counts() const;
    size_t alteredAt() const { return m_steps; }
    size_t refusedAt() const { return m_steps + 1; }
    size_t doubtfulAt() const { return m_steps + 2; }
    Count all() const;                                                      // of the steps
    const std::vector<RefusedRecord> &refused() const { return m_refused; } // at most 1,000
    size_t steps() const { return m_steps; }

    // Changes the record, without what the user left out.
    ListOutcome make(size_t record);
    const marc::PreReadStore &list() const { return *m_source.records; }

private:
    void lookAtNext();
    ListOutcome look(int row, int number, const Wishes &wishes);
    const std::vector<Change> &changesOf(quint32 record);
    quint32 endOf(quint32 record) const;

    Source m_source;
    ListRecord m_run;
    size_t m_steps;
    QDateTime m_now;
    int m_moment;
    int m_next = 0;
    int m_number = 1;
    std::deque<Mark> m_marks;
    std::deque<Record> m_records;
    std::vector<RefusedRecord> m_refused; // the first ones, as the preview found them
    struct Shown {                        // the changes of a record that were computed again
        quint32 record = 0;
        std::vector<Change> changes;
    };
    std::deque<Shown> m_shown; // the last ones
};

} // namespace tasks
