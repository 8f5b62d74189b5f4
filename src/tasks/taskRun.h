// Runs a task on one record after the other. Deterministic: date, numbers and file name come from the caller.
#pragma once

#include "tasks/preparedStep.h"
#include "tasks/recordWork.h"
#include "tasks/task.h"

namespace tasks {

// The form that the changed records must fit.
enum class Fit {
    GbkRecord,  // exchange format in GBK
    Utf8Record, // exchange format in UTF-8
    Anything
};

struct StepCount {
    qint64 records = 0; // in which the step changed something
    qint64 changes = 0;
};

struct Outcome {
    bool changed = false;
    QString why;   // why the record was not changed; empty if there is no such reason
    int step = -1; // the index of the step that failed; -1 if the result as a whole does not fit
};

class TaskRun {
public:
    // Fails with the step, counted from 1, and the reason if a step cannot be run. Steps that are off are left out.
    // `pinyin` may be shared by many runs; if it is null and a step needs it, the built-in table is opened.
    static platform::Result<TaskRun> prepare(const Task &task, RunFacts facts, Fit fit = Fit::GbkRecord,
                                             std::shared_ptr<PinyinReader> pinyin = {});

    // Changes the record, or leaves it unchanged. `remarks` are the names of the rules that it violates.
    Outcome apply(marc::FieldedRecord &record, const QSet<QString> &remarks = {}, const Wishes &wishes = {});

    // The changes of the last record, if they were to be listed; none if it was not changed.
    const std::vector<Change> &changes() const { return m_changes; }
    // The counts of all records so far, by the index of the step in the task.
    const std::vector<StepCount> &counts() const { return m_counts; }
    // The number that the next record gets if it needs one. Set it back before a record is processed again.
    qint64 nextNumber() const { return m_facts.number; }
    void setNextNumber(qint64 number) { m_facts.number = number; }
    // Returns whether a step tests remarks.
    bool needsRemarks() const { return m_needsRemarks; }

private:
    TaskRun() = default;
    Outcome finish(RecordWork &work, const std::vector<StepCount> &counts);

    std::vector<PreparedStep> m_steps;
    RunFacts m_facts;
    Fit m_fit = Fit::GbkRecord;
    bool m_needsRemarks = false;
    std::vector<StepCount> m_counts;
    std::vector<StepCount> m_countsOfRecord;
    std::vector<Change> m_changes;
};

// Opens the tables for the steps of the task, with the one of the office in `folder`; null if no step needs them.
platform::Result<std::shared_ptr<PinyinReader>> pinyinFor(const Task &task, const QString &folder);

// Returns why the changed record does not fit; an empty text if it does. Characters without a code that the original
// record already had are accepted.
QString misfit(const marc::FieldedRecord &changed, const marc::FieldedRecord &before, Fit fit);

} // namespace tasks
