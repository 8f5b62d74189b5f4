#include "app/startUp.h"
#include "databaseRuns.h"
#include "fileRuns.h"
#include "filetools/windows/frmCutFile.h"
#include "filetools/windows/frmUnionFile.h"
#include "import/windows/frmDaoRuJindu.h"
#include "platform/paths.h"
#include "recordRuns.h"
#include "scaleReport.h"
#include "scaleTurns.h"
#include "widgets/button.h"
#include <QFile>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

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

} // namespace

void livenessScale(ScaleReport &report, const BenchStage &stage) {
    const RecordFile file = stage.recordsOf(report.records());
    tellTurns(report, u"read"_s, reading(file));
    tellTurns(report, u"import"_s, importing(stage, readStore(file.path)));
    tellTurns(report, u"export"_s, exporting(stage, file.records));
    tellTurns(report, u"split"_s, splitting(stage, file));
    const QStringList parts = partsOf(stage, file);
    tellTurns(report, u"merge"_s, merging(stage, parts));
    emptyFiles(platform::folderOf(parts.value(0)));
}

} // namespace bench
