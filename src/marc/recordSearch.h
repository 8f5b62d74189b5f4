// Finds a text in the list of pre-read records, in slices, so that a window stays alive over any number of them.
// Letters are found in either case.
#pragma once

#include "marc/preReadStore.h"
#include <array>
#include <vector>

namespace marc {

enum class SearchPlace { Title, WholeRecord };

class RecordSearch {
public:
    // Looks at nothing yet. An empty text is found nowhere.
    RecordSearch(const PreReadStore &store, const QString &text, SearchPlace place);

    // Looks at the next records, some milliseconds' worth; false when all have been looked at. Records that were listed
    // meanwhile are looked at too.
    bool step();
    // The rows found so far, from 0, ascending.
    const std::vector<int> &hits() const { return m_hits; }
    // The hit that follows `row` (or stands before it), around the end of the list; -1 where there is none.
    int after(int row) const;
    int before(int row) const;
    // Which hit the row is, from 1; 0 where it is none.
    int number(int row) const;

private:
    bool found(int row) const;
    qsizetype endOfLikely(QByteArrayView bytes) const;
    bool surelyEndsAt(QByteArrayView bytes, qsizetype end) const;

    const PreReadStore &m_store;
    QString m_text;
    QByteArray m_needle;                 // in GBK, Latin letters small; empty where records must be looked at as texts
    std::array<qsizetype, 256> m_skip{}; // by the byte that stands under the needle's last one
    SearchPlace m_place;
    int m_row = 0;
    std::vector<int> m_hits;
};

} // namespace marc
