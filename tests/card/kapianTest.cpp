#include "card/kapian.h"
#include "card/zdxsKaPian.h"
#include "support/qtPrinters.h"

using namespace card;

namespace {

// Returns field data to which a directory entry points; "$" represents the subfield delimiter.
QString field(const QString &subfields) {
    return u"##"_s + QString(subfields).replace(u'$', QChar(0x1F)) + QChar(0x1E);
}

Piece textOfA(QString &text) {
    return fieldTextA(text);
}

struct Row {
    Piece (*format)(QString &);
    QString subfields;
    QString expected;
    int boxes = 0;
};

} // namespace

TEST(Kapian, JoinsSubfieldsWithTheirPunctuation) {
    const QList<Row> rows{
        {textOfA, u"$a一$b二$A三$a四"_s, u"一 、四"_s},
        {textOfA, u"$a $a"_s, u"  、"_s},
        {Kapian010, u"$a7-5000-0001-3$b平装$dCNY12.00$z1-2"_s,
         u"ISBN 7-5000-0001-3（平装）:CNY12.00\r\n  无效的ISBN:1-2"_s},
        {Kapian010, u"$dCNY1$a1"_s, u":CNY1\r\n  ISBN 1"_s},
        {Kapian010, u"$z9 "_s, u"无效的ISBN:9"_s},
        {Kapian010, u"$b精装"_s, u"（精装）"_s},
        {Kapian200, u"$a甲$a乙$c丙$dB$e丁$f张三$g李四$h1$i戊$v2"_s, u"甲，乙，丙＝B：丁／张三；李四·1，戊．2"_s},
        {Kapian200, u"$f张三"_s, u""_s, 1},
        {Kapian200, u"$f张三$f李四$g王五$a题"_s, u"王五，题"_s, 3},
        {Kapian200, u"$a$f张三$a 题 "_s, u"题"_s, 1},
        {Kapian205, u"$a1版$a2版$f甲$f乙"_s, u"·—2版,甲；乙"_s},
        {Kapian205, u"$f甲"_s, u""_s},
        {Kapian206, u"$a1:500 $a1:900 "_s, u"·—1:500 、1:900"_s},
        {Kapian207, u"$aV.1$aV.2"_s, u"·—V.2"_s},
        {Kapian208, u"$a总谱$dS$dT"_s, u"·—总谱=S=T"_s},
        {Kapian208, u"$dS"_s, u""_s},
        {Kapian210, u"$a北京$b路1号$a上海$c甲社$d2001$e厂$f街$g印$h2002"_s,
         u"·—北京（路1号)；上海：甲社，2001（厂,街：印，2002）"_s},
        {Kapian210, u"$c甲社"_s, u"·—：甲社"_s},
        {Kapian210, u"$x"_s, u"·—"_s},
        {Kapian215, u"$a1册$a2册$c图1$c图2$d21cm$d22cm$e盘$e带"_s, u"\r\n  1册、2册：图2；21cm、22cm+盘、带"_s},
        {Kapian215, u"$d21cm "_s, u"\r\n  ；21cm "_s},
        {Kapian215, u"$x"_s, u""_s},
        {Kapian225, u"$f甲$a丛书$dS$e副$f乙$h1$i辑$v3$x1000"_s, u"丛书＝S：副／乙·1，辑；3，1000"_s},
        {Kapian327, u"$a上$b-$a下"_s, u"上·—下"_s},
        {Kapian686, u"$aX$aY$a"_s, u"X,Y,"_s},
    };
    for (const Row &row : rows) {
        QString text = field(row.subfields);
        const Piece piece = row.format(text);
        EXPECT_EQ(piece.text, row.expected) << row.subfields.toStdString();
        EXPECT_EQ(piece.boxes, QStringList(row.boxes, u"本条记录缺少题名，无法正常显示！"_s));
        EXPECT_FALSE(piece.failed);
    }
}

TEST(Kapian, ConsumesItsArgument) {
    QString text = field(u"$aTP$b旧$aX"_s);
    EXPECT_EQ(Kapian686(text).text, u"TP,X"_s);
    EXPECT_EQ(text, u"aX"_s);
    EXPECT_EQ(Kapian686(text).text, u""_s);
}

TEST(Kapian, FailsOnIncompleteSubfields) {
    const std::pair<QString, bool> cases[] = {
        {QString(), true},         {u"|"_s, false},
        {u"没有子字段|"_s, false}, {u"##$|"_s, true}, // a delimiter at the very end, on the first pass
        {u"##$a甲$|"_s, false},                       // a delimiter at the very end, on a later pass
        {u"##$a甲$$a乙|"_s, true},                    // two adjacent delimiters
    };
    for (const auto &[shown, fails] : cases) {
        QString text = QString(shown).replace(u'$', QChar(0x1F)).replace(u'|', QChar(0x1E));
        EXPECT_EQ(fieldTextA(text).failed, fails && !shown.isEmpty()) << shown.toStdString();
        EXPECT_EQ(Kapian327(text).failed, fails) << shown.toStdString();
    }
    QString titleless = field(u"$f甲$$a乙"_s);
    EXPECT_EQ(Kapian200(titleless).boxes.size(), 1) << "the box is shown before the fault";
}
