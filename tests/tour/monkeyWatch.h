// Watches every window that opens and closes while the monkey plays, and compares what the program reports with the
// contents of the files and of the list. Lives in the GUI thread.
#pragma once

#include "tour/tourDriver.h"
#include "widgets/window.h"
#include <QMessageBox>

class QFileDialog;

namespace workspace {
class frmDaoru;
}

namespace tour {

class MonkeyWatch final : public QObject {
public:
    explicit MonkeyWatch(TourDriver &driver);

    int imported() const { return m_imported; } // the total of the imports' final messages
    int checks() const { return m_checks; }     // comparisons made so far
    bool stuck() const { return m_stuck; }      // a split or a merge has failed and its window refuses to close
    void freed() { m_stuck = false; }

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void opened(QWidget *window);
    void workspaceOpened(workspace::frmDaoru &desk);
    void closed(widgets::Window *window);

    void boxOpened(const QString &text);
    void boxClosed(const QMessageBox &box);
    void fileChosen(const QFileDialog &dialog);
    void exportEnded(int told, const QString &file);
    void listClosed(QWidget *window);
    void workspaceClosed(QWidget *window);
    void importClosed(QWidget *window);
    void toolReported(const QString &report);
    void toolClosed(QWidget *window);
    void compare(qint64 is, qint64 shouldBe, const QString &what);

    TourDriver &m_driver;
    int m_imported = 0;
    int m_takenOver = 0;  // upper limit of the records changed by hand in the open workspace
    int m_stopAsked = 0;  // the number in the last stop question if it was answered with Yes, else 0
    QString m_exportFile; // of the running export
    int m_checks = 0;
    bool m_stuck = false;
};

} // namespace tour
