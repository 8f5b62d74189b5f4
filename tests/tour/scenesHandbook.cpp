// F1 in each window opens the handbook at that window's page; when the handbook closes, the window is unchanged.
#include "handbook/windows/frmHandbook.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"
#include <QLabel>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString viewer = u"frmHandbook"_s;

handbook::frmHandbook *shown() {
    return TourDriver::find<handbook::frmHandbook>(viewer);
}

void openHandbook(TourDriver &driver, const QString &key, const QString &page) {
    driver.key(key);
    driver.waitForWindow(viewer);
    driver.waitForFocus(u"pageView"_s);
    driver.waitUntil(u"the page "_s + page, [page] { return shown() && shown()->view->file() == page; });
}

// The editor is still open and keeps the typed text.
void askWhileEditing(TourDriver &driver) {
    giveFocus(driver, u"Grid1"_s);
    const int row = rowOf(driver, u"205"_s, u"$a"_s);
    openContent(driver, row);
    driver.key(u"End"_s);
    driver.type(u" 1996"_s);
    const QString typed = driver.textOf(u"richText"_s);
    askHandbook(driver, u"editing.md"_s, u"editor"_s);
    waitForEditor(driver, u"richText"_s, row, 4);
    driver.expectEqual(driver.textOf(u"richText"_s), typed, u"what was being typed"_s);
    driver.key(u"Escape"_s);
    waitUntilIdle(driver);
}

void askInAssistants(TourDriver &driver) {
    const int field100 = rowOf(driver, u"100"_s, u"$a"_s);
    for (const auto &[row, window] : {std::pair(1, u"frmHelpLR000"_s), std::pair(field100, u"frmHelpLR100"_s)}) {
        openContent(driver, row);
        driver.key(u"ctrl+e"_s);
        driver.waitForWindow(window);
        askHandbook(driver, u"assistants.md"_s, window);
        driver.leave(u"Escape"_s, window);
        waitUntilIdle(driver);
    }
}

void askInViews(TourDriver &driver) {
    driver.key(u"alt+k"_s);
    driver.waitForWindow(u"frmMarcKaPian"_s);
    askHandbook(driver, u"card.md"_s, u"card"_s);
    driver.leave(u"Escape"_s, u"frmMarcKaPian"_s);
    driver.key(u"alt+j"_s);
    driver.boxText();
    askHandbook(driver, u"workspace.md"_s, u"box"_s);
    driver.answerBox(u"校对通过"_s, u"Return"_s);
    driver.key(u"alt+d"_s);
    driver.waitForFocus(u"proofTable/grid"_s);
    askHandbook(driver, u"proof.md"_s, u"remarks"_s);
    driver.waitForFocus(u"proofTable/grid"_s);
    driver.key(u"F8"_s);
    driver.waitForFocus(u"Grid1"_s);
}

// The import continues while the handbook is open and finishes after it.
void askWhileImporting(TourDriver &driver) {
    driver.key(u"alt+s"_s);
    driver.waitForWindow(u"frmDaoRuJindu"_s);
    askHandbook(driver, u"import.md"_s, u"import"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 60000);
    driver.expectEqual(driver.textOf(u"labTishi"_s), u"本次成功处理的记录数：200"_s, u"imported"_s);
    driver.leave(u"alt+q"_s, u"frmDaoRuJindu"_s);
}

// Like askWhileImporting(), with a read that takes longer.
void askWhileReading(TourDriver &driver) {
    openSample(driver, u"large.iso"_s);
    driver.key(u"alt+a"_s);
    driver.waitForText(u"labJinDu"_s, u"正在继续预读......."_s);
    askHandbook(driver, u"workspace.md"_s, u"reading"_s);
    driver.waitForText(u"labJinDu"_s, u"预读结束"_s, 60000);
    driver.expectEqual(driver.textOf(u"Text3"_s), u"100000"_s, u"records read"_s);
    backToMain(driver);
}

void askInWorkspace(TourDriver &driver) {
    driver.open(u"daoru"_s, u"frmSelectMFile"_s);
    askHandbook(driver, u"workspace.md"_s, u"chooser"_s);
    choose(driver, u"sample.iso"_s);
    driver.waitForWindow(u"frmDaoru"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    askHandbook(driver, u"workspace.md"_s, u"workspace"_s);
    askWhileEditing(driver);
    askInAssistants(driver);
    askInViews(driver);
    askWhileImporting(driver);
    backToMain(driver);
}

void askInCatalogue(TourDriver &driver) {
    driver.open(u"daochu"_s, u"QueryFrm"_s);
    askHandbook(driver, u"query.md"_s, u"query"_s);
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
    askHandbook(driver, u"export.md"_s, u"catalogue"_s);
    driver.key(u"alt+s"_s);
    driver.waitForWindow(u"OrderbyFrm"_s);
    askHandbook(driver, u"query.md"_s, u"order"_s);
    driver.leave(u"Escape"_s, u"OrderbyFrm"_s);
    driver.key(u"alt+p"_s);
    driver.waitForWindow(u"DataReportJs"_s);
    askHandbook(driver, u"printing.md"_s, u"preview"_s);
    driver.leave(u"Escape"_s, u"DataReportJs"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
    driver.leave(u"alt+x"_s, u"ZSKListFrm"_s);
    driver.open(u"delete"_s, u"QueryFrmdel"_s);
    askHandbook(driver, u"query.md"_s, u"store-query"_s);
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"TLKListFrm"_s);
    askHandbook(driver, u"store.md"_s, u"store"_s);
    driver.leave(u"alt+q"_s, u"TLKListFrm"_s);
}

void askInFileTools(TourDriver &driver) {
    for (const auto &[button, window, page] :
         {std::tuple(u"chaifen"_s, u"frmCutFile"_s, u"split"_s), std::tuple(u"hebing"_s, u"frmUnionFile"_s, u"merge"_s),
          std::tuple(u"startTidy"_s, u"frmTidy"_s, u"tidy"_s)}) {
        driver.open(button, window);
        askHandbook(driver, page + u".md", page);
        driver.key(u"Escape"_s);
        if (window != u"frmTidy") // it asks only during a run
            driver.answerBox(closeQuestion.toString(), u"y"_s);
        driver.waitUntilGone(window);
    }
}

// The handbook stays open and usable next to windows opened later, and the keyboard focus does not move.
void keepBeside(TourDriver &driver) {
    openHandbook(driver, u"alt+5"_s, u"start.md"_s); // of the start page
    driver.look([] { TourDriver::find(u"marcMain"_s)->activateWindow(); });
    driver.waitForWindow(u"marcMain"_s);
    driver.key(u"alt+1"_s);
    driver.waitForWindow(u"frmSelectMFile"_s);
    driver.expect(driver.look([] { return shown() != nullptr; }), u"the handbook stays"_s);
    driver.click(u"frmHandbook/findText"_s);
    driver.waitForWindow(viewer);
    paste(driver, u"导入"_s);
    driver.key(u"Return Return"_s);
    driver.waitUntil(u"a mark"_s, [] { return shown()->view->currentMark() >= 0; });
    driver.shot(u"handbook-search"_s);
    driver.key(u"ctrl+p"_s);
    driver.waitForWindow(u"handbookPrint"_s, u"handbook-print"_s);
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
    askWhileReading(driver);
    askInCatalogue(driver);
    askInFileTools(driver);
}

} // namespace tour
