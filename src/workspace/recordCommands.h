// The commands on the record in the field grid and on the list: the two views, the proof, the import.
#pragma once

#include "platform/host.h"
#include "workspace/workspaceWindows.h"

namespace workspace {

class frmDaoru;

class RecordCommands {
public:
    RecordCommands(frmDaoru &form, platform::Host &host, const WorkspaceWindows &windows);

    void showCard(const QString &mode);
    void proof();
    void importRecords();

private:
    frmDaoru &m_form;
    platform::Host &m_host;
    const WorkspaceWindows &m_windows;
};

} // namespace workspace
