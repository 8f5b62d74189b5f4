// What may be opened as a file: a plain one, or a link to one. Anything else could keep us waiting for ever, so that
// looking at it must not wait either.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>
#include <memory>

class QFile;

namespace platform {

// Opened without a buffer; fails for what is missing, refused or no plain file.
Result<std::unique_ptr<QFile>> openPlainFile(const QString &path, QIODevice::OpenMode mode);

// Whether a file may stand at that path: nothing does, or a plain file.
Status mayBecomeFile(const QString &path);

// The bytes of a plain file that has no more than `limit` of them; fails for a larger one after reading no more than
// that. A missing file is a failure too.
Result<QByteArray> readSmallFile(const QString &path, qint64 limit);

// Whether something other than a plain file of at most `limit` bytes is at that path; nothing at all is fine. For files
// that a library opens by their path.
Status smallOrMissing(const QString &path, qint64 limit);

// The folder for files that concern the user alone: made where it is missing, and closed to other accounts. Fails where
// it cannot be made or written to.
Status makeOwnerFolder(const QString &path);

// An empty file that only its owner can read, made where there is none; one that is there is closed to other accounts.
Status makeOwnerFile(const QString &path);

// Writes the bytes; what is left of them where the machine takes no more.
QByteArrayView notTaken(QIODevice &device, QByteArrayView bytes);

} // namespace platform
