#include "platform/recentFiles.h"
#include "platform/paths.h"
#include <QFileInfo>
#include <algorithm>

namespace platform {

namespace {
constexpr qsizetype mostFiles = 10;

// Returns the last `count` folders of a path, or all if there are fewer, with "/" between them.
QString lastFolders(const QString &path, qsizetype count) {
    const QStringList folders = QFileInfo(path).path().split(u'/');
    return folders.mid(folders.size() - count).join(u'/');
}

// Returns how many of its last folders distinguish a file from the others with its name; 0 if no other has it.
qsizetype foldersNeeded(const QString &path, const QStringList &paths) {
    qsizetype needed = 0;
    for (const QString &other : paths) {
        if (other == path || QFileInfo(other).fileName() != QFileInfo(path).fileName())
            continue;
        needed = std::max<qsizetype>(needed, 1);
        while (lastFolders(path, needed) == lastFolders(other, needed) && needed < path.count(u'/'))
            ++needed;
    }
    return needed;
}

} // namespace

QStringList recentNames(const QStringList &paths) {
    QStringList names;
    for (const QString &path : paths) {
        const qsizetype folders = foldersNeeded(path, paths);
        const QString name = QFileInfo(path).fileName();
        names.append(folders == 0 ? name : QString(name + u'（' + lastFolders(path, folders) + u'）'));
    }
    return names;
}

QStringList recentFiles(const DeskState &state) {
    QStringList files = state.value(kept::recentFiles);
    files.removeIf([](const QString &path) { return !fileExists(path); });
    return files.mid(0, mostFiles);
}

void noteRecentFile(const DeskState &state, const QString &path) {
    QStringList files = recentFiles(state);
    const QString whole = QFileInfo(path).absoluteFilePath();
    files.removeAll(whole);
    files.prepend(whole);
    state.keep(kept::recentFiles, files.mid(0, mostFiles));
}

} // namespace platform
