#include "tour/errands.h"
#include "tour/longRuns.h"
#include "tour/monkeyHands.h"
#include "tour/monkeyWatch.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

int stored(TourDriver &driver) {
    return fromDatabase(driver, u"select count(*) from taoluTable"_s).toInt();
}

// A failed split or merge is required to leave a window that refuses to close. This resets its state so that it closes.
void freeStuckTool(TourDriver &driver, MonkeyWatch &watch) {
    if (!watch.stuck())
        return;
    driver.look([] {
        for (const QString &name : {u"frmCutFile"_s, u"frmUnionFile"_s}) {
            if (auto *state = TourDriver::find<widgets::PacedLabel>(name + u"/labJinDu"_s))
                state->setText(u"处理结束"_s);
        }
    });
    watch.freed();
}

void closeLists(TourDriver &driver) {
    driver.look([] {
        const QList<QMdiSubWindow *> lists = TourDriver::find<QMdiArea>(u"mdiArea"_s)->subWindowList();
        for (QMdiSubWindow *list : lists)
            list->widget()->close();
    });
    driver.waitUntil(u"the lists are closed"_s,
                     [] { return TourDriver::find<QMdiArea>(u"mdiArea"_s)->subWindowList().isEmpty(); });
}

void removeFiles() {
    QDir folder;
    const QStringList files = folder.entryList({u"monkey*"_s});
    for (const QString &file : files)
        folder.remove(file);
}

// Repeats the loop until its time is over. After each round the database must contain the records reported as imported.
void play(TourDriver &driver, MonkeyHands &hands, MonkeyWatch &watch, const LongRun &loop, int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    const int failures = driver.failures();
    const int acts = hands.acts();
    const int checks = watch.checks();
    int rounds = 0;
    do {
        changeDatabase(driver, u"delete from taoluTable"_s);
        const int before = watch.imported();
        loop.begin(driver, ++rounds);
        const QString window = QString::fromLatin1(loop.window);
        while (clock.elapsed() < milliseconds && driver.look([&] { return TourDriver::find(window) != nullptr; })) {
            hands.act();
            freeStuckTool(driver, watch);
        }
        hands.tidyUp([&] { freeStuckTool(driver, watch); });
        closeLists(driver);
        driver.expect(stored(driver) == watch.imported() - before,
                      u"%1 rows in the store, %2 told of"_s.arg(stored(driver)).arg(watch.imported() - before));
        removeFiles();
    } while (clock.elapsed() < milliseconds && driver.failures() == 0);
    if (driver.failures() > failures)
        std::fprintf(stderr, "last of all:\n%s\n", qUtf8Printable(hands.lastActs()));
    std::fprintf(stderr, "%s: %d rounds, %d acts, %d comparisons, %d records imported, %.1f s\n", loop.name, rounds,
                 hands.acts() - acts, watch.checks() - checks, watch.imported(), double(clock.elapsed()) / 1000);
}

} // namespace

void monkey(TourDriver &driver, unsigned seed, int seconds) {
    std::fprintf(stderr, "monkey: seed %u, %d s\n", seed, seconds);
    MonkeyWatch watch(driver);
    runProgram(driver, [&](TourDriver &at) {
        closeNotice(at);
        enlargeCatalogue(at);
        MonkeyHands hands(at, seed);
        for (const LongRun &loop : longRuns)
            play(at, hands, watch, loop, seconds * 1000 / int(longRuns.size()));
        leave(at);
    });
}

} // namespace tour
