// The loop that reads a record file into the list. It keeps all its state to itself and knows nothing of a window: what
// it tells and asks on the way goes through callables. The list may be looked at and changed while the loop yields.
#pragma once

#include "marc/fieldLookup.h"
#include "marc/preReadStore.h"
#include "platform/textFile.h"
#include <functional>
#include <limits>

namespace workspace {

enum class ReadState {
    Idle,     // more may be read
    Loading,  // the first batch
    Asked,    // the remainder is asked for, its file not open yet; stays so where that fails
    Reading,  // the remainder
    Stopping, // it ends behind the record in hand
    Finished, // nothing is left to read
};

struct ReadStateRow {
    ReadState state;
    QStringView text; // what the window says
    bool running;     // neither an import nor the window's end may come between
    bool mayReadAll;
    bool mayStop;
};
const ReadStateRow &rulesOf(ReadState state);

// The records of a file that a read lists: those behind the first `passOver`, up to record number `limit`.
struct ReadRange {
    qint64 passOver = 0;
    qint64 limit = std::numeric_limits<qint32>::max(); // the list counts its rows in 32 bits
};

struct ReadWatcher {
    std::function<void()> yield;         // once per record, listed or passed over
    std::function<bool()> abandoned;     // asked behind each yield: leave at once and touch nothing
    std::function<bool()> stopRequested; // asked behind each record
    marc::DamagedDirectory damaged;
    std::function<void(int count)> listed; // record number `count` now stands in row `count` - 1
};

struct ReadEnd {
    qint64 count = 0;       // records taken from the file, the one beyond the limit included
    bool atEnd = false;     // of the file
    bool abandoned = false; // the window is gone, or another read has taken over
};

// A title that cannot be looked up leaves the row with the title of the row before it.
ReadEnd readRecords(platform::LineReader &reader, ReadRange range, marc::PreReadStore &store,
                    const ReadWatcher &watcher);

} // namespace workspace
