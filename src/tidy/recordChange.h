// A change that is made to each record of a file before it is written, and the changes that a user can choose from. The
// caller supplies both as functions.
#pragma once

#include "marc/fieldedRecord.h"
#include "platform/result.h"
#include "tidy/targetForms.h"
#include <QStringList>
#include <functional>
#include <vector>

namespace tidy {

// The result of a change for one record. A record that cannot be changed is written unchanged, and the reason is
// listed.
struct RecordChange {
    bool changed = false;
    QString why; // empty if there is no reason
};

// The effect of one step of a change on all records so far.
struct StepTally {
    QString words;
    qint64 changes = 0;
    qint64 records = 0;
};

struct FileChange {
    QString name;                                              // for the report
    std::function<RecordChange(marc::FieldedRecord &)> change; // empty: there is none
    std::function<std::vector<StepTally>()> tally;             // may be empty
};

struct ChangeOffer {
    QStringList names;
    // Prepares a change, counted from 0, for the records of the file `source`. Fails with the reason if it cannot be
    // made.
    std::function<platform::Result<FileChange>(int index, const QString &source, TargetForm form)> prepare;
};

} // namespace tidy
