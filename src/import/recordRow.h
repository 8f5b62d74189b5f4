// Converts one record to one row of the copy-cataloguing table. A step that fails (an invalid number, an offset outside
// the record, a run of digits that does not fit) is skipped and leaves its target unchanged.
#pragma once

#include "marc/rawRecord.h"
#include <QString>
#include <optional>

namespace importing {

// The eighteen columns in the order of the insert statement. Texts are first cut to the length of the column; then
// their apostrophes are doubled, for use in a literal.
struct RecordRow {
    QString bookname, author, edition, isbn, pubplace, publisher, pubdate;
    qint16 pages = 0;
    QString classcode, books, booksauthor, measure, docclass, ztc, appendix, lagclass;
    qint64 price = 0; // whole units: the digits end at a decimal point
    QString marc;
};

// Returns std::nullopt if the directory is damaged. A record without a field terminator gives a nearly empty row.
std::optional<RecordRow> recordRow(const marc::RawRecord &record);

// Returns the statement that inserts the row, in the dialect of the program.
QString insertStatement(const RecordRow &row);

} // namespace importing
