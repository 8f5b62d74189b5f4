#include "filetools/windows/frmCutFile.h"
#include "filetools/windows/frmUnionFile.h"
#include "support/fullDisk.h"
#include "support/recordFiles.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"

using namespace filetools;
using files::lines;
using platform::Answer;

namespace {

const QString unfinished = u"处理还没有结束，请先结束处理！"_s;
const QString leave = u"确实要退出吗？"_s;
const QString look = u"是否查看该目标文件？"_s;

// A window of type `Form` with its host, its files and the reports it has shown.
template <class Form>
struct Desk {
    files::Folder folder;
    ScriptedHost host;
    QStringList reports;
    std::unique_ptr<Form> form = std::make_unique<Form>(host, [this](const QString &text) { reports.append(text); });

    Desk() { show(); }
    void show() {
        host.onShow = [this] { // the numbers on the screen are current while a box is shown
            EXPECT_EQ(form->labShuDo->QLabel::text(), form->labShuDo->pacedText());
            EXPECT_EQ(form->labJinDu->QLabel::text(), form->labJinDu->pacedText());
        };
        showActive(*form);
    }
    // Tries every way to close the window.
    void refuseToClose(widgets::Button *quit) {
        host.boxes.clear();
        quit->click();
        form->reject();
        form->close();
        EXPECT_EQ(host.texts(), QStringList(3, unfinished));
        EXPECT_TRUE(form->isVisible());
        host.boxes.clear();
    }
};

struct SplitDesk : Desk<frmCutFile> {
    QString source = folder.write(u"source.iso"_s, lines(25));
    void fill(const QString &from, const QString &to, const QString &limit) {
        form->Text1[0]->setText(from);
        form->Text1[1]->setText(to);
        form->Text2->setText(limit);
    }
};

struct MergeDesk : Desk<frmUnionFile> {
    QString one = folder.write(u"1.iso"_s, lines(3)), two = folder.write(u"2.iso"_s, lines(4, 4));
    void add(const QString &path) {
        host.willChoose(path);
        form->cmdSelect[0]->click();
    }
};

} // namespace

// Each control has a name for a screen reader, and none is missing in the layout.
TEST(FileToolWindows, EachControlIsShownAndNamed) {
    const SplitDesk split;
    const MergeDesk merge;
    const frmCutFile &cut = *split.form;
    const frmUnionFile &unite = *merge.form;
    const std::pair<const QWidget *, QString> rows[] = {
        {cut.Text1[0], u"选择需要处理的机读目录文件"_s},
        {cut.Text1[1], u"拆分后的机读数据保存到文件"_s},
        {cut.Text2, u"每个拆分文件机读数据条数"_s},
        {cut.cmdSelect[0], u"浏览需要处理的机读目录文件"_s},
        {cut.cmdSelect[1], u"浏览拆分后的目标文件"_s},
        {unite.List1, u"源文件列表"_s},
        {unite.Text1, u"合并后的目标文件"_s},
        {unite.cmdSave, u"浏览合并后的目标文件"_s},
    };
    for (const auto &[control, name] : rows) {
        EXPECT_TRUE(control->accessibleName().startsWith(name)) << name.toStdString();
        EXPECT_TRUE(control->isVisible()) << name.toStdString();
    }
    for (const QLabel *label : cut.LabShuoMing)
        EXPECT_TRUE(label->isVisible() && label->width() >= label->sizeHint().width());
    EXPECT_LT(cut.LabShuoMing[0]->y(), cut.Text1[0]->y());
    EXPECT_LT(cut.Text1[0]->y(), cut.LabShuoMing[1]->y());
    EXPECT_TRUE(cut.cmdclick[0]->property("primary").toBool() && unite.cmdClick[0]->property("primary").toBool());
    EXPECT_EQ(unite.List1->textElideMode(), Qt::ElideMiddle) << "the end of a path is what differs";
}

TEST(FrmCutFile, ReportsEachStepAndStaysOpenMeanwhile) {
    SplitDesk desk;
    frmCutFile &form = *desk.form;
    desk.fill(u' ' + desk.source, {}, u"10.5"_s); // ten: halves are rounded to even
    desk.host.willChoose(desk.folder.path(u"a.iso"_s));
    QTest::keyClick(&form, Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(desk.host.dialogs.last().kind, platform::FileDialogKind::Save);
    EXPECT_EQ(desk.host.dialogs.last().title, u"选择文件对话框"_s);
    QStringList counts;
    desk.host.onYield = [&] {
        counts.append(form.labShuDo->pacedText());
        EXPECT_TRUE(form.labJinDu->isVisible() && form.Text2->isReadOnly());
        EXPECT_FALSE(form.cmdclick[0]->isEnabled() || form.cmdSelect[0]->isEnabled() || form.cmdSelect[1]->isEnabled());
        EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
        if (counts.size() == 12) {
            EXPECT_EQ(form.labJinDu->pacedText(), desk.folder.path(u"a701.iso"_s));
            desk.refuseToClose(form.cmdclick[1]);
        }
    };
    desk.host.willAnswer(Answer::Yes);
    const QWidget *before = form.focusWidget();
    QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier);
    ASSERT_EQ(counts.size(), 25);
    EXPECT_EQ(counts.last(), u"成功处理：24条"_s);
    EXPECT_EQ(form.labShuDo->pacedText(), u"成功处理：25条"_s);
    EXPECT_EQ(form.labJinDu->pacedText(), u"处理结束"_s);
    EXPECT_EQ(desk.host.texts(), QStringList{look});
    EXPECT_EQ(desk.host.opened, QStringList{desk.folder.path()});
    EXPECT_EQ(desk.folder.read(u"a702.iso"_s), lines(5, 21));
    ASSERT_EQ(desk.reports.size(), 1);
    EXPECT_TRUE(desk.reports[0].startsWith(u"【源文件】\r\n文件{"_s + desk.source + u"处理了25条"));
    EXPECT_TRUE(form.focusWidget() == before && form.cmdSelect[1]->isEnabled() && !form.Text2->isReadOnly());
    EXPECT_NE(form.cursor().shape(), Qt::WaitCursor);
    desk.host.willAnswer(Answer::No);
    form.reject();
    EXPECT_TRUE(form.isVisible());
    desk.host.willAnswer(Answer::Yes);
    form.cmdclick[1]->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(desk.host.lastBox().text, leave);
    EXPECT_EQ(desk.host.lastBox().preselected, Answer::No);
}

TEST(FrmCutFile, ARefusalFocusesTheFaultyBox) {
    SplitDesk desk;
    frmCutFile &form = *desk.form;
    desk.fill(desk.source, u"  "_s, u"9"_s);
    form.cmdclick[0]->click();
    EXPECT_TRUE(form.Text1[0]->hasFocus());
    desk.fill(desk.source, desk.folder.path(u"a.marc"_s), u"9"_s);
    form.cmdclick[0]->click();
    EXPECT_TRUE(form.Text2->hasFocus());
    form.Text2->setText(u"10"_s);
    form.cmdclick[0]->click();
    desk.fill(desk.source, u"/x.a/b"_s, u"10"_s);
    form.cmdclick[0]->click(); // an invalid name is reported, and the window can still be closed
    EXPECT_EQ(desk.host.texts(),
              (QStringList{u"每个拆分文件的最大记录数太小！最好不要小于10！"_s, u"【cmdClick】目标文件名无效"_s}));
    EXPECT_TRUE(desk.folder.names().isEmpty() && !form.labJinDu->isVisible());
    desk.host.willChoose(QString());
    form.cmdSelect[0]->click();
    EXPECT_EQ(form.Text1[0]->text(), QString());
}

TEST(FrmCutFile, DeletesExactlyWhatMatchesTheMaskAndOnlyAfterYes) {
    SplitDesk desk;
    const QString name = platform::pathSeparator == u'\\' ? u"[ab]"_s : u"[ab]*"_s; // Windows has no * in names
    QStringList strangers{u"a750.iso"_s, name + u"7001.iso", name + u"800.iso", name + u"7x.iso", u"bz701.iso"_s};
    for (const QString &file : strangers + QStringList{name + u"701.iso", name + u"7zz.iso"})
        desk.folder.write(file, "kept");
    ASSERT_TRUE(QDir(desk.folder.path()).mkdir(name + u"705.iso"));
    EXPECT_EQ(desk.form->Text2->text(), u"1000"_s);
    const QStringList before = desk.folder.names();
    desk.fill(desk.source, desk.folder.path(name + u".iso"), u"1000"_s);
    desk.host.willAnswer(Answer::No);
    desk.form->cmdclick[0]->click();
    EXPECT_EQ(desk.host.lastBox().text, u"选择的路径下存在形如\r\n【"_s + desk.folder.path(name + u"7??.iso") +
                                            u"】的文件；继续则可能被覆盖。是否继续？");
    EXPECT_EQ(desk.host.lastBox().preselected, Answer::No);
    EXPECT_EQ(desk.folder.names(), before);
    desk.host.willAnswer(Answer::Yes);
    desk.host.willAnswer(Answer::No);
    desk.form->cmdclick[0]->click();
    strangers.append(name + u"700.iso");
    strangers.sort();
    EXPECT_EQ(desk.folder.names(), strangers);
    EXPECT_TRUE(desk.host.opened.isEmpty());
}

TEST(FrmCutFile, AFailedRunBlocksTheWindowAndLosesNoFiles) {
    const qsizetype before = files::openFiles();
    for (const auto &[source, target] :
         {std::pair(u"source.iso"_s, u"none/a.iso"_s), {u"a755.iso"_s, u"a.iso"_s}, {u"source.iso"_s, u"b.iso"_s}}) {
        SplitDesk desk;
        desk.folder.write(u"a755.iso"_s, lines(3)); // the second row deletes it with the files of the mask
        desk.fill(desk.folder.path(source), desk.folder.path(target), u"10"_s);
        if (target == u"a.iso")
            desk.host.willAnswer(Answer::Yes);
        const FullDisk disk(4 * lines(1).size() + 1);
        desk.form->cmdclick[0]->click();
        if (target == u"b.iso") {
            EXPECT_EQ(desk.form->labShuDo->text(), u"成功处理：4条"_s) << "the number of records in the file";
        }
        EXPECT_TRUE(desk.host.lastBox().text.startsWith(u"【cmdClick】"_s)) << desk.host.lastBox().text.toStdString();
        EXPECT_FALSE(desk.form->cmdclick[0]->isEnabled() || desk.form->cmdSelect[1]->isEnabled());
        EXPECT_EQ(desk.form->cursor().shape(), Qt::WaitCursor);
        desk.refuseToClose(desk.form->cmdclick[1]);
        EXPECT_EQ(desk.folder.read(u"source.iso"_s), lines(25));
        EXPECT_TRUE(desk.reports.isEmpty());
        desk.form.reset();
        EXPECT_EQ(files::openFiles(), before);
    }
}

TEST(FrmUnionFile, MergesTheListInItsOrder) {
    MergeDesk desk;
    frmUnionFile &form = *desk.form;
    const QString target = desk.folder.write(u"all.iso"_s, "kept");
    for (const QString &path : {desk.one, desk.two, desk.one, QString(), desk.two})
        desk.add(path);
    form.List1->setCurrentRow(2);
    form.List1->setFocus();
    QTest::keyClick(form.List1, Qt::Key_Delete);
    EXPECT_EQ(form.List1->count(), 3);
    form.Text1->setText(target + u' ');
    desk.host.willAnswer(Answer::No);
    form.cmdClick[0]->click();
    EXPECT_EQ(desk.host.lastBox().text, target + u"已经存在。要替换吗？");
    EXPECT_EQ(desk.host.lastBox().preselected, Answer::Yes);
    EXPECT_EQ(desk.folder.read(u"all.iso"_s), "kept");

    QStringList shown;
    desk.host.onYield = [&] {
        shown.append(form.labJinDu->pacedText() + u' ' + form.labShuDo->pacedText());
        EXPECT_TRUE(form.Text1->isReadOnly());
        EXPECT_FALSE(form.cmdClick[0]->isEnabled() || form.cmdSelect[0]->isEnabled() || form.cmdSave->isEnabled());
        if (shown.size() == 5)
            desk.refuseToClose(form.cmdClick[1]);
    };
    desk.host.willAnswer(Answer::Yes);
    desk.host.willAnswer(Answer::Yes);
    form.cmdClick[0]->click();
    EXPECT_EQ(shown.size(), 11);
    EXPECT_EQ(shown.first(), desk.one + u" 成功处理：0");
    EXPECT_EQ(shown.last(), desk.two + u" 成功处理：10条");
    EXPECT_EQ(desk.folder.read(u"all.iso"_s), lines(7) + lines(4, 4));
    const QString read = u"}处理了%1条记录！\r\n"_s;
    EXPECT_EQ(desk.reports.value(0), u"【源文件】\r\n文件{"_s + desk.one + read.arg(3) + u"文件{" + desk.two +
                                         read.arg(4) + u"文件{" + desk.two + read.arg(4) +
                                         u"\r\n【目标文件】\r\n文件{" + target + u"}保存了11条记录！");
    EXPECT_EQ(desk.host.opened, QStringList{desk.folder.path()});
    EXPECT_TRUE(form.cmdSave->isEnabled() && !form.Text1->isReadOnly());
    desk.host.willAnswer(Answer::Yes);
    form.close();
    EXPECT_EQ(desk.host.lastBox().text, leave);
}

TEST(FrmUnionFile, RefusesAndIsBlockedByAFailureLikeTheSplit) {
    const qsizetype before = files::openFiles();
    MergeDesk desk;
    EXPECT_TRUE(desk.form->cmdSelect[0]->hasFocus());
    desk.form->Text1->setText(desk.one);
    desk.form->cmdClick[0]->click(); // an empty list: no message
    EXPECT_TRUE(desk.host.boxes.isEmpty());
    desk.add(desk.one);
    desk.form->cmdClick[0]->click();
    EXPECT_EQ(desk.host.texts(), QStringList{u"合并目标文件不能为源文件！"_s});
    EXPECT_EQ(desk.folder.read(u"1.iso"_s), lines(3));
    desk.form->Text1->setText(desk.folder.path(u"all.iso"_s));
    const FullDisk disk(2 * lines(1).size());
    desk.form->cmdClick[0]->click();
    EXPECT_EQ(desk.form->labShuDo->text(), u"成功处理：2条"_s) << "the number of records in the file";
    EXPECT_TRUE(desk.host.lastBox().text.startsWith(u"【cmdClick】"_s));
    EXPECT_EQ(desk.form->labJinDu->pacedText(), desk.one);
    desk.refuseToClose(desk.form->cmdClick[1]);
    EXPECT_FALSE(desk.form->cmdClick[0]->isEnabled());
    desk.form.reset();
    EXPECT_EQ(files::openFiles(), before);
}
