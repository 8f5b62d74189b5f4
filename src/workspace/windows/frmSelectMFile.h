// The dialog that selects the record file and opens the workspace on it. It stays open behind the workspace and after
// it, so that one file after the other can be looked at.
#pragma once

#include "platform/host.h"
#include "tidy/windows/factsLabel.h"
#include "widgets/window.h"
#include <QGroupBox>
#include <QLineEdit>
#include <array>
#include <functional>

namespace workspace {

class frmSelectMFile final : public widgets::Window {
    Q_OBJECT
public:
    // What it leads to, each modally.
    struct Ways {
        std::function<void(const QString &file)> showWorkspace; // a fresh one
        std::function<void(const QString &file)> tidy;
    };
    frmSelectMFile(platform::Host &host, Ways ways, QWidget *parent = nullptr);

    // Puts the file into the box, ready to be looked at.
    void choose(const QString &file);

    QGroupBox *Frame1;
    QLineEdit *Text1;
    widgets::Button *cmdLL;
    tidy::FactsLabel *labFacts; // what the file is, while it is looked at and afterwards
    widgets::Button *cmdTidy;   // where what it is and what will be read disagree; Enter is for it then
    std::array<widgets::Button *, 2> cmdClick;

protected:
    bool queryUnload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override; // the file may have changed while another window was in front
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
    bool m_busy = false; // the workspace is being loaded or stands in front
};

} // namespace workspace
