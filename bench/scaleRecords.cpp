#include "card/windows/frmMarcKaPian.h"
#include "memoryRuns.h"
#include "proof/windows/frmMessage.h"
#include "recordRuns.h"
#include "scaleReport.h"
#include "workspace/windows/findLine.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int viewRounds = 7;
constexpr double shownAnyway = 0.05; // seconds that a window may take for any file

void firstView(ScaleReport &report, const RecordFile &file) {
    const auto sides = takeTurns(
        "first view", viewRounds,
        {[&file] { return firstViewInWindow(file); }, command(u"wc -l <" + quoted(file.path) + u" >/dev/null")});
    report.compared(u"first view"_s, sides, u"wc -l"_s, 0);
    report.table.time(u"first view, less 50 ms | wc -l"_s, sides[0], sides[1], 1.5, shownAnyway);
}

void readAll(ScaleReport &report, const RecordFile &file) {
    const auto sides =
        takeTurns("read all", roundsOf(file.records),
                  {[&file] { return readInWindow(file); }, command(u"yaz-marcdump -f gbk -t utf-8 -o line " +
                                                                   quoted(file.path) + u" >/dev/null" + endComplaint)});
    report.compared(u"read all"_s, sides, u"yaz-marcdump"_s, 8);
    constexpr double fixedPart = 100e6;
    if (const auto memory = memoryOfReading(file))
        report.table.size(u"memory of the window then, less 100 MB | the file"_s, *memory,
                          double(QFileInfo(file.path).size()), 1, fixedPart);
}

// Searches the whole list through the find line (F3) for a text that does not occur.
std::optional<double> findIn(workspace::FindLine &line, workspace::FindLine::Place place) {
    line.open(place);
    const auto taken = timed([&line] {
        line.findText->setText(u"查无此书"_s);
        while (line.findCount->text() != u"没有找到")
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return true;
    });
    line.findText->clear();
    settle();
    return taken;
}

void find(ScaleReport &report, Workspace &workspace) {
    constexpr double wanted = 0.3 / 200'000; // seconds per record
    using Place = workspace::FindLine::Place;
    for (const auto &[operation, place] :
         {std::pair(u"find in records"_s, Place::WholeRecord), {u"find in titles"_s, Place::Title}}) {
        const auto sides =
            takeTurns("find", roundsOf(workspace.records), {[&] { return findIn(*workspace.window.findLine, place); }});
        report.alone(operation, sides[0], workspace.records, wanted);
    }
}

// The actions of the workspace's buttons on single records, spread evenly over the list.
class OneByOne {
public:
    explicit OneByOne(const RecordFile &file)
        : workspace(file, {.showCard = [this](const auto &record, const auto &mode, const auto &,
                                              QWidget *owner) { showCard(record, mode, owner); },
                           .showReport = [this](const QString &text, QWidget *owner) { showReport(text, owner); }}) {
        workspace.host.told = [this] { noteShown(); };
    }

    // Returns the best of three rounds over the same records: the sum of the seconds until each result is visible.
    double seconds(int count, const std::function<void()> &work) {
        return takeTurns("one by one", 3, {[&] {
                             double all = 0;
                             for (int i = 0; i < count; ++i) {
                                 const int row = int(qint64(workspace.records) * i / count);
                                 workspace.window.showRecord(workspace.window.records().record(row));
                                 settle();
                                 m_clock.start();
                                 m_shown.reset();
                                 work();
                                 noteShown();
                                 all += *m_shown;
                             }
                             return std::optional(all);
                         }})[0];
    }

    Workspace workspace;

private:
    void noteShown() {
        if (!m_shown)
            m_shown = double(m_clock.nsecsElapsed()) / 1e9;
    }

    void showCard(const marc::RawRecord &record, const QString &mode, QWidget *owner) {
        card::frmMarcKaPian window(workspace.host, owner);
        window.marcRecord = record;
        window.showMode = mode;
        putUp(window);
        noteShown();
    }

    void showReport(const QString &text, QWidget *owner) {
        proof::frmMessage window(workspace.host, owner);
        window.setText(text);
        putUp(window);
        noteShown();
    }

    QElapsedTimer m_clock;
    std::optional<double> m_shown; // seconds since the clock was started
};

void singles(ScaleReport &report, OneByOne &desk) {
    constexpr int rebuilt = 1000, opened = 100;
    auto &window = desk.workspace.window;
    report.alone(u"rebuild"_s, desk.seconds(rebuilt, [&window] { (void)window.madeMyMarc(); }), rebuilt);
    report.alone(u"card"_s, desk.seconds(opened, [&window] { window.cmdclick[1]->click(); }), opened);
    report.alone(u"proof"_s, desk.seconds(opened, [&window] { window.cmdclick[2]->click(); }), opened);
}

} // namespace

void recordScale(ScaleReport &report, const BenchStage &stage) {
    const RecordFile file = stage.recordsOf(report.records());
    firstView(report, file);
    readAll(report, file);
    OneByOne desk(file);
    if (!desk.workspace.readAll())
        qFatal("the workspace did not list every record");
    find(report, desk.workspace);
    singles(report, desk);
}

} // namespace bench
