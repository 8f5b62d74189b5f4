#include "tour/editingScenes.h"
#include "tour/gridErrands.h"
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString codeQuestion = u"输入字符不在规定范围内。是否重新输入？"_s;

bool openAssistant(TourDriver &driver, int row, const QString &window) {
    openContent(driver, row);
    driver.key(u"ctrl+e"_s);
    return driver.waitForWindow(window);
}

// Opens the drop-down list of the current box by the Down key and chooses an entry some steps away.
void chooseCode(TourDriver &driver, const QString &direction, int steps, const QString &picture) {
    driver.key(u"Down"_s);
    driver.waitForFocus(u"listMenu"_s);
    driver.shot(picture);
    driver.key(direction, steps);
    driver.key(u"Return"_s);
    driver.waitUntilGone(u"listMenu"_s);
}

void leaderAssistant(TourDriver &driver) {
    if (!openAssistant(driver, 1, u"frmHelpLR000"_s))
        return;
    driver.waitForFocus(u"Text11"_s);
    driver.expectEqual(driver.textOf(u"textMarc"_s), u"?????nam0#22?????###450#"_s, u"the leader as loaded"_s);
    driver.expect(driver.textOf(u"richTextTS"_s).startsWith(u"新记录（包括出版前记录"), u"the explanation of n"_s);
    driver.shot(u"leader"_s);
    driver.type(u"c"_s); // passes, and the box shows it
    driver.waitForText(u"Text11"_s, u"c"_s);
    driver.key(u"Return"_s);
    driver.waitForFocus(u"Text12"_s);
    chooseCode(driver, u"Down"_s, 1, u"leader-list"_s);
    driver.waitForText(u"Text12"_s, u"b"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.type(u"x"_s);
    driver.answerBox(codeQuestion, u"y"_s, u"leader-refused"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.expectEqual(driver.textOf(u"Text12"_s), u"x"_s, u"the refused code stays in the box"_s);
    driver.type(u"z"_s);
    driver.answerBox(codeQuestion, u"n"_s);
    driver.waitForFocus(u"Text13"_s);
    driver.click(u"LabShuoMing2"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.type(u"B"_s);
    driver.waitForText(u"Text12"_s, u"b"_s);
    driver.shot(u"leader-filled"_s);
    driver.key(u"alt+s"_s);
    driver.waitUntilGone(u"frmHelpLR000"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, 1, 4), u"?????cbm0#22?????###450#"_s, u"the leader row"_s);
    driver.shot(u"leader-done"_s);
}

void field100Assistant(TourDriver &driver) {
    const int row = rowOf(driver, u"100"_s, u"$a"_s);
    const QString before = driver.cell(u"Grid1"_s, row, 4);
    if (!openAssistant(driver, row, u"frmHelpLR100"_s))
        return;
    driver.shot(u"field100"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"frmHelpLR100"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 4), before, u"100 $a after a cancel"_s);

    openAssistant(driver, row, u"frmHelpLR100"_s);
    driver.waitForFocus(u"Text11"_s);
    driver.key(u"Tab"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.key(u"ctrl+a"_s);
    driver.type(u"19a8"_s);
    driver.type(u"1"_s);
    driver.answerBox(u"输入年份格式不正确。请重新输入"_s, u"Return"_s, u"year-refused"_s);
    driver.waitForFocus(u"Text12"_s);
    driver.key(u"ctrl+a"_s);
    driver.type(u"1998"_s);
    driver.key(u"Return"_s);
    driver.waitForFocus(u"Text13"_s);
    driver.click(u"LabShuoMing8"_s);
    chooseCode(driver, u"Up"_s, 3, u"field100-list"_s);
    driver.waitForFocus(u"Text110"_s);
    driver.click(u"picClick3"_s);
    driver.waitForFocus(u"listMenu"_s);
    driver.shot(u"field100-languages"_s);
    driver.key(u"Escape"_s);
    driver.waitForFocus(u"Text19"_s);
    driver.key(u"alt+s"_s);
    driver.waitUntilGone(u"frmHelpLR100"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, 4), u"????????d1998####m##y0chia50######ea"_s, u"100 $a"_s);
    driver.shot(u"field100-done"_s);
}

// On a subfield that no assistant is for, Ctrl+E leaves the editor open.
void noAssistant(TourDriver &driver) {
    const int row = rowOf(driver, u"200"_s, u"$f"_s);
    openContent(driver, row);
    driver.key(u"ctrl+e"_s);
    waitForEditor(driver, u"richText"_s, row, 4);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
}

} // namespace

void assistants(TourDriver &driver) {
    leaderAssistant(driver);
    field100Assistant(driver);
    noAssistant(driver);
}

} // namespace tour
