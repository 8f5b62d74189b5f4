// What one book is told from another by: its ISBNs or, where it has none, title and author together.
#pragma once

#include "marc/fieldRows.h"
#include "proof/standardNumber.h"
#include <vector>

namespace batch {

// The store holds so many characters of these; what lies behind is looked at in neither.
inline constexpr qsizetype titleKept = 50;
inline constexpr qsizetype authorKept = 30;

QString comparedTitle(const QString &title);
QString comparedAuthor(const QString &author);

struct BookIdentity {
    std::vector<proof::IsbnKey> isbns; // each once
    QString title;                     // as they are compared: what an import takes from the record
    QString author;
    QString tag;      // where to look in the record, and its row on the field grid
    int fieldRow = 0; // 0: nowhere

    bool isEmpty() const { return isbns.empty() && title.isEmpty(); }
};

BookIdentity identityOf(const marc::FieldRows &rows);

// The elements that hold this subfield, over all fields of the tag.
std::vector<qsizetype> subfieldsOf(const marc::FieldRows &rows, QStringView tag, QStringView identifier);

// The row of an element on the field grid, whose heading is row 0.
inline int gridRow(qsizetype element) {
    return int(element) + 1;
}

} // namespace batch
