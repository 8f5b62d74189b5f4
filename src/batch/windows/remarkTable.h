// Shows remarks in a table, filtered by level, rule and tag, with the whole text of the current one and the explanation
// of its rule. All remarks that are shown can be copied and saved.
#pragma once

#include "batch/windows/chosenFile.h"
#include "batch/windows/clearing.h"
#include "batch/windows/remarkFilterBar.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include <QBoxLayout>
#include <QPlainTextEdit>

namespace batch {

class Reminders;

class RemarkTable final : public QWidget {
    Q_OBJECT
public:
    // Without reminders no remark can be silenced.
    RemarkTable(const QString &objectName, platform::Host &host, Reminders *reminders, QWidget *parent);

    // begin() shows the list, which is empty, take() adds remarks, and settle() sorts them when all have been added. A
    // row chosen by the user in the meantime stays current; otherwise the first row becomes current.
    void begin(RemarkList list);
    void take(std::vector<Remark> remarks);
    void settle();

    const RemarkList &remarks() const { return *m_list; }
    // Makes the row `by` rows away current and returns its remark, and whether it passed an end of the table; null if
    // no remark is shown. Remarks about the whole batch are skipped.
    struct Step {
        const Remark *remark = nullptr;
        bool wrapped = false;
        int number = 0; // of the row, counted from 1
    };
    Step step(int by);
    // Add a control next to `words`, or next to the buttons at the bottom.
    void addAbove(QWidget *control) { m_above->addWidget(control); }
    void addBelow(QWidget *control) { m_below->addWidget(control, 0, Qt::AlignTop); }
    // Opens the dialog for a file and calls `write` with its path.
    void save(const SaveTarget &target, const std::function<platform::Status(const QString &path)> &write);

    RemarkFilterBar *filterBar;
    widgets::Button *silenceButton; // opens the menu of silenced rules; with the number of silenced remarks
    widgets::PacedLabel *words;     // progress and result of the run
    widgets::FlexGrid *grid;
    QPlainTextEdit *remarkText; // the current remark and the explanation of its rule
    widgets::Button *copyButton;
    widgets::Button *saveButton;

Q_SIGNALS:
    // Emitted on Enter or a double click, if the remark is about a record.
    void activated(const batch::Remark &remark);

protected:
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void connectControls();
    void fitWidths();
    void showChoices();
    void filter();
    void silence();
    void showAgain();
    void showRow();
    void openMenu(const QPoint &where);
    void activateRow();
    const Remark *current() const; // null if there is none

    platform::Host &m_host;
    Reminders *m_reminders;
    QBoxLayout *m_above;
    QBoxLayout *m_below;
    std::shared_ptr<RemarkList> m_list = std::make_shared<RemarkList>();
    Clearing m_clearing;       // of lists shown before
    bool m_rowChosen = false;  // by the user, in a run
    bool m_rowVisited = false; // the current row: the first step goes to a row that was not visited
};

} // namespace batch
