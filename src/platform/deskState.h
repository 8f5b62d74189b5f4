// What the program remembers between starts: sizes, drawn widths, the files used last, and folders for drafts. It is
// kept in the user's state folder, apart from the settings, and no other account can read it. Sizes and the like can be
// done without: where their file is damaged, too large, not a plain file or cannot be written, nothing is remembered,
// and nothing is reported. A folder that cannot be made is reported by folderFor().
#pragma once

#include "platform/result.h"
#include <QString>
#include <QVariant>

namespace platform {

class DeskState {
public:
    // The state of the user; or, for tests and tools, one in a folder of their own.
    DeskState();
    explicit DeskState(const QString &folder);

    // `key` as "frmDaoru/geometry". Nothing is kept under a key by default.
    QVariant read(const QString &key) const;
    void keep(const QString &key, const QVariant &value) const;

    // A folder in the state folder for files of one kind, made where it is missing; with a separator at its end. Fails
    // where it cannot be made or written to.
    Result<QString> folderFor(const QString &kind) const;

private:
    QString file() const;

    QString m_folder;
};

} // namespace platform
