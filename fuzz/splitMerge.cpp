// Split and merge of arbitrary files, compared with a simple model. The input is the file followed by three bytes: the
// number of records per part, the position where a second source begins, and the number of bytes to put before the
// file, so that the first read block ends within its first few hundred bytes.
#include "filetools/mergeRun.h"
#include "filetools/splitRun.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "marc/recordCutter.h"
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace filetools;

namespace fuzz {

namespace {

constexpr qsizetype block = 1 << 19;

// Returns the lines of a file, each ended by a carriage return or CR LF, and the remainder if there is one.
QList<QByteArray> linesOf(const QByteArray &file) {
    QList<QByteArray> lines;
    qsizetype from = 0;
    for (qsizetype at; (at = file.indexOf('\r', from)) >= 0; from += from < file.size() && file[from] == '\n') {
        lines.append(file.sliced(from, at - from));
        from = at + 1;
    }
    if (from < file.size())
        lines.append(file.sliced(from));
    return lines;
}

// Returns the records of a file, each with the line end that split and merge write.
QList<QByteArray> recordsOf(const QByteArray &file) {
    QList<QByteArray> records;
    QByteArray begun;
    for (const QByteArray &line : linesOf(file)) {
        const qsizetype end = line.indexOf('\x1D');
        begun += line.left(end < 0 ? line.size() : end + 1);
        if (end < 0)
            continue;
        records.append(begun + "\r\n");
        begun.clear();
    }
    return records;
}

QByteArray contents(const QString &path) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "the written file can be opened");
    return file.readAll();
}

void checkSplit(const QString &source, const QList<QByteArray> &records, int limit) {
    const auto target = targetPattern(scratchFolder() + u"part.iso");
    SplitRun run(source, *target);
    const QString most = QString::number(limit);
    bool good = run.open().ok();
    for (bool more = good; good && more;) {
        const auto found = run.next();
        good = found.ok();
        more = good && found.value();
        if (more)
            good = run.write(most).ok();
    }
    require(good && run.close(most).ok(), "the split finishes");
    require(run.total() == records.size(), "the split counts its records");
    const qsizetype parts = std::max<qsizetype>(1, (records.size() + limit - 1) / limit);
    const QStringList files = target->existing();
    require(files.size() == parts || files.size() == parts + 1, "as many parts as needed, and at most one empty part");
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString path = target->numbered(TargetPattern::firstNumber + int(i));
        require(contents(path) == records.mid(i * limit, limit).join(), "a part holds its records");
        QFile::remove(path);
    }
    require(run.report().count(u"}保存了"_s) == (records.size() + limit - 1) / limit,
            "the report has a line for each part");
}

void checkMerge(const QStringList &sources, const QByteArray &wanted, qsizetype count) {
    const QString target = scratchFolder() + u"merged.iso";
    MergeRun run(target);
    bool good = run.open().ok();
    for (const QString &source : sources) {
        good = good && run.openSource(source).ok();
        for (bool more = good; good && more;) {
            const auto found = run.next();
            good = found.ok();
            more = good && found.value();
            if (more)
                good = run.write().ok();
        }
        run.closeSource();
    }
    require(good && run.close().ok(), "the merge finishes");
    require(run.total() == count, "the merge counts its records");
    require(contents(target) == wanted, "the merged file holds the records of the sources");
}

} // namespace

void splitMerge(QByteArrayView bytes) {
    Input end(bytes.last(std::min<qsizetype>(3, bytes.size())));
    const QByteArray file = bytes.chopped(std::min<qsizetype>(3, bytes.size())).toByteArray();
    const int atLeast = 1 + end.below(7);
    const qsizetype second = file.size() * end.byte() / 256;
    const int ahead = end.byte();
    const QByteArray stretch = ahead % 4 == 3 ? QByteArray(block - ahead, 'x') : QByteArray();

    const QByteArray whole = stretch + file;
    const QString wholePath = scratchFile(u"whole", whole);
    const QList<QByteArray> records = recordsOf(whole);
    const auto lines = marc::lineCount(wholePath);
    require(lines.ok() && lines.value() == linesOf(whole).size(), "the line count equals the number of lines read");
    // TargetPattern::existing() finds at most a hundred parts.
    checkSplit(wholePath, records, std::max(atLeast, int(records.size() / 99) + 1));

    const QByteArray tail = file.sliced(second);
    const QList<QByteArray> more = recordsOf(tail);
    checkMerge({wholePath, scratchFile(u"tail", tail), wholePath}, records.join() + more.join() + records.join(),
               2 * records.size() + more.size());
}

} // namespace fuzz
