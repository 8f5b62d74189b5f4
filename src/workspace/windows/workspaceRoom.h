// How the workspace shares out its room: the title list beside the field grid, and under the grid a pane with the whole
// text of a row and the pane of remarks, which can be folded away. What the user made of it is remembered between
// starts.
#pragma once

#include "platform/deskState.h"
#include "widgets/window.h"
#include <QPlainTextEdit>
#include <QSplitter>

namespace workspace {

class WorkspaceRoom final : public QSplitter {
    Q_OBJECT
public:
    WorkspaceRoom(QWidget *list, QWidget *fields, QWidget *parent);

    // Puts the pane of remarks under the fields, hidden at first. There may be none.
    void addRemarks(QWidget *remarks);
    // The widths that list and fields should have at first.
    void share(int listWidth, int fieldsWidth);
    void remember(const platform::DeskState &state) const;
    void recall(const platform::DeskState &state);
    // Where the pane is open; coded data in the face of the grid's.
    void showText(const QString &text, bool coded);

    widgets::Button *cmdQuanWen; // folds the pane; stands wherever the window puts it
    QPlainTextEdit *wholeText;

Q_SIGNALS:
    void textWanted(); // the pane has been opened

private:
    QSplitter *m_down;  // the fields over the whole text
    QSplitter *m_under; // both over the remarks
};

} // namespace workspace
