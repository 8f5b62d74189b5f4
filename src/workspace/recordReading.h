// The reads of the workspace: the first batch, the remaining records, and stopping.
#pragma once

#include "marc/recordCutter.h"
#include "platform/host.h"
#include "workspace/preReadEngine.h"
#include <QObject>
#include <memory>

namespace workspace {

class RecordReading final : public QObject {
    Q_OBJECT
public:
    // The records are put into `store`.
    RecordReading(marc::PreReadStore &store, platform::Host &host, marc::DamagedDirectory damaged);

    ReadState state() const { return m_state; }
    qint64 listedCount() const { return m_listed; }
    qint64 recordsInFile() const { return isAtEnd() ? m_listed : m_inFile; } // an estimate until isAtEnd()
    // Returns whether no record of the file is left to read, as far as known.
    bool isAtEnd() const {
        return m_state == ReadState::Finished || (!rulesOf(m_state).running && m_listed > 0 && m_inFile <= m_listed);
    }

    void firstBatch(const QString &file, int limit);
    // `passOver` is the number of rows in the list, not of records read.
    void remainder(const QString &file, int passOver);
    void all(const QString &file); // the command: reads the remaining records of the file
    void stop();                   // the running read ends after the current record
    // Call when the window is closed: the running read returns when it continues, and touches nothing.
    void abandon() { ++m_readsBegun; }

Q_SIGNALS:
    void begun(); // a first batch is to be read: the list must be emptied
    void firstBatchRead();
    void stateChanged(workspace::ReadState state);
    void listed(int count); // record number `count` is now in row `count` - 1; 0 when a list starts
    void lookedAt(const marc::FileCounts &file); // before a batch is read
    void counted(qint64 count); // records in the file: an estimate, and the exact number once the end was reached

private:
    std::unique_ptr<marc::RecordCutter> open(const QString &file); // null if the file cannot be opened
    ReadEnd read(marc::RecordCutter &cutter, ReadRange range);
    void enter(ReadState state);
    void tellListed(int count);
    void count(qint64 inFile);
    void finish(ReadState state);

    marc::PreReadStore &m_store;
    platform::Host &m_host;
    marc::DamagedDirectory m_damaged;
    ReadState m_state = ReadState::Idle;
    bool m_stopFlag = false; // requests that the running read stops
    qint64 m_listed = 0;
    qint64 m_inFile = 0;  // number of lines until the end was reached
    int m_readsBegun = 0; // a read returns when a later one has begun
};

} // namespace workspace
