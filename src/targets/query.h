// A search as the user enters it, and the query that a server gets.
#pragma once

#include "targets/target.h"
#include <QByteArray>

namespace targets {

// Records must match all parts that are not empty.
struct Query {
    QString isbn;
    QString title;
    QString author;
    QString publisher;
    QString year;
    QString words; // anywhere in the record

    bool isEmpty() const;
    friend bool operator==(const Query &, const Query &) = default;
};

// Returns the term composed (NFC), with single blanks for white space and without control and invisible characters.
QString normalizedTerm(const QString &term);

// Returns the query in the language and the charset of the target. Fails if the query is empty, if the target has no
// attribute for a part, or if a character has no code in the target's charset.
platform::Result<QByteArray> composeQuery(const Query &query, const Target &target);

} // namespace targets
