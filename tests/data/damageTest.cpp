#include "shippedFiles.h"
#include "support/qtPrinters.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Row {
    QString file;
    QList<bool> whole; // for each line ended by CR LF: is it one whole record?
};

} // namespace

TEST(DamageFiles, AreDamagedWhereTheyShouldBeAndNowhereElse) {
    const QList<Row> rows = {
        {u"five.iso"_s, {true, true, true, true, true}},
        {u"empty.iso"_s, {}},
        {u"directory.iso"_s, {true, false, true}},
        {u"offsets.iso"_s, {false, false, true}},
        {u"numbers.iso"_s, {false, false, false, true}},
        {u"noterminator.iso"_s, {true, false, true}},
        {u"unfinished.iso"_s, {true, true}},
        {u"emptylines.iso"_s, {false, false, true, false, false, true, false, true, false}},
        {u"oneline.iso"_s, {}},
        {u"severalonaline.iso"_s, {false, true, false}},
        {u"linefeeds.iso"_s, {}},
        {u"leadbyte.iso"_s, {false, false, false, true}},
        {u"nul.iso"_s, {true, false, true}},
        {u"utf8.iso"_s, {false, false, false}},
        {u"longfield.iso"_s, {true, false, false, true}},
        {u"longrecord.iso"_s, {true, false, true}},
    };
    for (const Row &row : rows) {
        QList<bool> whole;
        for (const QByteArray &line : recordLines(builtFile(u"samples/"_s + row.file)))
            whole.append(checkedFields(line).fault.isEmpty());
        EXPECT_EQ(whole, row.whole) << qPrintable(row.file);
    }
}

TEST(DamageFiles, HoldWhatTheirNamesSay) {
    const QByteArray five = builtFile(u"samples/five.iso"_s);
    const QByteArray first = recordLines(five).value(0);
    EXPECT_EQ(builtFile(u"samples/oneline.iso"_s), QByteArray(five).replace("\r\n", ""));
    EXPECT_EQ(builtFile(u"samples/linefeeds.iso"_s), QByteArray(five).replace("\r\n", "\n"));
    const QByteArray wrapped = builtFile(u"samples/wrapped.iso"_s);
    EXPECT_GT(wrapped.count("\r\n"), 20);
    EXPECT_TRUE(QByteArray(wrapped).replace("\r\n", "").startsWith(first));
    EXPECT_TRUE(builtFile(u"samples/utf16.iso"_s).startsWith(QByteArray("\xFF\xFE\x30", 3)));
    EXPECT_GT(builtFile(u"samples/longrecord.iso"_s).size(), 100000);
    const QByteArray damaged = recordLines(builtFile(u"samples/directory.iso"_s)).value(1);
    EXPECT_NE((damaged.indexOf('\x1E') - 24) % 12, 0);
}
