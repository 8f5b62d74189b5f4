// What the program remembers between starts: window sizes, column widths set by the user, the files used last, and
// folders for drafts. It is kept in the user's state folder, apart from the settings, and no other account can read it.
// The remembered values are optional: if their file is damaged, too large, not a plain file or cannot be written,
// nothing is remembered and nothing is reported. folderFor() does report a folder that cannot be made.
#pragma once

#include "platform/result.h"
#include <QString>
#include <QVariant>

namespace platform {

class DeskState {
public:
    // The state of the user, or, for tests and tools, a state kept in `folder`.
    DeskState();
    explicit DeskState(const QString &folder);

    // `key` is written like "frmDaoru/geometry". read() returns an invalid value if nothing is kept under the key.
    QVariant read(const QString &key) const;
    void keep(const QString &key, const QVariant &value) const;

    // Returns the path of the folder `kind` in the state folder, with a separator at its end, and makes it if missing.
    // Fails if it cannot be made or written to.
    Result<QString> folderFor(const QString &kind) const;

private:
    QString file() const;

    QString m_folder;
};

} // namespace platform
