// The location of the database that a connection text names, in words for the user. No server is contacted.
#pragma once

#include <QString>

namespace database {

struct Whereabouts {
    QString name; // of the database, or of its data source if the text names no database; of a file: without its folder
    QString server; // as the text spells it, including instance and port; empty for a file
    QString file;   // path of an embedded database
};

// `connectionString` is the text as stored; the definition of its data source supplies what the text itself does not
// contain.
Whereabouts whereabouts(const QString &connectionString);

} // namespace database
