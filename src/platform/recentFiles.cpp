#include "platform/recentFiles.h"
#include "platform/paths.h"
#include <QFileInfo>

namespace platform {

namespace {
constexpr qsizetype mostFiles = 10;
constexpr QLatin1StringView key("files/recent");
} // namespace

QStringList recentFiles(const DeskState &state) {
    QStringList files = state.read(key).toStringList();
    files.removeIf([](const QString &path) { return !fileExists(path); });
    return files.mid(0, mostFiles);
}

void noteRecentFile(const DeskState &state, const QString &path) {
    QStringList files = recentFiles(state);
    const QString whole = QFileInfo(path).absoluteFilePath();
    files.removeAll(whole);
    files.prepend(whole);
    state.keep(key, files.mid(0, mostFiles));
}

} // namespace platform
