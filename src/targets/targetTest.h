// Tests a target: connects, searches for one ISBN, and reports the name of the server, the number of hits and the first
// record.
#pragma once

#include "targets/search.h"

namespace targets {

class TargetTest : public QObject {
    Q_OBJECT

public:
    // `isbn` should be that of a book that the catalogue has.
    explicit TargetTest(const Target &target, const QString &isbn, Limits limits = {});

    void start();
    void stop();
    bool isActive() const { return m_search.isActive(); }

Q_SIGNALS:
    // `answered`: the server has answered the search, even with no record; the target may be kept as tested.
    void finished(bool answered, const QString &words);

private:
    void end();

    Search m_search;
    QString m_isbn;
    QString m_first; // the title of the first record
    qint64 m_damaged = 0;
    bool m_stopped = false;
};

} // namespace targets
