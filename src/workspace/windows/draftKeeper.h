// Writes the drafts of the workspace's file: at most two seconds after each change, and at the window's end. The draft
// of the current record is taken from the grid when it is written, with the text of an open editor in it. What an
// earlier start has left is offered, and restored or given up as the user wishes.
#pragma once

#include "platform/host.h"
#include "workspace/draftBook.h"
#include "workspace/draftFile.h"
#include "workspace/editedRecord.h"
#include "workspace/windows/recordList.h"
#include "workspace/windows/workspaceWindows.h"
#include <QTimer>

namespace workspace {

class DraftKeeper final : public QObject {
    Q_OBJECT
public:
    // What is being typed into the current record and has not been entered yet.
    using Typing = std::function<std::optional<CellChange>()>;

    DraftKeeper(RecordList &list, EditedRecord &record, platform::Host &host, Typing typing);

    // Starts with a file whose first batch has been read.
    void begin(const QString &recordFile);
    // Restores at once what belongs to listed records, and the others when they are listed.
    void restore();
    void giveUp();
    // The records that went into the store need no draft any more.
    void imported(const ImportOutcome &outcome);
    void listed(int count);       // record number `count` has been listed
    void readToTheEnd(int count); // the file has so many records
    void touch();                 // something has changed: a write follows within two seconds
    void write();                 // at once
    // Milliseconds until the write that is to follow; -1 where none is.
    int dueIn() const { return m_pace.remainingTime(); }
    qsizetype changed() const; // records changed and not imported

Q_SIGNALS:
    void offered(qsizetype records);
    void told(const QString &words);  // what became of drafts
    void fault(const QString &words); // why they cannot be written; empty once they could
    void currentRestored();           // the list holds another record in the current row

private:
    struct Written {
        quint64 revision = 0;
        int row = -1; // of the record in the grid; -1: it is as the list holds it
        marc::RawRecord inGrid;
        friend bool operator==(const Written &, const Written &) = default;
    };

    bool ready();
    RecordState typed() const;
    void carryOut(const DraftBook::Restored &restored);
    QString setAside(const Drafts &drafts);

    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    Typing m_typing;
    QString m_recordFile;
    std::optional<DraftFile> m_file; // once its folder is there
    DraftBook m_book;
    QTimer m_pace;
    Written m_written;
};

} // namespace workspace
