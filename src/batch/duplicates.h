// Searches the copy-cataloguing store and the catalogue for the records of a batch: by ISBN in any form and spelling,
// or by title and author for a record without ISBN.
//
// Each table is read once in the order of its keys, a few thousand rows per query, and compared here. No server has an
// index over ISBNs without hyphens, so each query for some hundred ISBNs would make it scan the table as well. In
// addition, no text of a record becomes part of a statement.
#pragma once

#include "batch/batchProof.h"
#include "database/sublib.h"
#include <map>

namespace batch {

class DuplicateSearch {
public:
    DuplicateSearch(const database::SessionState &state, SoughtBooks books);

    bool hasNext() const;
    // Runs the next query, for a few thousand rows. The remarks are returned after the end of a table, one per record
    // and a few hundred per step. If a table cannot be read to its end, one more remark reports it; if the server
    // cannot be reached, a single remark does.
    std::vector<Remark> step();
    // Closes the connection. step() must not be called afterwards.
    void end();
    // Releases a part of the hits that were not reported; returns whether there is more.
    bool dropSome();
    // Returns a text such as "套录库 45%".
    QString progressText() const;

private:
    // The rows of the current table that match a book.
    struct Hit {
        int rows = 0;
        QString first;
        bool byIsbn = false;
    };
    // The progress in the current table, by its keys. Rows after the last key at the start of the walk are not
    // compared.
    struct Walk {
        qint64 first = 0, last = 0;
        std::optional<qint64> seen;
        bool more = true;
    };

    platform::Status begin();
    platform::Status walk();
    void match(const database::ResultTable &rows, int row);
    void hit(int book, const database::ResultTable &rows, int row, bool byIsbn);
    std::vector<Remark> tell();
    Remark remarkOn(int book, const Hit &hit) const;

    const database::SessionState &m_state;
    database::DbSession m_connection;
    SoughtBooks m_books;
    std::map<int, Hit> m_hits; // in the current table, by book
    size_t m_table = 0;
    std::optional<Walk> m_walk;                   // through the current table
    std::optional<platform::Status> m_tableEnded; // with the result of reading the table, once it has ended
};

} // namespace batch
