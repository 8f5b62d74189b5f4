// The helpers of the workspace window, in the order of their dependencies, connected with each other. Only the window
// has access to all of them; each helper gets the objects that it works on.
#pragma once

#include "workspace/windows/listChanges.h"
#include "workspace/windows/listFilter.h"
#include "workspace/windows/recordFetch.h"
#include "workspace/windows/rowRemarks.h"
#include "workspace/windows/statusLine.h"

namespace workspace {

struct WorkspaceParts {
    // The objects that the helpers work on; they must outlive the helpers.
    struct Desk {
        QWidget *window;
        const QString &file; // path of the file with the records
        FieldGrid &fields;
        RecordList &list;
        FindLine &find;
        QComboBox &filterBox;
        widgets::PacedLabel &status;
        EditedRecord &record;
        platform::Host &host;
        const WorkspaceWindows &windows;
    };
    // `damaged` handles records with a damaged directory.
    WorkspaceParts(const Desk &desk, const marc::DamagedDirectory &damaged);

    CellEditors editors;
    FieldCommands fieldCommands;
    RecordMoving moving;
    RecordReading reading;
    RecordCommands recordCommands;
    DraftKeeper drafts;
    DeskKeys keys;
    RemarkJumps remarks;
    RowRemarks rowRemarks;
    StatusLine status;
    ListFilter filter;
    ListChanges changes;
    RecordFetch fetch;
};

} // namespace workspace
