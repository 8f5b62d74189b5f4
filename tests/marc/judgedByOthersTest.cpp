// A general MARC tool by others reads what the writer makes: no complaint, and the same content field by field.
#include "marc/recordMaking.h"
#include "marc/recordReader.h"
#include "marc/recordWriter.h"
#include "tools/recordGenerator.h"
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

using namespace marc;

namespace {

// The tool's lines: leader, fields, an empty line for each record. It stops at a line break between records.
QStringList dumped(const TestFolder &folder, const QByteArray &records) {
    QProcess tool;
    tool.start(u"yaz-marcdump"_s, {u"-f"_s, u"cp936"_s, u"-t"_s, u"utf-8"_s, folder.file(u"records"_s, records)});
    EXPECT_TRUE(tool.waitForFinished()) << tool.errorString().toStdString();
    EXPECT_EQ(tool.exitCode(), 0);
    EXPECT_EQ(tool.readAllStandardError(), "");
    return QString::fromUtf8(tool.readAllStandardOutput()).split(u'\n');
}

// What has to be the same in a record and in its rebuilt form, in the order of the latter: of all fields but those that
// are dropped or made anew, without the difference between blanks and "#" where it is lost.
QList<QStringList> comparable(const QStringList &lines) {
    static const QStringList notKept{u"001"_s, u"105"_s, u"106"_s, u"110"_s, u"115"_s};
    QList<QStringList> records;
    bool atLeader = true;
    for (QString line : lines) {
        const QString tag = line.left(3);
        if (atLeader)
            records.append(QStringList());
        else if (!notKept.contains(tag))
            records.last().append(tag < u"010" || tag == u"100" || tag.startsWith(u'4') ? line.replace(u'#', u' ')
                                                                                        : line);
        atLeader = line.isEmpty();
    }
    for (QStringList &fields : records)
        std::ranges::stable_sort(fields, {}, [](const QString &field) { return field.left(3); });
    return records;
}

TEST(RebuiltRecords, SatisfyAnotherReader) {
    if (QStandardPaths::findExecutable(u"yaz-marcdump"_s).isEmpty())
        GTEST_SKIP() << "yaz-marcdump is not installed";
    const TestFolder folder;
    QByteArray generated;
    tools::RecordGenerator generator(1);
    for (int i = 0; i < 300; ++i)
        generated += generator.next() + "\r\n";
    QStringList files{folder.file(u"generated.iso"_s, generated)};
    if (QFile::exists(QStringLiteral(SAMPLE_FILE)))
        files.append(QStringLiteral(SAMPLE_FILE));
    for (const QString &file : files) {
        QByteArray read;
        QByteArray rebuilt;
        auto reader = platform::LineReader::open(file);
        cutRecord(reader.value(), [&](const RawRecord &record) {
            const ShownRecord shown = showRecord(record);
            read += platform::encode(record);
            rebuilt += platform::encode(madeMyMarc(shown.rows, shown.leader, QDateTime::currentDateTime()));
            return true;
        });
        const QStringList lines = dumped(folder, rebuilt);
        for (const QString &line : lines)
            ASSERT_FALSE(line.startsWith(u'(')) << line.toStdString(); // how it complains
        const QList<QStringList> before = comparable(dumped(folder, read));
        const QList<QStringList> after = comparable(lines);
        ASSERT_GT(after.size(), read.count(char(recordTerminator)));
        ASSERT_EQ(after.size(), before.size());
        for (qsizetype i = 0; i < after.size(); ++i)
            ASSERT_EQ(after[i], before[i]) << "record " << i + 1 << " of " << file.toStdString();
    }
}

} // namespace
