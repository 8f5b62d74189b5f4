#include "fileRuns.h"
#include "platform/paths.h"
#include "scaleReport.h"

using namespace Qt::StringLiterals;

namespace bench {

void fileScale(ScaleReport &report, const BenchStage &stage) {
    const RecordFile file = stage.recordsOf(report.records());
    const auto into = [&](const std::function<std::optional<double>(QString)> &round) {
        return [&stage, file, round] { return intoFolder(stage, file, round); };
    };
    const int rounds = roundsOf(file.records, 12, 5); // many short rounds, because disk activity disturbs single ones
    const auto cutting = takeTurns("split", rounds,
                                   {into([&file](const QString &to) { return splitInWindow(file.path, to); }),
                                    commandIntoFolder(stage, file, u"cp " + quoted(file.path) + u" whole")});
    report.compared(u"split"_s, cutting, u"cp"_s, 2.0 / 3);

    const QStringList parts = partsOf(stage, file);
    const QString folder = platform::folderOf(parts.value(0));
    const auto merging = takeTurns("merge", rounds,
                                   {into([&parts](const QString &to) { return mergeInWindow(parts, to); }),
                                    commandIntoFolder(stage, file, u"cat " + quoted(folder) + u"/* >whole")});
    report.compared(u"merge"_s, merging, u"cat"_s, 0.75);
    emptyFiles(folder);
}

} // namespace bench
