// Looks up a list of ISBNs in several targets, in the user's order: an ISBN that a target does not have is looked up in
// the next one. Among the records in one answer that have the ISBN, the first of those with the most essential fields
// is taken. Targets are queried at the same time for different ISBNs, each as Politeness allows.
#pragma once

#include "targets/batchJournal.h"
#include "targets/query.h"
#include "targets/recordDecoder.h"
#include "targets/targetLink.h"
#include <deque>

namespace targets {

struct Politeness {
    std::chrono::milliseconds pause{200}; // between an answer and the next request of the same connection
    int atOnce = 1;                       // connections to one target
};

class IsbnBatch : public QObject {
    Q_OBJECT

public:
    static constexpr int mostFailures = 3; // in a row, after which a target is not queried again
    static constexpr int mostHits = 10;    // records of one answer that are compared

    explicit IsbnBatch(TargetList targets, Politeness politeness = {}, Limits limits = {});
    ~IsbnBatch() override;

    // Prepares a new batch, or the rest of one that was stopped; start() begins the work. `journal` is a path.
    platform::Status begin(const QStringList &isbns, const QString &journal);
    platform::Status resume(const QString &journal);

    // Looks up the ISBNs that have no outcome or whose look-up failed.
    void start();
    // Stops at once. ISBNs without an answer stay pending.
    void stop();
    bool isActive() const { return m_active; }

    const QStringList &isbns() const { return m_isbns; }
    const Outcome &outcome(int row) const { return m_outcomes[size_t(row)]; }
    int count(Outcome::State state) const;
    QString words() const;                            // "找到 812，未找到 188"
    QStringList notFound() const;                     // the ISBNs that no target has
    QStringList notAsked() const;                     // those that are pending or failed
    std::vector<marc::FieldedRecord> records() const; // found, in the order of the ISBNs

Q_SIGNALS:
    void progressed(int row);                                      // the row has its outcome
    void targetDropped(const QString &name, const QString &fault); // after too many failures
    void journalFailed(const QString &why);                        // the batch was stopped
    void finished();

private:
    struct Lane;  // a connection
    struct Asked; // a target with its lanes and queue
    void enqueue(int row, size_t target);
    void serve(size_t target);
    void ask(size_t target, Lane &lane);
    void answered(size_t target, Lane &lane);
    void choose(size_t target, Lane &lane);
    void failed(size_t target, Lane &lane, const LinkFault &fault);
    void conclude(int row, Outcome outcome);
    void endIfDone();
    std::unique_ptr<Lane> makeLane(size_t target);

    Politeness m_politeness;
    Limits m_limits;
    std::vector<std::unique_ptr<Asked>> m_targets;
    BatchJournal m_journal;
    QStringList m_isbns;
    std::vector<Outcome> m_outcomes;
    int m_left = 0; // rows without an outcome
    bool m_active = false;
};

} // namespace targets
