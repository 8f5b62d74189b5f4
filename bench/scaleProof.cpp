#include "batch/windows/frmBatchReport.h"
#include "batchRuns.h"
#include "memoryRuns.h"
#include "scaleReport.h"
#include "scaleTurns.h"
#include "widgets/pacedLabel.h"
#include <QCoreApplication>
#include <ctime>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

WatchedRun proofing(const BenchStage &stage, std::shared_ptr<const marc::PreReadStore> records) {
    return [&stage, records](TurnProbe &probe, double pressAfter) {
        ProofPane run(stage.emptyDatabase(), records);
        watch(probe, run.host, pressAfter, run.pane.stopButton, [&run] { run.pane.proofAll(); });
    };
}

// Measures the report about a proof of these records.
void tellReport(ScaleReport &report, const BenchStage &stage, std::shared_ptr<const marc::PreReadStore> records) {
    constexpr double longest = 1, longestGap = 0.05; // seconds
    const int rows = records->rowCount();
    ProofPane run(stage.emptyDatabase(), records);
    run.proofAll();
    TurnProbe probe;
    probe.begin(TurnProbe::never, [] {});
    batch::frmBatchReport window(run.host, {*records, run.pane.proofTable->remarks()}, {.rows = rows, .proved = rows});
    putUp(window);
    while (!window.report())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    settle();
    probe.end();
    report.table.bound(u"report of %1 remarks"_s.arg(window.report()->remarks), probe.seconds(), longest);
    report.table.bound(u"report: longest gap between event turns"_s, probe.longestGap(), longestGap);
}

} // namespace

void proofScale(ScaleReport &report, const BenchStage &stage) {
    constexpr double wanted = 1.0 / 20'000; // seconds per record, with schema and rules
    const int records = report.records();
    const auto all = readStore(stage.recordsOf(records).path);
    const int rounds = roundsOf(records, 2, 1);
    const std::clock_t begin = std::clock();
    const auto proving =
        takeTurns("proof of all", rounds, {[&] { return proofAllInWindow(stage.emptyDatabase(), all); }});
    const double processor = double(std::clock() - begin) / CLOCKS_PER_SEC / rounds;
    report.alone(u"proof of all"_s, proving[0], records, wanted);
    report.alone(u"proof of all, processor time"_s, processor, records, wanted);
    constexpr double mostOfRemark = 200; // bytes, while the books that duplicates are searched for are still kept
    if (const auto memory = memoryOfRemarks(stage.recordsOf(records)))
        report.table.bound(u"memory of a remark"_s, *memory, mostOfRemark, Unit::Bytes);
    tellTurns(report, u"proof of all"_s, proofing(stage, all));
    tellReport(report, stage, all);

    const auto batch = readStore(stage.importRecords().path);
    const QString catalogue = stage.catalogueOf(records);
    const auto looking = takeTurns(
        "batch", 3, {[&] { return proofAllInWindow(catalogue, batch); }, command(identitiesCommand(catalogue))});
    report.table.speed(u"proof of 20,000, looked up in so many | sqlite3 lists these"_s, looking[0], looking[1], 0);
}

} // namespace bench
