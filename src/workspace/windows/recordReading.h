// The reads of the workspace: the first batch, the remainder, stopping.
#pragma once

#include "marc/recordCutter.h"
#include "platform/host.h"
#include "workspace/preReadEngine.h"
#include "workspace/windows/recordList.h"
#include <optional>

namespace workspace {

class RecordReading final : public QObject {
    Q_OBJECT
public:
    RecordReading(RecordList &list, platform::Host &host, marc::DamagedDirectory damaged);

    ReadState state() const { return m_state; }
    bool stopFlag() const { return m_stopFlag; } // asks the running read to stop

    void firstBatch(const QString &file, int limit);
    // `passOver` is the number of rows that the list has, not of the records read.
    void remainder(const QString &file, int passOver);
    void all(const QString &file); // the command: the remainder of the file
    void stop();                   // the running read ends behind the record in hand
    // The running read leaves when it gets its turn again, and touches nothing: the window is closed.
    void abandon() { ++m_readsBegun; }

Q_SIGNALS:
    void stateChanged(workspace::ReadState state);
    void listed(int count); // record number `count` now stands in row `count` - 1; 0 at the start of a list
    void lookedAt(const marc::FileCounts &file); // before a batch is read
    void counted(qint64 count); // the file's records: an estimate first, the true number once its end was reached

private:
    std::optional<platform::LineReader> open(const QString &file);
    ReadEnd read(platform::LineReader &reader, ReadRange range);
    void enter(ReadState state);
    void finish(ReadState state);

    RecordList &m_list;
    platform::Host &m_host;
    marc::DamagedDirectory m_damaged;
    ReadState m_state = ReadState::Idle;
    bool m_stopFlag = false;
    int m_readsBegun = 0; // a read that finds a later one begun has been taken over and leaves
};

} // namespace workspace
