// What the program remembers between starts and could do without: sizes, drawn widths, the files used last, drafts. It
// stands in the user's state folder, apart from the settings. A file that is damaged or cannot be written is the same
// as one that says nothing: nobody is kept from work by it.
#pragma once

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

    // A folder beside the state for files of one kind, made where it is missing; with a separator at its end. Empty
    // where it cannot be made.
    QString folderFor(const QString &kind) const;

private:
    QString m_folder;
};

} // namespace platform
