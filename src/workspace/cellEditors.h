// The two in-place editors over the field grid: opening one over a cell, keeping it there, taking over or dropping what
// was typed, and the way from an open editor to the assistants. At most one is open at a time.
#pragma once

#include "platform/host.h"
#include "workspace/fieldEditing.h"
#include "workspace/workspaceWindows.h"

namespace workspace {

class frmDaoru;

class CellEditors {
public:
    CellEditors(frmDaoru &form, platform::Host &host, const WorkspaceWindows &windows);

    // Of the current row. Does nothing where the row has no identifier or several rows are selected.
    void openContent();
    // Of the current row, in the column.
    void openIdentity(IdentityColumn column);
    // Lays what is open over its place again, after scrolling and resizing.
    void place();
    // Scrolls the grid to the cell under what is open, whatever row has become current.
    void keepInSight();

private:
    void connectEditors();
    void commitContent();
    void enlarge();
    void reduce();
    void endContent();
    void commitIdentity();
    void cancelIdentity();
    void endIdentity();
    void openAssistant();
    void runAssistant(QString &exchanged,
                      const std::function<std::optional<QString>(const QString &, QWidget *)> &assistant);
    void showEditedCell();
    void changeCell(const QString &value, bool changed);

    frmDaoru &m_form;
    platform::Host &m_host;
    const WorkspaceWindows &m_windows;
    bool m_enlarged = false;
};

} // namespace workspace
