#include "workspace/windows/draftKeeper.h"
#include "marc/fieldLookup.h"
#include "workspace/editedRecord.h"
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr std::chrono::seconds pace(2);
}

DraftKeeper::DraftKeeper(RecordList &list, EditedRecord &record, platform::Host &host)
    : m_list(list)
    , m_record(record)
    , m_host(host) {
    m_pace.setSingleShot(true);
    m_pace.setInterval(pace);
    connect(&m_pace, &QTimer::timeout, this, &DraftKeeper::write);
    connect(&record, &EditedRecord::shown, this, &DraftKeeper::recordShown);
    connect(&record, &EditedRecord::changed, this, &DraftKeeper::recordEdited);
    connect(&list, &RecordList::taken, this, [this](int row, const QString &taken) {
        if (!m_drafts)
            return;
        m_taken.insert(row, taken);
        m_drafts->keep(row, taken);
        m_pace.start();
        Q_EMIT countChanged();
    });
}

void DraftKeeper::begin(const QString &sourceFile) {
    const auto folder = m_host.remembered().folderFor(u"drafts"_s);
    m_drafts = std::make_unique<Drafts>(folder ? folder.value() : QString(), sourceFile);
    if (!folder)
        Q_EMIT told(u"修改无法暂存："_s + folder.failure().description);
    switch (m_drafts->look()) {
    case Drafts::Found::OfThisFile:
        Q_EMIT offered(m_drafts->left().size());
        break;
    case Drafts::Found::OfAnOlderFile:
        Q_EMIT told(u"上次未导入的修改属于改变前的文件，已另存为 "_s + m_drafts->keptPath());
        break;
    case Drafts::Found::Nothing:
        break;
    }
}

void DraftKeeper::restore() {
    m_waiting = m_drafts->left();
    const QMap<int, marc::RawRecord> left = m_waiting;
    for (auto record = left.begin(); record != left.end(); ++record)
        if (!m_list.records().number(record.key()).isEmpty())
            putBack(record.key(), record.value());
}

void DraftKeeper::listed(int count) {
    if (const auto found = m_waiting.constFind(count - 1); found != m_waiting.constEnd())
        putBack(count - 1, marc::RawRecord(*found));
}

void DraftKeeper::putBack(int row, const marc::RawRecord &record) {
    m_waiting.remove(row);
    m_list.take(row, record);
    const QString title = marc::readZd(record, u"200a", {}).value_or(QString());
    if (!title.isEmpty())
        m_list.setTitle(row, title);
    if (row == m_row)
        Q_EMIT currentRestored();
}

void DraftKeeper::giveUp() {
    m_drafts->drop();
    for (auto record = m_taken.cbegin(); record != m_taken.cend(); ++record)
        m_drafts->keep(record.key(), record.value());
    write();
}

void DraftKeeper::imported() {
    m_taken.clear();
    m_waiting.clear();
    m_pace.stop();
    if (m_drafts)
        m_drafts->drop();
    Q_EMIT countChanged();
}

// What was edited in the record before and not taken over is no longer there.
void DraftKeeper::recordShown() {
    if (m_drafts && !m_taken.contains(m_row)) {
        m_drafts->forget(m_row);
        Q_EMIT countChanged();
    }
    if (m_drafts && m_drafts->unwritten())
        m_pace.start();
    m_row = m_list.row();
}

void DraftKeeper::recordEdited() {
    if (m_drafts && !m_pace.isActive())
        m_pace.start();
}

void DraftKeeper::noteRecord() {
    if (m_record.recordChanged || m_record.rowsCameOrWent)
        m_drafts->keep(m_row, m_record.rebuilt(m_host.now()));
    else if (!m_taken.contains(m_row))
        m_drafts->forget(m_row);
}

void DraftKeeper::write() {
    if (!m_drafts)
        return;
    noteRecord();
    Q_EMIT countChanged();
    if (!m_drafts->unwritten())
        return;
    if (const platform::Status written = m_drafts->write(); !written && !std::exchange(m_complained, true))
        Q_EMIT told(u"修改无法暂存："_s + written.failure().description);
}

} // namespace workspace
