// Writes the drafts of the workspace's file at most two seconds after each change and when the window is closed; those
// of thousands of records follow in parts, so that the window stays responsive. The draft of the current record is
// taken from the grid when it is written, including the text of an open editor. The drafts of an earlier start are
// offered to the user and then restored or discarded.
#pragma once

#include "platform/host.h"
#include "workspace/draftStore.h"
#include "workspace/editedRecord.h"
#include "workspace/windows/recordList.h"
#include "workspace/windows/workspaceWindows.h"
#include <QTimer>

namespace workspace {

class DraftKeeper final : public QObject {
    Q_OBJECT
public:
    // Returns the text being typed into the current record and not entered yet.
    using Typing = std::function<std::optional<CellChange>()>;

    DraftKeeper(RecordList &list, EditedRecord &record, platform::Host &host, Typing typing);

    // Starts with a file whose first batch has been read.
    void begin(const QString &recordFile);
    // Restores the drafts of listed records at once, and the others when their records are listed.
    void restore();
    void giveUp();
    // Removes the drafts of the records that were imported.
    void imported(const ImportOutcome &outcome);
    void listed(int count);       // call when record number `count` has been listed
    void readToTheEnd(int count); // call when the file was read to its end
    void touch();                 // call after a change: a write follows within two seconds
    void write();                 // writes all at once
    // Returns the milliseconds until the next write; -1 if none is scheduled.
    int dueIn() const { return m_pace.remainingTime(); }
    qsizetype changed() const;            // records changed and not yet imported
    std::vector<int> changedRows() const; // of those, in ascending order

Q_SIGNALS:
    void offered(qsizetype records);
    void told(const QString &words);  // about the fate of drafts
    void fault(const QString &words); // why drafts cannot be written; empty after the next success
    void currentRestored();           // the list now holds another record in the current row

private:
    bool isReady();
    void writeSome();
    bool writeAtMost(size_t rows);
    std::optional<DraftStore::Grid> grid() const;
    bool onlyGridChanged() const;
    void carryOut(const DraftBook::Restored &restored);
    void say(const QString &words);
    void sayFault(const platform::Failure &failure);

    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    Typing m_typing;
    DraftStore m_store;
    QTimer m_pace;
};

} // namespace workspace
