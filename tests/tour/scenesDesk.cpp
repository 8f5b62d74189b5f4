// Features of the workspace other than editing: facts about the file, finding, a whole text, the proof of the whole
// list and its filter.
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QFile>
#include <tuple>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

workspace::frmDaoru *room() {
    return TourDriver::find<workspace::frmDaoru>(u"frmDaoru"_s);
}

// A file of which the program reads only a part: two records on one line.
void tellOfAFile(TourDriver &driver) {
    QFile sample(pathOf(u"five.iso"_s)), joined(pathOf(u"joined.iso"_s));
    if (sample.open(QIODevice::ReadOnly) && joined.open(QIODevice::WriteOnly))
        joined.write(sample.readAll().replace("\x1D\r\n", "\x1D"));
    joined.close();
    driver.open(u"daoru"_s, u"frmSelectMFile"_s);
    giveFocus(driver, u"Text1"_s);
    driver.type(pathOf(u"joined.iso"_s));
    driver.waitUntil(u"the facts"_s, [] {
        auto *tidy = TourDriver::find(u"cmdTidy"_s);
        return tidy && tidy->isVisible();
    });
    driver.shot(u"chooser-facts"_s);
    driver.leave(u"alt+q"_s, u"frmSelectMFile"_s);
}

void find(TourDriver &driver) {
    giveFocus(driver, u"Grid2"_s);
    driver.key(u"F3"_s).waitForFocus(u"findText"_s);
    paste(driver, u"北京"_s);
    driver.waitUntil(u"hits"_s, [] { return room()->findLine->findCount->text().endsWith(u" 条"); });
    driver.key(u"F3"_s);
    driver.waitUntil(u"the next hit"_s, [] { return room()->Grid2->row() > 0; });
    driver.shot(u"find"_s);
    driver.key(u"Escape"_s).waitForFocus(u"Grid2"_s);
    driver.key(u"alt+w"_s);
    driver.waitUntil(u"the whole text"_s, [] { return room()->room->wholeText->isVisible(); });
    driver.shot(u"whole-text"_s);
    driver.key(u"alt+w"_s);
}

// From the pane of remarks: the report in all its forms, and the choice of the schema.
void report(TourDriver &driver) {
    const QString window = u"frmBatchReport"_s;
    driver.key(u"alt+g"_s).waitForWindow(window);
    driver.waitUntil(u"the report"_s, [] {
        const auto *save = TourDriver::find<widgets::Button>(u"pdfButton"_s);
        return save && save->isEnabled();
    });
    driver.shot(u"batch-report"_s);
    driver.key(u"alt+g"_s).shot(u"batch-report-rules"_s);
    driver.key(u"alt+c"_s).shot(u"batch-report-draw"_s);
    for (const auto &[key, title, file] :
         {std::tuple(u"alt+d"_s, u"存为 PDF"_s, u"report.pdf"_s), {u"alt+w"_s, u"存为网页"_s, u"report.html"_s}}) {
        driver.key(key);
        enterFile(driver, title, pathOf(file));
        driver.waitForText(u"state"_s, u"已保存到 "_s + pathOf(file));
    }
    driver.key(u"alt+p"_s).waitForWindow(u"batchReportPrint"_s, u"batch-report-print"_s);
    driver.leave(u"Escape"_s, u"batchReportPrint"_s);
    driver.waitForWindow(window);
    askHandbook(driver, u"report.md"_s, u"report"_s);
    driver.leave(u"alt+q"_s, window);
    driver.key(u"alt+u"_s).waitForWindow(u"frmSchema"_s, u"schema"_s);
    driver.leave(u"alt+q"_s, u"frmSchema"_s);
}

void proofAll(TourDriver &driver) {
    driver.key(u"alt+d"_s);
    driver.waitUntil(u"the end of the proof"_s, [] {
        auto *words = TourDriver::find<QLabel>(u"proofTable/words"_s);
        return words && words->text().startsWith(u"校对 ") && words->text().contains(u"发现");
    });
    driver.waitForFocus(u"proofTable/grid"_s);
    driver.shot(u"remarks"_s);
    report(driver);
    driver.waitForFocus(u"proofTable/grid"_s);
    driver.key(u"alt+f Down"_s).shot(u"remarks-filtered"_s);
    driver.key(u"Up Escape"_s).waitForFocus(u"Grid1"_s);
    driver.key(u"F8"_s).waitForFocus(u"proofTable/grid"_s);
    driver.key(u"F8"_s).waitForFocus(u"Grid1"_s);
    driver.expect(driver.look([] { return TourDriver::find(u"remarksPane"_s) == nullptr; }), u"the pane is hidden"_s);
    driver.key(u"F4 F4"_s);
    driver.waitUntil(u"the second remark"_s, [] { return room()->labStatus->text().contains(u"2/"); });
    driver.shot(u"remark-step"_s);
}

void filterList(TourDriver &driver) {
    driver.look([] { TourDriver::find(u"filterBox"_s)->setFocus(); });
    driver.key(u"Down"_s).shot(u"filtered"_s);
    driver.expect(driver.textOf(u"filterBox"_s).startsWith(u"只看有问题的："), u"the filter counts"_s);
    driver.key(u"alt+k"_s).waitForWindow(u"frmMarcKaPian"_s);
    driver.key(u"Right"_s).shot(u"next-card"_s);
    driver.leave(u"alt+q"_s, u"frmMarcKaPian"_s);
    driver.look([] { TourDriver::find(u"filterBox"_s)->setFocus(); });
    driver.key(u"Up"_s);
}

} // namespace

void deskGifts(TourDriver &driver) {
    tellOfAFile(driver);
    openSample(driver, u"sample.iso"_s);
    find(driver);
    proofAll(driver);
    filterList(driver);
    backToMain(driver);
}

} // namespace tour
