// What the main window says of the database at the start: which one it is, and whether its file is there. No server is
// called: one that is only knocked at counts that as a failed connection, and blocks a machine that has made too many.
#pragma once

#include <QString>

namespace app {

struct DatabaseNote {
    QString words;
    bool missing = false; // a file that is not there
};

DatabaseNote databaseNote(const QString &connectionString);

} // namespace app
