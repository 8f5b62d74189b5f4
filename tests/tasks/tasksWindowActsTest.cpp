// The effects of actions in the window of tasks on it and on the user's files.
#include "support/windowState.h"
#include "tasksWindow.h"

using namespace tasks;

namespace {

const QString price = uR"({"action": "tidyText", "tag": "010", "code": "d", "what": "price"})"_s;

struct TasksWindowActs : TasksWindow {
    QString taskFolder() const { return host.remembered().folderFor(platform::kept::tasks).value(); }
    QStringList names() const {
        QStringList names;
        for (int i = 0; i < window->taskBar->taskBox->count(); ++i)
            names.append(window->taskBar->taskBox->itemText(i));
        return names;
    }
    QString current() const { return window->previewPage->changeText->toPlainText(); }
    QLabel *faultAt(Parameter parameter) const {
        const StepForm &form = *window->stepsPage->form;
        return form.findChild<QLabel *>(form.box(false, parameter)->objectName() + u"-fault");
    }
};

} // namespace

TEST_F(TasksWindowActs, TasksAreCopiedRenamedAndDeleted) {
    frmTasks &form = openWith(price);
    const QStringList before = names();
    form.taskBar->copyButton->click();
    EXPECT_EQ(names().size(), before.size() + 1);
    EXPECT_TRUE(form.taskBar->entry()->name != u"甲" && form.stepsPage->task().steps.size() == 1);
    EXPECT_EQ(form.stepsPage->nameEdit->maxLength(), longestName);
    EXPECT_EQ(form.stepsPage->nameEdit->text(), form.taskBar->entry()->name);
    const auto write = [&form](const QString &text) {
        form.stepsPage->descriptionEdit->setText(text);
        Q_EMIT form.stepsPage->descriptionEdit->textEdited(text);
    };
    write(u"先"_s);
    form.stepsPage->nameEdit->setText(u"乙"_s);
    QTest::keyClick(form.stepsPage->nameEdit, Qt::Key_Return);
    EXPECT_TRUE(names().contains(u"乙") && form.taskBar->taskBox->currentText() == u"乙");
    EXPECT_EQ(form.stepsPage->descriptionEdit->text(), u"先") << "stored before it was renamed";
    const QString file = form.taskBar->entry()->path;
    EXPECT_EQ(readTaskFile(file).value().name, u"乙");
    for (const platform::Answer answer : {platform::Answer::No, platform::Answer::Yes}) {
        host.willAnswer(answer);
        form.taskBar->deleteButton->click();
        EXPECT_EQ(QFile::exists(file), answer == platform::Answer::No);
    }
    EXPECT_EQ(names(), before);
    EXPECT_EQ(form.taskBar->taskBox->currentIndex(), 0);
}

TEST_F(TasksWindowActs, AFileThatIsNotATaskIsShownWithItsFault) {
    QFile broken(taskFolder() + u"坏.json");
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly) && broken.write("[]") == 2);
    broken.close();
    frmTasks &form = open();
    choose(u"坏.json（不能用）"_s);
    EXPECT_EQ(form.stepsPage->noteLabel->text(), form.taskBar->entry()->fault);
    EXPECT_TRUE(form.stepsPage->noteLabel->isVisible() && form.stepsPage->noteLabel->text().contains(u"最外层应为"));
    EXPECT_FALSE(form.taskBar->copyButton->isEnabled() || form.taskBar->exportButton->isEnabled());
    EXPECT_TRUE(form.taskBar->deleteButton->isEnabled());
}

TEST_F(TasksWindowActs, EditsAreSoonInTheFile) {
    frmTasks &form = openWith(price);
    EXPECT_EQ(form.focusWidget(), form.taskBar->taskBox);
    EXPECT_FALSE(qobject_cast<QLineEdit *>(form.stepsPage->form->box(false, Parameter::Tag))->isReadOnly());
    const auto stored = [this] { return readTaskFile(taskFolder() + u"a.json").value(); };
    Q_EMIT form.stepsPage->descriptionEdit->textEdited(u"说明"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stored().description == u"说明"; }, 20'000));
    form.stepsPage->addButton->click();
    EXPECT_EQ(form.focusWidget(), form.stepsPage->form->actionBox);
    form.stepsPage->removeButton->click();
    edit(false, Parameter::Tag, u"011"_s);
    form.previewButton->click();
    EXPECT_EQ(stored().steps[0].values[Parameter::Tag], u"011") << "at once, before it is run";
    EXPECT_TRUE(form.stopButton->hasFocus() && form.stopButton->isEnabled());
    for (const QWidget *control :
         std::initializer_list<QWidget *>{form.runButton, form.taskBar, form.stepsPage, form.stepsButton,
                                          form.undoButton, form.previewPage->scopeBox})
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    EXPECT_TRUE(form.labJinDu->pacedText().startsWith(u"正在预览，0 / 3 条"));
    ASSERT_TRUE(done());
    const auto shown = [&] {
        return form.stepsButton->isVisible() * 100 + form.previewButton->isVisible() * 10 + form.runButton->isVisible();
    };
    EXPECT_TRUE(shown() == 101 && !form.stopButton->isEnabled() && form.taskBar->isEnabled());
    EXPECT_TRUE(form.previewPage->grid->hasFocus() && form.runButton->property("primary").toBool());
    form.stepsButton->click();
    EXPECT_EQ(shown(), 10);
    EXPECT_TRUE(!form.work().changes() && form.previewPage->grid->rows() == 1);
    Task task = stored();
    task.description = u"长"_s.repeated(300);
    form.stepsPage->show(task, true);
    EXPECT_EQ(form.stepsPage->descriptionEdit->cursorPosition(), 0);
    EXPECT_EQ(form.stepsPage->descriptionEdit->text(), task.description);
    EXPECT_EQ(form.stepsPage->descriptionEdit->maxLength(), longestValue);
    for (const size_t more : {1, 2}) {
        task.steps.resize(mostSteps - 2 + more, task.steps[0]);
        form.stepsPage->show(task, true);
        EXPECT_EQ(form.stepsPage->addButton->isEnabled(), task.steps.size() < mostSteps) << task.steps.size();
    }
    EXPECT_TRUE(readTask(writtenTask(task)).ok()) << "as many steps as a task may have";
}

TEST_F(TasksWindowActs, AFaultIsShownBelowItsBoxOnly) {
    frmTasks &form = openWith(price);
    form.show();
    EXPECT_TRUE(faultAt(Parameter::Tag)->isHidden() && faultAt(Parameter::Code)->isHidden());
    EXPECT_EQ(qobject_cast<QLineEdit *>(form.stepsPage->form->box(false, Parameter::Tag))->text(), u"010");
    EXPECT_EQ(qobject_cast<QComboBox *>(form.stepsPage->form->box(false, Parameter::What))->currentData(), u"price"_s);
    QListWidget &steps = *form.stepsPage->stepList;
    EXPECT_EQ(steps.item(0)->checkState(), Qt::Checked);
    steps.item(0)->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(form.stepsPage->task().steps[0].on);
    form.previewButton->click();
    EXPECT_EQ(host.lastBox().text, u"这个任务没有启用的步骤");
    steps.item(0)->setCheckState(Qt::Checked);
    form.stepsPage->copyButton->click();
    edit(false, Parameter::Tag, u"2"_s);
    steps.setCurrentRow(0);
    EXPECT_TRUE(faultAt(Parameter::Tag)->isHidden()) << "another step";
    form.previewButton->click();
    EXPECT_TRUE(steps.currentRow() == 1 && host.lastBox().text.startsWith(u"第2步："));
    EXPECT_TRUE(faultAt(Parameter::Tag)->isVisible());
    edit(false, Parameter::Tag, u"20"_s);
    EXPECT_TRUE(faultAt(Parameter::Tag)->isVisible() && faultAt(Parameter::Code)->isHidden());
    EXPECT_EQ(faultAt(Parameter::Tag)->text(), u"✕ " + form.stepsPage->form->faultText());
    EXPECT_EQ(faultAt(Parameter::Tag)->palette().color(QPalette::WindowText),
              widgets::colour(widgets::Colour::ErrorInk, form.palette()));
    edit(false, Parameter::Tag, u"200"_s);
    EXPECT_TRUE(faultAt(Parameter::Tag)->isHidden());
    WindowState state(form);
    const QString grown = state.grown({200, 200});
    for (const QStringView control : {u"stepList wh", u"stepForm wh", u"value-tag w", u"nameEdit w"})
        EXPECT_TRUE(grown.contains(control)) << grown.toStdString();
    EXPECT_TRUE(form.stepsPage->form->testBox->isVisible() && form.stepsPage->form->actionBox->isVisible());
    EXPECT_TRUE(form.stepsPage->stepList->wordWrap() && form.stepsPage->noteLabel->wordWrap());
    EXPECT_EQ(form.stepsPage->stepList->mapTo(form.stepsPage, QPoint()).x(), 0) << "in line with the names";
    for (auto *splitter : form.findChildren<QSplitter *>())
        EXPECT_FALSE(splitter->childrenCollapsible()) << splitter->objectName().toStdString();
}

TEST_F(TasksWindowActs, EachKindOfChangeHasItsRows) {
    busyRow = 2;
    frmTasks &form = openWith(price + uR"(, {"action": "pinyin", "tag": "200", "code": "a", "toCode": "9"},
            {"action": "deleteField", "tag": "999"})");
    store->setRecord(0, recordOf(u"001=0|010=  $d28.00元|105=  $ay|200=1 $a某某传"_s));
    form.previewButton->click();
    ASSERT_TRUE(done());
    QListWidget &kinds = *form.previewPage->kindList;
    const auto rowsOf = [&](const QString &kind) {
        for (int row = 0; row < kinds.count(); ++row)
            if (kinds.item(row)->text().contains(kind)) {
                EXPECT_FALSE(kinds.item(row)->isHidden());
                kinds.setCurrentRow(row);
            }
        return table();
    };
    EXPECT_EQ(rowsOf(u"价格"_s),
              (QStringList{u"✓1 010 ##$d28.00元 ##$dCNY28.00"_s, u"✓2 010 ##$d28.00元 ##$dCNY28.00"_s}));
    EXPECT_EQ(current(), u"改前　##$d28.00元\n改后　##$dCNY28.00");
    const QTextBlock after = form.previewPage->changeText->document()->lastBlock();
    const widgets::SurfaceLook &made = widgets::look(widgets::Surface::Done);
    for (auto at = after.begin(); at != after.end(); ++at) {
        const bool differs = at.fragment().text() == u"CNY";
        EXPECT_EQ(at.fragment().charFormat().foreground().color() == widgets::colour(made.ink, form.palette()),
                  differs);
        EXPECT_EQ(at.fragment().charFormat().fontUnderline(), differs);
    }
    widgets::FlexGrid &grid = *form.previewPage->grid;
    for (const QString &tick : {u""_s, u"✓"_s}) {
        const QRect cell = grid.visualRect(grid.model()->index(0, PreviewRows::WantedColumn));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
        EXPECT_EQ(grid.text(1, PreviewRows::WantedColumn), tick);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center() + QPoint(cell.width(), 0));
        EXPECT_EQ(grid.text(1, PreviewRows::WantedColumn), tick) << "another column";
    }
    EXPECT_TRUE(grid.horizontalHeader()->stretchLastSection());
    EXPECT_EQ(rowsOf(u"999"_s), QStringList());
    EXPECT_EQ(current(), QString());
    EXPECT_EQ(rowsOf(u"另变的字段"_s), QStringList{u"✓1 105 ##$ay （不写出）"_s});
    EXPECT_EQ(rowsOf(u"改不成的"_s), QStringList{u"3   没有改成：还有没收下的手工修改"_s});
    form.grab();
    ASSERT_EQ(rowsOf(u"没有把握"_s).size(), 1);
    EXPECT_TRUE(current().section(u'\n', 2).startsWith(u"⚠ 请看一眼：传（")) << current().toStdString();
    form.previewPage->changeText->setPalette(widgets::schemePalette(widgets::Scheme::Dark));
    const QTextBlock first = form.previewPage->changeText->document()->firstBlock();
    EXPECT_EQ(first.begin().fragment().charFormat().foreground().color(),
              widgets::schemePalette(widgets::Scheme::Dark).color(QPalette::Text));
    EXPECT_EQ(rowsOf(u"全部改动"_s).size(), 4);
    while (form.previewPage->current() && form.runButton->isEnabled()) {
        form.previewPage->recordButton->click();
        form.previewPage->grid->setRow(form.previewPage->grid->rows() - 1);
    }
    EXPECT_EQ(form.labJinDu->text(), u"没有什么要改的。1 条改不成，原因见左边");
    form.previewPage->recordButton->click();
    form.runButton->click();
    ASSERT_TRUE(done());
    EXPECT_TRUE(form.reportText->isReadOnly() && form.reportText->hasFocus());
    EXPECT_EQ(form.labJinDu->text(), form.reportText->text().section(u"\r\n"_s, 0, 0));
    EXPECT_TRUE(form.reportText->text().contains(u"改了 1 条记录，1 条没有改成"));
    EXPECT_TRUE(form.reportText->text().endsWith(u"没有改成的，都保持原样：\r\n　第3条　题2　还有没收下的手工修改"));
}

TEST_F(TasksWindowActs, LeavingStopsThePreviewAndTheWindowCanBeOpenedAgain) {
    frmTasks &form = openWith(price);
    form.previewButton->click();
    form.stopButton->click();
    EXPECT_TRUE(form.labJinDu->text().startsWith(u"停下了，只看了前 "));
    form.stepsButton->click();
    form.previewButton->click();
    host.willAnswer(platform::Answer::No);
    EXPECT_FALSE(form.close());
    host.willAnswer(platform::Answer::Yes);
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(form.work().isBusy());
    form.show();
    form.prepare();
    form.stepsButton->click();
    filter = std::vector<int>();
    form.previewPage->scopeBox->setCurrentIndex(int(Scope::Shown));
    form.previewButton->click();
    ASSERT_TRUE(done());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.labJinDu->text(), u"没有什么要改的");
}

TEST_F(TasksWindowActs, WithoutAListTasksCanOnlyBeEdited) {
    frmTasks form(host);
    form.show();
    EXPECT_TRUE(form.undoButton->isHidden() && form.stopButton->isHidden() && !form.previewButton->isEnabled());
    EXPECT_TRUE(form.labJinDu->text().startsWith(u"打开机读目录文件以后"));
}

TEST_F(TasksWindowActs, AWordListThatCannotBeReadIsReported) {
    QFile words(host.folder + u"/pinyin-words.txt");
    ASSERT_TRUE(words.open(QIODevice::WriteOnly) && words.write("x") == 1);
    words.close();
    frmTasks &form = openWith(uR"({"action": "pinyin", "tag": "200", "code": "a", "toCode": "9"})"_s);
    form.previewButton->click();
    EXPECT_TRUE(host.lastBox().text.contains(u"第1行")) << host.lastBox().text.toStdString();
    EXPECT_FALSE(form.work().isBusy());
}
