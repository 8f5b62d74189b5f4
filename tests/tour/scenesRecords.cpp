#include "tour/errands.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QFileDialog>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

void selectFile(TourDriver &driver) {
    driver.click(u"daoru"_s);
    driver.waitForWindow(u"frmSelectMFile"_s);
    driver.key(u"alt+s"_s);
    driver.answerBox(u"没有选择机读目录数据文件！"_s, u"Return"_s, u"no-file-chosen"_s);
    choose(driver, u"nothing.iso"_s);
    driver.answerBox(u"该机读目录数据文件不存在！"_s, u"Return"_s);
    driver.key(u"alt+o"_s);
    driver.waitUntil(u"file dialog"_s, [] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        return dialog && dialog->windowTitle() == u"打开marc文件对话框";
    });
    driver.shot(u"file-dialog"_s);
    driver.key(u"Escape"_s);
    driver.waitForText(u"Text1"_s, {});
    choose(driver, u"sample.iso"_s);
}

void readOn(TourDriver &driver) {
    driver.waitForWindow(u"frmDaoru"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    driver.expectEqual(driver.textOf(u"Text2"_s), u"1"_s, u"current record"_s);
    driver.expectEqual(driver.textOf(u"labJinDu"_s), u"预读结束"_s, u"state"_s);
    driver.expect(driver.rows(u"Grid2"_s) == 200, u"200 rows in the list"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, 1, 1), u"头标区"_s, u"leader row"_s);
    driver.shot(u"first-batch"_s);
    driver.key(u"alt+n"_s, 3);
    driver.waitForText(u"Text2"_s, u"4"_s);
    driver.key(u"alt+p"_s);
    driver.waitForText(u"Text2"_s, u"3"_s);
    driver.clickCell(u"Grid2"_s, 9, 1);
    driver.waitForText(u"Text2"_s, u"10"_s);
    driver.key(u"Down"_s, 2);
    driver.waitForText(u"Text2"_s, u"12"_s);
    driver.shot(u"stepped"_s);
    driver.key(u"alt+a"_s);
    const QString all = driver.textOf(u"Text4"_s);
    driver.waitForText(u"Text3"_s, all);
    driver.waitForText(u"labJinDu"_s, u"预读结束"_s);
    driver.expect(driver.look([] { return !TourDriver::find(u"cmdclick3"_s)->isEnabled(); }),
                  u"nothing left to read"_s);
    driver.shot(u"all-read"_s);
    driver.key(u"alt+m"_s);
    driver.answerBox(u"暂无此功能"_s, u"Return"_s);
}

void import(TourDriver &driver) {
    const QString records = driver.textOf(u"Text3"_s);
    const int before = fromDatabase(driver, u"select count(*) from taoluTable"_s).toInt();
    driver.key(u"alt+s"_s);
    driver.waitForWindow(u"frmDaoRuJindu"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 60000);
    driver.expectEqual(driver.textOf(u"labTishi"_s), u"本次成功处理的记录数：" + records, u"imported"_s);
    driver.shot(u"imported"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"frmDaoRuJindu"_s);
    const int after = fromDatabase(driver, u"select count(*) from taoluTable"_s).toInt();
    driver.expect(after - before == records.toInt(), u"rows in the store: %1"_s.arg(after - before));
    driver.expectEqual(fromDatabase(driver, u"select bookname from taoluTable order by zskid desc"_s),
                       driver.cell(u"Grid2"_s, records.toInt() - 1, 1).left(50), u"title of the last row"_s);
}

// A file large enough for the read and the import to be stopped half-way.
void stopHalfWay(TourDriver &driver) {
    choose(driver, u"large.iso"_s);
    driver.waitForWindow(u"frmDaoru"_s);
    driver.key(u"alt+a"_s);
    driver.waitUntil(u"reading"_s, [] {
        auto *state = TourDriver::find<QLabel>(u"labJinDu"_s);
        return state && state->text() == u"正在继续预读.......";
    });
    driver.key(u"alt+q"_s);
    driver.answerBox(u"预读还没有结束，请先结束预读！"_s, u"Return"_s, u"reading-close-refused"_s);
    driver.click(u"cmdJieShu"_s);
    driver.waitForText(u"labJinDu"_s, u"预读结束"_s);
    const int listed = driver.textOf(u"Text3"_s).toInt();
    driver.expect(listed > 200 && listed < 100000, u"stopped half-way, at %1"_s.arg(listed));
    driver.expect(driver.rows(u"Grid2"_s) == listed, u"every record read is listed"_s);
    driver.shot(u"reading-stopped"_s);
    driver.key(u"alt+s"_s);
    driver.waitForWindow(u"frmDaoRuJindu"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(u"请先停止导入！"_s, u"Return"_s, u"import-close-refused"_s);
    driver.key(u"alt+s"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s);
    driver.shot(u"import-stopped"_s);
    driver.key(u"Escape"_s);
    driver.waitUntilGone(u"frmDaoRuJindu"_s);
    closeWorkspace(driver);
}

void damaged(TourDriver &driver) {
    choose(driver, u"directory.iso"_s);
    const QString question =
        u"地址目次区数据存在错误，本条数据无法处理！\r\n是否查看该条机读数据？（不查看选择‘否’继续）"_s;
    driver.answerBox(question, u"y"_s, u"damaged-directory"_s);
    if (driver.waitForWindow(u"frmMessage"_s)) {
        driver.shot(u"damaged-record"_s);
        driver.key(u"alt+q"_s);
        driver.waitUntilGone(u"frmMessage"_s);
    }
    driver.waitForWindow(u"frmDaoru"_s);
    driver.shot(u"damaged-file"_s);
    closeWorkspace(driver);
}

} // namespace

void readAndImport(TourDriver &driver) {
    selectFile(driver);
    readOn(driver);
    import(driver);
    driver.key(u"alt+q"_s);
    driver.answerBox(closeQuestion.toString(), u"n"_s);
    closeWorkspace(driver);
    driver.waitForWindow(u"frmSelectMFile"_s);
    stopHalfWay(driver);
    driver.waitForWindow(u"frmSelectMFile"_s);
    damaged(driver);
    driver.waitForWindow(u"frmSelectMFile"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"frmSelectMFile"_s);
}

} // namespace tour
