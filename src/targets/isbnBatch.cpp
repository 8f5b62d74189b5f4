#include "targets/isbnBatch.h"
#include "targets/recordSummary.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using State = targets::Outcome::State;

namespace targets {

// While the server works on a request, the previous answer is decoded and stored.
struct IsbnBatch::Lane {
    explicit Lane(const Target &target, Limits limits)
        : link(target, limits)
        , decoder(target.recordCharset) {}

    struct Request {
        int row = -1; // below 0: none
        std::vector<QByteArray> records;
    };
    TargetLink link;
    RecordDecoder decoder;
    QTimer pause;
    Request asked;
    Request answered; // no record of it is chosen yet
};

struct IsbnBatch::Asked {
    Target target;
    std::vector<std::unique_ptr<Lane>> lanes;
    std::deque<int> queue; // of rows
    int failures = 0;      // consecutive
    QString dropped;       // the last fault, once the target is not queried any more
};

IsbnBatch::IsbnBatch(TargetList targets, Politeness politeness, Limits limits)
    : m_politeness(politeness)
    , m_limits(limits) {
    for (Target &target : targets) {
        m_targets.push_back(std::make_unique<Asked>());
        m_targets.back()->target = std::move(target);
        for (int i = 0; i < std::max(1, m_politeness.atOnce); ++i)
            m_targets.back()->lanes.push_back(makeLane(m_targets.size() - 1));
    }
}

IsbnBatch::~IsbnBatch() = default;

std::unique_ptr<IsbnBatch::Lane> IsbnBatch::makeLane(size_t target) {
    auto made = std::make_unique<Lane>(m_targets[target]->target, m_limits);
    Lane &lane = *made;
    lane.pause.setSingleShot(true);
    lane.pause.setInterval(m_politeness.pause);
    connect(&lane.pause, &QTimer::timeout, this, [this, target] { serve(target); });
    connect(&lane.link, &TargetLink::sent, this, [this, target, &lane] { choose(target, lane); });
    connect(&lane.link, &TargetLink::arrived, this,
            [&lane](const Answer &record) { lane.asked.records.push_back(record.bytes.toByteArray()); });
    connect(&lane.link, &TargetLink::answered, this, [this, target, &lane] { answered(target, lane); });
    connect(&lane.link, &TargetLink::failed, this,
            [this, target, &lane](const LinkFault &fault) { failed(target, lane, fault); });
    return made;
}

platform::Status IsbnBatch::begin(const QStringList &isbns, const QString &journal) {
    stop();
    m_isbns = isbns;
    m_outcomes.assign(size_t(isbns.size()), {});
    return m_journal.begin(journal, isbns);
}

platform::Status IsbnBatch::resume(const QString &journal) {
    stop();
    auto contents = m_journal.resume(journal);
    if (!contents)
        return contents.failure();
    m_isbns = contents.value().isbns;
    m_outcomes = std::move(contents.value().outcomes);
    return platform::success();
}

void IsbnBatch::start() {
    stop();
    m_active = true;
    m_left = 0;
    for (const auto &asked : m_targets) {
        asked->failures = 0;
        asked->dropped.clear();
    }
    std::vector<int> rows;
    for (int row = 0; row < int(m_outcomes.size()); ++row) {
        if (m_outcomes[size_t(row)].state == State::Found || m_outcomes[size_t(row)].state == State::Missing)
            continue;
        m_outcomes[size_t(row)] = {};
        rows.push_back(row);
    }
    m_left = int(rows.size());
    for (const int row : rows)
        enqueue(row, 0);
    if (m_left == 0)
        QMetaObject::invokeMethod(
            this, [this] { endIfDone(); }, Qt::QueuedConnection);
}

void IsbnBatch::stop() {
    m_active = false;
    for (const auto &asked : m_targets) {
        asked->queue.clear();
        for (const auto &lane : asked->lanes) {
            lane->link.stop();
            lane->pause.stop();
            lane->asked = lane->answered = {};
        }
    }
}

// Passes the row to the target, or to the first one after it that is still queried.
void IsbnBatch::enqueue(int row, size_t target) {
    while (target < m_targets.size() && !m_targets[target]->dropped.isEmpty()) {
        m_outcomes[size_t(row)].why = m_targets[target]->dropped;
        ++target;
    }
    if (target < m_targets.size()) {
        m_targets[target]->queue.push_back(row);
        return serve(target);
    }
    Outcome outcome;
    outcome.why = m_outcomes[size_t(row)].why;
    outcome.state = outcome.why.isEmpty() ? State::Missing : State::Failed;
    conclude(row, std::move(outcome));
}

void IsbnBatch::serve(size_t target) {
    Asked &asked = *m_targets[target];
    for (const auto &lane : asked.lanes) {
        if (m_active && lane->asked.row < 0 && !lane->pause.isActive() && !asked.queue.empty())
            ask(target, *lane);
    }
}

void IsbnBatch::ask(size_t target, Lane &lane) {
    Asked &asked = *m_targets[target];
    lane.asked = {.row = asked.queue.front()};
    asked.queue.pop_front();
    const auto query = composeQuery({.isbn = m_isbns[lane.asked.row]}, asked.target);
    if (query)
        lane.link.search(query.value(), mostHits);
    else
        lane.link.refuse({LinkFault::Kind::BadQuery, query.failure().description});
}

void IsbnBatch::answered(size_t target, Lane &lane) {
    m_targets[target]->failures = 0;
    lane.answered = std::exchange(lane.asked, {});
    if (m_politeness.pause.count() > 0)
        lane.pause.start();
    else
        serve(target);
    if (lane.asked.row < 0) // else when the next request is sent
        choose(target, lane);
}

// Chooses the best record of the last answer.
void IsbnBatch::choose(size_t target, Lane &lane) {
    const Lane::Request request = std::exchange(lane.answered, {});
    if (request.row < 0)
        return;
    const marc::IsbnKey key = marc::isbnKey(m_isbns[request.row]);
    Outcome best;
    int bestFields = -1;
    for (const QByteArray &bytes : request.records) {
        if (auto decoded = lane.decoder.decode(bytes); decoded && isBetter(decoded.value().record, key, bestFields))
            best.record = std::move(decoded.value().record);
    }
    if (bestFields < 0)
        return enqueue(request.row, target + 1);
    best.state = State::Found;
    best.target = m_targets[target]->target.name;
    conclude(request.row, std::move(best));
}

void IsbnBatch::failed(size_t target, Lane &lane, const LinkFault &fault) {
    Asked &asked = *m_targets[target];
    const int row = std::exchange(lane.asked, {}).row;
    choose(target, lane);
    if (!m_active) // the previous answer could not be stored
        return;
    lane.pause.start();
    m_outcomes[size_t(row)].why = asked.target.name + u"：" + fault.words;
    if (++asked.failures < mostFailures || !asked.dropped.isEmpty())
        return enqueue(row, target + 1);
    asked.dropped = m_outcomes[size_t(row)].why;
    const std::deque<int> waiting = std::exchange(asked.queue, {});
    Q_EMIT targetDropped(asked.target.name, fault.words);
    enqueue(row, target + 1);
    for (const int next : waiting) {
        if (m_active)
            enqueue(next, target);
    }
}

void IsbnBatch::conclude(int row, Outcome outcome) {
    if (outcome.state != State::Failed) {
        if (const platform::Status kept = m_journal.add(row, outcome); !kept) {
            stop();
            Q_EMIT journalFailed(kept.failure().description);
            return;
        }
    }
    m_outcomes[size_t(row)] = std::move(outcome);
    --m_left;
    Q_EMIT progressed(row);
    endIfDone();
}

void IsbnBatch::endIfDone() {
    if (!m_active || m_left > 0)
        return;
    m_active = false;
    Q_EMIT finished();
}

int IsbnBatch::count(State state) const {
    return int(std::ranges::count(m_outcomes, state, &Outcome::state));
}

QString IsbnBatch::words() const {
    const QString found = u"找到 %1，未找到 %2"_s.arg(count(State::Found)).arg(count(State::Missing));
    const int left = count(State::Pending) + count(State::Failed);
    return left > 0 ? QString(found + u"，未查成 %1"_s.arg(left)) : found;
}

QStringList IsbnBatch::notFound() const {
    QStringList list;
    for (qsizetype row = 0; row < m_isbns.size(); ++row) {
        if (m_outcomes[size_t(row)].state == State::Missing)
            list.append(m_isbns[row]);
    }
    return list;
}

QStringList IsbnBatch::notAsked() const {
    QStringList list;
    for (qsizetype row = 0; row < m_isbns.size(); ++row) {
        if (m_outcomes[size_t(row)].state == State::Pending || m_outcomes[size_t(row)].state == State::Failed)
            list.append(m_isbns[row]);
    }
    return list;
}

std::vector<marc::FieldedRecord> IsbnBatch::records() const {
    std::vector<marc::FieldedRecord> found;
    for (const Outcome &outcome : m_outcomes) {
        if (outcome.state == State::Found)
            found.push_back(outcome.record);
    }
    return found;
}

} // namespace targets
