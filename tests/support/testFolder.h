// A temporary folder, removed when the test ends.
#pragma once

#include "support/qtPrinters.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class TestFolder {
public:
    TestFolder() { EXPECT_TRUE(m_folder.isValid()) << m_folder.errorString().toStdString(); }
    // Returns the folder with a trailing separator, or the path of a file in it; with the separators of the system.
    QString path(const QString &name = {}) const { return QDir::toNativeSeparators(m_folder.path() + u'/' + name); }
    // Writes a file with these bytes and returns its path.
    QString file(const QString &name, const QByteArray &bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path(name);
    }
    QByteArray read(const QString &name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

private:
    QTemporaryDir m_folder;
};
