// Records the changes to a file's records that were not imported yet, and the drafts that an earlier start left. It
// reacts to changes of the list and uses neither files nor timers. Rows are rows of the list, counted from 0.
//
// A draft is forgotten only after its record was imported or the user discarded it. A draft that cannot be restored,
// because the record was changed again or is a different one, is set aside and never dropped.
#pragma once

#include "marc/rawRecord.h"
#include <QByteArray>
#include <QMap>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace workspace {

struct Draft {
    marc::RawRecord record; // as it would be imported
    QByteArray origin;      // fingerprint() of the record as it is in the file; empty if unknown
    friend bool operator==(const Draft &, const Draft &) = default;
};
using Drafts = QMap<int, Draft>; // by row

class DraftBook {
public:
    static QByteArray fingerprint(const marc::RawRecord &record);

    // Starts over for a file without drafts.
    void begin() { *this = {}; }
    // Adds drafts that an earlier start left, or that could not be set aside.
    void leave(const Drafts &drafts);

    // Records that the list now holds `after` instead of `before`. If `after` is the record of the file again, the row
    // needs no draft.
    void taken(int row, const marc::RawRecord &before, const marc::RawRecord &after);
    // Returns the rows whose records were taken over and not imported, in ascending order.
    std::vector<int> takenRows() const;
    // Records that the rows for which `wentIn` returns true were imported as the list holds them.
    void imported(const std::function<bool(int row)> &wentIn);

    // The result of restoring drafts, by row. The caller puts the records of `put` into the list and calls taken() for
    // each.
    struct Restored {
        QMap<int, marc::RawRecord> put;
        Drafts aside;    // not restored, and no longer part of left()
        int newer = 0;   // how many of `aside`: the record was changed again in this session
        int other = 0;   // how many of `aside`: the file now has a different record in that row
        int waiting = 0; // how many remain in left() until their records are listed
    };
    // RecordOf returns the record in a row of the list, or std::nullopt if it was not read yet. `inGrid` is the row of
    // a record that has edits which the list does not hold yet.
    using RecordOf = std::function<std::optional<marc::RawRecord>(int row)>;
    Restored restore(const RecordOf &record, std::optional<int> inGrid);
    // Restores the draft of a row that was just listed, if restore() was called before.
    Restored listed(int row, const marc::RawRecord &record);
    // Call when the file has been read to its end, with the number of its records. Removes from left() the waiting
    // drafts beyond the end and returns them.
    Drafts beyondTheEnd(int count);
    // Discards the drafts of left() and returns them.
    Drafts giveUp();

    // Returns the drafts of an earlier start that were neither restored nor discarded.
    const Drafts &left() const { return m_left; }
    bool isWaiting() const { return m_restoring && !m_left.isEmpty(); }
    bool isTaken(int row) const { return m_taken.contains(row); }
    qsizetype takenCount() const { return m_taken.size(); }

    // Returns the drafts of the records that were changed in this session and not imported. `inGrid` is the record of
    // the grid if it differs from the list, together with the record that the list holds.
    struct InGrid {
        int row = 0;
        marc::RawRecord record;
        marc::RawRecord listed;
    };
    Drafts changed(const std::optional<InGrid> &inGrid) const;
    // Returns the draft of one row among them; std::nullopt if it has none.
    std::optional<Draft> draftOf(int row, const std::optional<InGrid> &inGrid) const;

    // The differences from the file of drafts since settle(): rows whose drafts were added, removed or changed, in
    // ascending order; isUnsettled() includes all other differences.
    const std::set<int> &unsettledRows() const { return m_unsettledRows; }
    bool isUnsettled() const { return m_unsettled; }
    void settle();                             // everything was written
    void settle(const std::vector<int> &rows); // these rows were written

    // Returns a number that increases with each change of left() and of the changed records; begin() resets it to 0.
    quint64 revision() const { return m_revision; }

private:
    void noteChange() {
        m_unsettled = true;
        ++m_revision;
    }
    void restoreRow(Drafts::const_iterator left, const marc::RawRecord &record, bool isNewer, Restored &done) const;

    Drafts m_left;
    Drafts m_taken;                 // records that the list holds
    QMap<int, QByteArray> m_origin; // of every row changed in this session, imported ones too
    bool m_restoring = false;       // listed() restores drafts
    std::set<int> m_unsettledRows;
    bool m_unsettled = false;
    quint64 m_revision = 0;
};

} // namespace workspace
