// The dialog that selects the record file and opens the workspace on it. It stays open behind the workspace and after
// it, so that one file after the other can be looked at.
#pragma once

#include "platform/host.h"
#include "widgets/window.h"
#include <QGroupBox>
#include <QLineEdit>
#include <array>
#include <functional>

namespace workspace {

class frmSelectMFile final : public widgets::Window {
    Q_OBJECT
public:
    // `showWorkspace` opens a fresh workspace on the file and returns when it has closed.
    frmSelectMFile(platform::Host &host, std::function<void(const QString &file)> showWorkspace,
                   QWidget *parent = nullptr);

    // Puts the file into the box, ready to be looked at.
    void choose(const QString &file);

    QGroupBox *Frame1;
    QLineEdit *Text1;
    widgets::Button *cmdLL;
    std::array<widgets::Button *, 2> cmdClick;

protected:
    bool queryUnload() override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void browse();
    void offerRecentFiles();
    void openWorkspace();
    void refuse(const QString &text);

    platform::Host &m_host;
    std::function<void(const QString &file)> m_showWorkspace;
    bool m_busy = false; // the workspace is being loaded or stands in front
};

} // namespace workspace
