// A merge in progress: a list of sources written one after the other into one target. Memory: the record in hand and
// the report. Whoever runs it calls open(), for each source openSource(), next() and write() in turn until next() is
// false, closeSource(), and close() at last; after a failure nothing more, and the files stay open until the object
// goes. Sources are only read; but a source that is the target by another spelling has been emptied by open().
#pragma once

#include "filetools/recordSource.h"
#include <memory>
#include <optional>

namespace filetools {

class MergeRun {
public:
    explicit MergeRun(QString target);
    MergeRun(const MergeRun &) = delete; // its source calls it

    platform::Status open(); // empties the target
    platform::Status openSource(const QString &path);
    // Moves on to the next record; false at the end of the source.
    platform::Result<bool> next();
    platform::Status write();
    void closeSource();
    // What was written is on the machine when this succeeds.
    platform::Status close();

    qint32 total() const { return m_total; } // records written
    // Hands over what was written so far; how many records stand whole in the target. A failure is told by the next
    // write() or close().
    qint32 handOver();
    QString report() const;

private:
    // Hands over what was written so far, so that a failed run leaves all of it, and passes the failure on.
    platform::Failure failed(platform::Failure failure);

    QString m_target;
    std::unique_ptr<RecordSource> m_records;
    std::optional<platform::ByteWriter> m_writer; // goes before the records, of which it may hold some
    QString m_source;
    QString m_sourceLines;
    std::optional<qint32> m_mostOfSource; // of a source that is the target itself
    qint32 m_total = 0;
    qint32 m_ofSource = 0;
};

} // namespace filetools
