#include "card/windows/frmMarcKaPian.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QClipboard>
#include <QFile>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QString viewer = u"frmMarcKaPian"_s;

// A wrong check digit, after it the right one.
void proof(TourDriver &driver) {
    driver.key(u"alt+j"_s);
    driver.answerBox(u"校对通过"_s, u"Return"_s, u"proof-passed"_s);
    driver.clickCell(u"Grid1"_s, 1, 1);
    const int isbn = rowOf(driver, u"010"_s, u"$a"_s);
    retype(driver, isbn, u"7-5366-1234-5"_s);
    driver.key(u"alt+j"_s);
    driver.waitForWindow(u"frmMessage"_s, u"proof-report"_s);
    driver.waitForText(u"messageText"_s, u"【010$a】Error:ISBN号校验位错误"_s);
    const QString file = QCoreApplication::applicationDirPath() + u"/errorlog.txt";
    driver.key(u"alt+s"_s);
    driver.answerBox(u"报告列表保存在文件" + file + u"中", u"Return"_s, u"report-saved"_s);
    driver.expect(QFile::remove(file), file);
    driver.leave(u"alt+q"_s, u"frmMessage"_s);
    driver.clickCell(u"Grid1"_s, 1, 1);
    retype(driver, isbn, u"7-5366-1234-6"_s);
}

// The card and the standard view; what is copied from this is the record itself, separators and all.
void views(TourDriver &driver) {
    driver.key(u"alt+k"_s);
    driver.waitForWindow(viewer, u"card"_s);
    const QString card = driver.textOf(u"Text1"_s);
    driver.expect(card.startsWith(u"\n\n  红楼梦／(清)曹雪芹,(清)高鹗著；中国艺术研究院"), u"the card: " + card);
    driver.expect(card.contains(u"\n  ISBN 7-5366-1234-6") && card.contains(u"\n  Ⅰ.①红···②中···Ⅱ."),
                  u"the edited number and the tracing line: " + card);
    driver.leave(u"Escape"_s, viewer);
    driver.key(u"alt+b"_s);
    driver.waitForWindow(viewer, u"standard"_s);
    driver.click(u"Text1"_s);
    driver.key(u"ctrl+a ctrl+c"_s);
    driver.expect(driver.look([] {
        const auto *window = TourDriver::find<card::frmMarcKaPian>(viewer);
        return !window->marcRecord.isEmpty() && QGuiApplication::clipboard()->text() == window->marcRecord;
    }),
                  u"the copied record"_s);
    driver.key(u"alt+k"_s);
    driver.waitForText(u"Text1"_s, card);
    driver.leave(u"alt+q"_s, viewer);
}

} // namespace

void proofAndCard(TourDriver &driver) {
    openSample(driver, u"sample.iso"_s);
    driver.waitForText(u"Text3"_s, u"200"_s);
    proof(driver);
    views(driver);
    backToMain(driver);
}

} // namespace tour
