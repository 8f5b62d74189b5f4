// Files that stand whole under their name or not at all.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QString>
#include <functional>

namespace batch {

class RemarkList;

// Replaces the file by the pieces, taken until one is empty. The new file is made beside the old one and takes its name
// when it is whole; where that fails the old one stays as it was. Fails for what is no plain file.
platform::Status writeWholeFile(const QString &path, const std::function<QByteArray()> &nextPiece);

// The rows shown as tab-separated text in UTF-8, with the mark at its start by which spreadsheets tell the encoding.
platform::Status saveRemarks(const QString &path, const RemarkList &remarks);

} // namespace batch
