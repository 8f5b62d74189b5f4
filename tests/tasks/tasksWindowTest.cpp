// The window of tasks on a list of records.
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "taskRows.h"
#include "tasks/windows/frmTasks.h"
#include "widgets/styleTokens.h"

using namespace tasks;

namespace {

struct TasksWindow : testing::Test {
    ScriptedHost host;
    std::shared_ptr<marc::PreReadStore> store = std::make_shared<marc::PreReadStore>();
    std::vector<marc::FieldPlace> jumps;
    std::optional<std::vector<int>> filter;
    std::unique_ptr<frmTasks> window;

    frmTasks &open() {
        for (int row = 0; row < 3; ++row) {
            const QString title = u"题"_s + QString::number(row);
            store->setNumber(row, row + 1);
            store->setRecord(row, recordOf(u"001=0|010=  $d28.00元|200=1 $a"_s + title));
            store->setTitle(row, title);
        }
        window = std::make_unique<frmTasks>(
            host, ListDesk{.records = store,
                           .file = u"到货.iso"_s,
                           .put =
                               [this](int row, const marc::RawRecord &record, const QString &title) {
                                   store->setRecord(row, record);
                                   store->setTitle(row, title);
                               },
                           .busyRow = [] { return -1; },
                           .shown = [this] { return filter; },
                           .remarked = [] { return std::vector<int>{}; },
                           .remarks = [] { return nullptr; },
                           .jump = [this](const marc::FieldPlace &place) { jumps.push_back(place); }});
        window->show();
        return *window;
    }
    // Opens with a task of the user that has these steps.
    frmTasks &openWith(const QString &steps) {
        Task task = taskOf(steps).value();
        task.name = u"甲"_s;
        const QString folder = host.remembered().folderFor(platform::kept::tasks).value();
        EXPECT_TRUE(writeTaskFile(folder + u"a.json", task));
        open();
        choose(u"甲"_s);
        return *window;
    }
    void choose(const QString &caption) {
        const int index = window->taskBar->taskBox->findText(caption);
        ASSERT_GE(index, 0);
        window->taskBar->taskBox->setCurrentIndex(index);
        Q_EMIT window->taskBar->taskBox->activated(index);
    }
    bool done() const {
        return QTest::qWaitFor([this] { return !window->work().isBusy(); });
    }
    QStringList table() const {
        QStringList rows;
        const widgets::FlexGrid &grid = *window->previewPage->grid;
        for (int row = 1; row < grid.rows(); ++row)
            rows.append(grid.text(row, PreviewRows::WantedColumn) + grid.text(row, PreviewRows::RecordColumn) + u' ' +
                        grid.text(row, PreviewRows::FieldColumn) + u' ' + grid.text(row, PreviewRows::BeforeColumn) +
                        u' ' + grid.text(row, PreviewRows::AfterColumn));
        return rows;
    }
    void edit(bool ofTest, Parameter parameter, const QString &text) {
        auto *box = qobject_cast<QLineEdit *>(window->stepsPage->form->box(ofTest, parameter));
        ASSERT_TRUE(box);
        box->setText(text);
        Q_EMIT box->textEdited(text);
    }
};

} // namespace

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
    EXPECT_TRUE(form.labJinDu->text().startsWith(u"会改 2 条记录，共 4 处"_s));
    EXPECT_TRUE(form.previewPage->current()) << "the first change";
    const QImage picture = form.grab().toImage();
    for (const widgets::Surface surface : {widgets::Surface::Error, widgets::Surface::Done}) {
        const QColor fill = widgets::colour(widgets::look(surface).fill, form.palette());
        int pixels = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                pixels += picture.pixelColor(x, y) == fill;
        EXPECT_GT(pixels, 100) << "what differs is coloured: " << int(surface);
    }
    for (const QString &caption : {u"&R 这一条要改"_s, u"&R 这一条不改"_s}) {
        form.previewPage->recordButton->click();
        EXPECT_EQ(form.previewPage->recordButton->text(), caption);
    }
    form.previewPage->changeButton->click();
    EXPECT_EQ(form.previewPage->changeButton->text(), u"&H 这一处要改"_s);
    EXPECT_EQ(table().value(0), u"1 010 ##$d28.00元 ##$dCNY28.00"_s);
    form.runButton->click();
    ASSERT_TRUE(done());
    EXPECT_TRUE(store->record(0).contains(u"28.00元"_s) && store->title(0) == u"書名0"_s);
    EXPECT_TRUE(store->record(2).contains(u"CNY28.00"_s) && store->title(1) == u"题1"_s);
    EXPECT_TRUE(form.reportText->text().startsWith(u"任务“甲”执行完毕：改了 2 条记录\r\n"_s));

    store->setRecord(0, recordOf(u"001=0|200=1 $a手改"_s));
    host.willAnswer(platform::Answer::No); // keep the one that was changed by hand
    form.undoButton->click();
    ASSERT_TRUE(done());
    EXPECT_TRUE(host.lastBox().text.startsWith(u"其中 1 条记录执行以后又改过（第 1 条）。"_s));
    EXPECT_TRUE(store->record(0).contains(u"手改"_s));
    EXPECT_EQ(store->record(2), before);
    EXPECT_EQ(store->title(2), u"题2"_s);
    EXPECT_FALSE(form.undoButton->isEnabled());
}

TEST_F(TasksWindow, LeadsToTheRecordOfAChange) {
    frmTasks &form = openWith(uR"({"action": "tidyText", "tag": "010", "code": "d", "what": "price"})"_s);
    form.previewButton->click();
    ASSERT_TRUE(done());
    form.previewPage->grid->setRow(2);
    Q_EMIT form.previewPage->grid->gridActivated();
    ASSERT_EQ(jumps.size(), 1U);
    EXPECT_EQ(jumps[0].record, 1);
    EXPECT_EQ(jumps[0].fieldRow, 3) << "leader, 001, 010";
    EXPECT_FALSE(form.isVisible());
}

TEST_F(TasksWindow, WhatCannotBeRunIsSaidAtItsBox) {
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
    form.quitButton->click();
    EXPECT_FALSE(form.isVisible());
    const QString folder = host.remembered().folderFor(platform::kept::tasks).value();
    EXPECT_EQ(readTaskFile(folder + u"新任务.json").value().steps.size(), 1U);

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
                !form.previewPage->recordButton->isEnabled());
    page.removeButton->click();
    EXPECT_EQ(enabled(0), u"AY--X"_s);
    page.removeButton->click();
    EXPECT_EQ(enabled(-1), u"A----"_s);
    host.willChoose(host.folder + u"/out.json");
    form.taskBar->exportButton->click();
    EXPECT_TRUE(readTaskFile(host.folder + u"/out.json").value().steps.empty()) << "as it is now";
    choose(window->taskBar->taskBox->itemText(0));
    EXPECT_EQ(enabled(0), u"-----"_s) << "a ready task";
}
