#include "tour/editingScenes.h"
#include "tour/gridErrands.h"
#include <QApplication>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString identifierItem = u"修改（子）字段标识符"_s;

struct Refusal {
    QString typed;
    QString message;
    QString picture;
};

// Each refusal leaves the editor open, with the keyboard in it; Esc leaves the cell as it was.
void refuse(TourDriver &driver, int row, int column, const QString &item, const QList<Refusal> &refusals) {
    goTo(driver, row);
    const QString before = driver.cell(u"Grid1"_s, row, column);
    choosePopup(driver, item);
    waitForEditor(driver, u"Text1"_s, row, column);
    for (const Refusal &refusal : refusals) {
        driver.key(u"ctrl+a"_s);
        driver.key(u"BackSpace"_s);
        driver.type(refusal.typed);
        driver.key(u"Return"_s);
        driver.answerBox(refusal.message, u"Return"_s, refusal.picture);
        waitForEditor(driver, u"Text1"_s, row, column);
    }
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, column), before, u"the cell after refusals and Esc"_s);
}

void refusals(TourDriver &driver) {
    const int field = rowOf(driver, u"205"_s);
    const int subfield = rowOf(driver, u"205"_s, u"$a"_s);
    const QString format = u"格式错误，请重新输入或按【Esc】取消操作"_s;
    refuse(driver, field, 1, u"修改字段说明"_s, {{{}, u"字段说明不允许为空"_s, u"label-refused"_s}});
    refuse(driver, field, 2, identifierItem,
           {{{}, u"字段标识符不允许为空"_s, u"tag-empty"_s},
            {u"a00"_s, u"只允许输入数值"_s, u"tag-no-number"_s},
            {u"20"_s, u"只允许输入3位数值"_s, u"tag-short"_s}});
    refuse(driver, subfield, 2, identifierItem,
           {{u"a"_s, u"只允许输入2位字符"_s, u"code-short"_s},
            {u"$1"_s, format, u"code-refused"_s},
            {u"a$"_s, format, {}}});
    refuse(driver, subfield, 3, u"修改子字段说明"_s, {{{}, u"子字段说明不允许为空"_s, u"sublabel-refused"_s}});
}

// What passes the checks lands in the cell; the list stays in reach meanwhile, the commands do not.
void changeIdentifier(TourDriver &driver) {
    const int row = rowOf(driver, u"205"_s, u"$a"_s);
    goTo(driver, row);
    choosePopup(driver, identifierItem);
    waitForEditor(driver, u"Text1"_s, row, 2);
    driver.expect(driver.look([] { return desk()->Grid2->isEnabled() && !desk()->cmdclick[2]->isEnabled(); }),
                  u"what an open identifier holds"_s);
    driver.key(u"ctrl+a"_s);
    driver.type(u"$B3"_s); // the third finds no room
    driver.shot(u"edit-identifier"_s);
    driver.key(u"Return"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 2), u"$B"_s, u"the identifier"_s);
}

// By the right button: it shows the popup for the current row, which does not move.
void popupByMouse(TourDriver &driver) {
    const int row = rowOf(driver, u"100"_s);
    goTo(driver, row);
    driver.shot(u"popup-before"_s);
    driver.clickCell(u"Grid1"_s, row + 2, 1, 3);
    driver.waitUntil(u"popup by the mouse"_s, [] { return QApplication::activePopupWidget() != nullptr; });
    driver.shot(u"popup-mouse"_s);
    driver.key(u"Escape"_s);
    driver.waitUntil(u"popup closed"_s, [] { return !QApplication::activePopupWidget(); });
    driver.expect(driver.look([row] { return desk()->Grid1->row() == row; }), u"the right button moves no row"_s);
    openPopup(driver);
    driver.shot(u"popup-key"_s);
    driver.key(u"Escape"_s);
    driver.waitUntil(u"popup closed"_s, [] { return !QApplication::activePopupWidget(); });
}

QString chooseFromList(TourDriver &driver, const QString &name, int down, bool byMouse) {
    driver.waitUntil(name + u" open", [&] {
        auto *list = TourDriver::find<QListWidget>(name);
        return list && list->hasFocus() && list->count() > down && list->geometry() == desk()->Grid1->rightHalf();
    });
    driver.shot(name);
    driver.key(u"Down"_s, down);
    const auto [line, place] = driver.look([&] {
        auto *list = TourDriver::find<QListWidget>(name);
        const QRect entry = list->visualItemRect(list->currentItem());
        return std::pair(list->currentItem()->text(), list->viewport()->mapToGlobal(entry.center()));
    });
    if (byMouse)
        driver.clickAt(place, 1, 2);
    else
        driver.key(u"Return"_s);
    waitUntilIdle(driver);
    return line;
}

void addRows(TourDriver &driver) {
    const int row = rowOf(driver, u"205"_s);
    const int before = driver.rows(u"Grid1"_s);
    goTo(driver, row);
    choosePopup(driver, u"添加字段"_s);
    driver.waitUntil(u"zdList"_s, [] { return desk()->zdList->isVisible(); });
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
    driver.expect(driver.rows(u"Grid1"_s) == before, u"Esc adds no field"_s);

    choosePopup(driver, u"添加字段"_s);
    const QString field = chooseFromList(driver, u"zdList"_s, 30, false);
    const int added = row + 2; // behind the field and its one subfield
    driver.expectEqual(driver.cell(u"Grid1"_s, added, 2), field.left(3), u"the tag added"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, added, 3), u"指示符"_s, u"the field added"_s);
    driver.expect(driver.look([added] {
        const widgets::FlexGrid *grid = desk()->Grid1;
        const QRect place = grid->cellRect(added, 2);
        return grid->geometry().contains(place) && place.height() == grid->cellRect(added - 1, 2).height();
    }),
                  u"the field added is in sight"_s);
    driver.shot(u"field-added"_s);

    goTo(driver, rowOf(driver, u"200"_s));
    choosePopup(driver, u"添加子字段"_s);
    const QString subfield = chooseFromList(driver, u"Zzdlist"_s, 4, true);
    const int inserted = rowOf(driver, u"200"_s) + 1;
    driver.expectEqual(driver.cell(u"Grid1"_s, inserted, 2), subfield.left(2), u"the code added"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, inserted, 3), subfield.mid(3), u"the subfield added"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, inserted + 1, 2), u"$a"_s, u"the subfield pushed down"_s);
    driver.expect(driver.rows(u"Grid1"_s) == before + 2, u"two rows added"_s);
    driver.shot(u"subfield-added"_s);
}

void removeRows(TourDriver &driver) {
    goTo(driver, 1);
    choosePopup(driver, u"删除字段"_s);
    driver.answerBox(u"不能删除！"_s, u"Return"_s, u"delete-refused"_s);
    waitUntilIdle(driver);
    const int field = rowOf(driver, u"200"_s);
    goTo(driver, field);
    choosePopup(driver, u"删除子字段"_s);
    driver.answerBox(u"请选择字段的子字段，然后执行本操作"_s, u"Return"_s, u"delete-subfield-refused"_s);
    waitUntilIdle(driver);

    const int before = driver.rows(u"Grid1"_s);
    goTo(driver, field + 1);
    const QString question = u"确实要删除选择的子字段【%1%2 】吗？"_s.arg(driver.cell(u"Grid1"_s, field + 1, 2),
                                                                          driver.cell(u"Grid1"_s, field + 1, 3));
    choosePopup(driver, u"删除子字段"_s);
    driver.answerBox(question, u"Return"_s, u"delete-subfield"_s); // No is the default
    driver.expect(driver.rows(u"Grid1"_s) == before, u"No keeps the subfield"_s);
    choosePopup(driver, u"删除子字段"_s);
    driver.answerBox(question, u"y"_s);
    driver.expect(driver.rows(u"Grid1"_s) == before - 1, u"Yes removes one row"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, field + 1, 2), u"$a"_s, u"the row that moved up"_s);

    // From a subfield the question names its field, and all of it goes.
    const int doomed = rowOf(driver, u"210"_s);
    const QString next = driver.cell(u"Grid1"_s, doomed + 4, 2);
    goTo(driver, doomed + 1);
    choosePopup(driver, u"删除字段"_s);
    driver.answerBox(u"确实要删除选择的字段【210%1 】吗？"_s.arg(driver.cell(u"Grid1"_s, doomed, 1)), u"y"_s,
                     u"delete-field"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, doomed, 2), next, u"the field behind the one removed"_s);
    driver.expect(driver.rows(u"Grid1"_s) == before - 5, u"the field went with its subfields"_s);
    waitUntilIdle(driver);
    driver.shot(u"rows-removed"_s);
}

} // namespace

void changeFields(TourDriver &driver) {
    popupByMouse(driver);
    refusals(driver);
    changeIdentifier(driver);
    addRows(driver);
    removeRows(driver);
}

} // namespace tour
