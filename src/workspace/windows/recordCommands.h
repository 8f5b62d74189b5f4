// The commands on the record in the field grid and on the list: the two views, the proof, the import.
#pragma once

#include "platform/host.h"
#include "workspace/editedRecord.h"
#include "workspace/preReadEngine.h"
#include "workspace/windows/recordList.h"
#include "workspace/windows/workspaceWindows.h"

namespace workspace {

class RecordCommands {
public:
    RecordCommands(RecordList &list, EditedRecord &record, platform::Host &host, const WorkspaceWindows &windows);

    void showCard(const QString &mode);
    void proof();
    // Nothing while a read runs, which refuses it. `count` is the number of records as text.
    std::optional<ImportOutcome> importRecords(ReadState state, const QString &count);

private:
    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    const WorkspaceWindows &m_windows;
};

} // namespace workspace
