// Keeps what was changed in the batch where it survives a crash: some seconds behind each edit, the record in the grid
// included. What was left by an earlier start is offered, and given back where it is wanted.
#pragma once

#include "platform/host.h"
#include "workspace/drafts.h"
#include "workspace/windows/recordList.h"
#include <QTimer>
#include <memory>

namespace workspace {

class EditedRecord;

class DraftKeeper final : public QObject {
    Q_OBJECT
public:
    DraftKeeper(RecordList &list, EditedRecord &record, platform::Host &host);

    // Begins with a file's batch; tells what an earlier start has left of it.
    void begin(const QString &sourceFile);
    // Puts back what was left: at once for the records in the list, for others when they are listed.
    void restore();
    void giveUp();
    // The batch went into the store.
    void imported();
    // Records that were changed and not imported.
    qsizetype changed() const { return m_drafts ? m_drafts->count() : 0; }
    // Record number `count` has been listed.
    void listed(int count);

Q_SIGNALS:
    void offered(qsizetype records);
    void told(const QString &words); // once, where there is something to know
    void countChanged();
    void currentRestored(); // the record in the grid is another one now

private:
    void recordShown();
    void recordEdited();
    void write();
    void noteRecord();
    void putBack(int row, const marc::RawRecord &record);

    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    std::unique_ptr<Drafts> m_drafts;
    QMap<int, marc::RawRecord> m_taken;   // changed, and taken over into the list
    QMap<int, marc::RawRecord> m_waiting; // to be put back when they are listed
    QTimer m_pace;
    int m_row = 0; // of the record in the grid
    bool m_complained = false;
};

} // namespace workspace
