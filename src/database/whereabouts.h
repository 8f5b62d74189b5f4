// What a connection text says of where the database is, in words that a person knows, and what may be asked about it
// without opening it.
#pragma once

#include <QString>

namespace database {

struct Whereabouts {
    QString name;   // of the database or, where the text says none, of its data source; of a file without its folder
    QString server; // empty for a file
    int port = 0;   // 0: none to be asked
    QString file;   // of an embedded database, with its path
};

// From the text as stored; what its data source says counts where the text itself says nothing.
Whereabouts whereabouts(const QString &connectionString);

} // namespace database
