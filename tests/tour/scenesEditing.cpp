// The grid of fields: editors, popup menu, lists and assistants, driven by the keyboard unless stated otherwise.
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

QMenu *popup() {
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    return menu && menu->isVisible() ? menu : nullptr;
}

void waitForPopup(TourDriver &driver, bool there) {
    driver.waitUntil(there ? u"popup"_s : u"popup gone"_s, [there] { return (popup() != nullptr) == there; });
}

// Opens the popup menu of the current row with the Menu key and chooses an item.
void choosePopup(TourDriver &driver, const QString &item) {
    driver.key(u"Menu"_s);
    waitForPopup(driver, true);
    const int steps = driver.look([&] {
        int counted = 0;
        const QList<QAction *> actions = popup()->actions();
        for (const QAction *action : actions) {
            counted += action->isSeparator() ? 0 : 1;
            if (action->text() == item)
                return counted;
        }
        return 0;
    });
    driver.expect(steps > 0, u"popup item " + item);
    driver.key(u"Down"_s, steps);
    driver.key(u"Return"_s);
    waitForPopup(driver, false);
}

// A click with the right button opens the popup menu for the current row and does not move it.
void popupByMouse(TourDriver &driver) {
    const int row = rowOf(driver, u"100"_s);
    goTo(driver, row);
    driver.clickCell(u"Grid1"_s, row + 2, 1, 3);
    waitForPopup(driver, true);
    driver.shot(u"popup-mouse"_s);
    driver.key(u"Escape"_s);
    waitForPopup(driver, false);
    driver.expect(driver.look([row] { return desk()->Grid1->row() == row; }), u"the right button moves no row"_s);
}

// Characters that GBK lacks are reported while they are typed; Esc discards the text.
void smallForm(TourDriver &driver) {
    const int row = rowOf(driver, u"205"_s, u"$a"_s);
    openContent(driver, row);
    driver.key(u"End"_s).type(u" 1996"_s);
    paste(driver, u"㛃"_s);
    driver.waitUntil(u"the warning"_s, [] { return desk()->labStatus->text().contains(u"㛃"); });
    driver.shot(u"edit-small"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
    driver.waitUntil(u"no warning"_s, [] { return !desk()->labStatus->text().contains(u"㛃"); });
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 4), u"第2版"_s, u"the cell after Esc"_s);
}

void largeForm(TourDriver &driver) {
    const int row = rowOf(driver, u"330"_s, u"$a"_s);
    openContent(driver, row);
    driver.click(u"richText"_s, 3);
    driver.waitUntil(u"the large form"_s, [] { return desk()->richText->geometry() == desk()->Grid1->rightHalf(); });
    driver.key(u"ctrl+Home"_s).type(u"Abstract: "_s).shot(u"edit-large"_s);
    driver.clickAt(driver.look([] { return desk()->richText->mapToGlobal(QPoint(40, 40)); }), 1, 2);
    waitForEditor(driver, u"richText"_s, row, 4);
    driver.shot(u"edit-small-again"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
}

// Adds a field by a double click in the list of fields.
void addField(TourDriver &driver) {
    const int row = rowOf(driver, u"205"_s);
    goTo(driver, row);
    choosePopup(driver, u"添加字段"_s);
    driver.waitUntil(u"zdList open"_s, [&] {
        auto *list = TourDriver::find<QListWidget>(u"zdList"_s);
        return list && list->hasFocus() && list->geometry() == desk()->Grid1->rightHalf();
    });
    driver.shot(u"zdList"_s);
    driver.key(u"Down"_s, 30);
    const auto [field, place] = driver.look([&] {
        auto *list = TourDriver::find<QListWidget>(u"zdList"_s);
        const QRect entry = list->visualItemRect(list->currentItem());
        return std::pair(list->currentItem()->text(), list->viewport()->mapToGlobal(entry.center()));
    });
    driver.clickAt(place, 1, 2);
    waitUntilIdle(driver);
    const int added = row + 2; // after the field and its only subfield
    driver.expectEqual(driver.cell(u"Grid1"_s, added, 2), field.left(3), u"the tag added"_s);
    driver.expect(driver.look([added] {
        const widgets::FlexGrid *grid = desk()->Grid1;
        const QRect place = grid->cellRect(added, 4);
        return grid->geometry().contains(place) && place.height() == grid->cellRect(added - 1, 4).height();
    }),
                  u"the field added is in sight"_s);
    driver.shot(u"field-added"_s);
}

// A change that is discarded, with a question that cannot be closed by keys alone, and a change that is accepted.
void changeTitle(TourDriver &driver) {
    const QString question = u"本条记录已经改变,是否确定暂时改变该记录?\r\n"
                             u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s;
    for (const QString &answer : {u"n"_s, u"y"_s}) {
        const auto row = [&] { return rowOf(driver, u"200"_s, u"$a"_s); };
        retype(driver, row(), u"Dream"_s);
        driver.clickCell(u"Grid2"_s, 2, 1);
        driver.boxText();
        driver.key(u"Escape alt+F4"_s).answerBox(question, answer, u"edit-question"_s);
        driver.waitForText(u"Text2"_s, u"3"_s);
        driver.clickCell(u"Grid2"_s, 0, 1);
        driver.waitForText(u"Text2"_s, u"1"_s);
        const QString title = answer == u"y" ? u"Dream"_s : u"红楼梦"_s;
        driver.expectEqual(driver.cell(u"Grid1"_s, row(), 4), title, u"the title in the grid"_s);
        driver.expectEqual(driver.cell(u"Grid2"_s, 0, 1), title, u"the title in the list"_s);
        driver.key(u"Tab"_s);
        waitUntilIdle(driver);
    }
}

void openAssistant(TourDriver &driver, int row, const QString &window) {
    openContent(driver, row);
    driver.key(u"ctrl+e"_s).waitForWindow(window, window);
    driver.waitForFocus(u"Text11"_s);
}

// Opens the drop-down list of the current box with the Down key and chooses the entry `steps` steps away.
void chooseCode(TourDriver &driver, const QString &direction, int steps, const QString &picture) {
    driver.key(u"Down"_s).waitForFocus(u"listMenu"_s);
    driver.shot(picture);
    driver.key(direction, steps);
    driver.key(u"Return"_s).waitUntilGone(u"listMenu"_s);
}

void leaderAssistant(TourDriver &driver) {
    openAssistant(driver, 1, u"frmHelpLR000"_s);
    driver.expectEqual(driver.textOf(u"textMarc"_s), u"?????nam0#22?????###450#"_s, u"the leader as loaded"_s);
    driver.type(u"c"_s).key(u"Return"_s).waitForFocus(u"Text12"_s);
    chooseCode(driver, u"Down"_s, 1, u"leader-list"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.type(u"x"_s).answerBox(u"输入字符不在规定范围内。是否重新输入？"_s, u"y"_s, u"leader-refused"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.type(u"B"_s).waitForText(u"Text12"_s, u"b"_s);
    driver.leave(u"alt+s"_s, u"frmHelpLR000"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, 1, 4), u"?????cbm0#22?????###450#"_s, u"the leader row"_s);
}

void field100Assistant(TourDriver &driver) {
    const int row = rowOf(driver, u"100"_s, u"$a"_s);
    openAssistant(driver, row, u"frmHelpLR100"_s);
    driver.key(u"Tab ctrl+a"_s);
    driver.type(u"19a81"_s).answerBox(u"输入年份格式不正确。请重新输入"_s, u"Return"_s, u"year-refused"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.key(u"ctrl+a"_s).type(u"1998"_s);
    driver.click(u"LabShuoMing8"_s);
    chooseCode(driver, u"Up"_s, 3, u"field100-list"_s);
    driver.waitForFocus(u"Text110"_s);
    driver.leave(u"alt+s"_s, u"frmHelpLR100"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 4), u"????????d1998####m##y0chia50######ea"_s, u"100 $a"_s);
    driver.shot(u"assistants-done"_s);
}

} // namespace

void edit(TourDriver &driver) {
    openSample(driver, u"sample.iso"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    driver.waitUntil(u"the list has the keyboard"_s, [] { return desk() && desk()->Grid2->hasFocus(); });
    driver.key(u"Tab"_s);
    waitUntilIdle(driver);
    smallForm(driver);
    largeForm(driver);
    changeTitle(driver);
    popupByMouse(driver);
    addField(driver);
    leaderAssistant(driver);
    field100Assistant(driver);
    backToMain(driver);
}

} // namespace tour
