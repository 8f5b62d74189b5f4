// Looks at every window that comes and goes while the monkey plays, and compares what the program says of its work with
// what lies in the files and in the list. Lives in the thread of the windows.
#pragma once

#include "tour/tourDriver.h"
#include "widgets/window.h"
#include <QMessageBox>

class QFileDialog;

namespace tour {

class MonkeyWatch final : public QObject {
public:
    explicit MonkeyWatch(TourDriver &driver);

    int imported() const { return m_imported; } // in all, by the closing lines of the imports
    int checks() const { return m_checks; }     // comparisons made so far
    bool stuck() const { return m_stuck; }      // a split or a merge has failed, and its window will not close
    void freed() { m_stuck = false; }

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void opened(QWidget *window);
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
    int m_takenOver = 0;  // records changed by hand, at most, in the workspace that is open
    int m_stopAsked = 0;  // the number in the last question of a stop, 0 unless it was answered with Yes
    QString m_exportFile; // of the export that runs
    int m_checks = 0;
    bool m_stuck = false;
};

} // namespace tour
