// What a connection text says of where the database is, in words that a person knows. No server is asked.
#pragma once

#include <QString>

namespace database {

struct Whereabouts {
    QString name;   // of the database or, where the text says none, of its data source; of a file without its folder
    QString server; // as the text spells it, with instance and port where they stand there; empty for a file
    QString file;   // of an embedded database, with its path
};

// From the text as stored; what its data source says counts where the text itself says nothing.
Whereabouts whereabouts(const QString &connectionString);

} // namespace database
