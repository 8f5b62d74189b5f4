#include "workspace/draftBook.h"
#include <QCryptographicHash>
#include <utility>

namespace workspace {

QByteArray DraftBook::fingerprint(const marc::RawRecord &record) {
    const QByteArrayView units(reinterpret_cast<const char *>(record.utf16()),
                               record.size() * qsizetype(sizeof(QChar)));
    return QCryptographicHash::hash(units, QCryptographicHash::Sha1).toHex();
}

void DraftBook::leave(const Drafts &drafts) {
    if (drafts.isEmpty())
        return;
    m_left.insert(drafts);
    noteChange();
}

void DraftBook::taken(int row, const marc::RawRecord &before, const marc::RawRecord &after) {
    if (!m_origin.contains(row))
        m_origin.insert(row, fingerprint(before));
    const QByteArray &origin = m_origin[row];
    if (fingerprint(after) == origin)
        m_taken.remove(row);
    else
        m_taken.insert(row, {after, origin});
    m_unsettledRows.insert(row);
    ++m_revision;
}

void DraftBook::settle() {
    m_unsettled = false;
    m_unsettledRows.clear();
}

void DraftBook::settle(const std::vector<int> &rows) {
    for (const int row : rows)
        m_unsettledRows.erase(row);
}

std::vector<int> DraftBook::takenRows() const {
    return {m_taken.keyBegin(), m_taken.keyEnd()};
}

void DraftBook::imported(const std::function<bool(int row)> &wentIn) {
    if (m_taken.removeIf([&](Drafts::iterator draft) { return wentIn(draft.key()); }) > 0)
        noteChange();
}

void DraftBook::restoreRow(Drafts::const_iterator left, const marc::RawRecord &record, bool isNewer,
                           Restored &done) const {
    const QByteArray &origin = left->origin;
    if (isNewer)
        ++done.newer;
    else if (!origin.isEmpty() && origin != fingerprint(record))
        ++done.other;
    else {
        done.put.insert(left.key(), left->record);
        return;
    }
    done.aside.insert(left.key(), *left);
}

DraftBook::Restored DraftBook::restore(const RecordOf &recordOf, std::optional<int> inGrid) {
    Restored done;
    Drafts waiting;
    for (auto left = m_left.cbegin(); left != m_left.cend(); ++left) {
        const int row = left.key();
        if (const auto record = recordOf(row))
            restoreRow(left, *record, m_origin.contains(row) || inGrid == row, done);
        else
            waiting.insert(row, *left);
    }
    done.waiting = int(waiting.size());
    m_left = std::move(waiting);
    m_restoring = true;
    noteChange();
    return done;
}

DraftBook::Restored DraftBook::listed(int row, const marc::RawRecord &record) {
    Restored done;
    const auto left = std::as_const(m_left).constFind(row);
    if (!m_restoring || left == m_left.cend())
        return done;
    restoreRow(left, record, m_origin.contains(row), done);
    m_left.remove(row);
    noteChange();
    return done;
}

Drafts DraftBook::beyondTheEnd(int count) {
    Drafts beyond;
    if (m_restoring)
        m_left.removeIf([&](Drafts::iterator draft) {
            const bool isBeyond = draft.key() >= count;
            if (isBeyond)
                beyond.insert(draft.key(), *draft);
            return isBeyond;
        });
    if (!beyond.isEmpty())
        noteChange();
    return beyond;
}

Drafts DraftBook::giveUp() {
    noteChange();
    return std::exchange(m_left, {});
}

std::optional<Draft> DraftBook::draftOf(int row, const std::optional<InGrid> &inGrid) const {
    if (inGrid && inGrid->row == row)
        return Draft{inGrid->record, m_origin.contains(row) ? m_origin.value(row) : fingerprint(inGrid->listed)};
    const auto draft = m_taken.constFind(row);
    return draft == m_taken.cend() ? std::nullopt : std::optional(*draft);
}

Drafts DraftBook::changed(const std::optional<InGrid> &inGrid) const {
    Drafts all = m_taken;
    if (inGrid)
        all.insert(inGrid->row, *draftOf(inGrid->row, inGrid));
    return all;
}

} // namespace workspace
