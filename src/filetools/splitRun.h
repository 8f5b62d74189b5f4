// A split in progress: one source, numbered targets of a largest number of records each. Memory: the record in hand and
// the report. Whoever runs it calls open(), then next() and write() in turn until next() is false, then close(); after
// a failure nothing more, and the files stay open until the object goes. The source is only read.
#pragma once

#include "filetools/recordSource.h"
#include "filetools/targetPattern.h"
#include <memory>
#include <optional>

namespace filetools {

class SplitRun {
public:
    SplitRun(QString source, TargetPattern target);
    SplitRun(const SplitRun &) = delete; // its source calls it

    // Opens the source, then empties the first target.
    platform::Status open();
    // Moves on to the next record; false at the end of the source.
    platform::Result<bool> next();
    // Writes the record in hand and goes over to the next target where this one is full. `limit` is the text that gives
    // the records per file; it counts as it stands at each record.
    platform::Status write(QStringView limit);
    // Finishes the last target. What was written is on the machine when this succeeds.
    platform::Status close(QStringView limit);

    const QString &currentFile() const { return m_currentFile; }
    qint32 total() const { return m_total; } // records written
    // Hands over what was written so far; how many records stand whole in the targets. A failure is told by the next
    // write() or close().
    qint32 handOver();
    QString report() const;

private:
    platform::Status openTarget(int number);
    platform::Status rollOver();
    void reportTarget();
    // The records per file that the text means; it is read anew only where it has changed.
    const std::optional<qint64> &mostPerFile(QStringView limit);
    // Hands over what was written so far, so that a failed run leaves all of it, and passes the failure on.
    platform::Failure failed(platform::Failure failure);

    QString m_source;
    TargetPattern m_target;
    std::unique_ptr<RecordSource> m_records;
    std::optional<platform::ByteWriter> m_writer; // goes before the records, of which it may hold some
    QString m_currentFile;
    QString m_targetLines;
    QString m_limit; // the text that m_mostPerFile was read from
    std::optional<qint64> m_mostPerFile;
    int m_number = TargetPattern::firstNumber;
    qint32 m_total = 0;
    qint32 m_inFile = 0;
    qint64 m_inFilesBefore = 0; // whole in the targets before this one
};

} // namespace filetools
