// The reads of the workspace: the first batch, the remainder, stopping, and what the window says meanwhile.
#pragma once

#include "platform/host.h"
#include "workspace/preReadEngine.h"
#include <optional>

namespace workspace {

class frmDaoru;
class RecordMoving;

class RecordReading {
public:
    static constexpr QStringView ended = u"预读结束"; // the state in which no read runs

    RecordReading(frmDaoru &form, platform::Host &host, RecordMoving &moving);

    void firstBatch(const QString &file, int limit);
    // `passOver` is the number of rows that the list has, not of the records read.
    void remainder(const QString &file, int passOver);
    void all();  // the command: the remainder of the window's file
    void stop(); // the running read ends behind the record in hand
    // The running read leaves when it gets its turn again, and touches nothing: the window is closed.
    void abandon() { ++m_readsBegun; }

private:
    std::optional<platform::LineReader> open(const QString &file);
    ReadEnd read(platform::LineReader &reader, ReadRange range, bool first);
    void finish();
    void say(QStringView state);

    frmDaoru &m_form;
    platform::Host &m_host;
    RecordMoving &m_moving;
    int m_readsBegun = 0; // a read that finds a later one begun has been taken over and leaves
};

} // namespace workspace
