// A split in progress: writes one source to numbered targets with a maximum number of records each. Memory use: the
// current record and the report. Call open(), then next() and write() alternately until next() returns false, then
// close(). After a failure call nothing more; the files stay open until the object is destroyed. The source is only
// read.
#pragma once

#include "filetools/recordSource.h"
#include "filetools/targetPattern.h"
#include <optional>

namespace filetools {

class SplitRun {
public:
    SplitRun(QString source, TargetPattern target);

    // Opens the source and empties the first target.
    platform::Status open();
    // Reads the next record. Returns false at the end of the source.
    platform::Result<bool> next();
    // Writes the current record and opens the next target if this one is full. `limit` is the text with the number of
    // records per file; it is evaluated at each record.
    platform::Status write(QStringView limit);
    // Completes the last target. On success everything written is in the file system.
    platform::Status close(QStringView limit);

    const QString &currentFile() const { return m_currentFile; }
    qint32 total() const { return m_total; } // records written
    // Flushes the current target and returns how many complete records the targets contain. A failure is reported by
    // the next write() or close().
    qint32 handOver();
    QString report() const;

private:
    platform::Status openTarget(int number);
    platform::Status rollOver();
    void reportTarget();
    // Returns the number of records per file. The text is parsed only when it has changed.
    const std::optional<qint64> &mostPerFile(QStringView limit);
    // Flushes the target, so that it keeps everything written before the failure, and returns the failure.
    platform::Failure failed(platform::Failure failure);

    QString m_source;
    TargetPattern m_target;
    std::optional<RecordSource> m_records;
    std::optional<platform::ByteWriter> m_writer;
    QString m_currentFile;
    QString m_targetLines;
    QString m_limit; // the text that m_mostPerFile was parsed from
    std::optional<qint64> m_mostPerFile;
    int m_number = TargetPattern::firstNumber;
    qint32 m_total = 0;
    qint32 m_inFile = 0;
    qint64 m_inFilesBefore = 0; // complete records in the previous targets
};

} // namespace filetools
