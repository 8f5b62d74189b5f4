// The preview of a task: how often each step changes something, and the changes in a table, which can be left out one
// by one or record by record.
#pragma once

#include "tasks/previewRows.h"
#include "tasks/windows/differencePaint.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include <QComboBox>
#include <QLabel>
#include <QListWidget>

namespace tasks {

class PreviewPage final : public QWidget {
    Q_OBJECT
public:
    explicit PreviewPage(QWidget *parent = nullptr);

    // Shows a preview, to which changes may still be added, with one text for each step of the task.
    void begin(std::shared_ptr<ChangePreview> preview, const QStringList &steps);
    void grow();                  // changes were added
    void settle();                // the preview is complete
    void allow(bool mayLeaveOut); // whether changes can be left out
    void clear();
    int currentRecord() const; // row of the list; -1: none
    const Change *current() const;

    QComboBox *scopeBox; // filled by the window
    QListWidget *kindList;
    widgets::FlexGrid *grid;
    DifferenceText *changeText; // of the current row
    widgets::Button *changeButton;
    widgets::Button *recordButton;

Q_SIGNALS:
    void activated(); // by Enter or a double click, on the current change
    void leftOut();   // changes were left out or taken in

private:
    void layOut();
    void fitWidths();
    void showCounts();
    void choose();
    void showRow();
    void toggle(bool wholeRecord);
    int row() const; // of the table, without its heading; -1: none

    std::shared_ptr<ChangePreview> m_preview;
    std::shared_ptr<PreviewRows> m_rows = std::make_shared<PreviewRows>();
    QStringList m_steps;
    bool m_mayLeaveOut = false;
};

} // namespace tasks
