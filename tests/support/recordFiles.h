// Small record files in a folder of the test's own.
#pragma once

#include "support/testFolder.h"
#include <QDir>
#include <algorithm>

namespace files {

inline QByteArray record(int number) {
    return "record " + QByteArray::number(number) + "\x1e\x1d";
}

// `count` records on lines of their own, numbered from `first` on.
inline QByteArray lines(int count, int first = 1) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += record(first + i) + "\r\n";
    return bytes;
}

class Folder : public TestFolder {
public:
    QString write(const QString &name, const QByteArray &bytes) const { return file(name, bytes); }
    // The names of the files, without the source's own.
    QStringList names() const {
        QStringList all = QDir(path()).entryList(QDir::Files | QDir::System, QDir::Name);
        all.removeAll(QStringLiteral("source.iso"));
        return all;
    }
};

// How many record files this process holds open; what the toolkit opens for itself does not count.
inline qsizetype openFiles() {
    const QFileInfoList held = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System | QDir::AllEntries);
    return std::count_if(held.begin(), held.end(), [](const QFileInfo &file) {
        const QString target = file.symLinkTarget();
        return target.contains(u".iso");
    });
}

} // namespace files
