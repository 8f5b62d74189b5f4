#include "batch/wholeFile.h"
#include "batch/remark.h"
#include "platform/byteFile.h"
#include <utility>

namespace batch {

platform::Status writeWholeFile(const QString &path, const std::function<QByteArray()> &nextPiece) {
    auto file = platform::SavedFile::create(path);
    if (!file)
        return file.failure();
    for (QByteArray piece = nextPiece(); !piece.isEmpty(); piece = nextPiece())
        if (const platform::Status written = file.value().write(piece); !written)
            return written;
    return file.value().commit();
}

platform::Status saveRemarks(const QString &path, const RemarkList &remarks) {
    QByteArray bytes = (QChar(QChar::ByteOrderMark) + remarks.tabSeparated(u"\r\n")).toUtf8();
    return writeWholeFile(path, [&bytes] { return std::exchange(bytes, {}); });
}

} // namespace batch
