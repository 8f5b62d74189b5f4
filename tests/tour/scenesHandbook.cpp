// F1 opens the handbook at the page of the window; when it closes, the window is unchanged, also during an edit or a
// run.
#include "handbook/windows/frmHandbook.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include "widgets/selectingEdit.h"

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString viewer = u"frmHandbook"_s;

handbook::frmHandbook *shown() {
    return TourDriver::find<handbook::frmHandbook>(viewer);
}

void openHandbook(TourDriver &driver, const QString &key, const QString &page) {
    driver.key(key).waitForWindow(viewer);
    driver.waitForFocus(u"pageView"_s);
    driver.waitUntil(u"the page "_s + page, [page] { return shown() && shown()->view->file() == page; });
}

// The editor is still open and keeps the typed text.
void askWhileEditing(TourDriver &driver) {
    giveFocus(driver, u"Grid1"_s);
    const int row = rowOf(driver, u"205"_s, u"$a"_s);
    openContent(driver, row);
    driver.key(u"End"_s).type(u" 1996"_s);
    const QString typed = driver.textOf(u"richText"_s);
    askHandbook(driver, u"editing.md"_s, u"editor"_s);
    waitForEditor(driver, u"richText"_s, row, 4);
    driver.expectEqual(driver.textOf(u"richText"_s), typed, u"what was being typed"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
}

// The import continues while the handbook is open and finishes after it.
void askWhileImporting(TourDriver &driver) {
    driver.key(u"alt+s"_s).waitForWindow(u"frmDaoRuJindu"_s);
    askHandbook(driver, u"import.md"_s, u"import"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 60000);
    driver.expectEqual(driver.textOf(u"labTishi"_s), u"本次成功处理的记录数：200"_s, u"imported"_s);
    driver.leave(u"alt+q"_s, u"frmDaoRuJindu"_s);
}

void askInWorkspace(TourDriver &driver) {
    driver.open(u"daoru"_s, u"frmSelectMFile"_s);
    choose(driver, u"sample.iso"_s);
    driver.waitForWindow(u"frmDaoru"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    askHandbook(driver, u"workspace.md"_s, u"workspace"_s);
    askWhileEditing(driver);
    askWhileImporting(driver);
    backToMain(driver);
}

// The handbook stays open and usable next to windows opened later, and the keyboard focus does not move.
void keepBeside(TourDriver &driver) {
    openHandbook(driver, u"alt+5"_s, u"start.md"_s); // of the start page
    driver.look([] { TourDriver::find(u"marcMain"_s)->activateWindow(); });
    driver.waitForWindow(u"marcMain"_s);
    driver.key(u"alt+1"_s).waitForWindow(u"frmSelectMFile"_s);
    driver.expect(driver.look([] { return shown() != nullptr; }), u"the handbook stays"_s);
    driver.look([] {
        if (shown())
            shown()->activateWindow(); // on a small screen the field is covered
    });
    driver.waitForWindow(viewer);
    driver.click(u"frmHandbook/findText"_s);
    paste(driver, u"导入"_s);
    driver.key(u"Return Return"_s);
    driver.waitUntil(u"a mark"_s, [] { return shown() && shown()->view->currentMark() >= 0; });
    driver.shot(u"handbook-search"_s);
    driver.key(u"ctrl+p"_s).waitForWindow(u"handbookPrint"_s, u"handbook-print"_s);
    driver.leave(u"Escape"_s, u"handbookPrint"_s);
    driver.waitForWindow(viewer);
    driver.leave(u"Escape"_s, viewer);
    driver.waitForWindow(u"frmSelectMFile"_s);
    driver.leave(u"alt+q"_s, u"frmSelectMFile"_s);
}

} // namespace

void askHandbook(TourDriver &driver, const QString &page, const QString &picture) {
    openHandbook(driver, u"F1"_s, page);
    driver.key(u"F1"_s); // in the handbook itself
    driver.expectEqual(driver.look([] { return shown() ? shown()->view->file() : QString(); }), page, u"F1 again"_s);
    driver.shot(u"handbook-" + picture);
    driver.leave(u"Escape"_s, viewer);
}

void handbook(TourDriver &driver) {
    askHandbook(driver, u"start.md"_s, u"main"_s);
    keepBeside(driver);
    askInWorkspace(driver);
}

} // namespace tour
