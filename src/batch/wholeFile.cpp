#include "batch/wholeFile.h"
#include "batch/remark.h"
#include <QFileInfo>
#include <QSaveFile>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

platform::Status writeWholeFile(const QString &path, const std::function<QByteArray()> &nextPiece) {
    if (const QFileInfo standing(path); standing.exists() && !standing.isFile())
        return platform::Failure{path + u" 不是文件"};
    QSaveFile file(path);
    // Unbuffered, since commit() does not see that the last of a buffer had no room.
    bool whole = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    for (QByteArray piece; whole && !(piece = nextPiece()).isEmpty();)
        for (qsizetype at = 0; whole && at < piece.size();) {
            const qint64 written = file.write(piece.constData() + at, piece.size() - at);
            whole = written > 0;
            at += written;
        }
    if (whole && file.commit())
        return platform::success();
    return platform::Failure{file.errorString(), int(file.error())};
}

platform::Status saveRemarks(const QString &path, const RemarkList &remarks) {
    QByteArray bytes = (QChar(QChar::ByteOrderMark) + remarks.tabSeparated(u"\r\n")).toUtf8();
    return writeWholeFile(path, [&bytes] { return std::exchange(bytes, {}); });
}

} // namespace batch
