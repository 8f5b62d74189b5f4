// One search in several targets at once. Each target has its own connection, limits and faults; none waits for another.
#pragma once

#include "targets/query.h"
#include "targets/recordDecoder.h"
#include "targets/targetLink.h"

namespace targets {

// A record as it was fetched.
struct Fetched {
    qint64 at = 0;      // position in the result, counted from 0
    qsizetype size = 0; // bytes of the answer
    RecordDecoder::Decoded decoded;
};

struct Bounds {
    qint64 records = 1000;   // fetched from one target before fetchMore()
    qint64 bytes = 64 << 20; // of the records of one target
};

struct Progress {
    enum class Stage { Waiting, Connecting, Fetching, Done, Failed, Stopped };
    Stage stage = Stage::Waiting;
    qint64 hits = -1;     // below 0: not known yet
    qint64 delivered = 0; // records, including unreadable ones
    qint64 unreadable = 0;
    qint64 bytes = 0;
    bool mayGoOn = false; // there are more records, which fetchMore() fetches
    QString fault;        // after Failed

    // Returns the state in one line, such as "已取 20 条，共 340 条".
    QString words() const;
};

class Search : public QObject {
    Q_OBJECT

public:
    explicit Search(const TargetList &targets, Limits limits = {}, Bounds bounds = {});

    // Starts a search in all targets. Ends the one that is running.
    void start(const Query &query);
    // Stops at once. The targets that are not done become Stopped; no further record is sent.
    void stop();
    // Fetches further records from a target whose Progress::mayGoOn is true.
    void fetchMore(int target);

    bool isActive() const { return m_active > 0; }
    int count() const { return int(m_parts.size()); }
    const Target &target(int index) const { return m_parts[size_t(index)].link->target(); }
    const Progress &progress(int index) const { return m_parts[size_t(index)].progress; }
    const QString &serverName(int index) const { return m_parts[size_t(index)].link->serverName(); }

Q_SIGNALS:
    void progressed(int target);
    void found(int target, const targets::Fetched &record);
    void unreadable(int target, qint64 at, const QString &why); // `at` is counted from 0
    void finished();                                            // no target is active any more

private:
    struct Later {
        void operator()(QObject *object) const { object->deleteLater(); } // also during its signal
    };
    struct Part {
        std::unique_ptr<TargetLink, Later> link;
        RecordDecoder decoder;
        Progress progress;
        qint64 most = 0; // records to deliver
    };

    void connectPart(int index);
    void deliver(int index, const Answer &record);
    void passOver(int index, qint64 at, const QString &why);
    void fetchNext(int index);
    void end(int index, Progress::Stage stage, const QString &fault = {});

    Bounds m_bounds;
    std::vector<Part> m_parts;
    int m_active = 0;
};

} // namespace targets
