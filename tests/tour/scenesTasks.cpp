// A day's work on a supplier's file by keys alone: clean the batch by a ready task, view records, undo, run again,
// import.
#include "tasks/windows/frmTasks.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QFile>

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
    driver.expect(driver.look([] { return tasksWindow()->previewPage->grid->rows(); }) > 1000, u"changes are listed"_s);
    if (!picture.isEmpty())
        driver.shot(picture + u"-preview");
    driver.key(u"alt+e"_s);
    waitUntilDone(driver, u"the run"_s);
    driver.waitForFocus(u"reportText"_s);
    if (!picture.isEmpty())
        driver.shot(picture + u"-report");
}

// Makes a task with a faulty step, leaves it, and removes it.
void refuseStep(TourDriver &driver) {
    driver.key(u"alt+n"_s).shot(u"tasks-new"_s);
    driver.key(u"alt+a"_s);
    giveFocus(driver, u"value-tag"_s);
    driver.type(u"20"_s).shot(u"tasks-fault"_s);
    driver.key(u"alt+d"_s).answerBox(u"确实要删除任务“新任务”吗？"_s, u"y"_s);
}

// Imports a file that is not a task, then one with an expression that takes too long on a record.
void refuseFiles(TourDriver &driver) {
    const auto import = [&](const QByteArray &json) {
        QFile file(pathOf(u"task.json"_s));
        driver.expect(file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.flush(),
                      u"the task is written"_s);
        driver.key(u"alt+i"_s);
        enterFile(driver, u"导入任务"_s, file.fileName());
    };
    import(R"({"format": "task", "version": 1, "name": "x", "steps": [{"action": "format", "tag": "200"}]})");
    driver.expect(driver.boxText().contains(u"steps[0].action"_s), u"the faulty key is named"_s);
    driver.shot(u"tasks-refused-file"_s);
    driver.key(u"Return"_s);
    import(R"({"format": "task", "version": 1, "name": "慢", "steps":
               [{"action": "replaceMatches", "tag": "330", "find": "(?:..?)*[xyz]", "with": ""}]})");
    driver.key(u"alt+v"_s);
    waitUntilDone(driver, u"the preview"_s);
    driver.expect(driver.textOf(u"labJinDu"_s).contains(u"1000 条改不成"_s), u"the number of refused records"_s);
    driver.shot(u"tasks-refused-records"_s);
    driver.key(u"alt+d"_s).answerBox(u"确实要删除任务“慢”吗？"_s, u"y"_s);
}

// Goes to a changed record and returns.
void look(TourDriver &driver) {
    driver.key(u"alt+q"_s).waitForWindow(u"frmDaoru"_s, u"tasks-looked"_s);
    const int price = rowOf(driver, u"010"_s, u"$d"_s);
    driver.expect(driver.look([price] { return desk()->Grid1->text(price, 4).startsWith(u"CNY"_s); }),
                  u"the price is tidied"_s);
    driver.key(u"F9"_s).waitForWindow(u"frmTasks"_s);
}

} // namespace

void changeBatch(TourDriver &driver) {
    driver.key(u"alt+7"_s); // of the start page
    driver.waitForWindow(u"frmTasks"_s, u"tasks-no-list"_s);
    driver.leave(u"alt+q"_s, u"frmTasks"_s);
    openSample(driver, u"supplier.iso"_s);
    driver.key(u"alt+a"_s).waitForText(u"labJinDu"_s, u"预读结束"_s);
    driver.key(u"F9"_s).waitForWindow(u"frmTasks"_s, u"tasks-steps"_s);
    driver.expect(driver.look([] { return tasksWindow()->work().rowsOf(tasks::Scope::All).size() == 1000; }),
                  u"all records are in the list"_s);
    refuseStep(driver);
    refuseFiles(driver);
    const std::vector<QString> before = records(driver);
    run(driver, u"tasks"_s);
    driver.expect(records(driver) != before, u"the run changed records"_s);
    look(driver);
    driver.key(u"alt+z"_s);
    waitUntilDone(driver, u"the undoing"_s);
    driver.expect(records(driver) == before, u"every record is as it was"_s);
    driver.key(u"alt+b"_s);
    run(driver, {});
    driver.key(u"alt+q"_s).waitForWindow(u"frmDaoru"_s, u"tasks-changed"_s);
    driver.key(u"alt+s"_s).waitForWindow(u"frmDaoRuJindu"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 120000);
    driver.leave(u"alt+q"_s, u"frmDaoRuJindu"_s);
    backToMain(driver);
}

} // namespace tour
