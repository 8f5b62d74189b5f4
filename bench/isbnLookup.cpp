// Looks up ISBNs in a catalogue by a batch of the program and by a bare loop over the library that it uses, in turns,
// and prints both speeds, their ratio, and the longest turn of the event loop during the batch, in milliseconds of
// processor time. Usage: isbnLookup PORT RECORD-FILE COUNT ROUNDS; the catalogue has the records of the file.
#include "support/sampleIsbns.h"
#include "targets/isbnBatch.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <cstdio>
#include <ctime>
#include <yaz/zoom.h>

using namespace Qt::StringLiterals;

namespace {

QStringList isbnsOf(const QString &path, int count) {
    const QStringList known = sampleIsbns(path);
    QStringList isbns;
    for (int i = 0; i < count && !known.isEmpty(); ++i)
        isbns.append(known[i % known.size()]);
    return isbns;
}

double used() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1000 + double(time.tv_nsec) / 1e6;
}

struct Taken {
    double seconds = 0;
    int found = 0;
    double longestTurn = 0;
};

Taken byBatch(const targets::Target &target, const QStringList &isbns) {
    const QTemporaryDir folder;
    targets::IsbnBatch batch({target}, {std::chrono::milliseconds(0), 1});
    Taken taken;
    if (!batch.begin(isbns, folder.filePath(u"journal"_s)))
        return taken;
    QEventLoop loop;
    QObject::connect(&batch, &targets::IsbnBatch::finished, &loop, &QEventLoop::quit);
    double last = used();
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &loop, [&] {
        const double now = used();
        taken.longestTurn = qMax(taken.longestTurn, now - last);
        last = now;
    });
    turns.start(5);
    QElapsedTimer clock;
    clock.start();
    batch.start();
    loop.exec();
    taken.seconds = double(clock.nsecsElapsed()) / 1e9;
    taken.found = batch.count(targets::Outcome::State::Found);
    return taken;
}

// Looks up the same ISBNs, one after the other over one connection, and fetches the records without decoding them.
Taken byLoop(const targets::Target &target, const QStringList &isbns) {
    Taken taken;
    QElapsedTimer clock;
    clock.start();
    ZOOM_connection connection = ZOOM_connection_create(nullptr);
    ZOOM_connection_option_set(connection, "preferredRecordSyntax", "unimarc");
    ZOOM_connection_option_set(connection, "databaseName", target.database.toUtf8().constData());
    ZOOM_connection_connect(connection, target.host.toUtf8().constData(), target.port);
    for (const QString &isbn : isbns) {
        const auto query = targets::composeQuery({.isbn = isbn}, target);
        ZOOM_connection_option_set(connection, "count", "10");
        ZOOM_resultset result = ZOOM_connection_search_pqf(connection, query.value().constData());
        const size_t hits = qMin<size_t>(ZOOM_resultset_size(result), targets::IsbnBatch::mostHits);
        bool any = false;
        for (size_t at = 0; at < hits; ++at) {
            int length = 0;
            const ZOOM_record record = ZOOM_resultset_record(result, at);
            any = (record && ZOOM_record_get(record, "raw", &length)) || any;
        }
        taken.found += any;
        ZOOM_resultset_destroy(result);
    }
    ZOOM_connection_destroy(connection);
    taken.seconds = double(clock.nsecsElapsed()) / 1e9;
    return taken;
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5)
        return 2;
    const targets::Target target{
        .name = u"local"_s, .host = u"127.0.0.1"_s, .port = arguments[1].toInt(), .database = u"Default"_s};
    const QStringList isbns = isbnsOf(arguments[2], arguments[3].toInt());
    for (int round = 0; round < arguments[4].toInt(); ++round) {
        const Taken batch = byBatch(target, isbns), loop = byLoop(target, isbns);
        std::printf("batch %.1f s, %d found, longest turn %.1f ms; loop %.1f s, %d found; ratio %.2f\n", batch.seconds,
                    batch.found, batch.longestTurn, loop.seconds, loop.found, loop.seconds / batch.seconds);
    }
    return 0;
}
