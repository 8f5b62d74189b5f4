#include "card/showKapian.h"
#include "card/frmMarcKaPian.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include "support/scriptedHost.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using card::Card;
using card::showKapian;

namespace {

using Fields = QList<std::pair<QString, QString>>; // tag and subfields, "$" for the delimiter

QString directoryEntry(const QString &tag, qsizetype length, qsizetype start) {
    return tag + platform::padZero(4, int(length)) + platform::padZero(5, int(start));
}

QString recordWith(const QString &base, const QString &directory, const QString &data) {
    return u"00000nam0 22" + base + u"   450 " + directory + u'\x1E' + data + u'\x1D';
}

QString recordOf(const Fields &fields) {
    QString directory;
    QString data;
    for (const auto &[tag, subfields] : fields) {
        const QString text = u"  " + QString(subfields).replace(u'$', QChar(0x1F)) + u'\x1E';
        directory += directoryEntry(tag, platform::gbkLength(text), platform::gbkLength(data));
        data += text;
    }
    return recordWith(platform::padZero(5, 25 + int(directory.size())), directory, data);
}

// The card's text without the parts that every card has; "|" for a line break.
QString cardOf(const Fields &fields) {
    return showKapian(recordOf(fields)).text.value_or(u"nothing"_s).replace(u"\r\n"_s, u"|"_s);
}

const Fields worked{
    {u"010"_s, u"$a7-5000-0001-3$dCNY12.00"_s},
    {u"200"_s, u"$a数据库原理$f张三著"_s},
    {u"210"_s, u"$a北京$c科学出版社$d2001"_s},
    {u"215"_s, u"$a120页$d21cm"_s},
    {u"225"_s, u"$a计算机丛书$v3"_s},
    {u"300"_s, u"$a附录"_s},
    {u"606"_s, u"$a数据库"_s},
    {u"606"_s, u"$a系统"_s},
    {u"690"_s, u"$aTP311"_s},
    {u"701"_s, u"$a张三"_s},
};

const QString workedCard = u"\r\n\r\n"
                           u"  数据库原理／张三著·—北京：科学出版社，2001\r\n"
                           u"  120页；21cm·—（计算机丛书；3）\r\n"
                           u"\r\n"
                           u"  附录\r\n"
                           u"  ISBN 7-5000-0001-3:CNY12.00\r\n"
                           u"\r\n"
                           u"  Ⅰ.①数···②计···Ⅱ.张···Ⅲ.①数据库 ②系统 Ⅳ.TP311"_s;

} // namespace

TEST(ShowKapian, MakesTheWorkedCard) {
    const Card card = showKapian(recordOf(worked));
    EXPECT_EQ(card.text, workedCard);
    EXPECT_TRUE(card.boxes.isEmpty() && card.fault.isEmpty());
    Fields backwards = worked; // but for the two 606, which count in directory order
    std::reverse(backwards.begin(), backwards.end());
    std::swap(backwards[2], backwards[3]);
    EXPECT_EQ(showKapian(recordOf(backwards)).text, workedCard);
}

TEST(ShowKapian, FillsItsSlots) {
    const std::pair<QString, QString> title{u"200"_s, u"$a题"_s};
    struct Case {
        Fields fields;
        QString expected;
    };
    const QList<Case> cases{
        {{title}, u"||  题||  ||  Ⅰ.题··· "_s},
        {{title, {u"200"_s, u"$a名"_s}}, u"||  名||  ||  Ⅰ.名··· "_s},
        {{title, {u"010"_s, u"$a1"_s}, {u"010"_s, u"$a2"_s}}, u"||  题||  ISBN 1|  ISBN 2||  Ⅰ.题··· "_s},
        {{title, {u"205"_s, u"$a甲"_s}, {u"205"_s, u"$a乙"_s}, {u"230"_s, u"$a丙"_s}, {u"230"_s, u"$a丁"_s}},
         u"||  题·—甲；·—乙·—丙；丁||  ||  Ⅰ.题··· "_s},
        {{title, {u"215"_s, u"$a1"_s}, {u"215"_s, u"$a2"_s}}, u"||  题|  1|  |  2||  ||  Ⅰ.题··· "_s},
        {{title, {u"225"_s, u"$a丛"_s}, {u"225"_s, u"$a书"_s}}, u"||  题·—（丛）·—（书）||  ||  Ⅰ.①题···②丛··· "_s},
        {{title, {u"300"_s, u"$b无"_s}, {u"301"_s, u"$a注"_s}}, u"||  题||  ·—注||  ||  Ⅰ.题··· "_s},
        // A 324 throws away the notes before it; 311 is not read.
        {{title,
          {u"300"_s, u"$a甲"_s},
          {u"324"_s, u"$a乙"_s},
          {u"324"_s, u"$a丙"_s},
          {u"311"_s, u"$a丁"_s},
          {u"327"_s, u"$a戊 "_s},
          {u"337"_s, u"$a己"_s}},
         u"||  题||  丙·—戊·—己||  ||  Ⅰ.题··· "_s},
        // A filled 686 takes up a number with nothing behind it, an empty one does not.
        {{title, {u"686"_s, u"$aX"_s}, {u"690"_s, u"$aTP"_s}}, u"||  题||  ||  Ⅰ.题··· Ⅳ.① ②TP"_s},
        {{title, {u"686"_s, u"$bX"_s}, {u"690"_s, u"$aTP"_s}}, u"||  题||  ||  Ⅰ.题··· Ⅳ.TP"_s},
        {{title, {u"701"_s, u"$b张"_s}, {u"711"_s, u"$a李四"_s}, {u"702"_s, u"$a张三"_s}},
         u"||  题||  ||  Ⅰ.题···Ⅱ.①张··· ②李··· "_s},
        {{{u"200"_s, u"$a "_s}}, u"没有正题名,无法显示卡片!"_s},
        {{}, u"没有正题名,无法显示卡片!"_s},
    };
    for (const Case &c : cases)
        EXPECT_EQ(cardOf(c.fields), c.expected);
}

TEST(ShowKapian, DropsTheEleventhItem) {
    Fields fields{{u"200"_s, u"$a题"_s}, {u"610"_s, u"$a末"_s}};
    for (int i = 1; i <= 10; ++i)
        fields.append({u"606"_s, u"$a题" + QString::number(i)});
    EXPECT_EQ(cardOf(fields), u"||  题||  ||  Ⅰ.题···Ⅲ.①题1 ②题2③题3④题4⑤题5⑥题6⑦题7⑧题8⑨题9⑩题10 "_s);
}

// Entries that point at one long note over and over: the card stays in proportion to the record.
TEST(ShowKapian, EndsWhereADirectoryAsksForTheSameBytesOverAndOver) {
    const QString data = u"1 \x1F"
                         "a题\x1E  \x1F"
                         "a"_s +
                         u"x"_s.repeated(9990) + u'\x1E';
    const QString directory = directoryEntry(u"200"_s, 7, 0) + directoryEntry(u"300"_s, 9995, 7).repeated(60);
    const QString record = recordWith(platform::padZero(5, 25 + int(directory.size())), directory, data);
    const QString text = showKapian(record).text.value_or(QString());
    EXPECT_TRUE(text.contains(u"题"_s));
    EXPECT_GT(text.size(), 10 * record.size());
    EXPECT_LT(text.size(), 17 * record.size());
}

TEST(ShowKapian, ShowsTheBoxesOnTheWay) {
    const Card card = showKapian(recordOf({{u"200"_s, u"$f甲$g乙"_s}, {u"200"_s, u"$f丙"_s}}));
    EXPECT_EQ(card.boxes, QStringList(3, u"本条记录缺少题名，无法正常显示！"_s));
    EXPECT_EQ(card.text, u"没有正题名,无法显示卡片!"_s);
}

TEST(ShowKapian, EndsWithABoxWhereTheRecordIsBroken) {
    const QString title = directoryEntry(u"200"_s, 7, 0);
    const QString data = u"  \x1F"
                         u"a题\x1E"_s;
    const QString far(40000, u'-');
    struct Case {
        QString record;
        bool hasText;
        QStringList boxes;
        QString fault; // a word of it
    };
    const QList<Case> cases{
        {recordWith(u"00037"_s, title, data), true, {}, u""_s},
        {recordWith(u"00037"_s, title + u'0', data), false, {u"地址目次区数据出现错误，校验失败！"_s}, u""_s},
        {recordWith(u"000a7"_s, title, data), false, {}, u"基地址"_s},
        {recordWith(u"32768"_s, title, data), false, {}, u"32767"_s},
        {recordWith(u"00037"_s, title.repeated(2729), data), false, {}, u"32767"_s},
        {u"00037"_s, false, {}, u"基地址"_s},
        {QString(), false, {}, u"基地址"_s},
        {recordWith(u"00037"_s, title, data).remove(u'\x1E'), false, {}, u"地址目次区"_s},
        {recordWith(u"00037"_s, directoryEntry(u"200"_s, 7, 40000), far + data), true, {}, u""_s},
        {recordWith(u"00037"_s, u"200-00100000"_s, data), false, {}, u"字段200"_s},
        {recordWith(u"00037"_s, u"200000000000"_s, data), false, {}, u"字段200"_s},
        {recordWith(u"00037"_s, u"2000007-9999"_s, data), false, {}, u"字段200"_s},
        {recordWith(u"00037"_s, u"2009999 0 00"_s, data), true, {}, u""_s}, // cut short by the record's end
        {recordOf({{u"200"_s, u"$f甲$$a乙"_s}}), false, {u"本条记录缺少题名，无法正常显示！"_s}, u"字段200"_s},
        {recordOf({{u"200"_s, u"$a甲"_s}, {u"686"_s, u"$aX$"_s}}), false, {}, u"字段686"_s}, // on the second call
    };
    for (const Case &c : cases) {
        const Card card = showKapian(c.record);
        const std::string which = c.record.first(std::min<qsizetype>(c.record.size(), 60)).toStdString();
        EXPECT_EQ(card.text.has_value(), c.hasText) << which;
        EXPECT_EQ(card.boxes, c.boxes) << which;
        EXPECT_EQ(card.fault.isEmpty(), c.fault.isEmpty()) << which;
        EXPECT_TRUE(card.fault.contains(c.fault)) << which;
    }
}

TEST(FrmMarcKaPian, ShowsBothViewsAndCopiesTheRecordItself) {
    ScriptedHost host;
    card::frmMarcKaPian window(host);
    window.marcRecord = recordOf(worked);
    window.showMode = u"标准"_s;
    window.show();
    EXPECT_EQ(window.Text1->text(), window.marcRecord);
    EXPECT_TRUE(window.Text1->toPlainText().contains(u"‡a数据库原理‡f张三著¶"_s));
    window.Text1->selectAll();
    window.Text1->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), window.marcRecord);

    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(window.Text1->text(), workedCard);
    QTest::keyClick(window.Text1, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(host.boxes.isEmpty());
}

TEST(FrmMarcKaPian, KeepsItsTextWhereThereIsNoCard) {
    ScriptedHost host;
    card::frmMarcKaPian window(host);
    window.marcRecord = recordOf({{u"200"_s, u"$f甲$$"_s}});
    window.show();
    EXPECT_EQ(window.Text1->text(), QString());
    ASSERT_EQ(host.boxes.size(), 2);
    EXPECT_TRUE(host.boxes[0].title.isEmpty() && host.boxes[0].icon == platform::Icon::None);
    window.cmdclick[0]->click();
    window.cmdclick[1]->click();
    EXPECT_EQ(window.Text1->text(), window.marcRecord);
    EXPECT_EQ(host.boxes.size(), 4);
}
