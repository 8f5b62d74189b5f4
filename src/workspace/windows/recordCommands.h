// The commands for the current record and for the list: the two views, the proof and the import.
#pragma once

#include "platform/host.h"
#include "workspace/editedRecord.h"
#include "workspace/preReadEngine.h"
#include "workspace/windows/recordMoving.h"
#include "workspace/windows/workspaceWindows.h"

namespace workspace {

class RecordCommands {
public:
    RecordCommands(RecordList &list, EditedRecord &record, RecordMoving &moving, platform::Host &host,
                   const WorkspaceWindows &windows);

    void showCard(const QString &mode);
    void proof();
    // If the record was edited, asks whether the list takes the edits over.
    void takeEdits();
    // Returns std::nullopt if a read is running, which prevents the import. `count` is the number of records as text.
    std::optional<ImportOutcome> importRecords(ReadState state, const QString &count,
                                               const std::vector<marc::RefusedRecord> &leaveOut);

private:
    std::optional<marc::RawRecord> step(int by);

    RecordList &m_list;
    EditedRecord &m_record;
    RecordMoving &m_moving;
    platform::Host &m_host;
    const WorkspaceWindows &m_windows;
};

} // namespace workspace
