// The links that the program keeps open between two uses. Opening a link costs far more than a small insert, and the
// program opens a connection per use; the driver manager's own pool would return links that are dead (the server was
// restarted) or stale (the SQLite file was replaced), so that rows would be lost. A kept link is therefore tested
// before it is used again: by the identity of the file, by the state of the socket if the server answered a moment ago,
// or else by a round trip. A few seconds after the last use all links are closed, so that an SQLite database is again
// one complete file. Not thread-safe.
#pragma once

#include "database/link.h"
#include <QHash>
#include <QTimer>
#include <memory>
#include <vector>

namespace database {

class LinkPool {
public:
    // `tables`: the program's tables as the schema scripts spell them; statements for a server with case-sensitive
    // table names use the server's spelling of them.
    explicit LinkPool(QStringList tables = {});
    ~LinkPool();
    LinkPool(const LinkPool &) = delete;
    LinkPool &operator=(const LinkPool &) = delete;

    // Returns a kept link for the text as stored, tested, or else a new one.
    platform::Result<std::unique_ptr<Link>> take(const QString &connectionString);
    // Keeps the link for the next use; if too many are kept, the oldest one is closed.
    void keep(std::unique_ptr<Link> link);
    // Closes all kept links at once: before a file is copied, or a process ends without running destructors.
    void dropKept();

private:
    platform::Result<std::unique_ptr<Link>> connect(const QString &connectionString);

    QStringList m_tables;
    std::vector<std::unique_ptr<Link>> m_kept;
    QTimer m_idle;
    QHash<QString, const DriverRow *> m_drivers; // by connection text: the driver of its last link
    int m_opened = 0;                            // number of links opened so far
};

} // namespace database
