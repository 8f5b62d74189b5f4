// The user's list of targets: order, data, a test of each, import and export. Changes are stored when another target is
// chosen and when the window is closed.
#pragma once

#include "platform/host.h"
#include "targets/targetShelf.h"
#include "targets/windows/targetForm.h"
#include "widgets/button.h"
#include "widgets/window.h"
#include <QListWidget>
#include <memory>

namespace targets {

class TargetTest;

class frmTargets final : public widgets::Window {
    Q_OBJECT
public:
    frmTargets(platform::Host &host, TargetShelf &shelf, QWidget *parent = nullptr);
    ~frmTargets() override;

    bool isTesting() const;

    QListWidget *targetList;
    TargetForm *form;
    QLineEdit *isbnEdit;
    QLabel *testLabel;
    widgets::Button *testButton;
    widgets::Button *stopButton;
    widgets::Button *addButton;
    widgets::Button *copyButton;
    widgets::Button *deleteButton;
    widgets::Button *upButton;
    widgets::Button *downButton;
    widgets::Button *importButton;
    widgets::Button *exportButton;
    widgets::Button *quitButton;

protected:
    bool queryUnload() override;

private:
    void layOut();
    void connectControls();
    void list(int current);
    void choose(int row);
    void allow();
    bool settle();
    void take(const platform::Result<int> &index);
    void test();
    void endTest(bool answered, const QString &words);
    void remove();
    void importTargets();
    void exportTargets();

    platform::Host &m_host;
    TargetShelf &m_shelf;
    std::unique_ptr<TargetTest> m_test;
    int m_current = -1; // index of the target in the form
};

} // namespace targets
