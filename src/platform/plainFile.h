// What may be opened as a file: a plain one, or a link to one. Anything else could keep us waiting for ever, so that
// looking at it must not wait either.
#pragma once

#include "platform/result.h"
#include <QByteArrayView>
#include <QIODevice>
#include <memory>

class QFile;

namespace platform {

// Opened without a buffer; fails for what is missing, refused or no plain file.
Result<std::unique_ptr<QFile>> openPlainFile(const QString &path, QIODevice::OpenMode mode);

// Whether a file may stand at that path: nothing does, or a plain file.
Status mayBecomeFile(const QString &path);

// Writes the bytes; what is left of them where the machine takes no more.
QByteArrayView notTaken(QIODevice &device, QByteArrayView bytes);

} // namespace platform
