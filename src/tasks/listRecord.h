// A task on one record of the list. The changed record is built by the writer of the field grid, so that it equals a
// record edited by hand: field 001 is new, and some fields are not written.
#pragma once

#include "marc/isoWriter.h"
#include "tasks/taskRun.h"
#include <QDateTime>

namespace tasks {

struct ListOutcome {
    marc::RawRecord record;      // empty if nothing changes
    QString why;                 // why the record must not be changed; empty if it may
    std::vector<Change> altered; // fields that the task did not change but the writer omits or alters; `step` is -1
};

class ListRecord {
public:
    explicit ListRecord(TaskRun run)
        : m_run(std::move(run)) {}

    // `number` is the number for texts of the task; `now` is written to field 001.
    struct At {
        qint64 number = 1;
        QDateTime now;
    };
    ListOutcome change(const marc::RawRecord &record, const At &at, const QSet<QString> &remarks,
                       const Wishes &wishes = {});

    const std::vector<Change> &changes() const { return m_run.changes(); } // of the last record, if they were listed
    qint64 nextNumber() const { return m_run.nextNumber(); }
    bool needsRemarks() const { return m_run.needsRemarks(); }

private:
    ListOutcome build(const QDateTime &now);

    TaskRun m_run;
    marc::FieldedRecord m_before;
    marc::FieldedRecord m_wanted;
    marc::FieldedRecord m_built;
    marc::IsoWriter m_writer;
};

} // namespace tasks
