// The window of tasks on a list of three records.
#pragma once

#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "taskRows.h"
#include "tasks/windows/frmTasks.h"

namespace tasks {

struct TasksWindow : testing::Test {
    ScriptedHost host;
    std::shared_ptr<marc::PreReadStore> store = std::make_shared<marc::PreReadStore>();
    std::vector<marc::FieldPlace> jumps;
    std::optional<std::vector<int>> filter;
    int busyRow = -1;
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
                           .busyRow = [this] { return busyRow; },
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

} // namespace tasks
