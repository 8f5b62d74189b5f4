// The main window and parent of all others, with menu bar and toolbar. It only dispatches: every command opens one
// window.
#pragma once

#include "app/windows/commands.h"
#include "app/windows/startPage.h"
#include "platform/host.h"
#include <QComboBox>
#include <QMainWindow>
#include <QMdiArea>
#include <QToolBar>

namespace app {

class marcMain final : public QMainWindow {
    Q_OBJECT
public:
    marcMain(platform::Host &host, CommandWindows &windows);
    ~marcMain() override;

    void LoadQuery();    // opens the catalogue query for the export
    void LoadQuerydel(); // opens the store query for maintenance
    void run(Command command);

    // The area of the list windows.
    QMdiArea *area() const { return mdiArea; }

    QToolBar *Toolbar1;
    QMdiArea *mdiArea;
    StartPage *startPage; // visible while there is no list window
    QLabel *databaseName; // in the status bar
    QComboBox *lookBox;   // there too: the choices of widgets::Appearance, in their order

protected:
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildMenu();
    void fitBars();
    void buildToolbar();
    void buildStartPage();
    void placeStartPage();
    void buildStatusBar();
    void selectFile(const QString &path); // empty: no file yet

    platform::Host &m_host;
    CommandWindows &m_windows;
    bool m_noticeShown = false;
};

} // namespace app
