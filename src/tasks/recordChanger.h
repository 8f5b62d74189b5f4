// Runs a task on records in exchange format, as the list of records holds them.
#pragma once

#include "marc/isoWriter.h"
#include "tasks/taskRun.h"

namespace tasks {

class RecordChanger {
public:
    explicit RecordChanger(TaskRun &run)
        : m_run(run) {}

    // Replaces the record by the changed one with a new directory, or leaves every character of it. A record whose
    // directory does not describe its fields stays as it was, with that reason.
    Outcome change(marc::RawRecord &record, const QSet<QString> &remarks = {}, const Wishes &wishes = {});

private:
    TaskRun &m_run;
    marc::FieldedRecord m_record;
    marc::IsoWriter m_writer;
};

} // namespace tasks
