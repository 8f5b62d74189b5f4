#include "workspace/windows/draftKeeper.h"
#include "marc/fieldLookup.h"
#include <QSet>
#include <algorithm>
#include <chrono>
#include <iterator>
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
    m_pace.setSingleShot(true);
    connect(&m_pace, &QTimer::timeout, this, &DraftKeeper::writeSome);
    connect(&record, &EditedRecord::shown, this, &DraftKeeper::touch);
    connect(&record, &EditedRecord::edited, this, &DraftKeeper::touch);
    connect(&list, &RecordList::taken, this,
            [this](int row, const marc::RawRecord &before, const marc::RawRecord &after) {
                m_book.taken(row, before, after);
                touch();
            });
}

void DraftKeeper::begin(const QString &recordFile) {
    m_recordFile = recordFile;
    m_file.reset();
    m_book.begin();
    m_written = {};
    ready();
}

// Returns whether there is a file to write to. Tries again if its folder was not available before.
bool DraftKeeper::ready() {
    if (m_file || m_recordFile.isEmpty())
        return m_file.has_value();
    const auto folder = m_host.remembered().folderFor(platform::kept::drafts);
    if (!folder) {
        Q_EMIT fault(u"修改无法暂存："_s + folder.failure().description);
        return false;
    }
    DraftFile file(folder.value(), m_recordFile);
    auto found = file.read();
    if (!found) {
        m_file = std::move(file);
        Q_EMIT told(found.failure().description);
        return true;
    }
    const Drafts &older = found.value().older;
    if (const auto path = older.isEmpty() ? platform::Result(QString()) : file.setAside(older); !path) {
        Q_EMIT fault(u"修改无法暂存："_s + path.failure().description);
        return false;
    } else if (!older.isEmpty()) {
        Q_EMIT told(u"另有 %1 条更早的修改，另存为 "_s.arg(older.size()) + path.value());
    }
    m_file = std::move(file);
    m_book.leave(found.value().drafts);
    if (older.isEmpty() && m_book.takenCount() == 0)
        m_written.revision = m_book.revision(); // nothing has to be written
    else
        touch(); // the file still contains the older ones, or lacks what was taken over before its folder was available
    if (!m_book.left().isEmpty())
        Q_EMIT offered(m_book.left().size());
    return true;
}

// Returns a text about where they are now. Drafts that cannot be set aside remain in left().
QString DraftKeeper::setAside(const Drafts &drafts) {
    const auto path = m_file->setAside(drafts);
    if (path)
        return u"，另存为 "_s + path.value();
    m_book.leave(drafts);
    return u"，无法另存（"_s + path.failure().description + u"），仍留着，下次再问";
}

void DraftKeeper::restore() {
    const std::optional<int> inGrid = m_record.differsFromList() ? std::optional(m_list.row()) : std::nullopt;
    const auto recordOf = [this](int row) {
        const marc::PreReadStore &records = m_list.records();
        return row < records.rowCount() ? std::optional(records.record(row)) : std::nullopt;
    };
    carryOut(m_book.restore(recordOf, inGrid));
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
    QStringList said;
    if (!restored.put.isEmpty())
        said.append(u"已恢复 %1 条修改"_s.arg(restored.put.size()));
    if (restored.waiting > 0)
        said.append(u"%1 条的记录还没有读出，读到时恢复"_s.arg(restored.waiting));
    if (restored.newer > 0)
        said.append(u"%1 条本次已另改，没有恢复"_s.arg(restored.newer));
    if (restored.other > 0)
        said.append(u"%1 条与文件中的记录不符，没有恢复"_s.arg(restored.other));
    if (!said.isEmpty())
        Q_EMIT told(said.join(u'；') + (restored.aside.isEmpty() ? QString() : setAside(restored.aside)));
    touch();
}

void DraftKeeper::listed(int count) {
    if (m_book.isWaiting())
        carryOut(m_book.listed(count - 1, m_list.records().record(count - 1)));
}

void DraftKeeper::readToTheEnd(int count) {
    if (const Drafts beyond = m_book.beyondTheEnd(count); !beyond.isEmpty())
        Q_EMIT told(u"%1 条修改在文件中没有记录"_s.arg(beyond.size()) + setAside(beyond));
    touch();
}

void DraftKeeper::giveUp() {
    const Drafts left = m_book.giveUp();
    if (left.isEmpty())
        return;
    Q_EMIT told(u"丢弃了 %1 条修改"_s.arg(left.size()) + setAside(left));
    write();
}

void DraftKeeper::imported(const ImportOutcome &outcome) {
    QSet<int> outside;
    for (const auto *records : {&outcome.refused, &outcome.leftOut})
        for (const marc::RefusedRecord &record : *records)
            outside.insert(record.record);
    m_book.imported([&](int row) { return row < outcome.taken && !outside.contains(row); });
    write();
}

void DraftKeeper::touch() {
    if (!m_recordFile.isEmpty() && !m_pace.isActive())
        m_pace.start(pace);
}

// Returns whether the current record was changed, but has no change that the list took over.
bool DraftKeeper::onlyGridChanged() const {
    return m_record.differsFromList() && !m_book.isTaken(m_list.row());
}

qsizetype DraftKeeper::changed() const {
    return m_book.takenCount() + (onlyGridChanged() ? 1 : 0);
}

std::vector<int> DraftKeeper::changedRows() const {
    std::vector<int> rows = m_book.takenRows();
    if (onlyGridChanged())
        rows.insert(std::ranges::lower_bound(rows, m_list.row()), m_list.row());
    return rows;
}

RecordState DraftKeeper::typed() const {
    const std::optional<CellChange> typing = m_typing();
    return typing ? m_record.with(*typing) : m_record.state();
}

void DraftKeeper::write() {
    writeAtMost(std::numeric_limits<size_t>::max());
}

void DraftKeeper::writeSome() {
    if (writeAtMost(rowsAtOnce) && !m_book.unsettledRows().empty())
        m_pace.start(std::chrono::milliseconds(0));
}

// Returns false if nothing could be written; another attempt is then due.
bool DraftKeeper::writeAtMost(size_t rows) {
    if (!ready()) {
        touch();
        return false;
    }
    m_pace.stop();
    const RecordState state = typed();
    const int row = m_list.row();
    Written now{.revision = m_book.revision()};
    std::optional<DraftBook::InGrid> inGrid;
    if (m_record.differsFromList(state)) {
        now.row = row;
        now.inGrid = EditedRecord::rebuilt(state, {}); // without a time, for the comparison
        inGrid = {row, EditedRecord::rebuilt(state, m_host.now()), m_list.records().record(row)};
    }
    if (now == m_written && m_book.unsettledRows().empty())
        return true;
    const platform::Status written = store(inGrid, rows);
    if (!written) {
        Q_EMIT fault(u"修改无法暂存："_s + written.failure().description);
        touch();
        return false;
    }
    m_written = std::move(now);
    Q_EMIT fault({});
    return true;
}

// Writes all drafts if the file needs that, else those of at most `rows` rows and those that the grid has or had.
platform::Status DraftKeeper::store(const std::optional<DraftBook::InGrid> &inGrid, size_t rows) {
    const qsizetype drafts = m_book.takenCount() + m_book.left().size() + (inGrid ? 1 : 0);
    if (drafts == 0 || m_book.isUnsettled() || m_file->needsWhole(drafts)) {
        auto written = m_file->write(m_book.changed(inGrid), m_book.left());
        if (written)
            m_book.settle();
        return written;
    }
    const std::set<int> &unsettled = m_book.unsettledRows();
    std::vector<int> chosen(unsettled.begin(),
                            std::next(unsettled.begin(), qsizetype(std::min(rows, unsettled.size()))));
    std::set<int> changed(chosen.begin(), chosen.end());
    changed.insert(inGrid ? inGrid->row : m_written.row);
    changed.insert(m_written.row);
    changed.erase(-1);
    auto written = append({changed.begin(), changed.end()}, inGrid);
    if (written)
        m_book.settle(chosen);
    return written;
}

platform::Status DraftKeeper::append(const std::vector<int> &rows, const std::optional<DraftBook::InGrid> &inGrid) {
    Drafts changed;
    std::vector<int> gone;
    for (const int row : rows) {
        if (const auto draft = m_book.draftOf(row, inGrid))
            changed.insert(row, *draft);
        else
            gone.push_back(row);
    }
    return m_file->append(changed, gone);
}

} // namespace workspace
