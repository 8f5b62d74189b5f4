#include "memoryRuns.h"
#include "app/startUp.h"
#include "batch/proofRun.h"
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

// The database is a new one without tables, so that the search ends at once; it keeps the books until then.
std::optional<qint64> bytesPerRemark(const QString &path) {
    BenchHost host;
    const auto records = readStore(path);
    const QString folder = platform::pathWithSlash(QCoreApplication::applicationDirPath());
    database::LinkPool links(app::tableNames());
    const database::SessionState state{links, connectionTo(u":memory:"_s)};
    proof::RecordProofs proofs(folder);
    schema::SchemaInForce schema(host.settings(), folder);
    batch::ProofRun run(
        records, [&](const marc::FieldRows &rows) { return proofs.faultsOf(rows); }, state, &schema);
    batch::RemarkList list = run.emptyList();
    malloc_trim(0); // releases what reading the records left unused
    const auto before = resident();
    while (run.hasNext())
        for (batch::Remark &remark : run.step())
            list.add(std::move(remark));
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
