// From one record to one row of the copy-cataloguing table. A step that cannot be done (a number that is none, an
// offset outside, a run of digits that does not fit) is passed over and leaves its target as it was.
#pragma once

#include "marc/rawRecord.h"
#include <QString>
#include <optional>

namespace importing {

// The eighteen columns in the order of the insert statement. Texts are cut to the column's characters first and have
// their apostrophes doubled afterwards, ready to stand between apostrophes.
struct RecordRow {
    QString bookname, author, edition, isbn, pubplace, publisher, pubdate;
    qint16 pages = 0;
    QString classcode, books, booksauthor, measure, docclass, ztc, appendix, lagclass;
    qint64 price = 0; // whole units: the run of digits ends at a point
    QString marc;
};

// Nothing where the directory is damaged. A record without a field terminator gives a nearly empty row.
std::optional<RecordRow> recordRow(const marc::RawRecord &record);

// The statement that inserts the row, in the one dialect of the program.
QString insertStatement(const RecordRow &row);

} // namespace importing
