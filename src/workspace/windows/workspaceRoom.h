// Divides the space of the workspace: the title list next to the field grid, and below the grid a pane with the whole
// text of a row and the pane of remarks, both of which can be hidden. Ctrl+Tab moves
// the focus to the next pane, Ctrl+Shift+Tab to the previous one. The user's layout is remembered between starts.
#pragma once

#include "platform/deskState.h"
#include "widgets/button.h"
#include <QPlainTextEdit>
#include <QSplitter>
#include <vector>

namespace workspace {

class WorkspaceRoom final : public QSplitter {
    Q_OBJECT
public:
    WorkspaceRoom(QWidget *list, QWidget *fields, QWidget *parent);

    // Adds the pane of remarks below the fields, hidden at first. `remarks` may be null.
    void addRemarks(QWidget *remarks);
    // Sets the initial widths of the list and the fields.
    void share(int listWidth, int fieldsWidth);
    void remember(const platform::DeskState &state) const;
    void recall(const platform::DeskState &state);
    // Shows the text if the pane is open; coded data in the font of the grid.
    void showText(const QString &text, bool coded);

    widgets::Button *cmdWholeText; // shows and hides the pane; placed by the window
    QPlainTextEdit *wholeText;

Q_SIGNALS:
    void textWanted(); // the pane was opened

private:
    struct Pane {
        QWidget *room;
        QWidget *target; // gets the focus
    };
    void bindKeys();
    void goToPane(int by);

    std::vector<Pane> m_panes;
    QSplitter *m_down;  // the fields above the whole text
    QSplitter *m_under; // both above the remarks
};

} // namespace workspace
