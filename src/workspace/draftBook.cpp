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
    m_left.insert(drafts);
    ++m_revision;
}

void DraftBook::taken(int row, const marc::RawRecord &before, const marc::RawRecord &after) {
    if (!m_origin.contains(row))
        m_origin.insert(row, fingerprint(before));
    m_taken.insert(row, {after, m_origin.value(row)});
    ++m_revision;
}

std::vector<int> DraftBook::takenRows() const {
    return {m_taken.keyBegin(), m_taken.keyEnd()};
}

void DraftBook::imported(const std::function<bool(int row)> &wentIn) {
    if (m_taken.removeIf([&](Drafts::iterator draft) { return wentIn(draft.key()); }) > 0)
        ++m_revision;
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
    ++m_revision;
    return done;
}

DraftBook::Restored DraftBook::listed(int row, const marc::RawRecord &record) {
    Restored done;
    const auto left = std::as_const(m_left).constFind(row);
    if (!m_restoring || left == m_left.cend())
        return done;
    restoreRow(left, record, m_origin.contains(row), done);
    m_left.remove(row);
    ++m_revision;
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
    m_revision += beyond.isEmpty() ? 0 : 1;
    return beyond;
}

Drafts DraftBook::giveUp() {
    ++m_revision;
    return std::exchange(m_left, {});
}

Drafts DraftBook::changed(const std::optional<InGrid> &inGrid) const {
    Drafts all = m_taken;
    if (inGrid)
        all.insert(inGrid->row, {inGrid->record, m_origin.contains(inGrid->row) ? m_origin.value(inGrid->row)
                                                                                : fingerprint(inGrid->listed)});
    return all;
}

} // namespace workspace
