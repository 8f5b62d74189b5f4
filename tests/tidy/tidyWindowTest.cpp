#include "support/fullDisk.h"
#include "support/recordFiles.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "tidy/windows/frmTidy.h"
#include "widgets/button.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"

using namespace tidy;
using platform::Answer;

namespace {

struct TidyDesk {
    files::Folder folder;
    QString source = folder.write(u"source.iso"_s, recordOf(u"200=10$a数据𠮷"_s).toUtf8().repeated(5));
    QString tidied = QString(recordOf(u"200=10$a数据?"_s) + u"\r\n").repeated(5);
    ScriptedHost host;
    std::unique_ptr<frmTidy> form = std::make_unique<frmTidy>(host, source);

    TidyDesk() { showActive(*form); }
    void letLook() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form->LabFacts->isLooking(); }));
    }
    void leave() { // without a run there is no question
        form->reject();
        EXPECT_FALSE(form->isVisible());
    }
};

TEST(FrmTidy, ShowsTheFactsAndTidiesByKeyboardAlone) {
    TidyDesk desk;
    frmTidy &form = *desk.form;
    desk.letLook();
    EXPECT_EQ(form.LabFacts->accessibleName(),
              u"编码：UTF-8（本程序需要 GBK）　行结束符：无　记录结束符 5 个，将读出 1 条"_s);
    EXPECT_TRUE(form.Text1[0]->hasFocus() && form.Text1[0]->text() == desk.source);
    EXPECT_EQ(form.Text1[1]->text(), desk.folder.path(u"source-gbk.iso"_s));
    EXPECT_TRUE(form.sampleText->isVisible() && form.sampleLabel->isVisible() && !form.txtResult->isVisible());
    EXPECT_TRUE(form.sampleText->isReadOnly() && form.sampleText->lineWrapMode() == QPlainTextEdit::NoWrap);
    EXPECT_TRUE(form.cmdClick[0]->property("primary").toBool() && !form.cmdClick[1]->isEnabled());
    EXPECT_TRUE(form.encodingLabel->buddy() == form.sourceEncoding && form.changeLabel->buddy() == form.changeBox);
    EXPECT_EQ(form.cmdSelect[0]->accessibleName() + form.cmdSelect[1]->accessibleName(),
              u"浏览需要整理的文件浏览整理后的目标文件"_s);
    EXPECT_EQ(form.LabFacts->textInteractionFlags(), Qt::TextSelectableByMouse);
    EXPECT_TRUE(form.LabFacts->wordWrap() && form.LabFacts->textFormat() == Qt::RichText);
    EXPECT_TRUE(form.LabFacts->text().contains(u"color:") &&
                form.LabFacts->alignment() == (Qt::AlignLeft | Qt::AlignTop));
    form.cboForm->setFocus();
    QTest::keyClick(form.cboForm, Qt::Key_Down);
    EXPECT_EQ(form.Text1[1]->text(), desk.folder.path(u"source-utf8.iso"_s));
    desk.host.willChoose(desk.folder.write(u"t.iso"_s, "kept"));
    QTest::keyClick(&form, Qt::Key_O, Qt::AltModifier);
    QTest::keyClick(form.cboForm, Qt::Key_Up);
    EXPECT_EQ(form.Text1[1]->text(), desk.folder.path(u"t.iso"_s)) << "the name that the user chose";
    desk.host.willAnswer(Answer::No);
    QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(desk.host.lastBox().text, desk.folder.path(u"t.iso"_s) + u"已经存在。要替换吗？");
    EXPECT_EQ(desk.folder.read(u"t.iso"_s), "kept");
    int yields = 0;
    desk.host.onYield = [&] {
        if (yields++ > 0)
            return;
        EXPECT_TRUE(form.cmdClick[1]->hasFocus() && form.Text1[1]->isReadOnly() && !form.cboForm->isEnabled());
        EXPECT_EQ(form.labJinDu->pacedText(), u"正在整理，20%"_s);
        desk.host.willAnswer(Answer::No);
        form.reject();
        EXPECT_EQ(desk.host.lastBox().text, u"确实要退出吗？"_s);
    };
    desk.host.willAnswer(Answer::Yes);
    const QWidget *before = form.focusWidget();
    QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier);
    EXPECT_GT(yields, 1);
    EXPECT_EQ(platform::decode(desk.folder.read(u"t.iso"_s)), desk.tidied);
    EXPECT_TRUE(form.txtResult->text().contains(u"𠮷（U+20BB7）：5 处，第 1、2、3、4、5 条"_s) &&
                form.txtResult->isReadOnly());
    EXPECT_EQ(form.labShuDo->pacedText() + form.labJinDu->pacedText(), u"成功处理：5条处理结束"_s);
    EXPECT_TRUE(form.focusWidget() == before && !form.cmdClick[1]->isEnabled() && form.cboForm->isEnabled());
    EXPECT_TRUE(!form.Text1[0]->isReadOnly() && !form.Text1[1]->isReadOnly() && form.sourceEncoding->isEnabled());
    EXPECT_EQ(form.warningLabel->text(), u"⚠ 写成“?”的字符 5 处（第 1、2、3、4、5 条）"_s);
    EXPECT_LT(form.warningLabel->minimumSizeHint().width(), 200) << "a long warning does not widen the window";
    EXPECT_NE(form.warningLabel->palette().color(QPalette::WindowText), form.palette().color(QPalette::WindowText));
    EXPECT_TRUE(form.txtResult->isVisible() && form.labJinDu->isVisible() && form.labShuDo->isVisible() &&
                !form.sampleLabel->isVisible());
    desk.host.willChoose(desk.folder.write(u"next.iso"_s, recordOf(u"200=10$a甲"_s).toUtf8()));
    form.cmdSelect[0]->click();
    EXPECT_EQ(desk.host.dialogs.last().start, desk.source);
    EXPECT_TRUE(form.txtResult->text().isEmpty() && form.warningLabel->isHidden())
        << "the result belonged to the previous source";
    form.Text1[0]->setText(desk.folder.write(u"none.iso"_s, "no record"));
    desk.letLook();
    EXPECT_EQ(form.sampleLabel->text(), u"没有读得出的记录"_s);
    desk.leave();
}

TEST(FrmTidy, TheChosenEncodingIsShownAndRead) {
    TidyDesk desk;
    frmTidy &form = *desk.form;
    const auto choose = [&](SourceEncoding encoding) { form.sourceEncoding->setCurrentIndex(int(encoding)); };
    // Field 200 $a in each of the encodings, after a record in ASCII.
    const auto fileOf = [&](const QByteArray &text) {
        QByteArray record = recordOf(u"200=10$a"_s + QString(text.size(), u'x')).toLatin1();
        record.replace(QByteArray(text.size(), 'x'), text);
        return desk.folder.write(u"e.iso"_s, recordOf(u"200=10$ax"_s).toLatin1() + record);
    };
    const std::tuple<SourceEncoding, QByteArray, QString> rows[] = {
        {SourceEncoding::Big5, "\xAE\xD1\xB9\xD2", u"書境"_s},
        {SourceEncoding::Latin1, "Genevi\xE8ve", u"Geneviève"_s},
        {SourceEncoding::Marc8,
         "Genevi\xE1"
         "eve \x1B$1!9X\x1B(B",
         u"Geneviève 妾"_s},
        {SourceEncoding::Gbk, "\xCA\xE9", u"书"_s},
        {SourceEncoding::Utf8, "\xC3\xA8", u"è"_s},
    };
    for (const auto &[encoding, bytes, text] : rows) {
        const QModelIndex entry = form.sourceEncoding->model()->index(int(encoding), 0);
        EXPECT_EQ(entry.flags().testFlag(Qt::ItemIsEnabled), isAvailable(encoding));
        if (!isAvailable(encoding))
            continue;
        form.Text1[0]->setText(fileOf(bytes));
        desk.letLook();
        choose(encoding);
        EXPECT_EQ(form.sampleLabel->text(), u"第 2 条会读成:"_s);
        EXPECT_EQ(form.sampleText->text(), u"200 10\u001Fa"_s + text + u"\r\n") << text.toStdString();
        form.Text1[1]->setText(desk.folder.path(u"t.iso"_s));
        form.cboForm->setCurrentIndex(int(TargetForm::Utf8Iso));
        form.cmdClick[0]->click();
        EXPECT_TRUE(desk.folder.read(u"t.iso"_s).contains(text.toUtf8())) << text.toStdString();
        EXPECT_TRUE(form.warningLabel->isHidden());
        QFile::remove(desk.folder.path(u"t.iso"_s));
    }
    form.Text1[0]->setText(desk.folder.write(u"ascii.iso"_s, recordOf(u"200=10$ax"_s).toLatin1().repeated(2)));
    EXPECT_EQ(form.sampleText->text() + form.sampleLabel->text(), u"");
    desk.letLook();
    EXPECT_EQ(form.sampleLabel->text(), u"第 1 条会读成:"_s);
    choose(SourceEncoding::Automatic);
    form.Text1[0]->setText(fileOf(QByteArray("\xCA\xE9\x95\x32\xB7\x36").repeated(20)));
    desk.letLook();
    EXPECT_TRUE(form.sampleText->text().contains(u"书𠈒")) << "GB18030";
    form.Text1[0]->setText(desk.folder.write(u"a.xml"_s, "<collection xmlns='http://www.loc.gov/MARC21/slim'/>"));
    desk.letLook();
    form.Text1[0]->setText(fileOf("\xCA\xE9"));
    choose(SourceEncoding::Utf8);
    choose(SourceEncoding::Gbk); // before the survey has found that the file is not XML
    EXPECT_EQ(form.sampleText->text(), u"200 10\u001Fa书\r\n"_s);
    form.Text1[0]->setText(fileOf("Genevi\xE8ve"));
    choose(SourceEncoding::Automatic);
    form.cmdClick[0]->click();
    EXPECT_EQ(form.warningLabel->text(), u"⚠ 编码不明，是按 GBK 读的"_s);
    desk.host.onYield = [&] { // leaves the window during a run
        desk.host.onYield = {};
        desk.host.willAnswer(Answer::Yes);
        form.reject();
        EXPECT_TRUE(form.isVisible());
    };
    QFile::remove(desk.folder.path(u"t.iso"_s));
    form.cmdClick[0]->click();
    EXPECT_TRUE(!form.isVisible() && !QFile::exists(desk.folder.path(u"t.iso"_s)));
}

TEST(FactsLabel, LooksAgainAtAFileThatChangedOrWasNotSurveyedToItsEnd) {
    const files::Folder folder;
    const QString path = folder.write(u"a.iso"_s, recordOf(u"200=10$a甲"_s).toUtf8());
    FactsLabel label(u"facts"_s);
    const auto looks = [&](bool expected) {
        label.lookAgain();
        EXPECT_EQ(label.isLooking(), expected);
    };
    label.lookAt(path);
    label.stop();
    looks(true);
    label.hurry();
    looks(false);
    folder.write(u"a.iso"_s, recordOf(u"200=10$a甲乙"_s).toUtf8());
    looks(true);
    label.lookAt(folder.path(u"none"_s));
    EXPECT_TRUE(!label.isLooking() && label.text().isEmpty());
}

TEST(FrmTidy, AChosenChangeIsMadeToEachRecord) {
    TidyDesk desk;
    const auto prepare = [&](int index, const QString &, TargetForm) -> platform::Result<FileChange> {
        if (index == 1)
            return platform::Failure{u"不行"_s};
        return FileChange{u"乙"_s,
                          [](marc::FieldedRecord &record) -> RecordChange {
                              record.fields[0].content.replace(u"数据"_s, u"换过"_s);
                              return {true, {}};
                          },
                          {}};
    };
    desk.form = std::make_unique<frmTidy>(desk.host, desk.source, ChangeOffer{{u"乙"_s, u"丙"_s}, prepare});
    frmTidy &form = *desk.form;
    form.show();
    for (const int chosen : {2, 1}) {
        form.changeBox->setCurrentIndex(chosen);
        form.cmdClick[0]->click();
    }
    EXPECT_EQ(desk.host.texts(), QStringList{u"不行"_s});
    EXPECT_EQ(platform::decode(desk.folder.read(u"source-gbk.iso"_s)), desk.tidied.replace(u"数据"_s, u"换过"_s));
    EXPECT_TRUE(form.txtResult->text().contains(u"【批改】\r\n任务“乙”改了 5 条记录！"_s));
    desk.leave();
}

TEST(FrmTidy, RefusesStopsAndFailsAndStaysUsable) {
    TidyDesk desk;
    EXPECT_TRUE(frmTidy(desk.host, {}).warningLabel->isHidden());
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
