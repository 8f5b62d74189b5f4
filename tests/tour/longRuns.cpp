#include "tour/longRuns.h"
#include "tour/errands.h"
#include <QDir>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

QString pathOf(const QString &file) {
    return QDir::currentPath() + u'/' + file;
}

void openWorkspace(TourDriver &driver, const QString &file) {
    openSample(driver, file);
    driver.key(u"alt+a"_s);
}

void read(TourDriver &driver, int) {
    openWorkspace(driver, u"large.iso"_s);
}

void import(TourDriver &driver, int) {
    openWorkspace(driver, u"medium.iso"_s);
    driver.waitForText(u"frmDaoru/labJinDu"_s, u"预读结束"_s);
    driver.key(u"alt+s"_s);
}

void exportCatalogue(TourDriver &driver, int round) {
    driver.click(u"daochu"_s);
    driver.waitForWindow(u"QueryFrm"_s);
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
    driver.key(u"alt+d"_s);
    enterFile(driver, u"导出书库数据为marc格式"_s, pathOf(u"monkey-export%1.iso"_s.arg(round)));
}

void split(TourDriver &driver, int round) {
    driver.click(u"chaifen"_s);
    driver.waitForWindow(u"frmCutFile"_s);
    const QStringList texts{pathOf(u"large.iso"_s), pathOf(u"monkey-split%1.iso"_s.arg(round)), u"5000"_s};
    for (const QString &name : {u"Text10"_s, u"Text11"_s, u"Text2"_s}) {
        giveFocus(driver, name);
        driver.type(texts[name == u"Text10" ? 0 : name == u"Text11" ? 1 : 2]);
    }
    driver.key(u"alt+d"_s);
}

void merge(TourDriver &driver, int round) {
    driver.click(u"hebing"_s);
    driver.waitForWindow(u"frmUnionFile"_s);
    for (const char *file : {"medium.iso", "large.iso", "medium.iso"}) {
        driver.key(u"alt+a"_s);
        enterFile(driver, u"选择文件对话框"_s, pathOf(QString::fromLatin1(file)));
    }
    driver.key(u"alt+o"_s);
    enterFile(driver, u"选择文件对话框"_s, pathOf(u"monkey-merge%1.iso"_s.arg(round)));
    driver.click(u"cmdClick0"_s);
}

} // namespace

const std::array<LongRun, 5> longRuns{{
    {"read", "frmDaoru", read},
    {"import", "frmDaoru", import},
    {"export", "ZSKListFrm", exportCatalogue},
    {"split", "frmCutFile", split},
    {"merge", "frmUnionFile", merge},
}};

} // namespace tour
