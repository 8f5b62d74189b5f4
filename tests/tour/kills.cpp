#include "tour/kills.h"
#include "tour/errands.h"
#include "tour/longRuns.h"
#include "tour/scenes.h"
#include "tour/tourProgram.h"
#include "widgets/pacedLabel.h"
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

struct Killed {
    const char *run;
    const char *label; // that tells how far it is
    const char *files; // which it writes
};

constexpr Killed both[] = {{"split", "labShuDo", "monkey-split*.iso"}, {"export", "labDaochu", "monkey-export*.iso"}};

// The number that is painted, which is behind the one that the label holds.
int painted(const char *label) {
    const auto *found = TourDriver::find<widgets::PacedLabel>(QString::fromLatin1(label));
    const QString text = found ? found->QLabel::text() : QString();
    const qsizetype colon = text.indexOf(u'：');
    int digits = 0;
    while (colon + 1 + digits < text.size() && text[colon + 1 + digits].isDigit())
        ++digits;
    return text.mid(colon + 1, digits).toInt();
}

// Whole records in the files, and not a byte of another in front of the last one's end.
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
                return line.endsWith('\n') ? -1 : records; // the last may be torn
            ++records;
        }
    }
    return records;
}

} // namespace

void playUntilKilled(TourDriver &driver, const QString &run) {
    const auto *killed =
        std::ranges::find_if(both, [&](const Killed &row) { return run == QLatin1StringView(row.run); });
    const auto *begun =
        std::ranges::find_if(longRuns, [&](const LongRun &row) { return run == QLatin1StringView(row.name); });
    runProgram(driver, [&](TourDriver &at) {
        closeNotice(at);
        if (run == u"export")
            enlargeCatalogue(at);
        begun->begin(at, 1);
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
    for (const Killed &row : both) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QApplication::applicationFilePath(),
                      {QDir::tempPath(), u"--kill"_s, QString::fromLatin1(row.run)});
        driver.expect(process.waitForFinished(120000) && process.exitStatus() == QProcess::CrashExit,
                      u"a kill in mid-"_s + QLatin1StringView(row.run));
        const int told = process.readAllStandardOutput().trimmed().toInt();
        const int held = wholeRecords(QString::fromLatin1(row.files));
        driver.expect(told > 5000 && held >= told,
                      u"%1 killed: %2 told, %3 in the file"_s.arg(QLatin1StringView(row.run)).arg(told).arg(held));
    }
}

} // namespace tour
