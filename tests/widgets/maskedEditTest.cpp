#include "widgets/maskedEdit.h"
#include "support/qtPrinters.h"
#include "support/showActive.h"
#include <QTest>

using namespace widgets;

namespace {

struct MaskedEditTest : testing::Test {
    MaskedEditTest() {
        other.move(0, 40);
        showActive(window);
        edit.setFocus();
    }
    QWidget window;
    MaskedEdit edit{u"lSql"_s, &window};
    QPushButton other{&window};
};

TEST_F(MaskedEditTest, TypingFillsAndBackspaceRestoresThePrompts) {
    edit.setMask(u"####-##-##"_s);
    edit.selectAll();
    QTest::keyClicks(&edit, u"2005x03"_s);
    EXPECT_EQ(edit.text(), u"2005-03-__"_s);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_EQ(edit.text(), u"2005-0_-__"_s);
    QInputMethodEvent composed;
    composed.setCommitString(u"２"_s);
    QCoreApplication::sendEvent(&edit, &composed);
    EXPECT_EQ(edit.text(), u"2005-0_-__"_s) << "only ASCII digits are accepted";
    QTest::keyClicks(&edit, u"912"_s);
    EXPECT_EQ(edit.text(), u"2005-09-12"_s);
    for (const auto &[copied, pasted] : {std::pair{u"2005-03"_s, u"2005-03-__"_s}, {u"20041231"_s, u"2004-12-31"_s}}) {
        QGuiApplication::clipboard()->setText(copied);
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(edit.text(), pasted);
    }
}

TEST_F(MaskedEditTest, ATextKeepsItsPositionsAndWithoutAMaskAllOfIt) {
    edit.setMask(u"####-##-##"_s);
    for (const auto &[text, shown] : {std::pair(u""_s, u"____-__-__"_s),
                                      {u"2005-03-09 12"_s, u"2005-03-09"_s},
                                      {u"_9/5x1"_s, u"_9_5-1_-__"_s},
                                      {u"2005103"_s, u"2005-03-__"_s}}) {
        edit.setText(text);
        EXPECT_EQ(edit.text(), shown);
        EXPECT_TRUE(text.isEmpty() || edit.cursorPosition() == 0);
    }
    edit.setMask({});
    EXPECT_EQ(edit.text(), QString());
    EXPECT_EQ(edit.accessibleName(), u"lSql");
    for (const QString &text : {u"-1/2_"_s, u"中"_s}) {
        edit.setText(text);
        EXPECT_EQ(edit.text(), text);
    }
    edit.selectAll();
    QTest::keyClicks(&edit, u"1#"_s);
    EXPECT_EQ(edit.text(), u"1#"_s);
    edit.setMask(u"##"_s);
    EXPECT_EQ(edit.text(), u"__"_s) << "a new mask starts empty";
}

TEST_F(MaskedEditTest, IsLeftOnceAndSelectsWhenItIsEntered) {
    int leaves = 0;
    QObject::connect(&edit, &MaskedEdit::left, [&] {
        ++leaves;
        edit.setText(QString());
        edit.setFocus(); // a rejected condition keeps the focus
        other.setFocus();
    });
    edit.setMask(u"####-##-##"_s);
    edit.setText(u"2005-__-__"_s);
    other.setFocus();
    EXPECT_EQ(leaves, 1);
    EXPECT_EQ(edit.text(), u"____-__-__"_s) << "an incomplete value can be left like any other";
    edit.setText(u"1999-__-__"_s);
    QTest::mouseClick(&edit, Qt::LeftButton);
    EXPECT_EQ(edit.selectedText().size(), 10);
    edit.deselect();
    QTest::mouseClick(&edit, Qt::LeftButton);
    EXPECT_FALSE(edit.hasSelectedText()) << "a click in the field itself moves the cursor only";
    edit.selectAll();
    QTest::keyClicks(&edit, u"7"_s);
    EXPECT_EQ(edit.text(), u"7___-__-__"_s);
    for (const auto reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        QFocusEvent away(QEvent::FocusOut, reason), back(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(&edit, &away);
        EXPECT_EQ(leaves, 1) << "another program or a popup does not leave the field";
        QCoreApplication::sendEvent(&edit, &back);
        EXPECT_FALSE(edit.hasSelectedText());
    }
    other.setFocus();
    EXPECT_EQ(leaves, 2);
}

} // namespace
