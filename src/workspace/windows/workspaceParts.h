// The helpers of the workspace's window, in the order in which they need each other. Only the window knows them all; a
// helper gets the objects that it works on.
#pragma once

#include "workspace/windows/recordCommands.h"
#include "workspace/windows/recordMoving.h"
#include "workspace/windows/remarkJumps.h"
#include "workspace/windows/statusLine.h"

namespace workspace {

struct WorkspaceParts {
    // The controls that helpers work on. All of it outlives them.
    struct Desk {
        QWidget *window;
        FieldGrid &fields;
        RecordList &list;
        FindLine &find;
        widgets::PacedLabel &status;
        EditedRecord &record;
        platform::Host &host;
        const WorkspaceWindows &windows;
    };
    // `damaged`: what readers do about a record with a damaged directory.
    WorkspaceParts(const Desk &desk, const marc::DamagedDirectory &damaged);

    CellEditors editors;
    FieldCommands fieldCommands;
    RecordMoving moving;
    RecordReading reading;
    RecordCommands recordCommands;
    DraftKeeper drafts;
    DeskKeys keys;
    RemarkJumps remarks;
    StatusLine status;
};

} // namespace workspace
