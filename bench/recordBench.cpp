// The speed of the record core: codec, counting, first view, reading the rest, showing and rebuilding. Runs on the file
// named in TARVEX_BENCH_FILE (made by makeRecords).
#include "marc/configurationFiles.h"
#include "marc/fieldLookup.h"
#include "marc/preReadStore.h"
#include "marc/recordCutter.h"
#include "marc/recordWriter.h"
#include "platform/codepage936.h"
#include <benchmark/benchmark.h>

namespace {

QString file() {
    return qEnvironmentVariable("TARVEX_BENCH_FILE");
}

std::vector<QByteArray> firstRecords(int count) {
    std::vector<QByteArray> records;
    auto cutter = marc::RecordCutter::open(file());
    if (!cutter)
        return records;
    while (int(records.size()) < count && cutter.value().next())
        records.push_back(cutter.value().bytes().toByteArray());
    return records;
}

void readInto(marc::PreReadStore &store, int limit) {
    auto cutter = marc::RecordCutter::open(file());
    for (int count = 0; count < limit && cutter.value().next(); ++count) {
        const marc::RawRecord record = cutter.value().record();
        store.setRows(count + 1);
        store.setNumber(count, count + 1);
        store.setTitle(count, marc::readZd(record, cutter.value().bytes(), u"200a", {}).value_or(QString()));
        store.setRecord(count, record, cutter.value().bytes());
    }
}

void decode(benchmark::State &state) {
    const auto records = firstRecords(1000);
    qint64 bytes = 0;
    for (auto _ : state) {
        for (const QByteArray &record : records) {
            benchmark::DoNotOptimize(platform::decode(record));
            bytes += record.size();
        }
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(decode);

void encode(benchmark::State &state) {
    std::vector<QString> texts;
    for (const QByteArray &record : firstRecords(1000))
        texts.push_back(platform::decode(record));
    qint64 bytes = 0;
    for (auto _ : state) {
        for (const QString &text : texts)
            bytes += platform::encode(text).size();
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(encode);

void lineCount(benchmark::State &state) {
    qint64 lines = 0;
    for (auto _ : state)
        lines += marc::lineCount(file()).value();
    state.SetItemsProcessed(lines);
}
BENCHMARK(lineCount)->Unit(benchmark::kMillisecond);

void firstView(benchmark::State &state) {
    for (auto _ : state) {
        marc::PreReadStore store;
        benchmark::DoNotOptimize(marc::lineCount(file()).value());
        readInto(store, 200);
        benchmark::DoNotOptimize(marc::showRecord(store.record(0)));
    }
}
BENCHMARK(firstView)->Unit(benchmark::kMillisecond);

void readOn(benchmark::State &state) {
    qint64 records = 0;
    for (auto _ : state) {
        marc::PreReadStore store;
        readInto(store, std::numeric_limits<int>::max());
        records += store.rowCount();
    }
    state.SetItemsProcessed(records);
}
BENCHMARK(readOn)->Unit(benchmark::kMillisecond);

void showRecord(benchmark::State &state) {
    marc::PreReadStore store;
    readInto(store, 1000);
    qint64 records = 0;
    for (auto _ : state) {
        for (int i = 0; i < store.rowCount(); ++i)
            benchmark::DoNotOptimize(marc::showRecord(store.record(i)));
        records += store.rowCount();
    }
    state.SetItemsProcessed(records);
}
BENCHMARK(showRecord)->Unit(benchmark::kMillisecond);

void madeMyMarc(benchmark::State &state) {
    marc::PreReadStore store;
    readInto(store, 1000);
    std::vector<marc::ShownRecord> shown;
    for (int i = 0; i < store.rowCount(); ++i)
        shown.push_back(marc::showRecord(store.record(i)));
    const QDateTime now = QDateTime::currentDateTime();
    qint64 records = 0;
    for (auto _ : state) {
        for (const marc::ShownRecord &record : shown)
            benchmark::DoNotOptimize(marc::madeMyMarc(record.rows, record.leader, now));
        records += qint64(shown.size());
    }
    state.SetItemsProcessed(records);
}
BENCHMARK(madeMyMarc)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
