#include "workspace/windows/workspaceParts.h"

namespace workspace {

namespace {

void connectList(RecordReading &reading, RecordList &list) {
    QObject::connect(&reading, &RecordReading::begun, &list, &RecordList::reset);
    QObject::connect(&reading, &RecordReading::listed, &list, &RecordList::sourceHasGrown);
    QObject::connect(&reading, &RecordReading::firstBatchRead, &list, [&list] {
        list.setRow(0);
        list.markCurrent();
    });
}

} // namespace

WorkspaceParts::WorkspaceParts(const Desk &desk, const marc::DamagedDirectory &damaged)
    : editors(desk.fields, desk.record, desk.host, desk.windows)
    , fieldCommands(desk.fields, desk.record, editors, desk.host)
    , moving(desk.list, desk.record, desk.host, damaged)
    , reading(desk.list.records(), desk.host, damaged)
    , recordCommands(desk.list, desk.record, moving, desk.host, desk.windows)
    , drafts(desk.list, desk.record, desk.host, [this] { return editors.typing(); })
    , keys({desk.fields, desk.list, desk.record, editors, fieldCommands, moving, desk.find}, desk.window)
    , remarks({desk.fields, desk.list, desk.record, keys}, desk.windows,
              {.path = [&file = desk.file] { return file; }, .records = [this] { return reading.recordsInFile(); }})
    , rowRemarks(desk.fields, desk.record, [this](const marc::FieldRows &rows) { return remarks.check(rows); })
    , status(desk.status, {desk.record, desk.list, editors, reading, drafts})
    , filter(desk.filterBox, desk.list,
             {.remarked = [this] { return remarks.rowsWithRemarks(); },
              .changed = [this] { return drafts.changedRows(); }},
             [this] { return !remarks.isEmpty(); })
    , changes(
          {desk.list, desk.record, recordCommands, moving, remarks}, desk.windows, [&file = desk.file] { return file; },
          [this] { return filter.rows(); })
    , fetch(desk.list, desk.record, desk.host, desk.windows) {
    connectList(reading, desk.list);
    QObject::connect(&editors, &CellEditors::typed, &drafts, &DraftKeeper::touch);
    QObject::connect(&keys, &DeskKeys::remarksWanted, &remarks, &RemarkJumps::showOrHide);
    QObject::connect(&keys, &DeskKeys::changesWanted, &changes, &ListChanges::open);
    QObject::connect(&keys, &DeskKeys::fetchWanted, &fetch, &RecordFetch::open);
    QObject::connect(&keys, &DeskKeys::told, &status, &StatusLine::sayOfRecord);
    QObject::connect(&remarks, &RemarkJumps::told, &status, &StatusLine::sayOfRecord);
    QObject::connect(&keys, &DeskKeys::remarkWanted, &remarks, &RemarkJumps::step);
    QObject::connect(&keys, &DeskKeys::rowChosen, &rowRemarks, &RowRemarks::tellWords);
    QObject::connect(&remarks, &RemarkJumps::rowChosen, &rowRemarks, &RowRemarks::tellWords);
    QObject::connect(&remarks, &RemarkJumps::checkChanged, &rowRemarks, &RowRemarks::renew);
    QObject::connect(&rowRemarks, &RowRemarks::told, &status, &StatusLine::sayOfRow);
    QObject::connect(&filter, &ListFilter::told, &status, &StatusLine::sayOfRecord);
    QObject::connect(&remarks, &RemarkJumps::remarksChanged, &filter, &ListFilter::updateSoon);
    QObject::connect(&desk.list, &RecordList::taken, &filter, &ListFilter::updateSoon);
    for (const auto changed : {&EditedRecord::shown, &EditedRecord::edited})
        QObject::connect(&desk.record, changed, &filter, &ListFilter::updateSoon);
}

} // namespace workspace
