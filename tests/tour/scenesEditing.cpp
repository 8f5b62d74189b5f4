#include "tour/editingScenes.h"
#include "tour/errands.h"
#include "tour/gridErrands.h"
#include "tour/scenes.h"
#include <QApplication>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

// From the list into the grid by the Tab key.
void enterGrid(TourDriver &driver) {
    driver.waitUntil(u"the list has the keyboard"_s, [] { return desk() && desk()->Grid2->hasFocus(); });
    driver.clickCell(u"Grid1"_s, 2, 1, 3);
    driver.shot(u"no-popup-yet"_s); // no row was noted so far
    driver.expect(driver.look([] { return !QApplication::activePopupWidget(); }), u"no popup before a row is noted"_s);
    driver.look([] { desk()->Grid2->setFocus(); });
    driver.key(u"Tab"_s);
    waitUntilIdle(driver);
}

void smallForm(TourDriver &driver) {
    const int row = rowOf(driver, u"205"_s, u"$a"_s);
    openContent(driver, row);
    driver.expect(driver.look([] {
        return !desk()->Grid1->isEnabled() && !desk()->Grid2->isEnabled() && !desk()->cmdclick[2]->isEnabled() &&
               !desk()->cmdTiMing[1]->isEnabled();
    }),
                  u"an open editor holds everything else"_s);
    driver.key(u"End"_s);
    driver.type(u" 1996"_s);
    driver.shot(u"edit-small"_s);
    driver.key(u"ctrl+z"_s);
    driver.expect(driver.textOf(u"richText"_s) != u"第2版 1996", u"undo takes typing back"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 4), u"第2版"_s, u"the cell after Esc"_s);
    driver.expect(!driver.look([] { return desk()->recordChanged(); }), u"unchanged after Esc"_s);

    const int indicators = rowOf(driver, u"200"_s);
    openContent(driver, indicators);
    driver.type(u"99"_s);
    driver.expectEqual(driver.textOf(u"richText"_s), u"1#"_s, u"two indicators and no more"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
}

void largeForm(TourDriver &driver) {
    const int row = rowOf(driver, u"330"_s, u"$a"_s);
    const QString before = driver.cell(u"Grid1"_s, row, 4);
    openContent(driver, row);
    driver.shot(u"edit-long-small"_s);
    driver.click(u"richText"_s, 3);
    driver.waitUntil(u"the large form"_s, [] { return desk()->richText->geometry() == desk()->Grid1->rightHalf(); });
    driver.key(u"ctrl+Home"_s);
    driver.type(u"Abstract: "_s);
    driver.shot(u"edit-large"_s);
    driver.clickAt(driver.look([] { return desk()->richText->mapToGlobal(QPoint(40, 40)); }), 1, 2);
    waitForEditor(driver, u"richText"_s, row, 4);
    driver.expectEqual(driver.textOf(u"richText"_s), u"Abstract: " + before, u"the text in the box"_s);
    driver.shot(u"edit-small-again"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 4), before, u"the note after Esc"_s);
}

// What GBK cannot hold is told while there is time.
void lostCharacter(TourDriver &driver) {
    openContent(driver, rowOf(driver, u"200"_s, u"$f"_s));
    setClipboard(driver, u"㛃"_s);
    driver.key(u"ctrl+v"_s);
    driver.waitUntil(u"the warning"_s, [] { return desk()->labZhuangTai->text().contains(u"㛃"); });
    driver.shot(u"lost-character"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
    driver.waitForText(u"labZhuangTai"_s, {});
}

void copyRows(TourDriver &driver) {
    const int row = rowOf(driver, u"210"_s, u"$a"_s);
    goTo(driver, row);
    driver.key(u"shift+Down"_s, 2);
    driver.shot(u"rows-selected"_s);
    driver.key(u"ctrl+c"_s);
    QStringList copied = clipboard(driver).split(u'\n', Qt::SkipEmptyParts);
    copied.append({{}, {}, {}});
    driver.expect(copied[0].endsWith(u"\t北京"_s) && copied[1].endsWith(u"\t人民文学出版社"_s) &&
                      copied[2].endsWith(u"\t1996.12"_s),
                  u"rows copied: " + copied.join(u'|'));
    driver.key(u"Return"_s);
    driver.expect(
        driver.look([] { return desk()->richText->isHidden() && desk()->Grid1->rowSel() == desk()->Grid1->row(); }),
        u"Enter on several rows selects one"_s);
}

// A change taken over by stepping on leaves the title in the list; by leaving for another row of the list it is
// renewed.
void changeTitle(TourDriver &driver) {
    retype(driver, rowOf(driver, u"200"_s, u"$a"_s), u"Hong lou meng"_s);
    driver.key(u"alt+n"_s);
    driver.answerBox(editQuestion.toString(), u"y"_s, u"edit-question"_s);
    driver.waitForText(u"Text2"_s, u"2"_s);
    driver.expectEqual(driver.cell(u"Grid2"_s, 0, 1), u"红楼梦"_s, u"the title in the list"_s);
    driver.key(u"alt+p"_s);
    driver.waitForText(u"Text2"_s, u"1"_s);
    driver.expectEqual(value(driver, u"200"_s, u"$a"_s), u"Hong lou meng"_s, u"the title kept"_s);
    driver.shot(u"edit-kept"_s);

    driver.clickCell(u"Grid1"_s, 1, 1);
    retype(driver, rowOf(driver, u"200"_s, u"$a"_s), u"Dream"_s);
    driver.clickCell(u"Grid2"_s, 2, 1);
    driver.boxText();
    for (const QString &noAnswer : {u"Escape"_s, u"alt+F4"_s})
        driver.key(noAnswer);
    driver.answerBox(editQuestion.toString(), u"n"_s, u"question-stands"_s);
    driver.waitForText(u"Text2"_s, u"3"_s);
    driver.clickCell(u"Grid2"_s, 0, 1);
    driver.waitForText(u"Text2"_s, u"1"_s);
    driver.expectEqual(value(driver, u"200"_s, u"$a"_s), u"Hong lou meng"_s, u"the title after No"_s);

    driver.key(u"Tab"_s);
    retype(driver, rowOf(driver, u"200"_s, u"$a"_s), u"Dream"_s);
    driver.clickCell(u"Grid2"_s, 1, 1);
    driver.answerBox(editQuestion.toString(), u"y"_s);
    driver.waitForText(u"Text2"_s, u"2"_s);
    driver.expectEqual(driver.cell(u"Grid2"_s, 0, 1), u"Dream"_s, u"the title renewed"_s);
    driver.key(u"Up"_s);
    driver.waitForText(u"Text2"_s, u"1"_s);
    driver.shot(u"title-renewed"_s);
    driver.key(u"Tab"_s);
    waitUntilIdle(driver);
}

} // namespace

void edit(TourDriver &driver) {
    openSample(driver, u"sample.iso"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    enterGrid(driver);
    smallForm(driver);
    largeForm(driver);
    lostCharacter(driver);
    copyRows(driver);
    changeTitle(driver);
    changeFields(driver);
    assistants(driver);
    closeWorkspace(driver);
    driver.waitForWindow(u"frmSelectMFile"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"frmSelectMFile"_s);
}

} // namespace tour
