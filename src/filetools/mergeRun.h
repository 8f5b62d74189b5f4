// A merge in progress: writes several sources one after the other to one target. Memory use: the current record and the
// report. Call open(); for each source openSource(), next() and write() alternately until next() returns false, and
// closeSource(); finally close(). After a failure call nothing more; the files stay open until the object is destroyed.
// Sources are only read, but a source that is the target under another path is emptied by open().
#pragma once

#include "filetools/recordSource.h"
#include <optional>

namespace filetools {

class MergeRun {
public:
    explicit MergeRun(QString target);

    platform::Status open(); // empties the target
    platform::Status openSource(const QString &path);
    // Reads the next record. Returns false at the end of the source.
    platform::Result<bool> next();
    platform::Status write();
    void closeSource();
    // On success everything written is in the file system.
    platform::Status close();

    qint32 total() const { return m_total; } // records written
    // Flushes the target and returns how many complete records it contains. A failure is reported by the next write()
    // or close().
    qint32 handOver();
    QString report() const;

private:
    // Flushes the target, so that it keeps everything written before the failure, and returns the failure.
    platform::Failure failed(platform::Failure failure);

    QString m_target;
    std::optional<RecordSource> m_records;
    std::optional<platform::ByteWriter> m_writer;
    QString m_source;
    QString m_sourceLines;
    std::optional<qint32> m_mostOfSource; // set if the source is the target itself
    qint32 m_total = 0;
    qint32 m_ofSource = 0;
};

} // namespace filetools
