#include "recordRuns.h"
#include "sideBySide.h"
#include <utility>

namespace bench {

Workspace::Workspace(const RecordFile &file, workspace::WorkspaceWindows windows)
    : records(file.records)
    , window(host, std::move(windows)) {
    window.publicMarcFile = file.path;
}

void Workspace::open() {
    window.load();
    putUp(window);
}

bool Workspace::readAll() {
    open();
    readOn();
    settle();
    return window.records().rowCount() == records;
}

std::optional<double> firstViewInWindow(const RecordFile &file) {
    std::optional<Workspace> workspace;
    return timed([&] {
        workspace.emplace(file);
        workspace->open();
        return workspace->host.boxes == 0 && workspace->window.records().rowCount() > 0;
    });
}

std::optional<double> readInWindow(const RecordFile &file) {
    std::optional<Workspace> workspace;
    return timed([&] {
        workspace.emplace(file);
        return workspace->readAll() && workspace->host.boxes == 0;
    });
}

} // namespace bench
