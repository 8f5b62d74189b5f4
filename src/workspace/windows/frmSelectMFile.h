// The dialog that selects a record file and opens the workspace with it. It stays open during and after that, so that
// several files can be opened one after the other.
#pragma once

#include "platform/host.h"
#include "tidy/windows/factsLabel.h"
#include "widgets/button.h"
#include "widgets/window.h"
#include <QGroupBox>
#include <QLineEdit>
#include <array>
#include <functional>

namespace workspace {

class frmSelectMFile final : public widgets::Window {
    Q_OBJECT
public:
    // The windows that the dialog opens, each modally.
    struct Ways {
        std::function<void(const QString &file)> showWorkspace; // opens a new one
        std::function<void(const QString &file)> tidy;
    };
    frmSelectMFile(platform::Host &host, Ways ways, QWidget *parent = nullptr);

    // Sets the file in the box, ready to be opened.
    void choose(const QString &file);

    QGroupBox *Frame1;
    QLineEdit *Text1;
    widgets::Button *cmdLL;
    tidy::FactsLabel *labFacts; // facts about the file, during the survey and after it
    widgets::Button *cmdTidy;   // shown if tidying is offered; then the default button
    std::array<widgets::Button *, 2> cmdClick;

protected:
    bool queryUnload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override; // surveys the file again, which may have changed meanwhile
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void browse();
    void listRecentFiles();
    void offerRecentFiles();
    void enter();
    void openWorkspace();
    void offerTidying(bool wanted);
    void refuse(const QString &text);

    platform::Host &m_host;
    Ways m_ways;
    bool m_busy = false; // the workspace is being loaded or is open
};

} // namespace workspace
