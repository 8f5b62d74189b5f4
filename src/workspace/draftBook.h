// Which records of a file were changed and not yet imported, and what an earlier start has left of such changes. It
// follows what happens to the list and knows neither file nor clock. Rows are those of the list, counted from 0.
//
// A draft is forgotten only when its record was imported or the user gave it up. A draft that cannot be restored
// (the record was changed again, or is another one) is set aside, never dropped.
#pragma once

#include "marc/rawRecord.h"
#include <QByteArray>
#include <QMap>
#include <functional>
#include <optional>

namespace workspace {

struct Draft {
    marc::RawRecord record; // as it would be imported
    QByteArray origin;      // fingerprint() of the record as the file has it; empty: not known
    friend bool operator==(const Draft &, const Draft &) = default;
};
using Drafts = QMap<int, Draft>; // by row

class DraftBook {
public:
    static QByteArray fingerprint(const marc::RawRecord &record);

    // Starts with a file that has nothing yet.
    void begin() { *this = {}; }
    // What an earlier start has left, or what could not be set aside.
    void leave(const Drafts &drafts);

    // The list holds `after` in place of `before`.
    void taken(int row, const marc::RawRecord &before, const marc::RawRecord &after);
    // These rows went into the store as the list holds them.
    void imported(const std::function<bool(int row)> &wentIn);

    // What the user's wish to restore comes to, in rows. The records of `put` are to be put into the list, by taken().
    struct Restored {
        QMap<int, marc::RawRecord> put;
        Drafts aside;    // not restored, and no longer among what is left
        int newer = 0;   // of these: the record was changed again since this start
        int other = 0;   // of these: the file's record is another one
        int waiting = 0; // will be restored when the record has been listed
    };
    // `record` gives the record of a row of the list, nothing where it has not been read; `inGrid` is the row of a
    // record with edits that the list does not hold yet.
    using RecordOf = std::function<std::optional<marc::RawRecord>(int row)>;
    Restored restore(const RecordOf &record, std::optional<int> inGrid);
    // The same for a row that has just been listed, where the user wished for it.
    Restored listed(int row, const marc::RawRecord &record);
    // The file has been read to its end: what still waits belongs to no record.
    Drafts beyondTheEnd(int count);
    // The user does not want what is left.
    Drafts giveUp();

    // What is left of an earlier start and neither restored nor given up.
    const Drafts &left() const { return m_left; }
    bool isWaiting() const { return m_restoring && !m_left.isEmpty(); }
    bool isTaken(int row) const { return m_taken.contains(row); }
    qsizetype takenCount() const { return m_taken.size(); }

    // All that a later start must find: what is left, and above it what was changed by now. `inGrid` is the record of
    // the grid where it differs from the list, with the record that the list holds.
    struct InGrid {
        int row = 0;
        marc::RawRecord record;
        marc::RawRecord listed;
    };
    Drafts changed(const std::optional<InGrid> &inGrid) const;

    // Another number after each change of what changed() and left() give.
    quint64 revision() const { return m_revision; }

private:
    void restoreRow(Drafts::const_iterator left, const marc::RawRecord &record, bool isNewer, Restored &done) const;

    Drafts m_left;
    Drafts m_taken;                 // records that the list holds
    QMap<int, QByteArray> m_origin; // of every row that was changed since this start, imported ones too
    bool m_restoring = false;       // what is left goes back as its records are listed
    quint64 m_revision = 0;
};

} // namespace workspace
