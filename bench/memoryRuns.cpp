#include "memoryRuns.h"
#include "batch/batchProof.h"
#include "batch/remarkList.h"
#include "databaseRuns.h"
#include "platform/paths.h"
#include "recordRuns.h"
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <cstdio>
#include <malloc.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr QStringView ofReading = u"--memory-of-reading";
constexpr QStringView ofListing = u"--memory-of-listing";
constexpr QStringView ofRemarks = u"--memory-of-remarks";

std::optional<double> askedOf(QStringView work, const QString &file, int count) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {work.toString(), file, QString::number(count)});
    if (!child.waitForFinished(-1) || child.exitCode() != 0)
        return std::nullopt;
    return child.readAllStandardOutput().trimmed().toDouble();
}

std::optional<qint64> resident() {
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return std::nullopt;
    return status.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

int print(std::optional<qint64> bytes) {
    if (bytes)
        std::printf("%lld\n", *bytes);
    return bytes ? 0 : 1;
}

// What the proof itself keeps is released before the end.
std::optional<qint64> bytesPerRemark(const QString &path) {
    BenchHost host;
    const auto records = readStore(path);
    const QString folder = platform::pathWithSlash(QCoreApplication::applicationDirPath());
    proof::RecordProofs proofs(folder);
    schema::SchemaInForce schema(host.settings(), folder);
    std::optional<batch::BatchProof> proving(
        std::in_place, records, [&](const marc::FieldRows &rows) { return proofs.faultsOf(rows); }, &schema);
    batch::RemarkList list(records, batch::RuleBook(proving->schema()));
    const auto before = resident();
    while (proving->hasNext())
        for (batch::Remark &remark : proving->step())
            list.add(std::move(remark));
    list.sort();
    proving.reset();
    malloc_trim(0);
    const auto after = resident();
    return before && after && list.count() > 0 ? std::optional((*after - *before) / list.count()) : std::nullopt;
}

} // namespace

std::optional<double> memoryOfReading(const RecordFile &file) {
    return askedOf(ofReading, file.path, file.records);
}

std::optional<double> memoryOfListing(const QString &database, int rows) {
    return askedOf(ofListing, database, rows);
}

std::optional<double> memoryOfRemarks(const RecordFile &file) {
    return askedOf(ofRemarks, file.path, file.records);
}

std::optional<int> tellMemory(const QStringList &arguments) {
    const int count = arguments.value(2).toInt();
    if (arguments.value(0) == ofReading) {
        Workspace workspace({arguments.value(1), count});
        return workspace.readAll() ? print(resident()) : 1;
    }
    if (arguments.value(0) == ofListing) {
        List list(arguments.value(1));
        putUp(list.window);
        return list.load(count) ? print(resident()) : 1;
    }
    if (arguments.value(0) == ofRemarks)
        return print(bytesPerRemark(arguments.value(1)));
    return std::nullopt;
}

} // namespace bench
