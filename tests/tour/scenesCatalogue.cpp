#include "catalogue/listTexts.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include "widgets/flexGrid.h"
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr QStringView exportTitle = u"导出书库数据为marc格式";
// What composeQuery() asks for, in words of the tour's own.
constexpr QStringView wanted =
    u" from zsk where (isbn like '%7-02%' and catatime >= '2002-01-01') or bookname like '%三%'";

QString pathOf(const QString &file) {
    return QDir::currentPath() + u'/' + file;
}

int number(TourDriver &driver, const QString &statement) {
    return fromDatabase(driver, statement).toInt();
}

// From the field box: `field` is a key that finds the field, `downs` leads to the operator; the focus ends behind the
// value.
void addCondition(TourDriver &driver, const QString &field, int downs, const QString &value) {
    driver.waitForFocus(u"cSql"_s);
    driver.key(field);
    driver.key(u"Return"_s);
    driver.key(u"Home"_s);
    if (downs > 0)
        driver.key(u"Down"_s, downs);
    driver.key(u"Return"_s);
    paste(driver, value);
    driver.key(u"Tab"_s);
}

void composeQuery(TourDriver &driver) {
    driver.click(u"daochu"_s);
    driver.waitForWindow(u"QueryFrm"_s);
    driver.shot(u"query-empty"_s);
    driver.expect(driver.look([] { return TourDriver::find<QListWidget>(u"LFields"_s)->count() == 8; }),
                  u"eight fields to ask for"_s);
    driver.key(u"Tab"_s);
    driver.key(u"Down"_s, 1);
    addCondition(driver, u"Down"_s, 2, u"7-02"_s);
    driver.expectEqual(driver.textOf(u"signSql"_s), u"ISBN'包含'7-02"_s, u"the first condition"_s);
    driver.key(u"shift+Tab"_s, 3);
    addCondition(driver, u"End"_s, 3, u"2002"_s);
    driver.expectEqual(driver.textOf(u"signSql"_s), u"ISBN'包含'7-02;入库日期'不小于'2002-__-__"_s,
                       u"both conditions"_s);
    driver.expectEqual(driver.textOf(u"lSql"_s), u"____-__-__"_s, u"the box is ready for the next date"_s);
    driver.shot(u"query-conditions"_s);
    driver.key(u"alt+u"_s);
    driver.expectEqual(driver.textOf(u"signSql"_s), {}, u"conditions after merging"_s);
    driver.expectEqual(driver.look([] {
        auto *merged = TourDriver::find<QListWidget>(u"totalSql"_s);
        return merged->count() == 1 ? merged->item(0)->text() : QString();
    }),
                       u"ISBN'包含'7-02;入库日期'不小于'2002-__-__"_s, u"the merged line"_s);
    giveFocus(driver, u"LFields"_s);
    driver.key(u"Home"_s);
    driver.key(u"Tab"_s);
    addCondition(driver, u"Home"_s, 2, u"三"_s);
    driver.expectEqual(driver.textOf(u"signSql"_s), u"书名'包含'三"_s, u"the condition outside the brackets"_s);
    driver.click(u"Label30"_s);
    driver.answerBox(u"请选择排序项目，取消该操作。"_s, u"Return"_s, u"query-sort-refused"_s);
    driver.waitForFocus(u"cOrderby"_s);
    driver.key(u"Down"_s);
    driver.click(u"Label31"_s);
    driver.waitForText(u"lOrderby"_s, u"'书名'降"_s);
    driver.expect(driver.look([] { return TourDriver::find<QComboBox>(u"cOrderby"_s)->findText(u"书名"_s) < 0; }),
                  u"a field sorts once"_s);
    driver.shot(u"query-composed"_s);
    driver.key(u"alt+o"_s);
    driver.waitUntilGone(u"QueryFrm"_s);
}

void checkList(TourDriver &driver, const QString &list, int rows, const QString &counter) {
    driver.waitForText(list + u"/lCounts", counter);
    driver.expect(driver.rows(list + u"/Grid1") - 1 == rows,
                  u"%1 rows, not %2"_s.arg(driver.rows(list + u"/Grid1") - 1).arg(rows));
}

void queriedList(TourDriver &driver) {
    driver.waitForWindow(u"ZSKListFrm"_s);
    const int rows = number(driver, u"select count(*)" + wanted);
    driver.expect(rows > 5 && rows < 71, u"some of the catalogue: %1"_s.arg(rows));
    checkList(driver, u"ZSKListFrm"_s, rows, catalogue::countText(rows));
    const QString grid = u"ZSKListFrm/Grid1"_s;
    driver.waitForFocus(grid);
    const QString names = u"select bookname" + wanted + u" order by bookname";
    driver.expectEqual(driver.cell(grid, 1, 2), fromDatabase(driver, names + u" desc"), u"the first in the order"_s);
    driver.expectEqual(driver.cell(grid, rows, 2), fromDatabase(driver, names), u"the last in the order"_s);
    driver.shot(u"catalogue-list"_s);
}

void details(TourDriver &driver) {
    const QString grid = u"ZSKListFrm/Grid1"_s;
    const QString copied = fromDatabase(driver, u"select zskid from zsk where bookname='三国演义'"_s);
    int row = 1;
    while (row < driver.rows(grid) && driver.cell(grid, row, 0) != copied)
        ++row;
    driver.look([&] { TourDriver::find<widgets::FlexGrid>(grid)->setRow(row); });
    driver.clickCell(grid, row, 2);
    driver.key(u"Return"_s);
    driver.waitForWindow(u"SCKListFrm"_s);
    driver.expectEqual(driver.textOf(u"SCKListFrm/LabelZSK2"_s), u"三国演义"_s, u"the title in the details"_s);
    driver.expectEqual(driver.textOf(u"SCKListFrm/LabelZSK12"_s),
                       fromDatabase(driver, u"select count(*) from sck where zskid=" + copied), u"copies"_s);
    driver.expectEqual(driver.cell(u"SCKListFrm/Grid1"_s, 1, 0),
                       fromDatabase(driver, u"select barcode from sck where zskid=" + copied), u"the first copy"_s);
    driver.shot(u"book-details"_s);
    driver.key(u"alt+x"_s);
    driver.waitUntilGone(u"SCKListFrm"_s);
    driver.waitForWindow(u"ZSKListFrm"_s); // which has the same key for its own end
    driver.waitForFocus(grid);
}

void sortAnew(TourDriver &driver) {
    driver.key(u"alt+s"_s);
    driver.waitForWindow(u"OrderbyFrm"_s);
    driver.key(u"alt+o"_s);
    driver.answerBox(u"请输入排序条件，取消该操作。"_s, u"Return"_s, u"order-refused"_s);
    driver.click(u"OrderbyFrm/List1"_s);
    driver.key(u"End"_s);
    driver.key(u"Return"_s);
    driver.key(u"Home"_s);
    driver.key(u"Return"_s);
    driver.expect(driver.look([] {
        auto *chosen = TourDriver::find<QListWidget>(u"OrderbyFrm/List2"_s);
        return chosen->count() == 2 && chosen->item(0)->text() == u"入库日期" && chosen->item(1)->text() == u"书名";
    }),
                  u"date of entry, then title"_s);
    driver.shot(u"order-chosen"_s);
    driver.key(u"alt+o"_s);
    driver.waitUntilGone(u"OrderbyFrm"_s);
    driver.waitUntil(u"sorted by the date"_s, [] {
        auto *grid = TourDriver::find<widgets::FlexGrid>(u"ZSKListFrm/Grid1"_s);
        for (int row = 2; row < grid->rows(); ++row) {
            if (grid->text(row - 1, 7) > grid->text(row, 7))
                return false;
        }
        return true;
    });
    driver.shot(u"catalogue-sorted"_s);
}

void printList(TourDriver &driver) {
    driver.key(u"alt+p"_s);
    driver.waitForWindow(u"DataReportJs"_s);
    driver.shot(u"print-preview"_s);
    driver.key(u"Escape"_s);
    driver.waitUntilGone(u"DataReportJs"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
}

void exportList(TourDriver &driver) {
    const int rows = driver.rows(u"ZSKListFrm/Grid1"_s) - 1;
    const QString file = pathOf(u"exported.iso"_s);
    driver.key(u"alt+d"_s);
    driver.key(u"Escape"_s);
    driver.answerBox(u"请输入要保存marc数据的文件名！"_s, u"Return"_s);
    driver.key(u"alt+d"_s);
    enterFile(driver, exportTitle.toString(), file, u"export-file"_s);
    driver.answerBox(u"本次操作成功导出%1条数据\r\n以marc格式保存在文件%2中。"_s.arg(rows).arg(file), u"Return"_s,
                     u"exported"_s);
    driver.expectEqual(driver.textOf(u"labDaochu"_s), u"已经导出：%1(100%)"_s.arg(rows), u"progress"_s);
    driver.expect(recordsIn(file) == rows, u"records in the file: %1"_s.arg(recordsIn(file)));
    driver.key(u"alt+d"_s);
    enterFile(driver, exportTitle.toString(), file);
    driver.answerBox(u"选择的路径下已经存在输入的文件名。请重新输入marc数据文件名！"_s, u"Return"_s,
                     u"export-refused"_s);
    driver.expect(recordsIn(file) == rows, u"the file that was there is as it was"_s);
}

void pressStop(TourDriver &driver, const QString &answer, int &exported) {
    driver.key(u"alt+t"_s);
    const QString question = driver.boxText();
    const auto match = QRegularExpression(u"^已经成功导出(\\d+)条数据。确定要终止导出吗？$"_s).match(question);
    driver.expect(match.hasMatch(), u"the question of 停止: "_s + question);
    exported = match.captured(1).toInt();
    driver.answerBox(question, answer, answer == u"n" ? u"export-stopping"_s : QString());
}

void stopExport(TourDriver &driver) {
    enlargeCatalogue(driver);
    driver.click(u"daochu"_s);
    driver.waitForWindow(u"QueryFrm"_s);
    driver.key(u"alt+o"_s);
    const int rows = number(driver, u"select count(*) from zsk"_s);
    checkList(driver, u"ZSKListFrm"_s, rows, catalogue::countText(rows));
    const QString file = pathOf(u"stopped.iso"_s);
    driver.key(u"alt+d"_s);
    enterFile(driver, exportTitle.toString(), file);
    int first = 0;
    int last = 0;
    pressStop(driver, u"n"_s, first);
    pressStop(driver, u"y"_s, last);
    driver.expect(first > 0 && last > first && last < rows, u"goes on after No: %1, %2"_s.arg(first).arg(last));
    driver.answerBox(u"本次操作成功导出%1条数据\r\n以marc格式保存在文件%2中。"_s.arg(last - 1).arg(file), u"Return"_s,
                     u"export-stopped"_s);
    driver.expect(recordsIn(file) == last, u"records in the stopped file: %1"_s.arg(recordsIn(file)));
    driver.expect(driver.look([] { return !TourDriver::find(u"ZSKListFrm/CmdDcgl3"_s)->isEnabled(); }),
                  u"no further export from this window"_s);
    driver.key(u"alt+x"_s);
    driver.waitUntilGone(u"ZSKListFrm"_s);
    shrinkCatalogue(driver);
}

void nothingFound(TourDriver &driver) {
    driver.click(u"daochu"_s);
    driver.waitForWindow(u"QueryFrm"_s);
    driver.key(u"Tab"_s);
    addCondition(driver, u"Home"_s, 0, u"no such book"_s);
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
    checkList(driver, u"ZSKListFrm"_s, 1, catalogue::noRowsToExport.toString());
    driver.expectEqual(driver.cell(u"ZSKListFrm/Grid1"_s, 1, 0), {}, u"the one empty row"_s);
    driver.key(u"alt+p"_s); // nothing to print, and not a word about it
    driver.shot(u"catalogue-nothing-found"_s);
    driver.key(u"alt+x"_s);
    driver.waitUntilGone(u"ZSKListFrm"_s);
}

} // namespace

void catalogue(TourDriver &driver) {
    composeQuery(driver);
    queriedList(driver);
    details(driver);
    sortAnew(driver);
    printList(driver);
    exportList(driver);
    stopExport(driver);
    nothingFound(driver);
}

} // namespace tour
