// The window of tasks on a list of records.
#include "tasksWindow.h"

using namespace tasks;

TEST_F(TasksWindow, PreviewsRunsAndUndoes) {
    frmTasks &form = openWith(uR"({"action": "tidyText", "tag": "010", "code": "d", "what": "price"},
            {"action": "replace", "tag": "200", "code": "a", "find": "题", "with": "書名"})"_s);
    const QString before = store->record(2);
    filter = {0, 2};
    form.previewPage->scopeBox->setCurrentIndex(int(Scope::Shown));
    form.previewButton->click();
    ASSERT_TRUE(done());
    EXPECT_EQ(table(), (QStringList{u"✓1 010 ##$d28.00元 ##$dCNY28.00"_s, u"✓1 200 1#$a题0 1#$a書名0"_s,
                                    u"✓3 010 ##$d28.00元 ##$dCNY28.00"_s, u"✓3 200 1#$a题2 1#$a書名2"_s}));
    EXPECT_TRUE(form.previewPage->kindList->item(2)->text().contains(u"2 处，2 条"_s));
    EXPECT_EQ(form.previewPage->kindList->item(0)->text(), u"全部改动\n　4 处，2 条");
    for (const int rest : {3, 4, 5})
        EXPECT_TRUE(form.previewPage->kindList->item(rest)->isHidden()) << "nothing of that kind: " << rest;
    EXPECT_TRUE(form.labJinDu->text().startsWith(u"会改 2 条记录，共 4 处"_s));
    EXPECT_TRUE(form.previewPage->current()) << "the first change";
    form.previewPage->grid->setColumnTwips(PreviewRows::TitleColumn, 0);
    EXPECT_GT(form.previewPage->grid->cellRect(1, PreviewRows::AfterColumn).width(), 0); // announces the rows
    for (QWidget *part : {static_cast<QWidget *>(&form), form.previewPage->grid->viewport()}) {
        const QImage picture = part->grab().toImage();
        for (const widgets::Surface surface : {widgets::Surface::Error, widgets::Surface::Done}) {
            const QColor fill = widgets::colour(widgets::look(surface).fill, form.palette());
            int pixels = 0;
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    pixels += picture.pixelColor(x, y) == fill;
            EXPECT_GT(pixels, 100) << "what differs is coloured: " << int(surface);
        }
    }
    for (const QString &caption : {u"&R 这一条要改"_s, u"&R 这一条不改"_s}) {
        form.previewPage->recordButton->click();
        EXPECT_EQ(form.previewPage->recordButton->text(), caption);
    }
    form.previewPage->changeButton->click();
    EXPECT_EQ(form.previewPage->changeButton->text(), u"&H 这一处要改"_s);
    EXPECT_EQ(table().value(0), u"1 010 ##$d28.00元 ##$dCNY28.00"_s);
    QStringList said;
    QObject::connect(&form.work(), &ListWork::progressed, &form, [&] { said.append(form.labJinDu->pacedText()); });
    form.runButton->click();
    ASSERT_TRUE(done());
    EXPECT_TRUE(said.value(0).startsWith(u"正在执行，2 / 2 条")) << said.join(u'|').toStdString();
    EXPECT_TRUE(store->record(0).contains(u"28.00元"_s) && store->title(0) == u"書名0"_s);
    EXPECT_TRUE(store->record(2).contains(u"CNY28.00"_s) && store->title(1) == u"题1"_s);
    EXPECT_TRUE(form.reportText->text().startsWith(u"任务“甲”执行完毕：改了 2 条记录\r\n"_s));

    store->setRecord(0, recordOf(u"001=0|200=1 $a手改"_s));
    host.willAnswer(platform::Answer::No); // keep the one that was changed by hand
    form.undoButton->click();
    ASSERT_TRUE(done());
    EXPECT_TRUE(host.lastBox().text.startsWith(u"其中 1 条记录执行以后又改过（第 1 条）。"_s));
    EXPECT_TRUE(store->record(0).contains(u"手改"_s));
    EXPECT_EQ(form.reportText->text(), u"任务“甲”已经撤销：恢复了 1 条记录；后来又改过的 1 条没有动（第 1 条）。");
    EXPECT_EQ(store->record(2), before);
    EXPECT_EQ(store->title(2), u"题2"_s);
    EXPECT_FALSE(form.undoButton->isEnabled());
}

TEST_F(TasksWindow, OpensTheRecordOfAChange) {
    frmTasks &form = openWith(uR"({"action": "tidyText", "tag": "010", "code": "d", "what": "price"})"_s);
    form.previewButton->click();
    ASSERT_TRUE(done());
    form.previewPage->grid->setRow(2);
    Q_EMIT form.previewPage->grid->gridActivated();
    ASSERT_EQ(jumps.size(), 1U);
    EXPECT_EQ(jumps[0].record, 1);
    EXPECT_EQ(jumps[0].fieldRow, 3) << "leader, 001, 010";
    EXPECT_FALSE(form.isVisible());
    form.previewPage->grid->setRow(1);
    Q_EMIT form.previewPage->grid->gridActivated();
    EXPECT_EQ(jumps.back().record, 0);
}

TEST_F(TasksWindow, AFaultIsReportedAtItsBox) {
    frmTasks &form = open();
    EXPECT_FALSE(form.stepsPage->addButton->isEnabled()) << "a ready task";
    form.taskBar->newButton->click();
    form.stepsPage->addButton->click();
    edit(false, Parameter::Find, u"x"_s);
    edit(false, Parameter::Tag, u"20"_s);
    EXPECT_TRUE(form.stepsPage->form->faultText().startsWith(u"应为字段号"_s));
    form.previewButton->click();
    EXPECT_TRUE(host.lastBox().text.startsWith(u"第1步：应为字段号"_s));
    host.willAnswer(platform::Answer::No);
    form.quitButton->click();
    EXPECT_TRUE(form.isVisible() && form.stepsPage->task().steps.size() == 1);
    edit(false, Parameter::Tag, u"200"_s);
    EXPECT_EQ(form.stepsPage->stepList->item(0)->text(), u"1　在 200 字段里，把“x”换成“”"_s);
    for (const auto &[action, kept] : {std::pair(Action::DropEmpty, u""_s), {Action::Replace, u"x"_s}}) {
        form.stepsPage->form->actionBox->setCurrentIndex(int(action));
        Q_EMIT form.stepsPage->form->actionBox->activated(int(action));
        EXPECT_EQ(form.stepsPage->task().steps[0].values[Parameter::Find], kept) << "of this action alone";
    }
    form.quitButton->click();
    EXPECT_FALSE(form.isVisible());
    const QString folder = host.remembered().folderFor(platform::kept::tasks).value();
    EXPECT_EQ(readTaskFile(folder + u"新任务.json").value().steps.size(), 1U);

    form.show();
    form.taskBar->newButton->click();
    form.stepsPage->addButton->click();
    host.willAnswer(platform::Answer::Yes); // discards the step, which cannot be run
    choose(window->taskBar->taskBox->itemText(0));
    form.quitButton->click();
    EXPECT_FALSE(form.isVisible());

    host.willChoose(host.folder + u"/没有.json");
    form.taskBar->importButton->click();
    EXPECT_TRUE(host.lastBox().text.contains(u"没有.json"_s));
    form.taskBar->newButton->click();
    form.previewButton->click();
    form.stepsPage->addButton->click();
    EXPECT_FALSE(form.runButton->isVisible());
}

TEST_F(TasksWindow, ButtonsAreEnabledForWhatCanBeDone) {
    frmTasks &form = openWith(uR"({"action": "replace", "tag": "200", "code": "a", "find": "没有", "with": "x"},
            {"action": "replace", "tag": "300", "code": "a", "find": "没有", "with": "y"})"_s);
    const StepsPage &page = *form.stepsPage;
    const auto enabled = [&](int row) {
        page.stepList->setCurrentRow(row);
        QString keys;
        for (const widgets::Button *button :
             {page.addButton, page.copyButton, page.upButton, page.downButton, page.removeButton})
            keys += button->isEnabled() ? button->text().mid(1, 1) : u"-"_s;
        return keys;
    };
    EXPECT_EQ(enabled(0), u"AY-WX"_s);
    EXPECT_EQ(enabled(1), u"AYU-X"_s);
    page.upButton->click();
    EXPECT_TRUE(page.task().steps.size() == 2 && page.stepList->currentRow() == 0);
    EXPECT_TRUE(page.stepList->item(0)->text().contains(u"300"_s));
    form.previewButton->click();
    ASSERT_TRUE(done());
    EXPECT_FALSE(form.runButton->isEnabled()) << "nothing would change";
    EXPECT_TRUE(form.previewPage->recordButton->text() == u"&R 这一条不改" &&
                !form.previewPage->recordButton->isEnabled() && !form.previewPage->changeButton->isEnabled());
    page.removeButton->click();
    EXPECT_EQ(enabled(0), u"AY--X"_s);
    page.removeButton->click();
    EXPECT_EQ(enabled(-1), u"A----"_s);
    host.willChoose(host.folder + u"/out.json");
    form.taskBar->exportButton->click();
    EXPECT_TRUE(readTaskFile(host.folder + u"/out.json").value().steps.empty()) << "as it is now";
    choose(window->taskBar->taskBox->itemText(0));
    EXPECT_EQ(enabled(0), u"-----"_s) << "a ready task";
    EXPECT_FALSE(form.taskBar->deleteButton->isEnabled());
    EXPECT_TRUE(page.nameEdit->isReadOnly() && page.descriptionEdit->isReadOnly());
    EXPECT_FALSE(page.stepList->item(0)->flags() & Qt::ItemIsUserCheckable);
    for (const QComboBox *box : page.form->findChildren<QComboBox *>())
        EXPECT_FALSE(box->isEnabled()) << box->objectName().toStdString();
    const auto edits = page.form->findChildren<QLineEdit *>();
    EXPECT_TRUE(!edits.isEmpty() && std::ranges::all_of(edits, &QLineEdit::isReadOnly));
}
