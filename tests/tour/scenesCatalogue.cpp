// The catalogue and the table of imported records: queries, lists, an export, deletions.
#include "catalogue/listTexts.h"
#include "tour/errands.h"
#include "tour/scenes.h"

using namespace Qt::StringLiterals;

namespace tour {

namespace {

// The statement that composeQuery() must produce, written independently.
constexpr QStringView wanted =
    u" from zsk where (isbn like '%7-02%' and catatime >= '2002-01-01') or bookname like '%三%'";

int number(TourDriver &driver, const QString &statement) {
    return fromDatabase(driver, statement).toInt();
}

// Starts in the field box: `field` is a key that selects the field, `downs` is the number of Down presses to the
// operator. Ends with the focus on the control after the value.
void addCondition(TourDriver &driver, const QString &field, int downs, const QString &value) {
    driver.waitForFocus(u"cSql"_s);
    driver.key(field + u" Return Home");
    driver.key(u"Down"_s, downs);
    driver.key(u"Return"_s);
    paste(driver, value);
    driver.key(u"Tab"_s);
}

void composeQuery(TourDriver &driver) {
    driver.open(u"daochu"_s, u"QueryFrm"_s, u"query-empty"_s);
    driver.key(u"Tab Down"_s);
    addCondition(driver, u"Down"_s, 2, u"7-02"_s);
    driver.key(u"shift+Tab"_s, 3);
    addCondition(driver, u"End"_s, 3, u"2002"_s);
    driver.expectEqual(driver.textOf(u"signSql"_s), u"ISBN'包含'7-02;入库日期'不小于'2002-__-__"_s,
                       u"both conditions"_s);
    driver.key(u"alt+u"_s);
    giveFocus(driver, u"LFields"_s);
    driver.key(u"Home Tab"_s);
    addCondition(driver, u"Home"_s, 2, u"三"_s);
    driver.click(u"Label30"_s);
    driver.answerBox(u"请选择排序项目，取消该操作。"_s, u"Return"_s, u"query-sort-refused"_s);
    driver.waitForFocus(u"cOrderby"_s);
    driver.key(u"Down"_s);
    driver.click(u"Label31"_s);
    driver.waitForText(u"lOrderby"_s, u"'书名'降"_s);
    driver.shot(u"query-composed"_s);
    driver.leave(u"alt+o"_s, u"QueryFrm"_s);
}

void checkList(TourDriver &driver, const QString &list, int rows, const QString &counter) {
    driver.waitForText(list + u"/lCounts", counter);
    const int shown = driver.rows(list + u"/Grid1") - 1;
    driver.expect(shown == qMax(rows, 1), u"%1 rows in the list, not %2"_s.arg(shown).arg(rows));
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
    driver.clickCell(grid, 0, 2); // the heading
    driver.waitUntil(u"the other order"_s, [first = fromDatabase(driver, names)] {
        auto *list = TourDriver::find<widgets::FlexGrid>(u"ZSKListFrm/Grid1"_s);
        return list && list->text(1, 2) == first;
    });
    driver.shot(u"catalogue-list"_s);
    const QString key = driver.cell(grid, 3, 0);
    driver.clickCell(grid, 3, 2);
    for (const QString &way : {u"Return"_s, u"alt+m"_s}) {
        driver.waitForFocus(grid);
        driver.key(way).waitForWindow(u"SCKListFrm"_s, u"book-details"_s);
        driver.expectEqual(driver.textOf(u"SCKListFrm/LabelZSK12"_s),
                           fromDatabase(driver, u"select count(*) from sck where zskid=" + key), u"copies"_s);
        driver.leave(u"alt+x"_s, u"SCKListFrm"_s);
        driver.waitForWindow(u"ZSKListFrm"_s); // it closes with the same key
    }
}

void sortAnew(TourDriver &driver) {
    driver.key(u"alt+s"_s).waitForWindow(u"OrderbyFrm"_s);
    driver.key(u"alt+o"_s).answerBox(u"请输入排序条件，取消该操作。"_s, u"Return"_s, u"order-refused"_s);
    driver.click(u"OrderbyFrm/List1"_s);
    driver.key(u"End Return Home Return"_s).shot(u"order-chosen"_s);
    driver.leave(u"alt+o"_s, u"OrderbyFrm"_s);
    driver.waitUntil(u"sorted by the date"_s, [] {
        auto *grid = TourDriver::find<widgets::FlexGrid>(u"ZSKListFrm/Grid1"_s);
        for (int row = 2; row < grid->rows(); ++row) {
            if (grid->text(row - 1, 7) > grid->text(row, 7))
                return false;
        }
        return true;
    });
    driver.key(u"alt+p"_s).waitForWindow(u"DataReportJs"_s, u"print-preview"_s);
    driver.leave(u"Escape"_s, u"DataReportJs"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
}

void exportTo(TourDriver &driver, const QString &file) {
    driver.key(u"alt+d"_s);
    enterFile(driver, exportTitle.toString(), file);
}

void exportList(TourDriver &driver) {
    const int rows = driver.rows(u"ZSKListFrm/Grid1"_s) - 1;
    const QString file = pathOf(u"exported.iso"_s);
    exportTo(driver, file);
    driver.answerBox(u"本次操作成功导出%1条数据\r\n以marc格式保存在文件%2中。"_s.arg(rows).arg(file), u"Return"_s,
                     u"exported"_s);
    driver.expect(recordsIn(file) == rows, u"records in the file: %1"_s.arg(recordsIn(file)));
    exportTo(driver, file);
    driver.answerBox(u"选择的路径下已经存在输入的文件名。请重新输入marc数据文件名！"_s, u"Return"_s,
                     u"export-refused"_s);
}

int stored(TourDriver &driver, const QString &condition = {}) {
    return number(driver, u"select count(*) from taoluTable" + condition);
}

void queryStore(TourDriver &driver, const QString &author) {
    driver.open(u"delete"_s, u"QueryFrmdel"_s, u"store-query"_s);
    if (!author.isEmpty()) {
        driver.key(u"Tab"_s);
        addCondition(driver, u"Home Down"_s, 2, author);
    }
    driver.key(u"alt+o"_s).waitForWindow(u"TLKListFrm"_s, u"store-list"_s);
}

// No is the default answer and deletes nothing.
void deleteRows(TourDriver &driver, const QString &chord, const QString &question, const QString &rows, int left) {
    const int before = stored(driver);
    const int some = stored(driver, rows);
    driver.key(chord).answerBox(question, u"Return"_s, u"delete-rows"_s);
    driver.expect(some >= 2 && stored(driver, rows) == some, u"No deletes nothing"_s);
    driver.key(chord).answerBox(question, u"y"_s);
    checkList(driver, u"TLKListFrm"_s, left, catalogue::countText(left));
    driver.expect(stored(driver) == before - some && stored(driver, rows) == 0, u"the rows alone are gone"_s);
}

void deleteFromStore(TourDriver &driver) {
    const QString grid = u"TLKListFrm/Grid1"_s;
    const int rows = stored(driver);
    queryStore(driver, {});
    checkList(driver, u"TLKListFrm"_s, rows, catalogue::countText(rows));
    driver.waitForFocus(grid);
    driver.clickCell(grid, 3, 1);
    driver.key(u"shift+Down"_s, 2);
    deleteRows(
        driver, u"alt+x"_s, u"确定要将选择的文献从套录库中删除吗吗？(Y/N)"_s,
        u" where zskid in (%1,%2,%3)"_s.arg(driver.cell(grid, 3, 0), driver.cell(grid, 4, 0), driver.cell(grid, 5, 0)),
        rows - 3);
    changeDatabase(driver, u"insert into taoluTable (bookname,author) values ('兄弟','余华著'),('活着','余华')"_s);
    queryStore(driver, u"余华"_s);
    driver.waitForText(u"conditionWords"_s, u"条件：著者'包含'余华"_s);
    deleteRows(driver, u"alt+d"_s, u"你确定将检索出的数据从套录库中删除吗？"_s, u" where author like '%余华%'"_s, 0);
}

} // namespace

void catalogue(TourDriver &driver) {
    composeQuery(driver);
    queriedList(driver);
    sortAnew(driver);
    exportList(driver);
    driver.leave(u"alt+x"_s, u"ZSKListFrm"_s);
}

void store(TourDriver &driver) {
    deleteFromStore(driver);
    driver.leave(u"alt+q"_s, u"TLKListFrm"_s);
}

} // namespace tour
