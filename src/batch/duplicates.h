// Looks for the records of a batch in the copy-cataloguing store and in the catalogue: by ISBN, whatever its form and
// spelling there, or by title and author where a record has none.
//
// The tables are walked once in the order of their keys, some thousand rows at a time, and compared here: no server has
// an index over ISBNs without their hyphens, so that each question about some hundred of them would make it walk the
// table as well; and no text of a record ever gets into a statement.
#pragma once

#include "batch/batchProof.h"
#include "database/sublib.h"
#include <QMultiHash>

namespace batch {

class DuplicateSearch {
public:
    DuplicateSearch(const database::SessionState &state, std::vector<SoughtRecord> sought);

    bool hasNext() const;
    // Asks the next question, of some thousand rows. What it gives comes at the end of a table, one remark a record; a
    // table that cannot be walked to its end gives a remark that says so, a server that cannot be reached just one.
    std::vector<Remark> step();
    // "套录库 45%"
    QString progressText() const;

private:
    // What a table has of a record.
    struct Hit {
        int rows = 0;
        QString first;
        bool byIsbn = false;
    };
    // How far a table has been walked, by its keys. Rows that come after its last key of the start are not looked at.
    struct Walk {
        qint64 first = 0, last = 0;
        std::optional<qint64> seen;
        bool more = true;
    };

    platform::Status begin();
    platform::Status walk();
    void match(const database::ResultTable &rows, int row);
    void hit(int sought, const database::ResultTable &rows, int row, bool byIsbn);
    std::vector<Remark> endTable(const platform::Status &status);

    const database::SessionState &m_state;
    database::DbSession m_connection;
    std::vector<SoughtRecord> m_sought;
    QMultiHash<proof::IsbnKey, int> m_byIsbn;
    QMultiHash<QString, int> m_byTitle;
    bool m_anyByTitle = false; // a record without an ISBN is among them
    std::vector<Hit> m_hits;   // of the current table
    std::size_t m_table = 0;
    std::optional<Walk> m_walk; // through the current table
};

} // namespace batch
