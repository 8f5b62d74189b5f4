// The workspace's own work in its real window.
#pragma once

#include "benchStage.h"
#include "workspace/windows/frmDaoru.h"
#include <optional>

namespace bench {

// A workspace on a file, as a user has it: the first batch is read, the window comes up, the button reads the
// remainder.
struct Workspace {
    explicit Workspace(const RecordFile &file, workspace::WorkspaceWindows windows = {});

    void open();
    void readOn() { window.cmdclick[3]->click(); }
    bool readAll(); // both; whether every record of the file is listed

    int records; // of the file
    BenchHost host;
    workspace::frmDaoru window;
};

// A round each, from before the window is made until the last record that it reads is listed and painted.
std::optional<double> firstViewInWindow(const RecordFile &file);
std::optional<double> readInWindow(const RecordFile &file);

} // namespace bench
