#include "platform/codepage936.h"
#include "support/qtPrinters.h"
#include "tools/recordAssembler.h"
#include "tools/taggedText.h"
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Conversion {
    int exitCode;
    QByteArray target; // null where no file was written
    QByteArray complaint;
};

Conversion convert(const QByteArray &utf8) {
    const QTemporaryDir folder;
    QFile source(folder.filePath(u"in.txt"_s));
    EXPECT_TRUE(source.open(QIODevice::WriteOnly) && source.write(utf8) == utf8.size());
    source.close();
    QProcess tool;
    tool.start(QStringLiteral(PROGRAM_FOLDER "/convertText"), {source.fileName(), folder.filePath(u"out"_s)});
    EXPECT_TRUE(tool.waitForFinished());
    QFile target(folder.filePath(u"out"_s));
    return {tool.exitCode(), target.open(QIODevice::ReadOnly) ? target.readAll() : QByteArray(),
            tool.readAllStandardError()};
}

// Bytes of a text in which "$", "|" and "%" stand for the separators.
QByteArray marked(const QString &text) {
    return platform::encode(text).replace('$', '\x1F').replace('|', '\x1E').replace('%', '\x1D');
}

} // namespace

TEST(ConvertText, WritesGbkWithCrLf) {
    const Conversion done = convert("[200] 题名\n$a 正题名\r\n\n");
    EXPECT_EQ(done.exitCode, 0);
    EXPECT_EQ(done.target, platform::encode(u"[200] 题名\r\n$a 正题名\r\n\r\n"));
}

TEST(ConvertText, RefusesWhatTheCodePageLacks) {
    for (const char *text : {"好\n坏ë\n", "好\n坏\xF0\xA0\x80\x80\n", "\xB0\xA1"}) {
        const Conversion refused = convert(text);
        EXPECT_EQ(refused.exitCode, 1);
        EXPECT_TRUE(refused.target.isNull());
        EXPECT_TRUE(refused.complaint.contains("line 2") || refused.complaint.contains("UTF-8"))
            << refused.complaint.data();
    }
}

TEST(TaggedText, GivesTheRecordThatItShows) {
    const auto text = tools::parseTaggedText(u"; remark\nLDR nam0# ###\n001 12\n100 ## $aa#b\n200 1# $aC#$f著\n"
                                             "461 #0 $1001 7$1200 1#$a集$v2\n"_s);
    ASSERT_EQ(text.error, QString());
    ASSERT_EQ(text.records.size(), 1);
    EXPECT_EQ(tools::assemble(text.records[0]).value_or(QByteArray()),
              marked(u"00119nam0 2200073   450 001000300000100000800003200001100011461002300022|"
                     "12|  $aa b|1 $aC#$f著| 0$10017$12001 $a集$v2|%"_s));
    EXPECT_FALSE(tools::assemble({u"nam0    "_s, {{u"200"_s, u"1 aë"_s}}}));
}

TEST(TaggedText, NamesTheLineThatIsMalformed) {
    for (const auto &line : {u"200 1#$a题名"_s, u"20x 1# $a题名"_s, u"200 1# 题名"_s, u"200 1# $a"_s,
                             u"461 #0 $12001#$a"_s, u"LDR nam0# ###"_s, u"461 #0 $1200 1# $a集"_s, u"00"_s})
        EXPECT_EQ(tools::parseTaggedText(u"\nLDR nam0# ###\n001 1\n"_s + line).error, u"line 4: "_s + line);
    EXPECT_EQ(tools::parseTaggedText(u"LDR nam0####\n"_s).error, u"line 1: LDR nam0####"_s);
}

TEST(RecordAssembler, WritesNinesWhereANumberIsTooWide) {
    QByteArray digits;
    tools::appendNumber(digits, 42, 4);
    tools::appendNumber(digits, 9999, 4);
    tools::appendNumber(digits, 10000, 4);
    EXPECT_EQ(digits, QByteArray("004299999999"));
}
