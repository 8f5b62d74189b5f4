// A day's work on a supplier's file by keys alone. Pasting a text stands for a word entered through an input method.
#include "tour/errands.h"
#include "tour/scenes.h"

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr int sought = 4000; // position in day.iso of the title to find, from 1
const QString title = u"果树修剪论集"_s;

bool shows(const QString &label, const QString &part) {
    auto *words = TourDriver::find<QLabel>(label);
    return words && words->text().contains(part);
}

void openAndRead(TourDriver &driver) {
    driver.key(u"alt+1"_s).waitForWindow(u"frmSelectMFile"_s);
    giveFocus(driver, u"Text1"_s); // takes one key: Shift+Tab
    paste(driver, pathOf(u"day.iso"_s));
    driver.key(u"alt+s"_s).waitForWindow(u"frmDaoru"_s);
    driver.key(u"alt+a"_s).waitForText(u"Text3"_s, u"5000"_s);
    driver.waitForText(u"labJinDu"_s, u"预读结束"_s);
}

void findTitle(TourDriver &driver) {
    driver.key(u"F3"_s).waitForFocus(u"findText"_s);
    paste(driver, title);
    const auto there = [] { return desk()->Grid2->row() >= sought - 1; };
    while (!driver.look(there))
        driver.key(u"F3"_s);
    driver.waitForText(u"Text2"_s, QString::number(sought));
    driver.shot(u"day-found"_s);
    driver.key(u"Escape Tab"_s);
}

void correct(TourDriver &driver) {
    driver.waitForFocus(u"Grid1"_s);
    driver.type(u"200"_s);
    const int row = rowOf(driver, u"200"_s);
    driver.waitUntil(u"the tag"_s, [row] { return desk()->Grid1->row() == row; });
    driver.key(u"Down Return"_s);
    waitForEditor(driver, u"richText"_s, row + 1, 4);
    driver.key(u"End"_s).type(u"2"_s);
    driver.key(u"Return"_s);
    waitUntilIdle(driver);
    driver.expect(driver.cell(u"Grid1"_s, row + 1, 4).endsWith(u'2'), u"the title is corrected"_s);
}

void addSubject(TourDriver &driver) {
    driver.type(u"606"_s).key(u"ctrl+Insert"_s).waitForFocus(u"zdList"_s);
    driver.type(u"606"_s).key(u"Return"_s);
    waitUntilIdle(driver);
    const auto added = [] { // still without a text
        const auto *grid = desk()->Grid1;
        int row = grid->rows() - 1;
        while (row > 0 && (grid->text(row, 2) != u"606" || !grid->text(row, 4).isEmpty()))
            --row;
        return std::pair(row, row - grid->row());
    };
    const auto [row, away] = driver.look(added);
    driver.expect(row > 0 && away > 0, u"the new field behind the current one"_s);
    driver.key(u"Down"_s, away);
    driver.key(u"Return"_s);
    waitForEditor(driver, u"richText"_s, row, 4);
    driver.type(u"0 "_s).key(u"Return"_s);
    waitUntilIdle(driver);
    driver.key(u"Insert"_s).waitForFocus(u"Zzdlist"_s);
    driver.key(u"Home Return"_s);
    waitUntilIdle(driver);
    driver.key(u"Down Return"_s);
    waitForEditor(driver, u"richText"_s, row + 1, 4);
    paste(driver, u"果树园艺"_s);
    driver.key(u"Return"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row + 1, 2), u"$a"_s, u"the subfield of the heading"_s);
    driver.shot(u"day-subject-added"_s);
}

void proofEverything(TourDriver &driver) {
    driver.key(u"alt+d"_s);
    driver.waitUntil(
        u"the end of the proof"_s, [] { return shows(u"proofTable/words"_s, u"校对 5000 条，发现"_s); }, 120000);
    driver.waitForFocus(u"proofTable/grid"_s);
    driver.key(u"Down Return"_s);
    driver.answerBox(u"本条记录已经改变,是否确定暂时改变该记录?\r\n"
                     u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s,
                     u"y"_s);
    driver.waitUntil(u"the record of the remark"_s, [] { return desk()->Grid2->row() != sought - 1; });
    driver.waitForFocus(u"Grid1"_s);
    driver.shot(u"day-remarks"_s);
    driver.key(u"F8"_s).waitForFocus(u"proofTable/grid"_s);
    driver.key(u"F8"_s).waitForFocus(u"Grid1"_s);
}

void importWithRefusals(TourDriver &driver) {
    driver.key(u"alt+s"_s).waitForWindow(u"frmDaoRuJindu"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 120000);
    driver.expect(driver.textOf(u"cmdRefused"_s).startsWith(u"&N 未成功 "), u"some are refused"_s);
    driver.shot(u"day-imported"_s);
    driver.key(u"alt+n"_s).waitForFocus(u"refusedTable/grid"_s);
    driver.waitUntil(u"the refused ones"_s, [] { return shows(u"refusedTable/words"_s, u"未成功"_s); });
    driver.shot(u"refused-records"_s);
    driver.key(u"alt+t"_s);
    enterFile(driver, u"存为机读文件"_s, u"refused.iso"_s);
    driver.waitUntil(u"the file"_s, [] { return shows(u"refusedTable/words"_s, u"已保存到"_s); });
    backToMain(driver);
}

void takeBack(TourDriver &driver) {
    driver.key(u"alt+2"_s).waitForWindow(u"QueryFrmdel"_s);
    driver.key(u"alt+o"_s).waitForWindow(u"TLKListFrm"_s, u"store-everything"_s);
    driver.key(u"alt+i"_s);
    driver.waitUntil(u"this import"_s, [] { return shows(u"conditionWords"_s, u"本次导入"_s); });
    driver.shot(u"store-this-import"_s);
    driver.key(u"alt+x"_s).answerBox(u"确定要将选择的文献从套录库中删除吗吗？(Y/N)"_s, u"y"_s);
    driver.waitForText(u"TLKListFrm/lCounts"_s, u"记录数：0"_s);
    driver.leave(u"alt+q"_s, u"TLKListFrm"_s);
}

void queryPrintExport(TourDriver &driver) {
    driver.key(u"alt+3"_s).waitForWindow(u"QueryFrm"_s);
    driver.key(u"Tab"_s).waitForFocus(u"cSql"_s);
    driver.key(u"Home Return Home Down Down Return"_s);
    paste(driver, u"三"_s);
    driver.key(u"Tab alt+o"_s).waitForWindow(u"ZSKListFrm"_s);
    driver.key(u"alt+p"_s).waitForWindow(u"DataReportJs"_s);
    driver.leave(u"Escape"_s, u"DataReportJs"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
    driver.key(u"alt+d"_s);
    enterFile(driver, exportTitle.toString(), u"day-exported.iso"_s);
    driver.boxText();
    driver.key(u"Return"_s);
    driver.leave(u"alt+x"_s, u"ZSKListFrm"_s);
    driver.expect(recordsIn(pathOf(u"day-exported.iso"_s)) > 0, u"records in the file"_s);
}

} // namespace

void aDay(TourDriver &driver) {
    changeDatabase(driver, u"create trigger refuses before insert on taoluTable when new.isbn like '%9' begin "
                           u"select raise(abort,'isbn ends in 9'); end"_s);
    for (const auto step :
         {openAndRead, findTitle, correct, addSubject, proofEverything, importWithRefusals, takeBack, queryPrintExport})
        step(driver);
    changeDatabase(driver, u"drop trigger refuses"_s);
}

} // namespace tour
