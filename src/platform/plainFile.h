// Opens only plain files and links to them. Opening anything else, such as a pipe or a device, could block for ever, so
// that the check itself must not block either.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QFileDevice>
#include <memory>

class QFile;

namespace platform {

// Opens the file unbuffered. Fails if it is missing, access is refused, or it is not a plain file.
Result<std::unique_ptr<QFile>> openPlainFile(const QString &path, QIODevice::OpenMode mode);

// Fails if something other than a plain file exists at the path; succeeds if nothing does.
Status mayBecomeFile(const QString &path);

// Returns the bytes of a plain file that has at most `limit` of them. Fails for a larger file, without reading much
// more than `limit` bytes, and for a missing one.
Result<QByteArray> readSmallFile(const QString &path, qint64 limit);

// Fails if something other than a plain file of at most `limit` bytes is at the path; a missing file is fine. For files
// that a library opens by their path.
Status smallOrMissing(const QString &path, qint64 limit);

// Makes the folder for files of the user alone if it is missing, and closes it to other accounts. Fails if the folder
// cannot be made or written to.
Status makeOwnerFolder(const QString &path);

inline constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// Makes an empty file that only its owner can read if there is none, and closes an existing file to other accounts.
Status makeOwnerFile(const QString &path);

// Writes the bytes. Returns those that could not be written.
QByteArrayView notTaken(QIODevice &device, QByteArrayView bytes);

} // namespace platform
