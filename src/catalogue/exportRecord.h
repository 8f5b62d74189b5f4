// Converts one row of the catalogue to one exchange record with a small fixed mapping of tags, indicators and leader.
// The omissions are part of the mapping: no place of publication, edition, series or subject, no publisher without a
// date, no size alone, and no author without a title.
#pragma once

#include "database/resultTable.h"
#include <QByteArray>
#include <QString>

namespace catalogue {

// The stored values of a row; empty if the column is NULL or could not be read.
struct CatalogueRow {
    QString zskid, isbn, lagclass, bookname, author, pubplace, publisher, pubdate, pages, appendix, classcode, books,
        booksauthor, measure, edition, ztc;
};

// Reads the first row of the result by column names. Returns a row without values if there is none.
CatalogueRow readCatalogueRow(const database::ResultTable &result);

// Return the number padded with zeros to four (Geshi1) or five (Geshi2) characters. Longer numbers are not shortened.
QByteArray Geshi1(qint64 number);
QByteArray Geshi2(qint64 number);

// Returns the record in code page 936, including its terminator. Lengths are in bytes. The control number always counts
// as 11 bytes. A field of 10,000 bytes or more makes its directory entry longer, without an error.
QByteArray exportRecord(const CatalogueRow &row);

} // namespace catalogue
