#include "card/windows/frmMarcKaPian.h"
#include "platform/codepage936.h"
#include "tour/errands.h"
#include "tour/gridErrands.h"
#include "tour/scenes.h"
#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString viewer = u"frmMarcKaPian"_s;

void closeReport(TourDriver &driver) {
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"frmMessage"_s);
}

// A wrong check digit, after it the right one.
void proof(TourDriver &driver) {
    driver.clickCell(u"Grid1"_s, 1, 1);
    const int isbn = rowOf(driver, u"010"_s, u"$a"_s);
    retype(driver, isbn, u"7-5366-1234-5"_s);
    driver.key(u"alt+j"_s);
    if (driver.waitForWindow(u"frmMessage"_s)) {
        const QString report = driver.textOf(u"messageText"_s);
        driver.expect(report.contains(u"【010$a】Error:ISBN号校验位错误"), u"the report: " + report);
        driver.shot(u"proof-report"_s);
        const QString file = QCoreApplication::applicationDirPath() + u"/errorlog.txt";
        QFile::remove(file);
        driver.key(u"alt+s"_s);
        driver.answerBox(u"报告列表保存在文件" + file + u"中", u"Return"_s, u"report-saved"_s);
        QFile saved(file);
        driver.expect(saved.open(QIODevice::ReadOnly), file);
        QString lines = report;
        lines = lines.replace(u'\n', u"\r\n"_s) + u"\r\n";
        driver.expect(saved.readAll() == platform::encode(lines), u"the bytes of the saved report"_s);
        saved.remove();
        closeReport(driver);
    }
    driver.clickCell(u"Grid1"_s, 1, 1);
    retype(driver, isbn, u"7-5366-1234-6"_s);
}

void showCard(TourDriver &driver) {
    driver.key(u"alt+k"_s);
    if (!driver.waitForWindow(viewer))
        return;
    const QString card = driver.textOf(u"Text1"_s);
    driver.expect(card.startsWith(u"\n\n  红楼梦／(清)曹雪芹,(清)高鹗著；中国艺术研究院"), u"the card: " + card);
    driver.expect(card.contains(u"\n  ISBN 7-5366-1234-6") && card.contains(u"\n  Ⅰ.①红···②中···Ⅱ."),
                  u"the edited number and the tracing line: " + card);
    driver.shot(u"card"_s);
    driver.key(u"alt+b"_s);
    driver.waitUntil(u"standard view"_s, [] {
        const auto *window = TourDriver::find<card::frmMarcKaPian>(viewer);
        return window && window->Text1->text() == window->marcRecord && !window->marcRecord.isEmpty();
    });
    driver.shot(u"standard"_s);
    driver.key(u"alt+k"_s);
    driver.waitForText(u"Text1"_s, card);
    driver.key(u"Escape"_s);
    driver.waitUntilGone(viewer);
}

// What is copied from the standard view is the record itself, separators and all.
void showStandard(TourDriver &driver) {
    driver.key(u"alt+b"_s);
    if (!driver.waitForWindow(viewer))
        return;
    driver.click(u"Text1"_s);
    driver.key(u"ctrl+a"_s);
    driver.key(u"ctrl+c"_s);
    const QString record = driver.look([] { return TourDriver::find<card::frmMarcKaPian>(viewer)->marcRecord; });
    driver.expectEqual(clipboard(driver), record, u"the copied record"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(viewer);
}

} // namespace

void proofAndCard(TourDriver &driver) {
    openSample(driver, u"sample.iso"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    driver.key(u"alt+j"_s);
    driver.answerBox(u"校对通过"_s, u"Return"_s, u"proof-passed"_s);
    proof(driver);
    showCard(driver);
    showStandard(driver);
    closeWorkspace(driver);
    driver.waitForWindow(u"frmSelectMFile"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"frmSelectMFile"_s);
}

} // namespace tour
