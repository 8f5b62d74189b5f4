// The note about the database in the main window at start: its name, and whether its file exists. No server is
// contacted: a server counts a connection that is opened and closed as failed, and blocks a machine after too many of
// them.
#pragma once

#include <QString>

namespace app {

struct DatabaseNote {
    QString words;
    bool missing = false; // the database is a file that does not exist
};

DatabaseNote databaseNote(const QString &connectionString);

} // namespace app
