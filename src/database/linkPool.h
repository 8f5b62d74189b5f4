// The links that the program keeps open between one use and the next. Opening one costs a driver far more than a small
// insert, and a connection per use is the rule here; the driver manager's own pool would hand out links that are dead
// (the server was started anew) or stale (the SQLite file was replaced), so that rows go where nobody sees them. A kept
// link is therefore proved before it is handed out: by a look at the file, by a look at the socket where the server
// answered a moment ago, else by a round trip. Some seconds after the last use none is held open any more, so that an
// SQLite database is one whole file again. One thread.
#pragma once

#include "database/link.h"
#include <QHash>
#include <QTimer>
#include <memory>
#include <vector>

namespace database {

class LinkPool {
public:
    // `tables`: the program's tables as the schema scripts spell them; a server that tells names by case gets them so.
    explicit LinkPool(QStringList tables = {});
    ~LinkPool();
    LinkPool(const LinkPool &) = delete;
    LinkPool &operator=(const LinkPool &) = delete;

    // A kept link by the text as stored, proved to work, otherwise a new one.
    platform::Result<std::unique_ptr<Link>> take(const QString &connectionString);
    // Keeps the link for the next use; ends it where enough are kept.
    void keep(std::unique_ptr<Link> link);
    // Ends all kept links at once: before a file is copied, before a process ends without its destructors.
    void dropKept();

private:
    platform::Result<std::unique_ptr<Link>> connect(const QString &connectionString);

    QStringList m_tables;
    std::vector<std::unique_ptr<Link>> m_kept;
    QTimer m_idle;
    QHash<QString, const DriverRow *> m_drivers; // by the text: what the driver of its last link proved to be
    int m_opened = 0;                            // so many links
};

} // namespace database
