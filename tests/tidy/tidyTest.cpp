#include "marc/recordMaking.h"
#include "support/fullDisk.h"
#include "tidy/isoSource.h"
#include "tidy/tidying.h"

using namespace tidy;
using files::Folder;

namespace {

// Returns the fields as an independent MARC tool shows them; line ends are removed because the tool stops at them.
QByteArray judged(const Folder &folder, QByteArray records, const QString &charset) {
    QProcess tool;
    tool.start(u"yaz-marcdump"_s,
               {u"-f"_s, charset, u"-t"_s, u"utf-8"_s, folder.write(u"judged"_s, records.replace("\r\n", ""))});
    EXPECT_TRUE(tool.waitForFinished());
    QByteArray fields;
    for (const QByteArray &line : tool.readAllStandardOutput().split('\n')) {
        EXPECT_FALSE(line.startsWith('(')) << line.toStdString(); // a message of the tool
        const bool isLeader = line.size() > 5 && line[3] != ' ';
        fields += (isLeader ? line.mid(5, 7) + line.mid(17) : line) + '\n';
    }
    return fields;
}

} // namespace

TEST(Tidy, EachFormGivesTheSameRecordsAsTheSource) {
    const QByteArray gbk = sample();
    const QString text = platform::decode(gbk);
    const QByteArray bare = QByteArray(gbk).replace("\r\n", "");
    const Folder folder;
    ASSERT_TRUE(tidied(folder, gbk).bytes == gbk) << "a tidy file does not change";
    const QString inline8 = QString(text).remove(u"\r\n"_s);
    const std::pair<const char *, QByteArray> forms[] = {
        {"no line ends", bare},
        {"line feeds", QByteArray(gbk).replace("\r\n", "\n")},
        {"wrapped", QByteArray(gbk).replace("\x1E", "\x1E\r\n")},
        {"UTF-8 without line ends", inline8.toUtf8()},
        {"UTF-8 with a mark", converted(text, QStringConverter::Utf8)},
        {"UTF-16 LE", converted(inline8, QStringConverter::Utf16LE)},
        {"UTF-16 BE, no mark", converted(text, QStringConverter::Utf16BE).mid(2)},
        {"GB18030", bare + platform::encode(recordOf(u"200=10$a甲"_s)).replace("\xBC\xD7", "\x95\x32\xB7\x36")},
    };
    for (const auto &[what, bytes] : forms) {
        Tidied made = tidied(folder, bytes);
        const bool isMore = QByteArray(what) == "GB18030";
        EXPECT_EQ(made.result.lacking.count, isMore);
        EXPECT_EQ(made.result.out, gbk.count('\x1D') + isMore) << what;
        EXPECT_TRUE(made.bytes.startsWith(gbk) && made.bytes.size() < gbk.size() + 100) << what;
        EXPECT_EQ(made.result.unreadable.count + made.result.damagedBytes.count, 0) << what;
        EXPECT_EQ(folder.names(), QStringList{u"t.iso"_s});
    }
    const QByteArray utf8 = tidied(folder, gbk, TargetForm::Utf8Iso).bytes;
    const QByteArray xml = tidied(folder, gbk, TargetForm::MarcXml).bytes;
    EXPECT_TRUE(tidied(folder, utf8).bytes == gbk) << "to UTF-8 and back";
    // Lengths and addresses are regenerated; the rest of the leader is kept.
    EXPECT_TRUE(tidied(folder, xml).bytes == gbk) << "to XML and back";
    if (QStandardPaths::findExecutable(u"yaz-marcdump"_s).isEmpty())
        GTEST_SKIP() << "yaz-marcdump is not installed";
    const QByteArray fields = judged(folder, gbk, u"cp936"_s);
    EXPECT_GT(fields.count('\n'), 1000);
    EXPECT_TRUE(judged(folder, utf8, u"utf-8"_s) == fields);
    QProcess tool;
    tool.start(u"yaz-marcdump"_s, {u"-i"_s, u"marcxml"_s, u"-o"_s, u"marc"_s, folder.write(u"judged.xml"_s, xml)});
    ASSERT_TRUE(tool.waitForFinished());
    EXPECT_TRUE(judged(folder, tool.readAllStandardOutput(), u"utf-8"_s) == fields) << "the fields of the XML";
}

TEST(Tidy, LossesAreReportedByCharacterAndRecord) {
    const Folder folder;
    const QString lost = recordOf(u"200=10$a〇𠮷ê𠮷"_s) + recordOf(u"200=10$a𠮷"_s) + recordOf(u"200=10$ax\ry\rz"_s);
    const QByteArray damaged = recordOf(u"200=10$a数据$f库"_s).toUtf8().replace("\xE6\x95\xB0", "\xE6\x95");
    const Tidied gbk = tidied(folder, lost.toUtf8() + damaged + recordOf(u"200=10$a\uFFFD"_s).toUtf8());
    QString expected;
    for (const QString &title : {u"〇?ê?"_s, u"?"_s, u"x y z"_s, u"?据$f库"_s, u"?"_s})
        expected += recordOf(QString(u"200=10$a"_s + title)) + u"\r\n";
    EXPECT_EQ(platform::decode(gbk.bytes), expected);
    EXPECT_EQ(report(gbk.result, u"s"_s),
              QString(u"【源文件】\r\n文件{s}（UTF-8）读到5条记录！\r\n\r\n【目标文件】\r\n文件{"_s +
                      folder.path(u"t.iso"_s) +
                      u"}保存了5条记录！\r\n\r\n【写成“?”的字符】\r\n目标编码没有的字符 4 处：\r\n\uFFFD（U+FFFD）：1 "
                      u"处，第 5 条\r\n"
                      u"𠮷（U+20BB7）：3 处，第 1、2 条\r\n\r\n【受损】\r\n受损字节 1 处：第 4 条\r\n"));

    // XML cannot contain most control characters; ISO 2709 in UTF-8 can contain all characters.
    const QByteArray odd =
        recordOf(u"005=\uFEFFz|200=10$a\u0001甲\uFFFE<&\"|300=stray|310=  $|330=  $$ax|320=  $ x\uFEFFy|001=\u001Fa"_s)
            .toUtf8();
    const Tidied xml = tidied(folder, odd, TargetForm::MarcXml);
    EXPECT_EQ(xml.result.lackingByCharacter.begin()->first, 1U);
    const QByteArray back = tidied(folder, xml.bytes, TargetForm::Utf8Iso).bytes;
    const QString fields = u"|\uFEFFz|10<a?甲?<&\"|stray|  <|  <<ax|  < x\uFEFFy|  <a|>"_s;
    EXPECT_EQ(marc::visible(QString::fromUtf8(back.mid(back.indexOf('\x1E')))), fields);

    EXPECT_EQ(tidied(folder, lost.toUtf8(), TargetForm::Utf8Iso).result.lacking.count, 0);
    TidyResult many;
    for (int i = 0; i < 500; ++i) {
        many.addLacking(char32_t(0x20000 + i), i);
        many.addUnreadable(i, QString::number(i));
    }
    EXPECT_TRUE(many.lackingByCharacter.size() == TidyResult::mostListed && many.reasons.size() == 100);
}

TEST(Tidy, TheLeaderFollowsTheFormThatIsWritten) {
    const Folder folder;
    QByteArray foreign = recordOf(u"200=10$a甲乙丙"_s).toUtf8();
    foreign.replace(9, 3, "a11").replace(20, 4, "4500");
    EXPECT_EQ(tidied(folder, foreign).bytes.mid(5, 7) + tidied(folder, foreign).bytes.mid(17, 7), "nam0 22   450 ");
    EXPECT_EQ(tidied(folder, foreign, TargetForm::Utf8Iso).bytes.mid(5, 7), "nam0a22");
}

TEST(Tidy, DamagedDirectoriesAreRepairedOrTheRecordIsKeptUnchanged) {
    const QByteArray good = platform::encode(recordOf(u"001=x|200=10$a甲$f乙|606=  $a丙|905=  $a丁"_s));
    const QByteArray other = platform::encode(recordOf(u"005=yz|210=  $c子丑寅|700= 0$a卯|995=  $a辰巳"_s));
    const auto without = [&](qsizetype at, qsizetype count = 1) { return QByteArray(good).remove(at, count); };
    const std::tuple<const char *, QByteArray, bool, bool> rows[] = {
        {"undamaged", good, true, false},
        {"no terminator at the file's end", good.chopped(1), true, false},
        {"a byte too many", QByteArray(good).insert(52, 'x'), true, true},
        {"a damaged tag", without(37), false, false},
        {"terminators without records", "\x1D\r\n\x1D" + good, true, false},
        {"a file without its last bytes", good.chopped(9), false, false},
    };
    const Folder folder;
    for (const auto &[what, bytes, usable, found] : rows) {
        // The other record comes first, so that its tags and texts must not be taken for those of this record.
        const Tidied made = tidied(folder, other + bytes);
        EXPECT_EQ(made.result.in, 2) << what;
        EXPECT_EQ(made.result.out, 1 + usable) << what;
        EXPECT_EQ(made.result.damagedDirectories.count, found) << what;
        if (!usable) {
            const bool isTail = !bytes.endsWith('\x1D');
            EXPECT_EQ(made.result.reasons[0].first, isTail ? u"没有记录结束符"_s : u"目次区和字段对不上"_s) << what;
            EXPECT_EQ(folder.read(u"t.bad.iso"_s), bytes + "\r\n") << what;
        } else {
            EXPECT_EQ(made.bytes, other + "\r\n" + good + "\r\n") << what;
        }
        QFile::remove(folder.path(u"t.bad.iso"_s));
    }
}

TEST(Tidy, RecordsThatDoNotFitTheFormAreKeptByteForByte) {
    const Folder folder;
    const QString good = recordOf(u"200=10$a甲"_s);
    const auto oneField = [](const QString &field) -> QString {
        return u"00000nam0 2200000   450 200000100000\u001E"_s + field + u"\u001E\u001D";
    };
    const QString longField = oneField(QString(9'999, u'f')), longRecord = oneField(QString(200'000, u'r'));
    const QString fits = oneField(QString(4'999, u'字')); // 9,999 bytes of GBK with the terminator, 14,998 of UTF-8
    const QString endless = oneField(QString(3 * IsoSource::longest, u'字'));
    const Tidied made = tidied(folder, (good + longField + fits + longRecord + endless + good).toUtf8());
    EXPECT_EQ(made.result.out, 3);
    EXPECT_TRUE(folder.read(u"t.bad.iso"_s) ==
                longField.toUtf8() + "\r\n" + longRecord.toUtf8() + "\r\n" + endless.toUtf8() + "\r\n");
    EXPECT_TRUE(report(made.result, {})
                    .contains(u"【未能整理】\r\n3 条，原样存入文件{"_s + folder.path(u"t.bad.iso"_s) +
                              u"}：\r\n第 2 条：字段 200 有 10000 字节，长过 9999 字节\r\n"
                              u"第 4 条：200039 字节，长过 99999 字节\r\n第 5 条：太长\r\n"))
        << report(made.result, {}).toStdString();
    // Each reason is listed once, for any number of records.
    const QString bare = QString(u"no directory\u001D"_s).repeated(4000);
    const QString told = report(tidied(folder, (good + bare).toUtf8()).result, {});
    EXPECT_TRUE(told.contains(u"第 2、3、4、5、6、7、8、9、10、11……条（共 4000 条）：目次区和字段对不上\r\n"_s) &&
                told.count(u"目次区和字段"_s) == 1)
        << told.toStdString();
    for (const qsizetype size : {IsoSource::longest, IsoSource::longest + 1, 2 * IsoSource::longest + 100}) {
        const QByteArray large = oneField(QString(size - 39, u'x')).toUtf8();
        ASSERT_EQ(large.size(), size);
        const TidyResult result = tidied(folder, good.toUtf8() + large + good.toUtf8()).result;
        EXPECT_TRUE(result.out == 2 && result.unreadable.count == 1) << "in as many pieces as it has";
        EXPECT_EQ(result.reasons[0].first == u"太长", size > IsoSource::longest);
        EXPECT_TRUE(folder.read(u"t.bad.iso"_s) == large + "\r\n");
    }
    const QByteArray wide = converted(longField + good, QStringConverter::Utf16BE);
    EXPECT_EQ(tidied(folder, wide).result.out, 1);
    EXPECT_TRUE(folder.read(u"t.bad.iso"_s) == wide.sliced(2, 2 * longField.size()) + QByteArray("\0\r\0\n", 4));
    // A record that fits into XML, but not into ISO 2709 again.
    const QByteArray xml = tidied(folder, (good + longField).toUtf8(), TargetForm::MarcXml).bytes;
    EXPECT_EQ(tidied(folder, xml).result.out, 1);
    EXPECT_EQ(tidied(folder, folder.read(u"t.bad.xml"_s), TargetForm::MarcXml).result.out, 1);
}

TEST(Tidy, ReportsWhatAChangeDid) {
    const Folder folder;
    const auto reportAfter = [&](const std::function<RecordChange(marc::FieldedRecord &)> &change) -> QString {
        TidyRun tidy(folder.write(u"source.iso"_s, recordOf(u"200=10$ax"_s).toUtf8().repeated(3)),
                     folder.path(u"t.iso"_s), TargetForm::GbkIso);
        tidy.setChange({u"甲"_s, change, [] { return std::vector{StepTally{u"改题名"_s, 4, 2}}; }});
        EXPECT_EQ(run(tidy), QString());
        const QString text = report(tidy.result(), {});
        return text.section(u"\r\n【批改】"_s, 1) + warning(tidy.result());
    };
    const QString steps = u"\r\n　4 处，2 条　改题名\r\n"_s;
    EXPECT_EQ(reportAfter([](auto &) { return RecordChange{true, {}}; }), u"\r\n任务“甲”改了 3 条记录！"_s + steps);
    int record = 0;
    EXPECT_EQ(reportAfter([&](auto &) {
                  return ++record == 2 ? RecordChange{true, {}} : RecordChange{false, u"太长"_s};
              }),
              u"\r\n任务“甲”改了 1 条记录！"_s + steps +
                  u"2 条不能改，照原样写出：\r\n第 1、3 条（共 2 条）：太长\r\n⚠ 未能批改 2 条（第 1、3 条）");
}

TEST(Tidy, AFailureOrAStopLeavesNothingBehind) {
    const Folder folder;
    const QByteArray bad = platform::encode(recordOf(u"200=10$a甲"_s)).replace('\x1E', ' ');
    const QString source = folder.write(u"source.iso"_s, QByteArray(sample() + bad).repeated(30));
    const QString target = folder.write(u"t.iso"_s, "kept");
    {
        TidyRun stopped(source, target, TargetForm::MarcXml);
        ASSERT_TRUE(stopped.open());
        while (stopped.result().out == 0)
            ASSERT_TRUE(stopped.step().value());
        EXPECT_TRUE(stopped.percent() > 20 && stopped.percent() < 100) << stopped.percent();
    }
    EXPECT_EQ(folder.names(), QStringList{u"t.iso"_s});
    for (const auto form : {TargetForm::GbkIso, TargetForm::MarcXml}) {
        TidyRun full(source, target, form);
        const FullDisk disk(100'000);
        EXPECT_NE(run(full), QString());
    }
    {
        TidyRun grows(source, target, TargetForm::GbkIso);
        ASSERT_TRUE(grows.open() && grows.step());
        QFile(source).resize(50);
        EXPECT_TRUE(run(grows).contains(u"没有记录结束符"_s));
    }
    for (const TargetForm form : {TargetForm::GbkIso, TargetForm::MarcXml}) {
        folder.write(u"source.iso"_s, QByteArray(sample() + bad).repeated(30));
        TidyRun rewritten(source, target, form);
        ASSERT_TRUE(rewritten.open());
        while (rewritten.result().out == 0)
            ASSERT_TRUE(rewritten.step().value());
        QFile file(source); // other contents of the same size
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write("9") == 1);
        file.close();
        EXPECT_TRUE(goOn(rewritten).contains(u"在读取中被改动了"_s));
    }
    TidyRun none(folder.write(u"source.iso"_s, "no record"), target, TargetForm::GbkIso);
    EXPECT_TRUE(run(none).contains(u"不是机读目录文件"_s));
    TidyRun nowhere(source, folder.path(u"none/t.iso"_s), TargetForm::GbkIso);
    EXPECT_NE(run(nowhere), QString());
    EXPECT_EQ(folder.names(), QStringList{u"t.iso"_s});
    EXPECT_TRUE(folder.read(u"t.iso"_s) == "kept");
    const QString same = u"整理目标文件不能为源文件！"_s;
    EXPECT_EQ(refuseTidy(source, folder.path(u"./source.iso"_s))->text, same);
    EXPECT_EQ(TidyFiles(u"a"_s).unreadable + TidyFiles(u"b.c/.iso"_s).ahead, u"a.badb.c/.iso.part");
    EXPECT_EQ(refuseTidy(folder.write(u"a.bad.iso"_s, "x"), folder.path(u"a.iso"_s))->text, same);
    EXPECT_FALSE(refuseTidy(source, target));
    ASSERT_TRUE(QFile::link(folder.path(u"nowhere"_s), folder.path(u"link.iso"_s)));
    EXPECT_EQ(TidyFiles(folder.path(u"link.iso"_s)).existing().size(), 1) << "a dangling link counts as existing";
}
