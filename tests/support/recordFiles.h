// Small record files in a temporary folder.
#pragma once

#include "support/testFolder.h"
#include <algorithm>

namespace files {

inline QByteArray record(int number) {
    return "record " + QByteArray::number(number) + "\x1e\x1d";
}

// Returns `count` records, one per line, numbered from `first`.
inline QByteArray lines(int count, int first = 1) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += record(first + i) + "\r\n";
    return bytes;
}

class Folder : public TestFolder {
public:
    QString write(const QString &name, const QByteArray &bytes) const { return file(name, bytes); }
    // Returns the names of the files except the source's.
    QStringList names() const {
        QStringList all = QDir(path()).entryList(QDir::Files | QDir::System, QDir::Name);
        all.removeAll(QStringLiteral("source.iso"));
        return all;
    }
};

// Returns how many record files this process has open; other files that the toolkit opens do not count.
inline qsizetype openFiles() {
    const QFileInfoList held = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System | QDir::AllEntries);
    return std::ranges::count_if(held, [](const QFileInfo &file) {
        const QString target = file.symLinkTarget();
        return target.contains(u".iso");
    });
}

} // namespace files
