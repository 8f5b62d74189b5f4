#include "fileRuns.h"
#include "pairs.h"
#include "platform/paths.h"
#include "tidy/windows/frmTidy.h"
#include "widgets/button.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int quickRounds = 12; // about a tenth of a second each; many, because disk activity disturbs single rounds

std::optional<double> tidyInWindow(const QString &source, const QString &folder) {
    BenchHost host;
    tidy::frmTidy window(host, source);
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
    const RecordFile records = stage.records();
    const QString source = records.path;
    const auto shell = [&](const QString &line) { return commandIntoFolder(stage, records, line); };
    const Side ours = [&] {
        return intoFolder(stage, records, [&](const QString &to) { return splitInWindow(source, to); });
    };
    const auto cutting = takeTurns(
        "split", 2, {ours, shell(u"yaz-marcdump -s part -C 1000 " + quoted(source) + u" >/dev/null" + endComplaint)});
    table.speed(u"split 200,000 records by 1,000, in the window | yaz-marcdump"_s, cutting[0], cutting[1], 3);
    const auto copying = takeTurns("split", quickRounds, {ours, shell(u"cp " + quoted(source) + u" whole")});
    table.speed(u"split 200,000 records by 1,000, in the window | cp"_s, copying[0], copying[1], 2.0 / 3);

    const QStringList parts = partsOf(stage, records);
    const auto merging = takeTurns(
        "merge", quickRounds,
        {[&] { return intoFolder(stage, records, [&](const QString &to) { return mergeInWindow(parts, to); }); },
         shell(u"cat " + quoted(platform::folderOf(parts.value(0))) + u"/* >whole")});
    table.speed(u"merge 200 files of 1,000 records, in the window | cat"_s, merging[0], merging[1], 0.75);

    // The format in which other systems send records: UTF-8 without line ends.
    const QString bare = stage.freshPath(u"bare.iso"), foreign = stage.freshPath(u"foreign.iso");
    command(u"tr -d '\\r\\n' <" + quoted(source) + u" >" + quoted(bare) + u" && yaz-marcdump -f gbk -t utf-8 -o marc " +
            quoted(bare) + u" >" + quoted(foreign))();
    const Side tidying = [&] {
        return intoFolder(stage, records, [&](const QString &to) { return tidyInWindow(foreign, to); });
    };
    const auto tidied =
        takeTurns("tidy", 3, {tidying, shell(u"yaz-marcdump -f utf-8 -t gbk -o marc " + quoted(foreign) + u" >whole")});
    table.speed(u"tidy 200,000 records of UTF-8, in the window | yaz-marcdump"_s, tidied[0], tidied[1], 3);
}

} // namespace bench
