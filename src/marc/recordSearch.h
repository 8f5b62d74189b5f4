// Searches the list of pre-read records for a text, in steps, so that a window stays responsive for any number of
// records. The search is case-insensitive.
#pragma once

#include "marc/preReadStore.h"
#include <array>
#include <vector>

namespace marc {

enum class SearchPlace { Title, WholeRecord };

class RecordSearch {
public:
    // Does not search yet. An empty text is never found.
    RecordSearch(const PreReadStore &store, const QString &text, SearchPlace place);

    // Searches the next 64 records at most; returns false when all are searched. Records that were added meanwhile are
    // included.
    bool step();
    // Returns the rows found so far, from 0, ascending.
    const std::vector<int> &hits() const { return m_hits; }
    // Return the hit after or before `row`, wrapping around at the end of the list; -1 if there is none.
    int after(int row) const;
    int before(int row) const;
    // Returns the number of the hit at `row`, from 1; 0 if the row is not a hit.
    int number(int row) const;

private:
    bool found(int row) const;
    qsizetype endOfLikely(QByteArrayView bytes) const;
    bool surelyEndsAt(QByteArrayView bytes, qsizetype end) const;

    const PreReadStore &m_store;
    QString m_text;
    QByteArray m_needle; // in GBK, Latin letters in lower case; empty if records must be searched as texts
    std::array<qsizetype, 256> m_skip{}; // by the byte that is aligned with the needle's last one
    SearchPlace m_place;
    int m_row = 0;
    std::vector<int> m_hits;
};

} // namespace marc
