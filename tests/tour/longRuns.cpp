#include "tour/longRuns.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <csignal>
#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

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
    driver.open(u"daochu"_s, u"QueryFrm"_s);
    driver.key(u"alt+o"_s).waitForWindow(u"ZSKListFrm"_s);
    driver.key(u"alt+d"_s);
    enterFile(driver, exportTitle.toString(), pathOf(u"monkey-export%1.iso"_s.arg(round)));
}

void split(TourDriver &driver, int round) {
    driver.open(u"chaifen"_s, u"frmCutFile"_s);
    for (const auto &[box, text] : {std::pair(u"Text10"_s, pathOf(u"large.iso"_s)),
                                    {u"Text11"_s, pathOf(u"monkey-split%1.iso"_s.arg(round))},
                                    {u"Text2"_s, u"5000"_s}}) {
        giveFocus(driver, box);
        driver.type(text);
    }
    driver.key(u"alt+d"_s);
}

void merge(TourDriver &driver, int round) {
    driver.open(u"hebing"_s, u"frmUnionFile"_s);
    for (const char *file : {"medium.iso", "large.iso", "medium.iso"}) {
        driver.key(u"alt+a"_s);
        enterFile(driver, u"选择文件对话框"_s, pathOf(QString::fromLatin1(file)));
    }
    driver.key(u"alt+o"_s);
    enterFile(driver, u"选择文件对话框"_s, pathOf(u"monkey-merge%1.iso"_s.arg(round)));
    driver.click(u"cmdClick0"_s);
}

// Returns the number that is painted, which may be older than the number that the label holds.
int painted(const char *label) {
    const auto *found = TourDriver::find<widgets::PacedLabel>(QString::fromLatin1(label));
    const QString text = found ? found->QLabel::text() : QString();
    const qsizetype colon = text.indexOf(u'：');
    int digits = 0;
    while (colon + 1 + digits < text.size() && text[colon + 1 + digits].isDigit())
        ++digits;
    return text.mid(colon + 1, digits).toInt();
}

// Returns the number of complete records in the files, or -1 if anything but the end of the last record is malformed.
int wholeRecords(const QString &files) {
    const QDir folder;
    const QStringList names = folder.entryList({files});
    int records = 0;
    for (const QString &name : names) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            return -1;
        while (!file.atEnd()) {
            const QByteArray line = file.readLine();
            if (!line.endsWith("\x1d\r\n") || line.count('\x1d') != 1)
                return line.endsWith('\n') ? -1 : records; // the last record may be cut off
            ++records;
        }
    }
    return records;
}

} // namespace

const std::array<LongRun, 5> longRuns{{
    {"read", "frmDaoru", read},
    {"import", "frmDaoru", import},
    {"export", "ZSKListFrm", exportCatalogue, "labDaochu", "monkey-export*.iso"},
    {"split", "frmCutFile", split, "labShuDo", "monkey-split*.iso"},
    {"merge", "frmUnionFile", merge},
}};

void playUntilKilled(TourDriver &driver, const QString &run) {
    const auto *killed =
        std::ranges::find_if(longRuns, [&](const LongRun &row) { return run == QLatin1StringView(row.name); });
    runProgram(driver, [&](TourDriver &at) {
        closeNotice(at);
        if (run == u"export")
            enlargeCatalogue(at);
        killed->begin(at, 1);
        at.waitUntil(u"some records"_s, [&] {
            if (const int told = painted(killed->label); told > 5000) {
                std::printf("%d\n", told);
                std::fflush(stdout);
                ::kill(::getpid(), SIGKILL);
            }
            return false;
        });
    });
}

void kills(TourDriver &driver) {
    for (const LongRun &row : longRuns) {
        if (!row.files)
            continue;
        const QString name = QString::fromLatin1(row.name);
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QApplication::applicationFilePath(), {QDir::tempPath(), u"--kill"_s, name});
        driver.expect(process.waitForFinished(120000) && process.exitStatus() == QProcess::CrashExit,
                      u"a kill in mid-" + name);
        const int told = process.readAllStandardOutput().trimmed().toInt();
        const int held = wholeRecords(QString::fromLatin1(row.files));
        driver.expect(told > 5000 && held >= told,
                      u"%1 killed: %2 told, %3 in the file"_s.arg(name).arg(told).arg(held));
    }
}

} // namespace tour
