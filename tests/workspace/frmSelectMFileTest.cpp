#include "workspace/windows/frmSelectMFile.h"
#include "platform/textFile.h"
#include "support/scriptedHost.h"

using namespace workspace;

TEST(SelectMarcFile, RefusesAndOpens) {
    ScriptedHost host;
    QStringList shown;
    frmSelectMFile *dialog = nullptr;
    frmSelectMFile window(host, [&](const QString &file) {
        shown.append(file + u' ' + dialog->Frame1->title());
        EXPECT_FALSE(dialog->cmdClick[0]->isEnabled() || dialog->close());
    });
    dialog = &window;
    window.show();
    window.cmdClick[0]->click();
    window.Text1->setText(u" "_s + host.folder);
    window.cmdClick[0]->setFocus();
    window.cmdClick[0]->click(); // a folder is no file
    EXPECT_EQ(window.focusWidget(), window.Text1);
    EXPECT_EQ(host.texts(), (QStringList{u"没有选择机读目录数据文件！"_s, u"该机读目录数据文件不存在！"_s}));

    const QString path = host.folder + u"/书目 1.iso";
    ASSERT_TRUE(platform::writeTextFile(path, {}));
    host.willChoose(path);
    window.cmdLL->click();
    EXPECT_EQ(host.dialogs.last().title, u"打开marc文件对话框"_s);
    window.Text1->setText(u"  "_s + window.Text1->text() + u' ');
    window.cmdClick[0]->click();
    EXPECT_EQ(shown, QStringList{path + u" 正在预读,请稍候........."});
    EXPECT_EQ(window.Frame1->title(), QString());
    EXPECT_TRUE(window.cmdClick[0]->isEnabled());
    host.willChoose({});
    window.cmdLL->click();
    EXPECT_EQ(window.Text1->text(), QString());
    window.cmdClick[1]->click();
    EXPECT_FALSE(window.isVisible());
}
