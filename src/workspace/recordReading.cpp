#include "workspace/recordReading.h"
#include "marc/recordCutter.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

RecordReading::RecordReading(marc::PreReadStore &store, platform::Host &host, marc::DamagedDirectory damaged)
    : m_store(store)
    , m_host(host)
    , m_damaged(std::move(damaged)) {}

std::unique_ptr<marc::RecordCutter> RecordReading::open(const QString &file) {
    auto cutter = marc::RecordCutter::open(file);
    if (cutter)
        return std::make_unique<marc::RecordCutter>(std::move(cutter).value());
    m_host.tell(u"打开文件失败，无法导入，请重新选择"_s);
    return nullptr;
}

void RecordReading::enter(ReadState state) {
    m_state = state;
    Q_EMIT stateChanged(state);
}

void RecordReading::tellListed(int count) {
    m_listed = count;
    Q_EMIT listed(count);
}

void RecordReading::count(qint64 inFile) {
    m_inFile = inFile;
    Q_EMIT counted(inFile);
}

ReadEnd RecordReading::read(marc::RecordCutter &cutter, ReadRange range) {
    const int begun = ++m_readsBegun;
    const ReadWatcher watcher{
        .yield = [this] { m_host.yield(); },
        .abandoned = [this, begun] { return begun != m_readsBegun; },
        .stopRequested = [this] { return m_stopFlag; },
        .damaged = m_damaged,
        .listed = [this](int count) { tellListed(count); },
    };
    const ReadEnd end = readRecords(cutter, range, m_store, watcher);
    if (end.atEnd)
        count(end.count);
    return end;
}

void RecordReading::finish(ReadState state) {
    m_stopFlag = false;
    enter(state);
}

void RecordReading::firstBatch(const QString &file, int limit) {
    Q_EMIT begun();
    tellListed(0);
    auto cutter = open(file);
    if (!cutter)
        return;
    enter(ReadState::Loading);
    if (const auto counts = marc::fileCounts(file)) {
        Q_EMIT lookedAt(counts.value());
        count(counts.value().lines);
    }
    const ReadEnd end = read(*cutter, {.passOver = 0, .limit = limit});
    cutter.reset();
    if (end.abandoned)
        return;
    Q_EMIT firstBatchRead();
    finish(ReadState::Idle);
}

void RecordReading::remainder(const QString &file, int passOver) {
    if (passOver <= 0)
        return;
    auto cutter = open(file);
    if (!cutter)
        return;
    enter(ReadState::Reading);
    const ReadEnd end = read(*cutter, {.passOver = passOver});
    if (!end.abandoned)
        finish(m_state == ReadState::Stopping ? ReadState::Idle : ReadState::Finished);
}

void RecordReading::all(const QString &file) {
    m_stopFlag = false;
    enter(ReadState::Asked);
    remainder(file, m_store.rowCount());
}

void RecordReading::stop() {
    m_stopFlag = true;
    enter(ReadState::Stopping);
}

} // namespace workspace
