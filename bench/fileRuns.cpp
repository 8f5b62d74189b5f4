#include "fileRuns.h"
#include "filetools/windows/frmCutFile.h"
#include "filetools/windows/frmUnionFile.h"
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

qint64 sizeOf(const QString &folder) {
    qint64 size = 0;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        size += file.size();
    return size;
}

} // namespace

std::optional<double> intoFolder(const BenchStage &stage, const RecordFile &source,
                                 const std::function<std::optional<double>(QString)> &round) {
    const QString folder = stage.freshFolder(u"split");
    auto taken = round(folder);
    if (sizeOf(folder) < QFileInfo(source.path).size() - 2 * source.records) // other tools omit the line ends
        taken.reset();
    emptyFiles(folder);
    return taken;
}

void emptyFiles(const QString &folder) {
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        QFile::resize(file.filePath(), 0);
}

Side commandIntoFolder(const BenchStage &stage, const RecordFile &source, const QString &line) {
    return [=] {
        return intoFolder(stage, source, [&line](const QString &folder) {
            return command(u"cd " + quoted(folder) + u" && " + line)();
        });
    };
}

std::optional<double> splitInWindow(const QString &source, const QString &folder) {
    BenchHost host;
    filetools::frmCutFile window(host, [](const QString &) {});
    window.Text1[0]->setText(source);
    window.Text1[1]->setText(folder + u"/target.iso");
    window.Text2->setText(QString::number(perFile));
    putUp(window);
    return timed([&window] {
        window.cmdclick[0]->click();
        settle();
        return true;
    });
}

std::optional<double> mergeInWindow(const QStringList &sources, const QString &folder) {
    BenchHost host;
    filetools::frmUnionFile window(host, [](const QString &) {});
    window.List1->addItems(sources);
    window.Text1->setText(folder + u"/target.iso");
    putUp(window);
    return timed([&window] {
        window.cmdClick[0]->click();
        settle();
        return true;
    });
}

QStringList partsOf(const BenchStage &stage, const RecordFile &source) {
    const QString folder = stage.freshFolder(u"parts");
    splitInWindow(source.path, folder);
    QStringList parts;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files, QDir::Name))
        parts.append(file.filePath());
    return parts;
}

} // namespace bench
