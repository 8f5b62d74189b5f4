// A folder of the test's own, gone when the test ends.
#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class TestFolder {
public:
    // The folder with its separator, or the path of a file in it.
    QString path(const QString &name = {}) const { return m_folder.path() + u'/' + name; }
    // The path of a file with these bytes.
    QString file(const QString &name, const QByteArray &bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};
