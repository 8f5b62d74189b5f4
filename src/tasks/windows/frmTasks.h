// Tasks: their steps, and, if there is a list of records, a preview of what a task would change there, its execution
// and its undoing. The window is kept while the list exists, so that the last run can be undone when it is opened
// again.
#pragma once

#include "platform/host.h"
#include "tasks/windows/listWork.h"
#include "tasks/windows/previewPage.h"
#include "tasks/windows/stepsPage.h"
#include "tasks/windows/taskBar.h"
#include "widgets/pacedLabel.h"
#include "widgets/textBox.h"
#include "widgets/window.h"
#include <QStackedWidget>
#include <QTimer>

namespace tasks {

class frmTasks final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmTasks(platform::Host &host, ListDesk desk = {}, QWidget *parent = nullptr);

    // Call before each exec(): the list may have changed since.
    void prepare();

    TaskBar *taskBar;
    QStackedWidget *pages;
    StepsPage *stepsPage;
    PreviewPage *previewPage;
    widgets::TextBox *reportText; // about the last run or undoing
    widgets::PacedLabel *labJinDu;
    widgets::Button *stepsButton;
    widgets::Button *previewButton;
    widgets::Button *runButton;
    widgets::Button *undoButton;
    widgets::Button *stopButton;
    widgets::Button *quitButton;

    ListWork &work() { return m_work; }

protected:
    bool queryUnload() override;

private:
    void layOut();
    void connectControls();
    void offerScopes();
    void showTask();
    void turnTo(QWidget *page);
    void allow();
    bool store();
    bool mayLeaveTask();
    void preview();
    void run();
    void undo();
    void finish(const QString &report, bool stopped);
    void sayAll();
    void jump();

    platform::Host &m_host;
    ListWork m_work;
    QTimer m_pace;          // stores edits a moment later
    bool m_unsaved = false; // the steps differ from the file
};

} // namespace tasks
