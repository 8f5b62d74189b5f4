#include "workspace/windows/workspaceParts.h"

namespace workspace {

WorkspaceParts::WorkspaceParts(const Desk &desk, const marc::DamagedDirectory &damaged)
    : editors(desk.fields, desk.record, desk.host, desk.windows)
    , fieldCommands(desk.fields, desk.record, editors, desk.host)
    , moving(desk.list, desk.record, desk.host, damaged)
    , reading(desk.list, desk.host, damaged)
    , recordCommands(desk.list, desk.record, moving, desk.host, desk.windows)
    , drafts(desk.list, desk.record, desk.host, [this] { return editors.typing(); })
    , keys({desk.fields, desk.list, desk.record, editors, fieldCommands, moving, desk.find}, desk.window)
    , remarks({desk.fields, desk.list, desk.record, keys}, desk.windows, [this] { return reading.recordsInFile(); })
    , status(desk.status, {desk.record, desk.list, editors, reading, drafts})
    , filter(desk.filterBox, desk.list,
             {.remarked = [this] { return remarks.rowsWithRemarks(); },
              .changed = [this] { return drafts.changedRows(); }},
             [this] { return !remarks.isEmpty(); }) {}

} // namespace workspace
