// Connects the window that changes many records at once to the workspace: F9 and a button open it. Its changes enter
// the list like those of an edit by hand, and the record in the grid is shown again if it was changed.
#pragma once

#include "workspace/windows/recordCommands.h"
#include "workspace/windows/remarkJumps.h"

namespace workspace {

class ListChanges final : public QObject {
    Q_OBJECT
public:
    struct Parts {
        RecordList &list;
        EditedRecord &record;
        RecordCommands &commands;
        RecordMoving &moving;
        RemarkJumps &remarks;
    };
    // `file` returns the path of the record file; `shown` the rows that the list shows, std::nullopt for all.
    ListChanges(const Parts &parts, const WorkspaceWindows &windows, std::function<QString()> file,
                std::function<std::optional<std::vector<int>>()> shown);

    bool isAvailable() const { return bool(m_windows.makeBatch); }
    void open(); // returns when the window is closed

private:
    BatchNeeds needs();
    void put(int row, const marc::RawRecord &record, const QString &title);

    Parts m_parts;
    const WorkspaceWindows &m_windows;
    std::function<QString()> m_file;
    std::function<std::optional<std::vector<int>>()> m_shown;
    std::function<void()> m_open; // made at the first use
};

} // namespace workspace
