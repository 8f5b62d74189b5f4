#include "card/showKapian.h"
#include "card/windows/frmMarcKaPian.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"

using card::Card;
using card::showKapian;

namespace {

// Builds a record from "tag=subfields" pieces separated by "|".
QString recordWith(QString fields) {
    return recordOf(fields.replace(u'=', u"=  "_s));
}

// Returns the text of the card, with "|" for line breaks.
QString cardOf(const QString &fields) {
    return showKapian(recordWith(fields)).text.value_or(u"nothing"_s).replace(u"\r\n"_s, u"|"_s);
}

const QString worked = u"010=$a7-5000-0001-3$dCNY12.00|200=$a数据库原理$f张三著|210=$a北京$c科学出版社$d2001|"
                       "215=$a120页$d21cm|225=$a计算机丛书$v3|300=$a附录|606=$a数据库|606=$a系统|690=$aTP311|"
                       "701=$a张三"_s;

const QString workedCard = u"||  数据库原理／张三著·—北京：科学出版社，2001|  120页；21cm·—（计算机丛书；3）||  附录|"
                           "  ISBN 7-5000-0001-3:CNY12.00||  Ⅰ.①数···②计···Ⅱ.张···Ⅲ.①数据库 ②系统 Ⅳ.TP311"_s;

const QString title = u"200=$a题|"_s;

} // namespace

TEST(ShowKapian, FillsItsSlots) {
    QStringList backwards = worked.split(u'|'); // except the two 606, which count in directory order
    std::ranges::reverse(backwards);
    backwards.swapItemsAt(2, 3);
    QString subjects = u"610=$a末"_s;
    for (int i = 1; i <= 10; ++i)
        subjects += u"|606=$a题" + QString::number(i);
    const std::pair<QString, QString> cases[] = {
        {worked, workedCard},
        {backwards.join(u'|'), workedCard},
        {title, u"||  题||  ||  Ⅰ.题··· "_s},
        {title + u"200=$a名", u"||  名||  ||  Ⅰ.名··· "_s},
        {title + u"010=$a1|010=$a2", u"||  题||  ISBN 1|  ISBN 2||  Ⅰ.题··· "_s},
        {title + u"205=$a甲|205=$a乙|230=$a丙|230=$a丁", u"||  题·—甲；·—乙·—丙；丁||  ||  Ⅰ.题··· "_s},
        {title + u"215=$a1|215=$a2", u"||  题|  1|  |  2||  ||  Ⅰ.题··· "_s},
        {title + u"225=$a丛|225=$a书", u"||  题·—（丛）·—（书）||  ||  Ⅰ.①题···②丛··· "_s},
        {title + u"300=$b无|301=$a注", u"||  题||  ·—注||  ||  Ⅰ.题··· "_s},
        // A 324 discards the preceding notes; 311 is not read.
        {title + u"300=$a甲|324=$a乙|324=$a丙|311=$a丁|327=$a戊 |337=$a己", u"||  题||  丙·—戊·—己||  ||  Ⅰ.题··· "_s},
        // A 686 with $a takes the next number with no text after it; one without $a takes no number.
        {title + u"686=$aX|690=$aTP", u"||  题||  ||  Ⅰ.题··· Ⅳ.① ②TP"_s},
        {title + u"686=$bX|690=$aTP", u"||  题||  ||  Ⅰ.题··· Ⅳ.TP"_s},
        {title + u"701=$b张|711=$a李四|702=$a张三", u"||  题||  ||  Ⅰ.题···Ⅱ.①张··· ②李··· "_s},
        // The eleventh subject is dropped.
        {title + subjects, u"||  题||  ||  Ⅰ.题···Ⅲ.①题1 ②题2③题3④题4⑤题5⑥题6⑦题7⑧题8⑨题9⑩题10 "_s},
        {u"200=$a "_s, u"没有正题名,无法显示卡片!"_s},
        {u""_s, u"没有正题名,无法显示卡片!"_s},
    };
    for (const auto &[fields, expected] : cases)
        EXPECT_EQ(cardOf(fields), expected);
}

// Many entries that point to one long note: the size of the card stays proportional to the record.
TEST(ShowKapian, StaysBoundedIfADirectoryRepeatsTheSameBytes) {
    QString record = recordWith(title + u"300=$a" + u"x"_s.repeated(9990));
    record.insert(36, record.mid(36, 12).repeated(59)).replace(12, 5, platform::padZero(5, 25 + 61 * 12));
    const QString text = showKapian(record).text.value_or(QString());
    EXPECT_TRUE(text.contains(u"题"_s));
    EXPECT_GT(text.size(), 10 * record.size());
    EXPECT_LT(text.size(), 17 * record.size());
}

TEST(ShowKapian, EndsWithABoxIfTheRecordIsBroken) {
    const QString entry = u"200000700000"_s;
    const QString data = u"  \x1F"
                         u"a题\x1E"_s;
    const QString noTitle = u"本条记录缺少题名，无法正常显示！"_s;
    const auto based = [&](QStringView base, const QString &directory) {
        return recordWithDirectory(directory, data).replace(12, 5, base.toString());
    };
    // Record, whether there is a text, the boxes shown, and part of the fault message.
    const std::tuple<QString, bool, QStringList, QString> cases[] = {
        {recordWithDirectory(entry, data), true, {}, u""_s},
        {based(u"00037", entry + u'0'), false, {u"地址目次区数据出现错误，校验失败！"_s}, u""_s},
        {based(u"000a7", entry), false, {}, u"基地址"_s},
        {based(u"32768", entry), false, {}, u"32767"_s},
        {based(u"00037", entry.repeated(2729)), false, {}, u"32767"_s},
        {QString(), false, {}, u"基地址"_s},
        {recordWithDirectory(u"200000740000"_s, QString(40000, u'-') + data), true, {}, u""_s},
        {based(u"00037", u"200-00100000"_s), false, {}, u"字段200"_s},
        {based(u"00037", u"200000000000"_s), false, {}, u"字段200"_s},
        {based(u"00037", u"2000007-9999"_s), false, {}, u"字段200"_s},
        {based(u"00037", u"2009999 0 00"_s), true, {}, u""_s}, // ends with the record
        {recordWith(u"200=$f甲$g乙|200=$f丙"_s), true, {noTitle, noTitle, noTitle}, u""_s},
        {recordWith(u"200=$f甲$$a乙"_s), false, {noTitle}, u"字段200"_s},
        {recordWith(u"200=$a甲|686=$aX$"_s), false, {}, u"字段686"_s}, // in its second call
    };
    for (const auto &[record, hasText, boxes, fault] : cases) {
        const Card card = showKapian(record);
        EXPECT_EQ(card.text.has_value(), hasText) << record.left(60).toStdString();
        EXPECT_EQ(card.boxes, boxes) << record.left(60).toStdString();
        EXPECT_EQ(card.fault.isEmpty(), fault.isEmpty()) << record.left(60).toStdString();
        EXPECT_TRUE(card.fault.contains(fault)) << record.left(60).toStdString();
    }
}

TEST(FrmMarcKaPian, KeepsItsTextIfThereIsNoCard) {
    ScriptedHost host;
    card::frmMarcKaPian window(host);
    window.marcRecord = recordWith(u"200=$f甲$$"_s);
    window.show();
    EXPECT_EQ(window.Text1->text(), QString());
    ASSERT_EQ(host.boxes.size(), 2);
    EXPECT_TRUE(host.boxes[0].title.isEmpty() && host.boxes[0].icon == platform::Icon::None);
    window.cmdclick[0]->click();
    window.cmdclick[1]->click();
    EXPECT_EQ(window.Text1->text(), window.marcRecord);
    EXPECT_TRUE(window.Text1->toPlainText().contains(u"¶  ‡f甲‡‡¶")) << window.Text1->toPlainText().toStdString();
    window.Text1->selectAll();
    window.Text1->copy(); // the record's own characters, not the signs
    EXPECT_EQ(QGuiApplication::clipboard()->text(), window.marcRecord);
    EXPECT_EQ(host.boxes.size(), 4);
    window.Text1->moveCursor(QTextCursor::Start);
    QTest::keyClick(window.Text1, Qt::Key_Right); // no other record
    EXPECT_EQ(window.Text1->textCursor().position(), 1) << "the key moves the cursor";
    EXPECT_TRUE(window.Text1->isReadOnly() && window.Text1->accessibleName() == u"记录内容");

    QList<int> steps;
    window.step = [&](int by) {
        steps.append(by);
        return by > 0 ? std::optional(recordWith(u"200=1 $a甲"_s)) : std::nullopt;
    };
    QTest::keyClick(window.Text1, Qt::Key_Right);
    EXPECT_TRUE(window.Text1->text().contains(u'甲') && window.Text1->text() != window.marcRecord) << "the same view";
    window.cmdclick[0]->click();
    QTest::keyClick(window.Text1, Qt::Key_Left);
    QTest::keyClick(window.Text1, Qt::Key_Right);
    QTest::keyClick(window.Text1, Qt::Key_Right, Qt::ShiftModifier); // selects
    EXPECT_EQ(window.Text1->text(), recordWith(u"200=1 $a甲"_s));
    EXPECT_EQ(steps, (QList<int>{1, -1, 1}));
    window.Text1->moveCursor(QTextCursor::Start);
    QTest::keyClick(window.Text1, Qt::Key_Left);
    QTest::keyClick(window.Text1, Qt::Key_Right);
    EXPECT_EQ(window.Text1->textCursor().position(), 0) << "a key that pages does not move the cursor";

    window.cmdclick[2]->click();
    EXPECT_FALSE(window.isVisible());
    window.marcRecord = recordWith(u"200=$f甲$$"_s);
    window.show();
    EXPECT_EQ(window.Text1->text(), QString()) << "not the record before";
}

// The text is within the margins of a card in the middle, or fills the window, in any size of the window.
TEST(FrmMarcKaPian, TheTextIsOnACard) {
    ScriptedHost host;
    card::frmMarcKaPian window(host);
    window.marcRecord = recordWith(u"200=$a题"_s);
    showActive(window);
    EXPECT_TRUE(window.Text1->hasFocus());
    EXPECT_GE(window.Text1->sizeHint().height(), 22 * window.Text1->fontMetrics().lineSpacing());
    EXPECT_GE(window.Text1->sizeHint().width(), 40 * window.Text1->fontMetrics().horizontalAdvance(u'字'));
    for (const QSize &more : {QSize(), QSize(60, 0), QSize(0, 60)}) {
        window.resize(window.size() + more);
        QApplication::processEvents();
        window.cmdclick[1]->click();
        QWidget *face = window.Text1->parentWidget();
        const QRect text = window.Text1->geometry();
        EXPECT_TRUE(face->rect().adjusted(5, 5, -5, -5).contains(text)) << text.width() << ' ' << text.height();
        EXPECT_NEAR(text.center().x(), face->rect().center().x(), 2);
        EXPECT_EQ(window.Text1->frameShape(), QFrame::NoFrame);
        const QImage picture = face->grab().toImage();
        const QColor paper = face->palette().color(QPalette::Base);
        EXPECT_EQ(picture.pixelColor(text.left() - 3, text.center().y()), paper) << "the margin of the card";
        bool hole = false;
        for (int y = text.bottom() + 1; y < picture.height(); ++y)
            hole |= picture.pixelColor(text.center().x(), y) == face->palette().color(QPalette::Window);
        EXPECT_TRUE(hole && picture.pixelColor(text.left(), text.bottom() + 5) == paper);
        window.cmdclick[0]->click();
        EXPECT_EQ(window.Text1->geometry(), face->rect());
        window.resize(window.size() + more);
        QApplication::processEvents();
        EXPECT_EQ(window.Text1->geometry(), face->rect());
    }
}
