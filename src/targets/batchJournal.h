// The journal of a batch of ISBNs: a file of the user's state to which each outcome is added when it is known, so that
// the batch can continue after a stop or a crash. Only its owner can read it.
//
// One JSON object per line. The first has the format, the version and the ISBNs; each of the others has the outcome for
// one of them: {"row": 3, "target": "…", "leader": "…", "fields": [["200", "…"], …]}, {"row": 4} if no target has it.
#pragma once

#include "marc/fieldedRecord.h"
#include "platform/result.h"
#include <QStringList>
#include <memory>
#include <vector>

class QFile;

namespace targets {

struct Outcome {
    enum class State { Pending, Found, Missing, Failed };
    State state = State::Pending;
    QString target;             // the name of the target that has it
    marc::FieldedRecord record; // if found
    QString why;                // after Failed: the faults of the targets that did not answer
};

class BatchJournal {
public:
    static constexpr qint64 largest = qint64(1) << 29; // bytes

    BatchJournal();
    ~BatchJournal();

    // Replaces the file by one without outcomes.
    platform::Status begin(const QString &path, const QStringList &isbns);
    struct Contents {
        QStringList isbns;
        std::vector<Outcome> outcomes; // one for each ISBN; pending if the journal has none
    };
    // Reads the file and adds to it from then on. A last line that was not completed is removed. Fails with the number
    // of the line if another one is damaged; the file then stays unchanged.
    platform::Result<Contents> resume(const QString &path);
    // Adds an outcome, found or missing.
    platform::Status add(int row, const Outcome &outcome);

private:
    platform::Status open(const QString &path);
    std::unique_ptr<QFile> m_file;
};

} // namespace targets
