#include "filetools/checks.h"
#include "filetools/mergeRun.h"
#include "filetools/splitRun.h"
#include "support/dice.h"
#include "support/fullDisk.h"
#include "support/machine.h"
#include "support/recordFiles.h"

using namespace filetools;
using files::lines;
using files::record;

namespace {

template <class Run>
platform::Status readOn(Run &run, const std::function<platform::Status()> &write) {
    for (;;) {
        const platform::Result<bool> found = run.next();
        if (!found)
            return found.failure();
        if (!found.value())
            return platform::success();
        if (platform::Status written = write(); !written)
            return written;
    }
}

// Runs the split to its end; returns the error text, or an empty string.
QString run(SplitRun &split, const QString &limit) {
    platform::Status status = split.open();
    if (status)
        status = readOn(split, [&] { return split.write(limit); });
    if (status)
        status = split.close(limit);
    return status ? QString() : status.failure().description;
}

QString run(MergeRun &merge, const QStringList &sources) {
    platform::Status status = merge.open();
    for (const QString &source : sources) {
        if (status)
            status = merge.openSource(source);
        if (status)
            status = readOn(merge, [&] { return merge.write(); });
        if (status)
            merge.closeSource();
    }
    if (status)
        status = merge.close();
    return status ? QString() : status.failure().description;
}

// Returns the expected output of a split or merge, processed byte by byte without blocks or views.
QByteArray plainly(const QByteArray &source) {
    QByteArray out, record;
    bool ended = false; // the rest of a line after a record terminator is dropped
    for (qsizetype at = 0; at < source.size(); ++at) {
        const bool lineEnd = source[at] == '\r';
        if (!lineEnd && !ended)
            record += source[at];
        ended = ended || source[at] == '\x1d';
        if (lineEnd && source.mid(at + 1, 1) == "\n")
            ++at;
        if (ended && (lineEnd || at + 1 == source.size())) {
            out += record + "\r\n";
            record.clear();
            ended = false;
        }
    }
    return out;
}

} // namespace

TEST(TargetPattern, CutsTheTargetForEitherKindOfPath) {
    const std::tuple<QString, QChar, QString, QString, QString> rows[] = {
        {u"/馆/a.iso"_s, u'/', u"/馆/a700.iso"_s, u"/馆/a1000.iso"_s, u"/馆/a7??.iso"_s},
        {u"D:\\m\\b.x.txt"_s, u'\\', u"D:\\m\\b.x700.txt"_s, u"D:\\m\\b.x1000.txt"_s, u"D:\\m\\b.x7??.txt"_s},
        {u"D:/m/b.txt"_s, u'\\', u"D:/m/b700.txt"_s, u"D:/m/b1000.txt"_s, u"D:/m/b7??.txt"_s},
        {u"/.iso"_s, u'/', u"/700.iso"_s, u"/1000.iso"_s, u"/7??.iso"_s}};
    for (const auto &[target, separator, number700, number1000, mask] : rows) {
        const auto pattern = targetPattern(target, separator);
        ASSERT_TRUE(pattern) << target.toStdString();
        EXPECT_EQ(pattern->numbered(700), number700);
        EXPECT_EQ(pattern->numbered(1000), number1000);
        EXPECT_EQ(pattern->mask(), mask);
    }
    EXPECT_FALSE(targetPattern(u"/x.a/b"_s, u'/')); // the dot is in the folder name
}

TEST(Checks, TheFirstFaultRefusesTheSplit) {
    const QString few = u"每个拆分文件的最大记录数太小！最好不要小于10！"_s,
                  ask = u"请输入每个拆分文件的最大记录数！"_s;
    const std::tuple<QString, bool, QString, QString, QString, Field> rows[] = {
        {u""_s, false, u"a"_s, u"abc"_s, u""_s, Field::Source},
        {u"/s"_s, false, u""_s, u"abc"_s, u""_s, Field::Source},
        {u"/s"_s, false, u"a"_s, u"abc"_s, u"文件[/s不存在！"_s, Field::None},
        {u"/s"_s, true, u"a"_s, u" "_s, ask, Field::Limit},
        {u"/s"_s, true, u"a"_s, u"1e3"_s, ask, Field::Limit},
        {u"/s"_s, true, u"a"_s, u"9"_s, few, Field::Limit},
        {u"/s"_s, true, u"a"_s, u"9.99"_s, few, Field::Limit},
        {u"/s"_s, true, u"/t/a"_s, u"10"_s, u""_s, Field::None},
        {u"/s"_s, true, u"/t/a.marc"_s, u"10"_s, u""_s, Field::None},
        {u"/s"_s, true, u"a.iso"_s, u"10"_s, u""_s, Field::None},
    };
    for (const auto &[source, exists, target, limit, text, focus] : rows) {
        const auto refusal = refuseSplit(source, exists, target, limit, u'/');
        ASSERT_TRUE(refusal) << target.toStdString() << ' ' << limit.toStdString();
        EXPECT_EQ(refusal->text, text);
        EXPECT_EQ(refusal->focus, focus) << text.toStdString();
    }
    EXPECT_FALSE(refuseSplit(u"/s"_s, true, u"/t/a.iso"_s, u"10"_s, u'/'));
    EXPECT_FALSE(refuseSplit(u"s"_s, true, u"D:/t/a.iso"_s, u"10"_s, u'\\'));
}

TEST(Split, FollowsTheLinesOfTheSource) {
    const QByteArray odd("\x80\xff\xa1\n\0\x81\x1d", 7); // not valid text; contains a line feed that ends no line
    // The source; its number of records, the target files from 700 on, and the number of records reported for each.
    const std::tuple<const char *, QByteArray, qint32, QList<QByteArray>, QList<int>> rows[] = {
        {"25 records", lines(25), 25, {lines(10), lines(10, 11), lines(5, 21)}, {10, 10, 5}},
        {"no file is started after a full last one", lines(20), 20, {lines(10), lines(10, 11)}, {10, 10}},
        {"but empty lines do", lines(10) + "\r\n\r\r\n", 10, {lines(10), ""}, {10}},
        {"one line", record(1) + record(2) + record(3), 1, {lines(1)}, {1}},
        {"wrapped over lines", "\r\rrec\r\nord\r 1\x1e\r\n\r\n\x1d\r", 1, {lines(1)}, {1}},
        {"an empty source", "", 0, {""}, {}},
        {"the last terminator missing", lines(2) + "tail", 2, {lines(2)}, {2}},
        {"bytes are copied unchanged", odd, 1, {odd + "\r\n"}, {1}},
    };
    for (const auto &[what, source, total, targets, reported] : rows) {
        files::Folder folder;
        SplitRun split(folder.write(u"source.iso"_s, source), *targetPattern(folder.path(u"a.iso"_s)));
        EXPECT_EQ(run(split, u"10"_s), QString()) << what;
        EXPECT_EQ(split.total(), total) << what;
        EXPECT_EQ(folder.names().size(), targets.size()) << what;
        QString report = u"【源文件】\r\n文件{"_s + folder.path(u"source.iso"_s) + u"处理了" + QString::number(total) +
                         u"条记录！\r\n【目标文件】\r\n";
        for (qsizetype i = 0; i < targets.size(); ++i) {
            const QString name = u"a"_s + QString::number(700 + i) + u".iso";
            EXPECT_EQ(folder.read(name), targets[i]) << what;
            if (i < reported.size())
                report += u"文件{" + folder.path(name) + u"}保存了" + QString::number(reported[i]) + u"条记录！\r\n";
        }
        EXPECT_EQ(split.report(), report) << what;
        EXPECT_EQ(folder.read(u"source.iso"_s), source);
    }
}

// The end of a block falls on each byte of a record, of its terminator and of its line end in turn.
TEST(Merge, MatchesPlainReadingForEveryBlockEnd) {
    constexpr int block = 1 << 19; // the size of a read
    const QByteArrayList pieces{"rec\x1d\r\n",       "one\x1dtwo\x1d\r\n",
                                "a\r\nb\rc\x1d\r\n", "\r\n",
                                "\x1d\r\n",          "cr\x1d\r",
                                "lf\nlf\x1d\n\r",    "half\xb0\r\n\xa1\x1d\r\n",
                                "\xb0\xa1\x1d\r\n",  QByteArray(block + 5, 'x') + "\x1d\r\n"};
    Dice dice(11);
    files::Folder folder;
    for (int shift = 0; shift <= 40; ++shift) {
        QByteArray source(shift < 40 ? block - 20 - shift : 30 * block, 'a'); // the last exceeds the gathering buffer
        source += "\x1d\r\n" + dice.text<QByteArray>(pieces, 60) + dice.oneOf(QByteArrayList{"", "tail", "end\x1d"});
        MergeRun merge(folder.path(u"all.iso"_s));
        EXPECT_EQ(run(merge, {folder.write(u"source.iso"_s, source)}), QString());
        EXPECT_TRUE(folder.read(u"all.iso"_s) == plainly(source)) << shift;
    }
}

TEST(Split, NumbersExceedThreeDigitsAndEachFileIsClosedAtItsEnd) {
    files::Folder folder;
    const qsizetype before = files::openFiles();
    SplitRun split(folder.write(u"source.iso"_s, lines(3011)), *targetPattern(folder.path(u"a.iso"_s)));
    ASSERT_TRUE(split.open());
    while (split.next().value()) {
        ASSERT_TRUE(split.write(u"10"));
        ASSERT_EQ(files::openFiles(), before + 2);
    }
    ASSERT_TRUE(split.close(u"10"));
    EXPECT_EQ(folder.names().size(), 302);
    EXPECT_EQ(folder.read(u"a1001.iso"_s), lines(1, 3011));
}

TEST(Merge, ATargetSpelledDifferentlyIsEmptiedFirstAndReadOnlyOnce) {
    files::Folder folder;
    constexpr int many = 100'000; // more than is gathered before a write
    const QString big = folder.write(u"big.iso"_s, lines(many)), target = folder.write(u"t.iso"_s, lines(5));
    const QString spelled = folder.path(u"./t.iso"_s);
    EXPECT_FALSE(refuseMerge({spelled}, target));
    EXPECT_EQ(refuseMerge({big, target}, target)->text, u"合并目标文件不能为源文件！"_s);
    MergeRun alone(target);
    EXPECT_EQ(run(alone, {spelled}), QString());
    EXPECT_EQ(folder.read(u"t.iso"_s), "");
    MergeRun behind(target);
    EXPECT_EQ(run(behind, {big, spelled}), QString());
    EXPECT_EQ(behind.total(), 2 * many);
    EXPECT_TRUE(folder.read(u"t.iso"_s) == lines(many) + lines(many));
}

TEST(FileTools, AFailureIsReportedAndKeepsWhatWasWritten) {
    files::Folder folder;
    const QString source = folder.write(u"source.iso"_s, lines(40));
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, folder.path(u"a702.iso"_s)));
    SplitRun device(source, *targetPattern(folder.path(u"a.iso"_s)));
    EXPECT_NE(run(device, u"10"_s), QString());
    EXPECT_EQ(folder.read(u"a701.iso"_s), lines(10, 11));
    SplitRun nowhere(source, *targetPattern(folder.path(u"none/a.iso"_s)));
    EXPECT_NE(run(nowhere, u"10"_s), QString());

    MergeRun halfway(folder.path(u"all.iso"_s));
    EXPECT_NE(run(halfway, {source, folder.path(u"gone.iso"_s), source}), QString());
    EXPECT_EQ(folder.read(u"all.iso"_s), lines(40)); // while the run object still exists
    MergeRun fullMerge(folder.path(u"all.iso"_s));
    SplitRun fullSplit(source, *targetPattern(folder.path(u"b.iso"_s)));
    {
        const FullDisk disk(lines(3).size() + 5);
        EXPECT_NE(run(fullMerge, {source}), QString());
        EXPECT_NE(run(fullSplit, u"10"_s), QString());
    }
    EXPECT_EQ(fullMerge.handOver(), 3); // complete records in the file
    EXPECT_EQ(fullSplit.handOver(), 3);
    EXPECT_TRUE(folder.read(u"b700.iso"_s).startsWith(lines(3)));
    MergeRun unreadable(folder.path(u"all.iso"_s)); // can be opened, but reading fails
    EXPECT_NE(run(unreadable, {u"/proc/self/mem"_s}), QString());
    EXPECT_EQ(folder.read(u"source.iso"_s), lines(40));
}

// The reported counts match the files. A source that shrinks or is removed during the run ends the run with what was
// read; a source that grows is read on.
TEST(FileTools, CountsMatchTheFilesWhenTheSourceChanges) {
    for (const int change : {-1, 0, 1}) {
        if (change == 0 && !removesOpenFiles())
            continue;
        files::Folder folder;
        const QString source = folder.write(u"source.iso"_s, lines(50'000)); // more than is read ahead
        SplitRun split(source, *targetPattern(folder.path(u"a.iso"_s)));
        MergeRun merge(folder.path(u"all.iso"_s));
        ASSERT_TRUE(split.open() && merge.open() && merge.openSource(source));
        for (int i = 0; i < 25; ++i)
            ASSERT_TRUE(split.next().value() && split.write(u"10") && merge.next().value() && merge.write());
        EXPECT_EQ(split.handOver(), 25);
        EXPECT_EQ(merge.handOver(), 25);
        EXPECT_EQ(folder.read(u"a702.iso"_s), lines(5, 21));
        EXPECT_EQ(folder.read(u"all.iso"_s), lines(25));
        QFile file(source);
        ASSERT_TRUE(change == 0  ? file.remove()
                    : change < 0 ? file.resize(lines(30).size())
                                 : file.open(QIODevice::Append) && file.write(lines(7)) > 0);
        file.close();
        while (split.next().value())
            ASSERT_TRUE(split.write(u"10"));
        while (merge.next().value())
            ASSERT_TRUE(merge.write());
        ASSERT_TRUE(split.close(u"10") && merge.close());
        EXPECT_EQ(split.total(), merge.total());
        EXPECT_TRUE(change < 0 ? split.total() < 50'000 : split.total() == 50'000 + 7 * change) << split.total();
        EXPECT_EQ(split.handOver(), split.total());
        EXPECT_EQ(folder.read(u"all.iso"_s).count('\x1d'), merge.total());
    }
}
