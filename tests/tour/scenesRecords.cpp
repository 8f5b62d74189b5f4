#include "platform/paths.h"
#include "platform/programFolder.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QFile>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString viewer = u"frmMarcKaPian"_s;

void selectFile(TourDriver &driver) {
    driver.open(u"daoru"_s, u"frmSelectMFile"_s);
    driver.key(u"alt+s"_s).answerBox(u"没有选择机读目录数据文件！"_s, u"Return"_s, u"no-file-chosen"_s);
    driver.key(u"alt+o"_s);
    enterFile(driver, u"打开marc文件对话框"_s, pathOf(u"sample.iso"_s), u"file-dialog"_s);
    driver.waitForText(u"Text1"_s, pathOf(u"sample.iso"_s));
    driver.key(u"alt+s"_s);
}

void readOn(TourDriver &driver) {
    driver.waitForWindow(u"frmDaoru"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    driver.expect(driver.rows(u"Grid2"_s) == 200, u"200 rows in the list"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, 1, 1), u"头标区"_s, u"leader row"_s);
    driver.shot(u"first-batch"_s);
    driver.key(u"alt+n alt+n alt+p"_s).waitForText(u"Text2"_s, u"2"_s);
    driver.clickCell(u"Grid2"_s, 9, 1);
    driver.waitForText(u"Text2"_s, u"10"_s);
    driver.key(u"Down Down"_s).waitForText(u"Text2"_s, u"12"_s);
    driver.shot(u"stepped"_s);
    driver.key(u"alt+a"_s).waitForText(u"Text3"_s, driver.textOf(u"Text4"_s));
    driver.waitForText(u"labJinDu"_s, u"预读结束"_s);
    driver.waitForFocus(u"Grid2"_s); // the focused button was disabled
    driver.shot(u"all-read"_s);
}

void import(TourDriver &driver) {
    const QString records = driver.textOf(u"Text3"_s);
    const auto stored = [&] { return fromDatabase(driver, u"select count(*) from taoluTable"_s).toInt(); };
    const int before = stored();
    driver.key(u"alt+s"_s).waitForWindow(u"frmDaoRuJindu"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 60000);
    driver.expectEqual(driver.textOf(u"labTishi"_s), u"本次成功处理的记录数：" + records, u"imported"_s);
    driver.shot(u"imported"_s);
    driver.leave(u"alt+q"_s, u"frmDaoRuJindu"_s);
    driver.expect(stored() - before == records.toInt(), u"rows in the store: %1"_s.arg(stored() - before));
}

void damaged(TourDriver &driver) {
    choose(driver, u"damaged/directory.iso"_s);
    const QString question =
        u"地址目次区数据存在错误，本条数据无法处理！\r\n是否查看该条机读数据？（不查看选择‘否’继续）"_s;
    driver.answerBox(question, u"y"_s, u"damaged-directory"_s);
    driver.waitForWindow(u"frmMessage"_s, u"damaged-record"_s);
    driver.leave(u"alt+q"_s, u"frmMessage"_s);
    driver.waitForWindow(u"frmDaoru"_s, u"damaged-file"_s);
}

// A wrong check digit, then the right one.
void proof(TourDriver &driver) {
    driver.key(u"alt+j"_s).answerBox(u"校对通过"_s, u"Return"_s, u"proof-passed"_s);
    driver.clickCell(u"Grid1"_s, 1, 1);
    driver.waitForFocus(u"Grid1"_s);
    const int isbn = rowOf(driver, u"010"_s, u"$a"_s);
    retype(driver, isbn, u"7-5366-1234-5"_s);
    driver.key(u"alt+j"_s).waitForWindow(u"frmMessage"_s, u"proof-report"_s);
    driver.waitForText(u"messageText"_s, u"【010$a】Error:ISBN号校验位错误"_s);
    const QString file = platform::pathWithSlash(platform::programFolder()) + u"errorlog.txt";
    driver.key(u"alt+s"_s).answerBox(u"报告列表保存在文件" + file + u"中", u"Return"_s, u"report-saved"_s);
    driver.expect(QFile::remove(file), file);
    driver.leave(u"alt+q"_s, u"frmMessage"_s);
    driver.clickCell(u"Grid1"_s, 1, 1);
    retype(driver, isbn, u"7-5366-1234-6"_s);
}

// The card and the standard view.
void views(TourDriver &driver) {
    driver.key(u"alt+k"_s).waitForWindow(viewer, u"card"_s);
    const QString card = driver.textOf(u"Text1"_s);
    driver.expect(card.startsWith(u"\n\n  红楼梦／(清)曹雪芹,(清)高鹗著；中国艺术研究院"), u"the card: " + card);
    driver.expect(card.contains(u"\n  ISBN 7-5366-1234-6") && card.contains(u"\n  Ⅰ.①红···②中···Ⅱ."),
                  u"the edited number and the tracing line: " + card);
    driver.leave(u"Escape"_s, viewer);
    driver.key(u"alt+b"_s).waitForWindow(viewer, u"standard"_s);
    driver.key(u"alt+k"_s).waitForText(u"Text1"_s, card);
    driver.leave(u"alt+q"_s, viewer);
}

} // namespace

void readAndImport(TourDriver &driver) {
    selectFile(driver);
    readOn(driver);
    import(driver);
    driver.key(u"alt+q"_s).answerBox(closeQuestion.toString(), u"n"_s);
    closeWorkspace(driver);
    damaged(driver);
    backToMain(driver);
}

void proofAndCard(TourDriver &driver) {
    openSample(driver, u"sample.iso"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    proof(driver);
    views(driver);
    backToMain(driver);
}

} // namespace tour
