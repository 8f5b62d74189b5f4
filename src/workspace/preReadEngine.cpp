#include "workspace/preReadEngine.h"
#include <algorithm>
#include <array>

namespace workspace {

namespace {

using enum ReadState;
constexpr auto states = std::to_array<ReadStateRow>({
    {Idle, u"预读结束", false, true, false},
    {Loading, u"正在预读.......", true, true, false},
    {Asked, u"正在预读......", true, false, true},
    {Reading, u"正在继续预读.......", true, false, true},
    {Stopping, u"预读结束", false, true, false},
    {Finished, u"预读结束", false, false, false},
});
static_assert(std::ranges::adjacent_find(states, std::ranges::greater_equal{}, &ReadStateRow::state) == states.end());
static_assert(states.size() == size_t(Finished) + 1);

} // namespace

const ReadStateRow &rulesOf(ReadState state) {
    return states[size_t(state)];
}

ReadEnd readRecords(marc::RecordCutter &cutter, ReadRange range, marc::PreReadStore &store,
                    const ReadWatcher &watcher) {
    ReadEnd end;
    QString title = range.passOver > 0 ? store.title(int(range.passOver) - 1) : QString();
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
            store.setRecord(count - 1, record, cutter.bytes());
            store.setTitle(count - 1, title); // often the title in the record itself
            watcher.listed(count);
        }
        if (watcher.stopRequested())
            break;
    }
    end.atEnd = cutter.atEnd();
    return end;
}

} // namespace workspace
