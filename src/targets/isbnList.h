// Finds the ISBNs in a text that a user pasted or in a file, one a line or in columns.
#pragma once

#include <QStringList>

namespace targets {

struct IsbnList {
    QStringList isbns;   // as they are written, in their order, each once
    int repeated = 0;    // further spellings of an ISBN in the list
    QStringList ignored; // parts of the text that have many digits but are not ISBNs
};

// Reads lines, and the columns of a CSV file in any order; parts without nine digits are ignored.
IsbnList isbnsIn(const QString &text);

} // namespace targets
