#include "platform/codepage936.h"
#include "tidy/windows/frmTidy.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include "widgets/selectingEdit.h"
#include <QFile>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

void writeFile(const QString &name, const QByteArray &bytes) {
    QFile file(pathOf(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

// Writes the sample as other systems send it: UTF-8 without line ends, with characters that the code page lacks.
int makeForeign() {
    QFile sample(pathOf(u"sample.iso"_s));
    if (!sample.open(QIODevice::ReadOnly))
        return 0;
    QString text = platform::decode(sample.readAll());
    const int rare = int(text.count(u'文'));
    writeFile(u"foreign.iso"_s, text.remove(u"\r\n"_s).replace(u"文"_s, u"𠮷"_s).toUtf8());
    return rare;
}

void waitForResult(TourDriver &driver, const QString &part) {
    driver.waitUntil(u"the result tells "_s + part, [part] {
        const auto *box = TourDriver::find<widgets::TextBox>(u"txtResult"_s);
        return box && box->text().contains(part);
    });
}

void tidyForeign(TourDriver &driver) {
    driver.waitUntil(u"the facts"_s, [] {
        return TourDriver::find<QLabel>(u"LabFacts"_s)->accessibleName().endsWith(u"将读出 1 条"_s);
    });
    driver.expectEqual(driver.textOf(u"Text11"_s), pathOf(u"foreign-gbk.iso"_s), u"a name beside the source's"_s);
    driver.shot(u"tidy-facts"_s);
    driver.key(u"alt+d"_s);
    const int records = recordsIn(pathOf(u"sample.iso"_s));
    waitForResult(driver, u"保存了%1条记录！"_s.arg(records));
    driver.expect(recordsIn(pathOf(u"foreign-gbk.iso"_s)) == records, u"all records are read now"_s);
    driver.shot(u"tidy-done"_s);
    driver.key(u"alt+d"_s);
    driver.answerBox(pathOf(u"foreign-gbk.iso"_s) + u"已经存在。要替换吗？", u"Return"_s, u"tidy-replace"_s); // No
}

// Cleans a supplier's file by a ready task, file to file.
void tidyByTask(TourDriver &driver) {
    giveFocus(driver, u"Text10"_s);
    driver.key(u"ctrl+a"_s).type(pathOf(u"supplier.iso"_s));
    driver.key(u"alt+t Down alt+d"_s);
    waitForResult(driver, u"任务“供应商数据清理”改了"_s);
    driver.shot(u"tidy-task"_s);
    driver.expect(recordsIn(pathOf(u"supplier-gbk.iso"_s)) == recordsIn(pathOf(u"supplier.iso"_s)),
                  u"all records are written"_s);
}

} // namespace

void tidy(TourDriver &driver) {
    const int rare = makeForeign();
    driver.key(u"alt+4"_s); // of the start page
    driver.waitForWindow(u"frmTidy"_s);
    giveFocus(driver, u"Text10"_s);
    driver.type(pathOf(u"foreign.iso"_s));
    tidyForeign(driver);
    driver.expect(driver.textOf(u"txtResult"_s).contains(u"𠮷（U+20BB7）：%1 处"_s.arg(rare)),
                  u"the lost characters are listed"_s);
    tidyByTask(driver);
    driver.key(u"Escape"_s).waitUntilGone(u"frmTidy"_s);
}

} // namespace tour
