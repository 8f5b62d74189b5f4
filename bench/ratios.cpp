// Compares the program with other tools and with bare loops, on the files in a folder that scripts/bench has filled.
// Usage: ratios FOLDER [records|stepping|files|databases|batch|tasks]...
#include "memoryRuns.h"
#include "pairs.h"
#include <QApplication>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct Subject {
    QStringView name;
    void (*pairs)(bench::Table &table, const bench::BenchStage &stage);
};

constexpr auto subjects = std::to_array<Subject>({
    {u"records", bench::recordPairs},
    {u"stepping", bench::stepping},
    {u"files", bench::filePairs},
    {u"databases", bench::databasePairs},
    {u"batch", bench::batchPairs},
    {u"tasks", bench::taskPairs},
});

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (const std::optional<int> told = bench::tellMemory(arguments))
        return *told;
    if (arguments.isEmpty()) {
        std::fprintf(stderr, "usage: ratios FOLDER [records|stepping|files|databases|batch|tasks]...\n");
        return 2;
    }
    const bench::BenchStage stage{arguments[0]};
    bench::Table table;
    for (const Subject &subject : subjects) {
        if (arguments.size() == 1 || arguments.contains(subject.name, Qt::CaseSensitive))
            subject.pairs(table, stage);
    }
    if (table.missed() > 0)
        std::printf("%d of the wanted ratios missed (marked !)\n", table.missed());
    return 0;
}
