#include "filetools/windows/frmCutFile.h"
#include "filetools/windows/frmTidy.h"
#include "filetools/windows/frmUnionFile.h"
#include "pairs.h"
#include <QDir>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int perFile = 1000;
constexpr int quickRounds = 12; // a tenth of a second each: many, since the disk's own work comes in between

qint64 sizeOf(const QString &folder) {
    qint64 size = 0;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        size += file.size();
    return size;
}

// A round into a new folder, which goes again behind it.
std::optional<double> intoFolder(const BenchStage &stage, const std::function<std::optional<double>(QString)> &round) {
    const QString folder = stage.freshFolder(u"split");
    auto taken = round(folder);
    if (sizeOf(folder) < QFileInfo(stage.records()).size() - 2 * recordCount) // other tools leave out the line ends
        taken.reset();
    QDir(folder).removeRecursively();
    return taken;
}

std::optional<double> splitInWindow(const QString &source, const QString &folder) {
    BenchHost host;
    filetools::frmCutFile window(host, [](const QString &) {});
    window.Text1[0]->setText(source);
    window.Text1[1]->setText(folder + u"/target.iso");
    window.Text2->setText(QString::number(perFile));
    putUp(window);
    return timed([&window] {
        window.cmdclick[0]->click();
        settle();
        return true;
    });
}

std::optional<double> mergeInWindow(const QStringList &sources, const QString &folder) {
    BenchHost host;
    filetools::frmUnionFile window(host, [](const QString &) {});
    window.List1->addItems(sources);
    window.Text1->setText(folder + u"/target.iso");
    putUp(window);
    return timed([&window] {
        window.cmdClick[0]->click();
        settle();
        return true;
    });
}

std::optional<double> tidyInWindow(const QString &source, const QString &folder) {
    BenchHost host;
    filetools::frmTidy window(host, source);
    window.Text1[1]->setText(folder + u"/target.iso");
    putUp(window);
    return timed([&window] {
        window.cmdClick[0]->click();
        settle();
        return window.txtResult->text().contains(u"保存了%1条"_s.arg(recordCount));
    });
}

} // namespace

void filePairs(Table &table, const BenchStage &stage) {
    const QString source = stage.records();
    const auto shell = [&stage](const QString &line) -> Side {
        return [&stage, line] {
            return intoFolder(
                stage, [&line](const QString &folder) { return command(u"cd " + quoted(folder) + u" && " + line)(); });
        };
    };
    const Side ours = [&] { return intoFolder(stage, [&](const QString &to) { return splitInWindow(source, to); }); };
    const auto cutting = takeTurns(
        "split", 2, {ours, shell(u"yaz-marcdump -s part -C 1000 " + quoted(source) + u" >/dev/null" + endComplaint)});
    table.speed("split 200,000 records by 1,000, in the window | yaz-marcdump", cutting[0], cutting[1], 3);
    const auto copying = takeTurns("split", quickRounds, {ours, shell(u"cp " + quoted(source) + u" whole")});
    table.speed("split 200,000 records by 1,000, in the window | cp", copying[0], copying[1], 0.5);

    const QString parts = stage.freshFolder(u"parts");
    splitInWindow(source, parts);
    QStringList sources;
    for (const QFileInfo &file : QDir(parts).entryInfoList(QDir::Files, QDir::Name))
        sources.append(file.filePath());
    const auto merging =
        takeTurns("merge", quickRounds,
                  {[&] { return intoFolder(stage, [&](const QString &to) { return mergeInWindow(sources, to); }); },
                   shell(u"cat " + quoted(parts) + u"/* >whole")});
    table.speed("merge 200 files of 1,000 records, in the window | cat", merging[0], merging[1], 0.5);

    // As others send it: UTF-8, without line ends.
    const QString bare = stage.freshPath(u"bare.iso"), foreign = stage.freshPath(u"foreign.iso");
    command(u"tr -d '\\r\\n' <" + quoted(source) + u" >" + quoted(bare) + u" && yaz-marcdump -f gbk -t utf-8 -o marc " +
            quoted(bare) + u" >" + quoted(foreign))();
    const Side tidying = [&] {
        return intoFolder(stage, [&](const QString &to) { return tidyInWindow(foreign, to); });
    };
    const auto tidied =
        takeTurns("tidy", 3, {tidying, shell(u"yaz-marcdump -f utf-8 -t gbk -o marc " + quoted(foreign) + u" >whole")});
    table.speed("tidy 200,000 records of UTF-8, in the window | yaz-marcdump", tidied[0], tidied[1], 3);
}

} // namespace bench
