// The loop that reads a record file into the list. It keeps its own state, does not use any window, and reports through
// callables. The list may be read and changed while the loop yields.
#pragma once

#include "marc/fieldLookup.h"
#include "marc/preReadStore.h"
#include "marc/recordCutter.h"
#include <functional>
#include <limits>

namespace workspace {

enum class ReadState {
    Idle,     // more records can be read
    Loading,  // reading the first batch
    Asked,    // the rest was requested but its file is not open yet; remains if opening fails
    Reading,  // reading the rest
    Stopping, // reading ends after the current record
    Finished, // all records are read
};

struct ReadStateRow {
    ReadState state;
    QStringView text; // shown by the window
    bool running;     // no import may start and the window may not close
    bool mayReadAll;
    bool mayStop;
};
const ReadStateRow &rulesOf(ReadState state);

// The records that a read lists: those after the first `passOver`, up to record number `limit`.
struct ReadRange {
    qint64 passOver = 0;
    qint64 limit = std::numeric_limits<qint32>::max(); // the list counts rows in 32 bits
};

struct ReadWatcher {
    std::function<void()> yield;     // called once per record, listed or skipped
    std::function<bool()> abandoned; // called after each yield; if true, the loop returns at once and touches nothing
    std::function<bool()> stopRequested; // called after each record
    marc::DamagedDirectory damaged;
    std::function<void(int count)> listed; // called when record number `count` is in row `count` - 1
};

struct ReadEnd {
    qint64 count = 0;       // records taken from the file, including one beyond the limit
    bool atEnd = false;     // the end of the file was reached
    bool abandoned = false; // the window was closed or another read has replaced this one
};

// If the title of a record cannot be determined, its row gets the title of the previous row.
ReadEnd readRecords(marc::RecordCutter &cutter, ReadRange range, marc::PreReadStore &store, const ReadWatcher &watcher);

} // namespace workspace
