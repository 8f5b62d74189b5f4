// A batch changed by a ready task, by keys alone: preview, run, undo, run again.
#include "tasks/windows/frmTasks.h"
#include "tour/errands.h"
#include "tour/scenes.h"

using namespace Qt::StringLiterals;

namespace tour {

namespace {

tasks::frmTasks *tasksWindow() {
    return TourDriver::find(u"taskBar"_s) ? qobject_cast<tasks::frmTasks *>(TourDriver::find(u"taskBar"_s)->window())
                                          : nullptr;
}

void waitUntilDone(TourDriver &driver, const QString &what) {
    driver.waitUntil(
        what, [] { return tasksWindow() && !tasksWindow()->work().isBusy(); }, 120000);
}

std::vector<QString> records(TourDriver &driver) {
    return driver.look([] {
        std::vector<QString> all;
        const marc::PreReadStore &store = *tasksWindow()->work().desk().records;
        for (int row = 0; row < store.rowCount(); ++row)
            all.push_back(store.title(row) + store.record(row));
        return all;
    });
}

void run(TourDriver &driver, const QString &picture) {
    driver.key(u"alt+v"_s);
    waitUntilDone(driver, u"the preview"_s);
    driver.waitForFocus(u"changeGrid"_s);
    driver.key(u"Down space"_s); // leaves one change out
    if (!picture.isEmpty())
        driver.shot(picture + u"-preview");
    driver.key(u"alt+e"_s);
    waitUntilDone(driver, u"the run"_s);
    driver.waitForFocus(u"reportText"_s);
    if (!picture.isEmpty())
        driver.shot(picture + u"-report");
}

} // namespace

void changeBatch(TourDriver &driver) {
    openSample(driver, u"sample.iso"_s);
    driver.key(u"F9"_s);
    driver.waitForWindow(u"frmTasks"_s, u"tasks-steps"_s);
    driver.key(u"Down Down Down Down"_s); // a ready task that changes the samples
    const std::vector<QString> before = records(driver);
    run(driver, u"tasks"_s);
    driver.expect(records(driver) != before, u"the run changed records"_s);
    driver.key(u"alt+z"_s);
    waitUntilDone(driver, u"the undoing"_s);
    driver.expect(records(driver) == before, u"every record is as it was"_s);
    driver.key(u"alt+b"_s);
    run(driver, {});
    driver.key(u"alt+q"_s);
    driver.waitForWindow(u"frmDaoru"_s, u"tasks-changed"_s);
    driver.key(u"alt+s"_s);
    driver.waitForWindow(u"frmDaoRuJindu"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 120000);
    driver.leave(u"alt+q"_s, u"frmDaoRuJindu"_s);
    backToMain(driver);
}

} // namespace tour
