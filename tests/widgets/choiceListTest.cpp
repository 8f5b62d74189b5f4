// Keys and the mouse in lists and on buttons, and the texts of labels.
#include "widgets/choiceList.h"
#include "support/qtPrinters.h"
#include "support/showActive.h"
#include "widgets/button.h"
#include "widgets/layout.h"
#include "widgets/pacedLabel.h"
#include <QTest>

using namespace widgets;

namespace {

struct ChoiceListTest : testing::Test {
    ChoiceListTest() {
        list.fill({u"甲"_s, u"乙"_s}, 1);
        list.resize(200, 120);
        other.move(0, 130);
        window.resize(220, 160);
        showActive(window);
        list.setFocus();
        QObject::connect(&list, &ChoiceList::chosen, [this](const QString &line) { log.append(u"chosen " + line); });
        QObject::connect(&list, &ChoiceList::cancelled, [this] { log.append(u"cancelled"_s); });
        QObject::connect(&list, &ChoiceList::left, [this] { log.append(u"left"_s); });
    }
    QWidget window;
    ChoiceList list{u"list"_s, u"列表"_s, &window};
    QLineEdit other{&window};
    QStringList log;
};

TEST_F(ChoiceListTest, KeysAndTheMouseChooseCancelAndLeave) {
    const QPoint first = list.visualItemRect(list.item(0)).center();
    const std::pair<std::function<void()>, QString> steps[] = {
        {[&] { QTest::keyClick(&list, Qt::Key_Return); }, u"chosen 乙"_s},
        {[&] { QTest::keyClick(&list, Qt::Key_Up); }, u""_s},
        {[&] { QTest::keyClick(&list, Qt::Key_Enter); }, u"chosen 甲"_s},
        {[&] { QTest::keyClick(&list, Qt::Key_Escape); }, u"cancelled"_s},
        {[&] { QTest::mouseClick(list.viewport(), Qt::RightButton, {}, first); }, u"cancelled"_s},
        {[&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, first); }, u""_s},
        {[&] { QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, first); }, u"chosen 甲"_s},
        {[&] { other.setFocus(); }, u"left"_s},
        {[&] {
             list.hide();
             list.offer();
             EXPECT_TRUE(list.isVisible() && list.hasFocus());
         },
         u""_s},
        {[&] { list.setCurrentRow(-1); }, u""_s},
        {[&] { QTest::keyClick(&list, Qt::Key_Return); }, u""_s}, // no line is current
    };
    for (int number = 0; const auto &[act, expected] : steps) {
        log.clear();
        act();
        EXPECT_EQ(log.join(u' '), expected) << number++;
    }
    EXPECT_TRUE(list.hasFocus() && window.children().constLast() == &list) << "on top";
    const QSize whole = list.fullSize();
    list.resize(whole);
    QApplication::processEvents();
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(1))));
    list.tellKeys(u"回车选用"_s);
    EXPECT_GT(list.fullSize().height(), whole.height()) << "the line of keys needs room";
    list.dismiss();
    EXPECT_TRUE(list.isHidden() && list.count() == 0);
}

TEST(Button, IsPressedByEnterAndTheSpaceBar) {
    Button button(u"cmd"_s, u"&Q 退出"_s);
    int clicks = 0;
    QObject::connect(&button, &Button::clicked, [&] { ++clicks; });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A, Qt::Key_B, Qt::Key_C})
        QTest::keyClick(&button, key);
    EXPECT_EQ(clicks, 3);
    EXPECT_FALSE(button.autoDefault()) << "Enter belongs to the fields";
    EXPECT_EQ(button.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    const int caption = button.fontMetrics().horizontalAdvance(u"Q 退出"_s);
    EXPECT_TRUE(button.minimumSizeHint().width() > caption &&
                button.sizeHint().width() > button.minimumSizeHint().width());
}

TEST(PacedLabel, IsReadWithItsMeaning) {
    EXPECT_EQ(PacedLabel(u"labJinDu"_s, u"3 条"_s).text(), u"3 条");
    PacedLabel label(u"labJinDu"_s);
    label.setMeaning(u"进度"_s);
    EXPECT_EQ(label.accessibleName(), u"进度");
    label.setText(u"3 条"_s);
    EXPECT_EQ(label.accessibleName(), u"进度 3 条");
    label.setText({});
    EXPECT_EQ(label.accessibleName(), u"进度");
}

TEST(PacedLabel, ANumberTakesItsPlaceInTheText) {
    PacedLabel label(u"labJinDu"_s);
    label.setPacedNumber(u"已读 %1 条", 7);
    label.setPacedNumber(u"已读 %1 条", 12);
    EXPECT_EQ(label.pacedText(), u"已读 12 条");
    EXPECT_EQ(static_cast<QLabel &>(label).text(), u"");
    label.flush();
    EXPECT_EQ(static_cast<QLabel &>(label).text(), u"已读 12 条");
    label.setPacedNumber(u"%1", 13);
    EXPECT_TRUE(QTest::qWaitFor([&] { return static_cast<QLabel &>(label).text() == u"13"; })) << "without a call";
    label.setPacedText(u"读完"_s);
    EXPECT_EQ(label.pacedText(), u"读完");
}

TEST(PacedLabel, ALongTextIsPaintedWithoutItsMiddle) {
    PacedLabel label(u"labJinDu"_s);
    const QString text = u"/资料/供货/二〇二六年/一月/三十一日/甲乙丙丁.iso"_s;
    for (const int width : {90, 600}) {
        label.resize(width, 24);
        label.setText(text);
        QLabel shown(label.fontMetrics().elidedText(text, Qt::ElideMiddle, width));
        shown.resize(width, 24);
        EXPECT_EQ(label.grab().toImage(), shown.grab().toImage()) << width;
        QToolTip::showText({}, u"x"_s);
        QHelpEvent help(QEvent::ToolTip, {}, {});
        QCoreApplication::sendEvent(&label, &help);
        EXPECT_EQ(QToolTip::text(), width == 90 ? plainTip(text) : u"x"_s);
    }
}

} // namespace
