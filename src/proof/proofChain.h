// Runs the three proofs on one record and joins their reports. The proofs read the current rows of the grid, with all
// edits, and change nothing.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"
#include "proof/fault.h"
#include "proof/templateProof.h"
#include <QDateTime>
#include <QElapsedTimer>
#include <chrono>

namespace proof {

// The faults found by each proof.
struct RecordFaults {
    std::vector<Fault> structural;
    std::vector<Fault> byTemplate;
    std::vector<Fault> isbn;
    QString complaint;                       // the text of a box about a missing file, else empty
    std::optional<platform::Failure> unread; // why the template could not be opened
};

// `folder` is the program's own folder, with a separator at its end.
RecordFaults faultsOf(const marc::FieldRows &rows, const QString &folder);

// Runs the three proofs on many records. Reads the template again only after the file has changed; otherwise the
// results are those of faultsOf().
class RecordProofs {
public:
    // `folder` is the program's own folder, with a separator at its end. A change of its files takes effect after at
    // most `interval`; with 0, at the next record.
    explicit RecordProofs(QString folder, std::chrono::milliseconds interval = {});

    RecordFaults faultsOf(const marc::FieldRows &rows);

private:
    void lookAtFiles();

    QString m_folder;
    std::chrono::milliseconds m_interval;
    QElapsedTimer m_looked; // since the files were last checked; invalid before
    QString m_complaint;    // about a missing file
    QDateTime m_changed;
    qint64 m_size = -1;
    std::optional<platform::Result<TemplateRules>> m_rules;
};

inline constexpr QStringView proofPassed = u"校对通过"; // the text of the box if the report is empty

struct RecordProof {
    QString report;    // empty if the record passed
    QString complaint; // the text of a box to show before the report, else empty
};

// Fails, without a report, if the template cannot be opened.
platform::Result<RecordProof> proofRecord(const marc::FieldRows &rows, const QString &folder);

} // namespace proof
