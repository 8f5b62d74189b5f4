#include "workspace/windows/draftKeeper.h"
#include "marc/fieldLookup.h"
#include <QSet>
#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr std::chrono::seconds pace(2);
constexpr size_t rowsAtOnce = 400; // take some milliseconds
} // namespace

DraftKeeper::DraftKeeper(RecordList &list, EditedRecord &record, platform::Host &host, Typing typing)
    : m_list(list)
    , m_record(record)
    , m_host(host)
    , m_typing(std::move(typing)) {
    connect(&m_pace, &QTimer::timeout, this, &DraftKeeper::writeSome);
    connect(&record, &EditedRecord::shown, this, &DraftKeeper::touch);
    connect(&record, &EditedRecord::edited, this, &DraftKeeper::touch);
    connect(&list, &RecordList::taken, this,
            [this](int row, const marc::RawRecord &before, const marc::RawRecord &after) {
                m_store.book().taken(row, before, after);
                touch();
            });
}

void DraftKeeper::begin(const QString &recordFile) {
    m_store.begin(recordFile);
    isReady();
}

// Returns whether there is a file to write to. Tries again if its folder was not available before.
bool DraftKeeper::isReady() {
    if (m_store.isOpen() || !m_store.hasBegun())
        return m_store.isOpen();
    const auto opened = m_store.open(m_host.remembered().folderFor(platform::kept::drafts));
    if (!opened) {
        sayFault(opened.failure());
        return false;
    }
    for (const QString &words : opened.value().words)
        say(words);
    if (opened.value().isDue)
        touch();
    if (opened.value().offered > 0)
        Q_EMIT offered(opened.value().offered);
    return true;
}

void DraftKeeper::say(const QString &words) {
    if (!words.isEmpty())
        Q_EMIT told(words);
}

void DraftKeeper::sayFault(const platform::Failure &failure) {
    Q_EMIT fault(u"修改无法暂存："_s + failure.description);
}

void DraftKeeper::restore() {
    const std::optional<int> inGrid = m_record.differsFromList() ? std::optional(m_list.row()) : std::nullopt;
    const auto recordOf = [this](int row) {
        const marc::PreReadStore &records = m_list.records();
        return row < records.rowCount() ? std::optional(records.record(row)) : std::nullopt;
    };
    carryOut(m_store.book().restore(recordOf, inGrid));
}

void DraftKeeper::carryOut(const DraftBook::Restored &restored) {
    for (auto record = restored.put.cbegin(); record != restored.put.cend(); ++record) {
        const int row = record.key();
        m_list.take(row, *record);
        const QString title = marc::readZd(*record, u"200a", {}).value_or(QString());
        if (!title.isEmpty())
            m_list.setTitle(row, title);
        if (row == m_list.row())
            Q_EMIT currentRestored();
    }
    say(m_store.finish(restored));
    touch();
}

void DraftKeeper::listed(int count) {
    if (m_store.book().isWaiting())
        carryOut(m_store.book().listed(count - 1, m_list.records().record(count - 1)));
}

void DraftKeeper::readToTheEnd(int count) {
    say(m_store.readToTheEnd(count));
    touch();
}

void DraftKeeper::giveUp() {
    const QString words = m_store.giveUp();
    if (words.isEmpty())
        return;
    say(words);
    write();
}

void DraftKeeper::imported(const ImportOutcome &outcome) {
    QSet<int> outside;
    for (const auto *records : {&outcome.refused, &outcome.leftOut})
        for (const marc::RefusedRecord &record : *records)
            outside.insert(record.record);
    m_store.book().imported([&](int row) { return row < outcome.taken && !outside.contains(row); });
    write();
}

void DraftKeeper::touch() {
    if (m_store.hasBegun() && !m_pace.isActive())
        m_pace.start(pace);
}

// Returns whether the current record was changed, but has no change that the list took over.
bool DraftKeeper::onlyGridChanged() const {
    return m_record.differsFromList() && !m_store.book().isTaken(m_list.row());
}

qsizetype DraftKeeper::changed() const {
    return m_store.book().takenCount() + (onlyGridChanged() ? 1 : 0);
}

std::vector<int> DraftKeeper::changedRows() const {
    std::vector<int> rows = m_store.book().takenRows();
    if (onlyGridChanged())
        rows.insert(std::ranges::lower_bound(rows, m_list.row()), m_list.row());
    return rows;
}

// Returns the record of the grid, including the text being typed.
std::optional<DraftStore::Grid> DraftKeeper::grid() const {
    const std::optional<CellChange> typing = m_typing();
    const RecordState state = typing ? m_record.with(*typing) : m_record.state();
    if (!m_record.differsFromList(state))
        return std::nullopt;
    const int row = m_list.row();
    return DraftStore::Grid{
        .draft = {row, EditedRecord::rebuilt(state, m_host.now()), m_list.records().record(row)},
        .untimed = EditedRecord::rebuilt(state, {}),
    };
}

void DraftKeeper::write() {
    writeAtMost(std::numeric_limits<size_t>::max());
}

void DraftKeeper::writeSome() {
    if (writeAtMost(rowsAtOnce) && !m_store.book().unsettledRows().empty())
        m_pace.start(std::chrono::milliseconds(0));
}

// Returns false if nothing could be written; another attempt is then due.
bool DraftKeeper::writeAtMost(size_t rows) {
    if (!isReady()) {
        touch();
        return false;
    }
    m_pace.stop();
    if (const platform::Status written = m_store.write(grid(), rows); !written) {
        sayFault(written.failure());
        touch();
        return false;
    }
    Q_EMIT fault({});
    return true;
}

} // namespace workspace
