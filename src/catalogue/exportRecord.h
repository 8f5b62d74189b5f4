// One row of the catalogue as one exchange record: a small fixed mapping whose tags, indicators and leader are
// constants of its own. What the mapping leaves out is as much a part of it as what it holds: no place of publication,
// edition, series or subject; nothing from a publisher without a date, a size alone, an author without a title.
#pragma once

#include "database/resultTable.h"
#include <QByteArray>
#include <QString>

namespace catalogue {

// The values of a row, as stored; empty where the column is NULL or could not be read.
struct CatalogueRow {
    QString zskid, isbn, lagclass, bookname, author, pubplace, publisher, pubdate, pages, appendix, classcode, books,
        booksauthor, measure, edition, ztc;
};

// The first row of the result, read by name; a row without values where there is none.
CatalogueRow readCatalogueRow(const database::ResultTable &result);

// The digits of a number with zeros in front to four and five characters; longer numbers stay as they are.
QByteArray Geshi1(qint64 number);
QByteArray Geshi2(qint64 number);

// The record in code page 936, its terminator included. Lengths are bytes; the control number always counts as 11 of
// them, and a field of 10,000 bytes makes its directory entry longer, without a complaint.
QByteArray exportRecord(const CatalogueRow &row);

} // namespace catalogue
