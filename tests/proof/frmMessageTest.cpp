#include "proof/windows/frmMessage.h"
#include "platform/codepage936.h"
#include "platform/paths.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"

namespace {

struct FrmMessageTest : testing::Test {
    ScriptedHost host;
    proof::frmMessage window{host};
    FrmMessageTest() { window.show(); }
    QByteArray saved() {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
        QFile file(host.folder + u"/errorlog.txt");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

} // namespace

TEST_F(FrmMessageTest, SavesTheTextOfTheBox) {
    const QString longLine = u"长"_s.repeated(20000);
    const QStringList texts{
        u""_s,
        u"Error:200字段\r\n\r\n【010$a】错\r\n"_s,
        u"00037\x1F"
        u"a题\x1E\x1D"_s,
        u"lone \n and \r and \0 and \t"_s,
        longLine + u"\r\n" + longLine,
    };
    for (const QString &text : texts) {
        window.setText(text);
        EXPECT_EQ(saved(), platform::encode(text) + "\r\n") << text.left(40).toStdString();
    }
    EXPECT_EQ(host.lastBox().text, u"报告列表保存在文件" + platform::pathWithSlash(host.folder) + u"errorlog.txt中");
    EXPECT_EQ(host.lastBox().title, u"操作提示");
    EXPECT_EQ(host.lastBox().icon, platform::Icon::Information);
}

TEST_F(FrmMessageTest, SavesWhatTheUserTypedAndPasted) {
    window.setText(u"一\r\n"_s);
    window.messageText->moveCursor(QTextCursor::End);
    QGuiApplication::clipboard()->setText(u"二\n三\x1F"_s);
    window.messageText->paste();
    QTest::keyClick(window.messageText, Qt::Key_Return);
    EXPECT_EQ(saved(), platform::encode(u"一\r\n二\r\n三\x1F\r\n\r\n"));

    window.messageText->selectAll();
    window.messageText->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"一\n二\n三\x1F\n");
    window.messageText->undo();
    window.messageText->undo();
    EXPECT_EQ(window.messageText->text(), u"一\r\n");
}

TEST_F(FrmMessageTest, HasSpaceForTwentyLines) {
    const QFontMetrics metrics(window.messageText->font());
    EXPECT_GE(window.messageText->sizeHint().width(), 40 * metrics.horizontalAdvance(u'字'));
    EXPECT_GE(window.messageText->sizeHint().height(), 20 * metrics.lineSpacing());
    EXPECT_EQ(WindowState(window).grown({90, 60}), u"messageText wh"_s);
    EXPECT_EQ(window.messageText->accessibleName(), u"报告内容");
}

TEST_F(FrmMessageTest, BreaksLongLinesOnlyOnScreen) {
    window.setText(QString(4096, u'a') + QString(10, u'b'));
    QTextCursor cursor(window.messageText->document()->firstBlock());
    cursor.movePosition(QTextCursor::EndOfBlock);
    window.messageText->setTextCursor(cursor);
    QTest::keyClick(window.messageText, Qt::Key_Return);
    EXPECT_EQ(window.messageText->text(), QString(4096, u'a') + u"\r\n" + QString(10, u'b'));
}

TEST_F(FrmMessageTest, StaysOpenIfTheFileCannotBeWritten) {
    ASSERT_TRUE(QDir(host.folder).mkdir(u"errorlog.txt"_s));
    window.setText(u"报告"_s);
    window.cmdClick[0]->click();
    ASSERT_EQ(host.boxes.size(), 1);
    EXPECT_EQ(host.lastBox().title, u"操作提示");
    EXPECT_TRUE(!host.lastBox().text.startsWith(u"报告列表") && window.isVisible());
    EXPECT_EQ(window.messageText->text(), u"报告");
    QTest::keyClick(window.messageText, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}
