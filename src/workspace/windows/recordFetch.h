// Opens the search in other libraries' catalogues (Ctrl+T) for the current record, and takes over the fields that the
// user chooses there.
#pragma once

#include "platform/host.h"
#include "workspace/editedRecord.h"
#include "workspace/windows/recordList.h"
#include "workspace/windows/workspaceWindows.h"

namespace workspace {

class RecordFetch final : public QObject {
    Q_OBJECT
public:
    RecordFetch(RecordList &list, EditedRecord &record, platform::Host &host, const WorkspaceWindows &windows);

    void open(); // returns when the window is closed

private:
    QString valueOf(QStringView tag) const; // of the first $a in the current record
    QStringList isbns() const;

    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    const WorkspaceWindows &m_windows;
};

} // namespace workspace
