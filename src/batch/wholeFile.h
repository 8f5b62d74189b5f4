// Writes files that exist either completely or not at all.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QString>
#include <functional>

namespace batch {

class RemarkList;

// Replaces the file by the pieces that `nextPiece` returns until one is empty. The pieces are written to a new file
// next to it, which gets the name when it is complete; on failure the old file is unchanged. Fails if `path` is not a
// plain file.
platform::Status writeWholeFile(const QString &path, const std::function<QByteArray()> &nextPiece);

// Writes the shown rows as tab-separated UTF-8 text with a byte order mark, by which spreadsheets detect the encoding.
platform::Status saveRemarks(const QString &path, const RemarkList &remarks);

} // namespace batch
