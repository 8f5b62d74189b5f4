#include "benchStage.h"
#include "marc/recordCutter.h"
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QWidget>
#include <QWindow>

namespace bench {

QString BenchStage::freshPath(QStringView name) const {
    static int count = 0;
    const QString numbered = QString::number(++count) + u'-' + name;
    return file(numbered);
}

QString BenchStage::freshFolder(QStringView name) const {
    const QString path = freshPath(name);
    QDir().mkpath(path);
    return path;
}

QString connectionTo(const QString &database) {
    return u"Driver=SQLite3;Database=" + database + u";JournalMode=WAL;SyncPragma=NORMAL;Timeout=2000;";
}

std::shared_ptr<const marc::PreReadStore> readStore(const QString &file) {
    auto store = std::make_shared<marc::PreReadStore>();
    auto cutter = marc::RecordCutter::open(file);
    if (!cutter)
        return store;
    for (int count = 0; cutter.value().next(); ++count) {
        store->setRows(count + 1);
        store->setNumber(count, count + 1);
        store->setRecord(count, cutter.value().record(), cutter.value().bytes());
    }
    return store;
}

BenchHost::BenchHost()
    : QtHost(platform::Settings()) {}

platform::Answer BenchHost::show(const platform::Box &box) {
    ++boxes;
    told();
    return box.buttons == platform::Buttons::Ok ? platform::Answer::Ok : answer;
}

bool BenchHost::showWithTick(const platform::Box &box, const QString &) {
    show(box);
    return false;
}

QString BenchHost::chooseFile(const platform::FileDialog &) {
    return chosenFile;
}

void putUp(QWidget &window) {
    window.show();
    QElapsedTimer clock;
    clock.start();
    while (!window.windowHandle()->isExposed() && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    settle();
}

void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace bench
