#include "memoryRuns.h"
#include "databaseRuns.h"
#include "recordRuns.h"
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr QStringView ofReading = u"--memory-of-reading";
constexpr QStringView ofListing = u"--memory-of-listing";

std::optional<double> askedOf(QStringView work, const QString &file, int count) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {work.toString(), file, QString::number(count)});
    if (!child.waitForFinished(-1) || child.exitCode() != 0)
        return std::nullopt;
    return child.readAllStandardOutput().trimmed().toDouble();
}

int printResident() {
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 1;
    const QByteArray resident = status.readAll().split(' ').value(1);
    std::printf("%lld\n", resident.toLongLong() * sysconf(_SC_PAGESIZE));
    return 0;
}

} // namespace

std::optional<double> memoryOfReading(const RecordFile &file) {
    return askedOf(ofReading, file.path, file.records);
}

std::optional<double> memoryOfListing(const QString &database, int rows) {
    return askedOf(ofListing, database, rows);
}

std::optional<int> tellMemory(const QStringList &arguments) {
    const int count = arguments.value(2).toInt();
    if (arguments.value(0) == ofReading) {
        Workspace workspace({arguments.value(1), count});
        return workspace.readAll() ? printResident() : 1;
    }
    if (arguments.value(0) == ofListing) {
        List list(arguments.value(1));
        putUp(list.window);
        return list.load(count) ? printResident() : 1;
    }
    return std::nullopt;
}

} // namespace bench
