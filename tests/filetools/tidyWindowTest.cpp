#include "filetools/files.h"
#include "filetools/windows/frmTidy.h"
#include "support/fullDisk.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"

using namespace filetools;
using platform::Answer;

namespace {

struct TidyDesk {
    files::Folder folder;
    QString source = folder.write(u"source.iso"_s, recordOf(u"200=10$a数据𠮷"_s).toUtf8().repeated(5));
    QString tidied = QString(recordOf(u"200=10$a数据?"_s) + u"\r\n").repeated(5);
    ScriptedHost host;
    std::unique_ptr<frmTidy> form = std::make_unique<frmTidy>(host, source);

    TidyDesk() {
        form->show();
        QApplication::setActiveWindow(form.get());
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    void letLook() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form->LabFacts->isLooking(); }));
    }
    void leave() {
        host.willAnswer(Answer::Yes);
        form->reject();
        EXPECT_FALSE(form->isVisible());
    }
};

TEST(FrmTidy, TellsTheFactsAndTidiesByTheKeyboardAlone) {
    TidyDesk desk;
    frmTidy &form = *desk.form;
    desk.letLook();
    EXPECT_EQ(form.LabFacts->accessibleName(),
              u"编码：UTF-8（本程序需要 GBK）　行结束符：无　记录结束符 5 个，将读出 1 条"_s);
    EXPECT_TRUE(form.Text1[0]->hasFocus() && form.Text1[0]->text() == desk.source);
    EXPECT_EQ(form.Text1[1]->text(), desk.folder.path(u"source-gbk.iso"_s));
    form.cboForm->setFocus();
    QTest::keyClick(form.cboForm, Qt::Key_Down);
    EXPECT_EQ(form.Text1[1]->text(), desk.folder.path(u"source-utf8.iso"_s));
    desk.host.willChoose(desk.folder.write(u"t.iso"_s, "kept"));
    QTest::keyClick(&form, Qt::Key_O, Qt::AltModifier);
    QTest::keyClick(form.cboForm, Qt::Key_Up);
    EXPECT_EQ(form.Text1[1]->text(), desk.folder.path(u"t.iso"_s)) << "the user's own";
    desk.host.willAnswer(Answer::No);
    QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(desk.host.lastBox().text, desk.folder.path(u"t.iso"_s) + u"已经存在。要替换吗？");
    EXPECT_EQ(desk.folder.read(u"t.iso"_s), "kept");
    int yields = 0;
    desk.host.onYield = [&] {
        if (yields++ > 0)
            return;
        EXPECT_TRUE(form.cmdClick[1]->hasFocus() && form.Text1[1]->isReadOnly() && !form.cboForm->isEnabled());
        form.reject();
        EXPECT_EQ(desk.host.lastBox().text, u"处理还没有结束，请先结束处理！"_s);
    };
    desk.host.willAnswer(Answer::Yes);
    const QWidget *before = form.focusWidget();
    QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier);
    EXPECT_GT(yields, 1);
    EXPECT_EQ(platform::decode(desk.folder.read(u"t.iso"_s)), desk.tidied);
    EXPECT_TRUE(form.txtResult->text().contains(u"𠮷（U+20BB7）：5 处，第 1、2、3、4、5 条"_s) &&
                form.txtResult->isReadOnly());
    EXPECT_EQ(form.labShuDo->pacedText(), u"成功处理：5条"_s);
    EXPECT_TRUE(form.focusWidget() == before && !form.cmdClick[1]->isEnabled() && form.cboForm->isEnabled());
    desk.leave();
}

TEST(FrmTidy, RefusesStopsAndFailsWithoutADeadEnd) {
    TidyDesk desk;
    frmTidy &form = *desk.form;
    for (const auto &[source, target, focus] : {std::tuple(QString(), u"x"_s, 0),
                                                {desk.folder.path(u"none"_s), u"x"_s, 0},
                                                {desk.source, QString(), 1},
                                                {desk.source, desk.folder.path(u"./source.iso"_s), 1}}) {
        form.Text1[0]->setText(source);
        form.Text1[1]->setText(target);
        form.cmdClick[0]->click();
        EXPECT_TRUE(form.Text1[focus]->hasFocus()) << source.toStdString() << target.toStdString();
        EXPECT_EQ(form.LabFacts->isLooking(), focus == 1);
    }
    EXPECT_EQ(desk.host.texts(),
              (QStringList{u"请选择需要整理的文件！"_s, u"文件{"_s + desk.folder.path(u"none"_s) + u"}不存在！",
                           u"请给出整理后的目标文件！"_s, u"整理目标文件不能为源文件！"_s}));
    form.Text1[1]->setText(desk.folder.path(u"t.iso"_s));
    desk.host.onYield = [&] { QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier); };
    form.cmdClick[0]->click();
    EXPECT_EQ(form.txtResult->text(), u"已停止，什么也没有写出。"_s);
    desk.host.onYield = {};
    {
        const FullDisk disk(100);
        form.cmdClick[0]->click();
    }
    EXPECT_TRUE(form.txtResult->text().startsWith(u"没有整理成"_s) &&
                form.txtResult->text().endsWith(desk.host.lastBox().text));
    EXPECT_TRUE(desk.folder.names().isEmpty());
    desk.host.willChoose(QString());
    form.cmdSelect[1]->click();
    form.cmdClick[0]->click();
    EXPECT_EQ(desk.folder.names(), QStringList{u"t.iso"_s});
    desk.leave();
}

} // namespace
