// The work of the workspace in its real window.
#pragma once

#include "benchStage.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include "workspace/windows/frmDaoru.h"
#include <optional>

namespace bench {

// A workspace on a file as a user opens it: the first batch is read, the window is shown, a button reads the remaining
// records.
struct Workspace {
    explicit Workspace(const RecordFile &file, workspace::WorkspaceWindows windows = {});

    void open();
    void readOn() { window.cmdclick[3]->click(); }
    bool readAll(); // opens and reads on; returns whether every record of the file is listed

    int records; // in the file
    BenchHost host;
    workspace::frmDaoru window;
};

// Run one round. Return the seconds from the creation of the window until its last record is listed and painted.
std::optional<double> firstViewInWindow(const RecordFile &file);
std::optional<double> readInWindow(const RecordFile &file);

} // namespace bench
