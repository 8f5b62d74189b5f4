#include "workspace/preReadEngine.h"

namespace workspace {

ReadEnd readRecords(platform::LineReader &reader, ReadRange range, marc::PreReadStore &store,
                    const ReadWatcher &watcher) {
    ReadEnd end;
    QString title = range.passOver > 0 ? store.title(int(range.passOver) - 1) : QString();
    marc::RecordCutter cutter(reader);
    while (cutter.next()) {
        watcher.yield();
        if (watcher.abandoned()) {
            end.abandoned = true;
            return end;
        }
        if (++end.count > range.limit)
            break;
        if (end.count > range.passOver) {
            const int count = int(end.count);
            store.setRows(count);
            const marc::RawRecord record = cutter.record();
            title = marc::readZd(record, cutter.bytes(), u"200a", watcher.damaged).value_or(title);
            store.setNumber(count - 1, count);
            store.setTitle(count - 1, title);
            store.setRecord(count - 1, record, cutter.bytes());
            watcher.listed(count);
        }
        if (watcher.stopRequested())
            break;
    }
    end.atEnd = reader.atEnd();
    return end;
}

} // namespace workspace
