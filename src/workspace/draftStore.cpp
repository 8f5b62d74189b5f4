#include "workspace/draftStore.h"
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

void DraftStore::begin(const QString &recordFile) {
    m_recordFile = recordFile;
    m_file.reset();
    m_book.begin();
    m_written = {};
}

platform::Result<DraftStore::Opened> DraftStore::open(const platform::Result<QString> &folder) {
    if (!folder)
        return folder.failure();
    Opened opened;
    DraftFile file(folder.value(), m_recordFile);
    auto found = file.read();
    if (!found) {
        m_file = std::move(file);
        opened.words.append(found.failure().description);
        return opened;
    }
    const Drafts &older = found.value().older;
    if (!older.isEmpty()) {
        const auto path = file.setAside(older);
        if (!path)
            return path.failure();
        opened.words.append(u"另有 %1 条更早的修改，另存为 "_s.arg(older.size()) + path.value());
    }
    m_file = std::move(file);
    m_book.leave(found.value().drafts);
    // The file still contains the older drafts, or lacks those made before its folder was available.
    opened.isDue = !older.isEmpty() || m_book.takenCount() > 0;
    if (!opened.isDue)
        m_written.revision = m_book.revision();
    opened.offered = m_book.left().size();
    return opened;
}

platform::Status DraftStore::write(const std::optional<Grid> &grid, size_t rows) {
    Written now{.revision = m_book.revision()};
    std::optional<DraftBook::InGrid> inGrid;
    if (grid) {
        inGrid = grid->draft;
        now.row = grid->draft.row;
        now.inGrid = grid->untimed;
    }
    if (now == m_written && m_book.unsettledRows().empty())
        return platform::success();
    platform::Status written = store(inGrid, rows);
    if (written)
        m_written = std::move(now);
    return written;
}

platform::Status DraftStore::store(const std::optional<DraftBook::InGrid> &inGrid, size_t rows) {
    const qsizetype drafts = m_book.takenCount() + m_book.left().size() + (inGrid ? 1 : 0);
    if (drafts == 0 || m_book.isUnsettled() || m_file->needsWhole(drafts)) {
        platform::Status written = m_file->write(m_book.changed(inGrid), m_book.left());
        if (written)
            m_book.settle();
        return written;
    }
    const std::set<int> &unsettled = m_book.unsettledRows();
    const std::vector<int> chosen(unsettled.begin(),
                                  std::next(unsettled.begin(), qsizetype(std::min(rows, unsettled.size()))));
    std::set<int> changed(chosen.begin(), chosen.end());
    changed.insert(m_written.row);
    if (inGrid)
        changed.insert(inGrid->row);
    changed.erase(-1);
    platform::Status written = append(changed, inGrid);
    if (written)
        m_book.settle(chosen);
    return written;
}

platform::Status DraftStore::append(const std::set<int> &rows, const std::optional<DraftBook::InGrid> &inGrid) {
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

// Returns a text about where the drafts are now. Drafts that cannot be set aside remain in left().
QString DraftStore::setAside(const Drafts &drafts) {
    const auto path = m_file->setAside(drafts);
    if (path)
        return u"，另存为 "_s + path.value();
    m_book.leave(drafts);
    return u"，无法另存（"_s + path.failure().description + u"），仍留着，下次再问";
}

QString DraftStore::finish(const DraftBook::Restored &restored) {
    QStringList words;
    if (!restored.put.isEmpty())
        words.append(u"已恢复 %1 条修改"_s.arg(restored.put.size()));
    if (restored.waiting > 0)
        words.append(u"%1 条的记录还没有读出，读到时恢复"_s.arg(restored.waiting));
    if (restored.newer > 0)
        words.append(u"%1 条本次已另改，没有恢复"_s.arg(restored.newer));
    if (restored.other > 0)
        words.append(u"%1 条与文件中的记录不符，没有恢复"_s.arg(restored.other));
    return words.join(u'；') + (restored.aside.isEmpty() ? QString() : setAside(restored.aside));
}

QString DraftStore::readToTheEnd(int count) {
    const Drafts beyond = m_book.beyondTheEnd(count);
    return beyond.isEmpty() ? QString() : u"%1 条修改在文件中没有记录"_s.arg(beyond.size()) + setAside(beyond);
}

QString DraftStore::giveUp() {
    const Drafts left = m_book.giveUp();
    return left.isEmpty() ? QString() : u"丢弃了 %1 条修改"_s.arg(left.size()) + setAside(left);
}

} // namespace workspace
