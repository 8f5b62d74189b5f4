#include "tour/errands.h"
#include "tour/scenes.h"
#include <QFile>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr QStringView dialogTitle = u"选择文件对话框";

// Checks the report of a run and closes it without viewing the files.
void checkReport(TourDriver &driver, const QString &ending, const QString &picture) {
    driver.waitForWindow(u"frmMessage"_s, picture);
    const QString report = driver.textOf(u"messageText"_s).trimmed();
    driver.expect(report.startsWith(u"【源文件】"_s) && report.endsWith(ending), u"the report: " + report);
    driver.key(u"alt+q"_s).answerBox(u"是否查看该目标文件？"_s, u"n"_s);
}

// Fills the three boxes of the split by keyboard. The text of each box is selected when it gets the focus.
void fillSplit(TourDriver &driver) {
    driver.key(u"alt+l"_s);
    enterFile(driver, dialogTitle.toString(), pathOf(u"sample.iso"_s));
    driver.waitForText(u"Text10"_s, pathOf(u"sample.iso"_s));
    giveFocus(driver, u"Text10"_s);
    driver.key(u"Return Tab"_s); // to the button next to the box
    driver.type(pathOf(u"part.iso"_s)).key(u"Return Tab"_s);
    driver.type(u"9"_s);
    driver.key(u"alt+d"_s)
        .answerBox(u"每个拆分文件的最大记录数太小！最好不要小于10！"_s, u"Return"_s, u"split-refused"_s);
    driver.type(u"100"_s); // the rejected box has the focus
}

void split(TourDriver &driver) {
    driver.open(u"chaifen"_s, u"frmCutFile"_s, u"split-empty"_s);
    driver.expectEqual(driver.textOf(u"Text2"_s), u"1000"_s, u"records per file at the start"_s);
    fillSplit(driver);
    const QString old = pathOf(u"part799.iso"_s);
    QFile::copy(pathOf(u"five.iso"_s), old);
    driver.key(u"alt+d"_s);
    driver.answerBox(u"选择的路径下存在形如\r\n【"_s + pathOf(u"part7??.iso"_s) +
                         u"】的文件；继续则可能被覆盖。是否继续？",
                     u"y"_s, u"split-overwrite"_s);
    const int records = recordsIn(pathOf(u"sample.iso"_s));
    const QString last = pathOf(u"part%1.iso"_s.arg(700 + records / 100));
    checkReport(driver, u"文件{%1}保存了%2条记录！"_s.arg(last).arg(records % 100), u"split-report"_s);
    driver.expect(!QFile::exists(old) && recordsIn(last) == records % 100, u"the parts alone are there"_s);
    driver.expectEqual(driver.textOf(u"labShuDo"_s), u"成功处理：%1条"_s.arg(records), u"the count"_s);
    driver.waitForFocus(u"Text2"_s); // the focus as before the command
    driver.shot(u"split-done"_s);
    driver.key(u"alt+q"_s);
    driver.answerBox(closeQuestion.toString(), u"Return"_s); // No is the default
    driver.key(u"Escape"_s).answerBox(closeQuestion.toString(), u"y"_s, u"split-close"_s);
    driver.waitUntilGone(u"frmCutFile"_s);
}

void merge(TourDriver &driver) {
    driver.open(u"hebing"_s, u"frmUnionFile"_s, u"merge-empty"_s);
    driver.waitForFocus(u"cmdSelect0"_s);
    for (const QString &file : {u"five.iso"_s, u"sample.iso"_s}) {
        driver.key(u"alt+a"_s);
        enterFile(driver, dialogTitle.toString(), pathOf(file));
    }
    const QString target = pathOf(u"merged.iso"_s);
    driver.key(u"alt+o"_s);
    enterFile(driver, dialogTitle.toString(), target);
    driver.click(u"cmdClick0"_s);
    const int records = recordsIn(pathOf(u"sample.iso"_s)) + 5;
    checkReport(driver, u"文件{%1}保存了%2条记录！"_s.arg(target).arg(records), u"merge-report"_s);
    driver.expect(recordsIn(target) == records, u"records in the target"_s);
    driver.key(u"alt+q"_s).answerBox(closeQuestion.toString(), u"y"_s);
    driver.waitUntilGone(u"frmUnionFile"_s);
}

} // namespace

void fileTools(TourDriver &driver) {
    split(driver);
    merge(driver);
}

} // namespace tour
