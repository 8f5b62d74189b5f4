#include "app/startUp.h"
#include "batch/windows/frmBatchReport.h"
#include "batchRuns.h"
#include "databaseRuns.h"
#include "fileRuns.h"
#include "filetools/windows/frmCutFile.h"
#include "filetools/windows/frmUnionFile.h"
#include "import/windows/frmDaoRuJindu.h"
#include "platform/paths.h"
#include "recordRuns.h"
#include "scaleReport.h"
#include "turnProbe.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include <QFile>
#include <algorithm>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

// Runs one of the long loops in its real window, from the press of its button, and presses its stop button after so
// many seconds. A message box answers the press, and so does the end of the run.
using WatchedRun = std::function<void(TurnProbe &probe, double pressAfter)>;

void watch(TurnProbe &probe, BenchHost &host, double pressAfter, QPushButton *stop, const std::function<void()> &run) {
    host.told = [&probe] { probe.answered(); };
    probe.begin(pressAfter, [stop] { stop->click(); });
    run();
    settle();
    probe.answered();
    probe.end();
}

WatchedRun reading(const RecordFile &file) {
    return [file](TurnProbe &probe, double pressAfter) {
        Workspace workspace(file);
        workspace.open();
        watch(probe, workspace.host, pressAfter, workspace.window.cmdJieShu, [&workspace] { workspace.readOn(); });
    };
}

WatchedRun importing(const BenchStage &stage, std::shared_ptr<const marc::PreReadStore> records) {
    return [&stage, records](TurnProbe &probe, double pressAfter) {
        BenchHost host;
        database::LinkPool links(app::tableNames());
        const database::SessionState state{links, sqliteTarget(stage).emptied()};
        importing::frmDaoRuJindu window(host, state, records);
        window.Text2->setText(QString::number(records->rowCount()));
        watch(probe, host, pressAfter, window.cmdStop, [&window] {
            window.show();
            window.activate();
        });
        links.dropKept();
    };
}

WatchedRun exporting(const BenchStage &stage, int rows) {
    constexpr int stop = 4; // the index of its button
    return [&stage, rows](TurnProbe &probe, double pressAfter) {
        List list(stage.catalogueOf(rows));
        putUp(list.window);
        list.load(rows);
        list.host.chosenFile = stage.freshPath(u"export.iso");
        list.host.answer = platform::Answer::Yes;
        watch(probe, list.host, pressAfter, list.window.CmdDcgl[stop], [&list] { list.window.daochuMarc(); });
        QFile::remove(list.host.chosenFile);
    };
}

WatchedRun proving(const BenchStage &stage, std::shared_ptr<const marc::PreReadStore> records) {
    return [&stage, records](TurnProbe &probe, double pressAfter) {
        ProofPane run(stage.emptyDatabase(), records);
        watch(probe, run.host, pressAfter, run.pane.stopButton, [&run] { run.pane.proofAll(); });
    };
}

// Split and merge cannot be stopped: the button that closes the window shows a message, which counts as the answer.
WatchedRun splitting(const BenchStage &stage, const RecordFile &file) {
    return [&stage, file](TurnProbe &probe, double pressAfter) {
        const QString folder = stage.freshFolder(u"split");
        BenchHost host;
        filetools::frmCutFile window(host, [](const QString &) {});
        window.Text1[0]->setText(file.path);
        window.Text1[1]->setText(folder + u"/target.iso");
        window.Text2->setText(QString::number(perFile));
        putUp(window);
        watch(probe, host, pressAfter, window.cmdclick[1], [&window] { window.cmdclick[0]->click(); });
        emptyFiles(folder);
    };
}

WatchedRun merging(const BenchStage &stage, const QStringList &parts) {
    return [&stage, parts](TurnProbe &probe, double pressAfter) {
        const QString folder = stage.freshFolder(u"merge");
        BenchHost host;
        filetools::frmUnionFile window(host, [](const QString &) {});
        window.List1->addItems(parts);
        window.Text1->setText(folder + u"/target.iso");
        putUp(window);
        watch(probe, host, pressAfter, window.cmdClick[1], [&window] { window.cmdClick[0]->click(); });
        emptyFiles(folder);
    };
}

// Writes out pending disk data first, so that a gap is caused by the run itself.
void runOnQuietDisk(const WatchedRun &run, TurnProbe &probe, double pressAfter) {
    ::sync();
    run(probe, pressAfter);
}

void tellTurns(ScaleReport &report, const QString &loop, const WatchedRun &run) {
    constexpr double longestGap = 0.1, longestAnswer = 0.05; // seconds
    TurnProbe probe;
    runOnQuietDisk(run, probe, TurnProbe::never);
    const double whole = probe.seconds();
    double gap = probe.longestGap();
    double answer = 0;
    for (const double part : {0.2, 0.5, 0.8}) {
        runOnQuietDisk(run, probe, part * whole);
        gap = std::max(gap, probe.longestGap());
        answer = std::max(answer, probe.answer().value_or(0));
    }
    report.table.bound(loop + u": longest gap between event turns", gap, longestGap);
    report.table.bound(loop + u": a stop is answered", answer, longestAnswer);
}

// The report about a proof of so many records.
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

void livenessScale(ScaleReport &report, const BenchStage &stage) {
    const RecordFile file = stage.recordsOf(report.records());
    tellTurns(report, u"read"_s, reading(file));
    tellTurns(report, u"import"_s, importing(stage, readStore(file.path)));
    tellTurns(report, u"proof of all"_s, proving(stage, readStore(file.path)));
    tellReport(report, stage, readStore(file.path));
    tellTurns(report, u"export"_s, exporting(stage, file.records));
    tellTurns(report, u"split"_s, splitting(stage, file));
    const QStringList parts = partsOf(stage, file);
    tellTurns(report, u"merge"_s, merging(stage, parts));
    emptyFiles(platform::folderOf(parts.value(0)));
}

} // namespace bench
