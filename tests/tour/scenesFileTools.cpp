#include "tour/errands.h"
#include "tour/scenes.h"
#include <QDir>
#include <QFile>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr QStringView dialogTitle = u"选择文件对话框";
constexpr QStringView viewQuestion = u"是否查看该目标文件？";

QString pathOf(const QString &file) {
    return QDir::currentPath() + u'/' + file;
}

QString savedLine(const QString &file, int records) {
    return u"文件{%1}保存了%2条记录！\n"_s.arg(pathOf(file)).arg(records);
}

// The three boxes of the split, by keyboard: each is selected as a whole when the keyboard comes to it.
void fillSplit(TourDriver &driver, const QString &source, const QString &target, const QString &limit) {
    giveFocus(driver, u"Text10"_s);
    driver.type(pathOf(source));
    driver.key(u"Return"_s); // on to the button beside the box
    driver.key(u"Tab"_s);
    driver.type(pathOf(target));
    driver.key(u"Return"_s);
    driver.key(u"Tab"_s);
    driver.type(limit);
    driver.expectEqual(driver.textOf(u"Text2"_s), limit, u"the keyboard goes from box to box"_s);
}

void splitRefusals(TourDriver &driver) {
    driver.click(u"chaifen"_s);
    driver.waitForWindow(u"frmCutFile"_s);
    driver.expectEqual(driver.textOf(u"Text2"_s), u"1000"_s, u"records per file at the start"_s);
    driver.shot(u"split-empty"_s);
    driver.key(u"alt+d"_s);
    driver.waitForFocus(u"Text10"_s);
    driver.key(u"alt+l"_s);
    enterFile(driver, dialogTitle.toString(), pathOf(u"sample.iso"_s));
    driver.waitForText(u"Text10"_s, pathOf(u"sample.iso"_s));
    fillSplit(driver, u"nothing.iso"_s, u"part.iso"_s, u"100"_s);
    driver.key(u"alt+d"_s);
    driver.answerBox(u"文件["_s + pathOf(u"nothing.iso"_s) + u"不存在！", u"Return"_s, u"split-no-source"_s);
    fillSplit(driver, u"sample.iso"_s, u"part.iso"_s, u"abc"_s);
    driver.key(u"alt+d"_s);
    driver.answerBox(u"请输入每个拆分文件的最大记录数！"_s, u"Return"_s);
    driver.type(u"9"_s); // the keyboard is in the box that was refused
    driver.key(u"alt+d"_s);
    driver.answerBox(u"每个拆分文件的最大记录数太小！最好不要小于10！"_s, u"Return"_s, u"split-limit-refused"_s);
    driver.type(u"100"_s);
}

void splitOverwrites(TourDriver &driver) {
    const QString old = pathOf(u"part799.iso"_s);
    QFile::copy(pathOf(u"five.iso"_s), old);
    const QString question =
        u"选择的路径下存在形如\r\n【"_s + pathOf(u"part7??.iso"_s) + u"】的文件；继续则可能被覆盖。是否继续？";
    driver.key(u"alt+d"_s);
    driver.answerBox(question, u"Return"_s, u"split-overwrite"_s); // No is preselected
    driver.expect(QFile::exists(old) && !QFile::exists(pathOf(u"part700.iso"_s)), u"No touches nothing"_s);
    driver.key(u"alt+d"_s);
    driver.answerBox(question, u"y"_s);
    driver.waitForWindow(u"frmMessage"_s);
    driver.expect(!QFile::exists(old), u"the files of that pattern are gone"_s);
}

void split(TourDriver &driver) {
    splitRefusals(driver);
    splitOverwrites(driver);
    const int records = recordsIn(pathOf(u"sample.iso"_s));
    const int last = records % 100;
    QString report = u"【源文件】\n文件{%1处理了%2条记录！\n【目标文件】\n"_s.arg(pathOf(u"sample.iso"_s)).arg(records);
    for (int i = 0; i <= records / 100; ++i) {
        const QString part = u"part%1.iso"_s.arg(700 + i);
        const int held = i < records / 100 ? 100 : last;
        driver.expect(recordsIn(pathOf(part)) == held, u"%1 holds %2"_s.arg(part).arg(recordsIn(pathOf(part))));
        report += savedLine(part, held);
    }
    driver.expectEqual(driver.textOf(u"messageText"_s), report, u"the report"_s);
    driver.shot(u"split-report"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(viewQuestion.toString(), u"n"_s, u"split-view"_s);
    driver.expectEqual(driver.textOf(u"labJinDu"_s), u"处理结束"_s, u"the state"_s);
    driver.expectEqual(driver.textOf(u"labShuDo"_s), u"成功处理：%1条"_s.arg(records), u"the count"_s);
    driver.waitForFocus(u"cmdclick0"_s); // where it was before the run
    driver.shot(u"split-done"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(closeQuestion.toString(), u"Return"_s); // No is preselected
    driver.key(u"Escape"_s);
    driver.answerBox(closeQuestion.toString(), u"y"_s, u"split-close"_s);
    driver.waitUntilGone(u"frmCutFile"_s);
}

void addSource(TourDriver &driver, const QString &file) {
    driver.key(u"alt+a"_s);
    enterFile(driver, dialogTitle.toString(), pathOf(file));
}

void chooseTarget(TourDriver &driver, const QString &file) {
    driver.key(u"alt+o"_s);
    enterFile(driver, dialogTitle.toString(), pathOf(file));
    driver.waitForText(u"Text1"_s, pathOf(file));
}

void mergeRefusals(TourDriver &driver) {
    driver.click(u"hebing"_s);
    driver.waitForWindow(u"frmUnionFile"_s);
    driver.waitForFocus(u"cmdSelect0"_s);
    driver.shot(u"merge-empty"_s);
    addSource(driver, u"five.iso"_s);
    addSource(driver, u"sample.iso"_s);
    addSource(driver, u"part700.iso"_s);
    giveFocus(driver, u"List1"_s);
    driver.key(u"End"_s);
    driver.click(u"cmdSelect1"_s);
    addSource(driver, u"five.iso"_s);
    driver.expect(driver.look([] { return TourDriver::find<QListWidget>(u"List1"_s)->count() == 3; }),
                  u"one of four files was taken back"_s);
    chooseTarget(driver, u"five.iso"_s);
    driver.click(u"cmdClick0"_s);
    driver.answerBox(u"合并目标文件不能为源文件！"_s, u"Return"_s, u"merge-source-refused"_s);
    chooseTarget(driver, u"part701.iso"_s);
    driver.click(u"cmdClick0"_s);
    driver.answerBox(pathOf(u"part701.iso"_s) + u"已经存在。要替换吗？", u"n"_s, u"merge-replace"_s);
    driver.expect(recordsIn(pathOf(u"part701.iso"_s)) == 100, u"No leaves the target as it was"_s);
}

void merge(TourDriver &driver) {
    mergeRefusals(driver);
    driver.click(u"cmdClick0"_s);
    driver.answerBox(pathOf(u"part701.iso"_s) + u"已经存在。要替换吗？", u"y"_s);
    driver.waitForWindow(u"frmMessage"_s);
    const int records = recordsIn(pathOf(u"sample.iso"_s));
    const QString source = u"文件{%1}处理了%2条记录！\n"_s;
    const QString five = source.arg(pathOf(u"five.iso"_s)).arg(5);
    driver.expectEqual(driver.textOf(u"messageText"_s),
                       u"【源文件】\n"_s + five + source.arg(pathOf(u"sample.iso"_s)).arg(records) + five +
                           u"\n【目标文件】\n" + savedLine(u"part701.iso"_s, records + 10).trimmed(),
                       u"the report"_s);
    driver.expect(recordsIn(pathOf(u"part701.iso"_s)) == records + 10, u"records in the target"_s);
    driver.shot(u"merge-report"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(viewQuestion.toString(), u"n"_s);
    driver.shot(u"merge-done"_s);
}

// Files large enough for the closing guard to be met in the middle of the work.
void closeInTheMiddle(TourDriver &driver) {
    for (int i = 0; i < 4; ++i)
        addSource(driver, u"large.iso"_s);
    chooseTarget(driver, u"merged.iso"_s);
    driver.click(u"cmdClick0"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(u"处理还没有结束，请先结束处理！"_s, u"Return"_s, u"merge-close-refused"_s);
    driver.waitUntil(
        u"the report"_s, [] { return TourDriver::find(u"frmMessage"_s) != nullptr; }, 60000);
    driver.waitForWindow(u"frmMessage"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(viewQuestion.toString(), u"n"_s);
    const int records = recordsIn(pathOf(u"sample.iso"_s)) + 10 + 4 * 100000;
    driver.waitForText(u"labShuDo"_s, u"成功处理：%1条"_s.arg(records));
    driver.expect(recordsIn(pathOf(u"merged.iso"_s)) == records, u"all records are in the large target"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(closeQuestion.toString(), u"y"_s);
    driver.waitUntilGone(u"frmUnionFile"_s);
}

} // namespace

void fileTools(TourDriver &driver) {
    split(driver);
    merge(driver);
    closeInTheMiddle(driver);
}

} // namespace tour
