// Identifies a book by its ISBNs, or by title and author together if it has none.
#pragma once

#include "marc/fieldRows.h"
#include "marc/standardNumber.h"
#include <vector>

namespace batch {

// The database stores this many characters of title and author; the rest is ignored in comparisons.
inline constexpr qsizetype titleKept = 50;
inline constexpr qsizetype authorKept = 30;

QString comparedTitle(const QString &title);
QString comparedAuthor(const QString &author);

struct BookIdentity {
    std::vector<marc::IsbnKey> isbns; // each once
    QString title;                    // title and author as an import takes them, in the form that is compared
    QString author;
    int fieldRow = 0; // the grid row to show to the user, of the first ISBN or else of the title; 0: none

    bool isEmpty() const { return isbns.empty() && title.isEmpty(); }
};

BookIdentity identityOf(const marc::FieldRows &rows);

// Returns the elements that hold this subfield, in all fields with the tag.
std::vector<qsizetype> subfieldsOf(const marc::FieldRows &rows, QStringView tag, QStringView identifier);

// Returns the row of an element on the field grid, whose row 0 is the heading.
inline int gridRow(qsizetype element) {
    return int(element) + 1;
}

} // namespace batch
