#include "benchStage.h"
#include "marc/fieldLookup.h"
#include "marc/recordCutter.h"
#include "pairs.h"
#include "workspace/preReadEngine.h"
#include "workspace/windows/frmDaoru.h"
#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

// The reading of the workspace, with no window.
bool readHeadless(const QString &file) {
    auto reader = platform::LineReader::open(file);
    if (!reader)
        return false;
    marc::PreReadStore store;
    const workspace::ReadWatcher nobody{
        .yield = [] {}, .abandoned = [] { return false; }, .stopRequested = [] { return false; }, .listed = [](int) {}};
    return workspace::readRecords(reader.value(), {}, store, nobody).count == recordCount;
}

// As a user has it: the first batch, the window comes up, the button for the remainder.
bool readInto(workspace::frmDaoru &window, const QString &file) {
    window.publicMarcFile = file;
    window.load();
    putUp(window);
    window.cmdclick[3]->click();
    settle();
    return window.records().rowCount() == recordCount;
}

bool readInWindow(const QString &file) {
    BenchHost host;
    workspace::frmDaoru window(host, {});
    return readInto(window, file) && host.boxes == 0;
}

std::optional<double> memoryOfReading(const QString &file) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {u"--memory"_s, file});
    if (!child.waitForFinished(-1) || child.exitCode() != 0)
        return std::nullopt;
    return child.readAllStandardOutput().trimmed().toDouble();
}

double stepsPerSecond(const QString &file) {
    constexpr int steps = 199; // to the last of the first batch
    const auto best = takeTurns("stepping", 3, {[&file] {
                                    BenchHost host;
                                    workspace::frmDaoru window(host, {});
                                    window.publicMarcFile = file;
                                    window.load();
                                    putUp(window);
                                    return timed([&window] {
                                        for (int i = 0; i < steps; ++i) {
                                            window.cmdTiMing[1]->click();
                                            settle(); // each record is seen
                                        }
                                        return window.Text2->text() == QString::number(steps + 1);
                                    });
                                }});
    return steps / best[0];
}

} // namespace

int tellMemory(const QString &file) {
    BenchHost host;
    workspace::frmDaoru window(host, {});
    if (!readInto(window, file))
        return 1;
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 1;
    const QByteArray resident = status.readAll().split(' ').value(1);
    std::printf("%lld\n", resident.toLongLong() * sysconf(_SC_PAGESIZE));
    return 0;
}

void recordPairs(Table &table, const BenchStage &stage) {
    const QString file = stage.records();
    const auto counting = takeTurns("lines", 7,
                                    {[&file] { return timed([&file] { return marc::lineCount(file).ok(); }); },
                                     command(u"wc -l <" + quoted(file) + u" >/dev/null" + endComplaint)});
    table.speed("count the lines of 200,000 records | wc -l", counting[0], counting[1], 0);

    const auto reading =
        takeTurns("reading", 3,
                  {[&file] { return timed([&file] { return readHeadless(file); }); },
                   [&file] { return timed([&file] { return readInWindow(file); }); },
                   command(u"yaz-marcdump -f gbk -t utf-8 -o line " + quoted(file) + u" >/dev/null" + endComplaint)});
    table.speed("read 200,000 records | yaz-marcdump", reading[0], reading[2], 4);
    table.speed("read 200,000 records, in the window | yaz-marcdump", reading[1], reading[2], 4);

    const auto memory = memoryOfReading(file);
    constexpr double fixedPart = 100e6;
    if (memory)
        table.size("memory of the window then, less 100 MB | the file", *memory - fixedPart,
                   double(QFileInfo(file).size()), 1.4);
}

void stepping(Table &table, const BenchStage &stage) {
    table.rate("step through records with the button, in the window", stepsPerSecond(stage.records()), " rec/s");
}

} // namespace bench
