// Measures the same work on batches of several sizes, each with its counterpart, on the files in a folder that
// scripts/bench has filled.
// Usage: scale FOLDER JSON-FILE SIZE...
#include "memoryRuns.h"
#include "scaleReport.h"
#include <QApplication>
#include <cstdio>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (const std::optional<int> told = bench::tellMemory(arguments))
        return *told;
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: scale FOLDER JSON-FILE SIZE...\n");
        return 2;
    }
    const bench::BenchStage stage{arguments[0]};
    bench::ScaleReport report;
    bench::startScale(report);
    bench::serverScale(report, stage);
    for (const QString &size : arguments.mid(2)) {
        report.about(size.toInt());
        for (const auto subject :
             {bench::recordScale, bench::fileScale, bench::databaseScale, bench::proofScale, bench::livenessScale}) {
            subject(report, stage);
            report.write(arguments[1]); // keeps the figures even if a later size fails
        }
    }
    if (const int missed = report.table.missed())
        std::printf("%d of what was wanted missed (marked !)\n", missed);
    return 0;
}
