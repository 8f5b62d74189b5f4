#include "platform/textFile.h"
#include "support/qtPrinters.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

class TextFile : public testing::Test {
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString file(const QByteArray &bytes) const {
        QFile file(path(u"file"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};

QList<QByteArray> linesOf(const QString &path) {
    QList<QByteArray> lines;
    auto reader = LineReader::open(path);
    while (!reader.value().atEnd())
        lines.append(reader.value().readLine().toByteArray());
    EXPECT_TRUE(reader.value().readLine().isEmpty());
    reader.value().rewind();
    EXPECT_EQ(reader.value().readLine(), lines.value(0));
    return lines;
}

TEST_F(TextFile, LinesEndAtCarriageReturnsAcrossBlocks) {
    const std::pair<QByteArray, QList<QByteArray>> cases[] = {
        {"", {}},
        {"x", {"x"}},
        {"\r", {""}},
        {"\r\nx", {"", "x"}},
        {"\r\n\r\nx\n", {"", "", "x\n"}},
        {"\rx\r\n", {"", "x"}},
        {"\nx\r\n\n", {"\nx", "\n"}},
        {"\r\r\n\r", {"", "", ""}},
    };
    constexpr int block = 1 << 18; // what is read at a time
    for (const int before : {0, 1, block - 4, block - 3, block - 2, block - 1, block, 2 * block - 1}) {
        for (const auto &[tail, expected] : cases) {
            const QByteArray first(before, 'a');
            QList<QByteArray> lines = expected;
            if (before && lines.isEmpty())
                lines.append(first);
            else if (before)
                lines.first().prepend(first);
            const QString path = file(first + tail);
            EXPECT_TRUE(linesOf(path) == lines) << before << ' ' << tail.toPercentEncoding().toStdString();
            EXPECT_EQ(countLines(path).value(), lines.size())
                << before << ' ' << tail.toPercentEncoding().toStdString();
        }
    }
}

TEST_F(TextFile, WhatStandsBehindAStopIsNotHeld) {
    constexpr qint64 size = 200 << 20;
    QFile large(file("a!b\r\n!\rno stop\rx!"));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(size)); // the last line goes on with zeros
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_SELF, &before);
    auto reader = LineReader::open(large.fileName());
    for (const QByteArrayView line : {"a!", "!", "no stop", "x!"})
        EXPECT_EQ(reader.value().readLineThrough('!'), line);
    EXPECT_TRUE(reader.value().atEnd());
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 20 << 10); // kilobytes
}

TEST_F(TextFile, WhatCannotBeReadIsTold) {
    for (const QString &name : {path(u"missing"_s), path(u"."_s), u"/proc/self/mem"_s}) {
        EXPECT_FALSE(countLines(name)) << name.toStdString();
        const auto lines = readTextLines(name);
        ASSERT_FALSE(lines) << name.toStdString();
        EXPECT_FALSE(lines.failure().description.isEmpty());
    }
}

TEST_F(TextFile, WhatCannotBeWrittenIsTold) {
    EXPECT_FALSE(writeTextFile(path(u"missing/file"_s), u"x"_s));
    EXPECT_FALSE(writeTextFile(u"/dev/full"_s, u"x"_s));
    EXPECT_FALSE(writeTextFile(u"/dev/full"_s, QString(1'000'000, u'x')));
    ASSERT_TRUE(writeTextFile(file("what stood here before"), u"甲\r\n乙\nก"_s));
    EXPECT_EQ(readTextLines(path(u"file"_s)).value(), (QStringList{u"甲"_s, u"乙\n?"_s}));
}

} // namespace
