#include "marc/recordCutter.h"
#include "memoryRuns.h"
#include "pairs.h"
#include "recordRuns.h"
#include "workspace/preReadEngine.h"
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

// Reads as the workspace does, without a window.
bool readHeadless(const QString &file) {
    auto cutter = marc::RecordCutter::open(file);
    if (!cutter)
        return false;
    marc::PreReadStore store;
    const workspace::ReadWatcher nobody{
        .yield = [] {}, .abandoned = [] { return false; }, .stopRequested = [] { return false; }, .listed = [](int) {}};
    return workspace::readRecords(cutter.value(), {}, store, nobody).count == recordCount;
}

double stepsPerSecond(const RecordFile &file) {
    constexpr int steps = 199; // to the last record of the first batch
    const auto best = takeTurns("stepping", 3, {[&file] {
                                    Workspace workspace(file);
                                    workspace.open();
                                    return timed([&workspace] {
                                        for (int i = 0; i < steps; ++i) {
                                            workspace.window.cmdTiMing[1]->click();
                                            settle(); // each record is painted
                                        }
                                        return workspace.window.Text2->text() == QString::number(steps + 1);
                                    });
                                }});
    return steps / best[0];
}

} // namespace

void recordPairs(Table &table, const BenchStage &stage) {
    const RecordFile records = stage.records();
    const QString file = records.path;
    const auto counting = takeTurns("lines", 7,
                                    {[&file] { return timed([&file] { return marc::lineCount(file).ok(); }); },
                                     command(u"wc -l <" + quoted(file) + u" >/dev/null" + endComplaint)});
    table.speed(u"count the lines of 200,000 records | wc -l"_s, counting[0], counting[1], 0);

    const auto reading = takeTurns(
        "reading", 3,
        {[&file] { return timed([&file] { return readHeadless(file); }); }, [&] { return readInWindow(records); },
         command(u"yaz-marcdump -f gbk -t utf-8 -o line " + quoted(file) + u" >/dev/null" + endComplaint)});
    table.speed(u"read 200,000 records | yaz-marcdump"_s, reading[0], reading[2], 8);
    table.speed(u"read 200,000 records, in the window | yaz-marcdump"_s, reading[1], reading[2], 8);

    const auto memory = memoryOfReading(records);
    constexpr double fixedPart = 100e6;
    if (memory)
        table.size(u"memory of the window then, less 100 MB | the file"_s, *memory, double(QFileInfo(file).size()), 1,
                   fixedPart);
}

void stepping(Table &table, const BenchStage &stage) {
    table.rate(u"step through records with the button, in the window"_s, stepsPerSecond(stage.records()), u" rec/s"_s);
}

} // namespace bench
