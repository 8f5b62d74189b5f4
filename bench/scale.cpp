// Measures the same work on batches of several sizes, each with its counterpart, on the files in a folder that
// scripts/bench has filled.
// Usage: scale FOLDER JSON-FILE [SUBJECT...] SIZE...   (no subject: all of them)
#include "memoryRuns.h"
#include "scaleReport.h"
#include <QApplication>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct Subject {
    QStringView name;
    void (*measure)(bench::ScaleReport &report, const bench::BenchStage &stage);
};

constexpr auto subjects = std::to_array<Subject>({
    {u"records", bench::recordScale},
    {u"files", bench::fileScale},
    {u"databases", bench::databaseScale},
    {u"proof", bench::proofScale},
    {u"liveness", bench::livenessScale},
});

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (const std::optional<int> told = bench::tellMemory(arguments))
        return *told;
    QStringList sizes = arguments.mid(2);
    std::vector<Subject> chosen;
    for (const Subject &subject : subjects)
        if (sizes.removeAll(subject.name.toString()) > 0)
            chosen.push_back(subject);
    if (sizes.isEmpty()) {
        std::fprintf(stderr, "usage: scale FOLDER JSON-FILE [SUBJECT...] SIZE...\n");
        return 2;
    }
    const bench::BenchStage stage{arguments[0]};
    bench::ScaleReport report;
    if (chosen.empty()) {
        bench::startScale(report);
        bench::serverScale(report, stage);
        chosen.assign(subjects.begin(), subjects.end());
    }
    for (const QString &size : sizes) {
        report.about(size.toInt());
        for (const Subject &subject : chosen) {
            subject.measure(report, stage);
            report.write(arguments[1]); // keeps the figures even if a later size fails
        }
    }
    if (const int missed = report.table.missed())
        std::printf("%d of what was wanted missed (marked !)\n", missed);
    return 0;
}
