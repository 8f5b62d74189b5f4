// The two in-place editors over the field grid: opening one over a cell, keeping it there, taking over or dropping what
// was typed, and the way from an open editor to the assistants. At most one is open at a time.
#pragma once

#include "platform/host.h"
#include "workspace/windows/cellControls.h"
#include "workspace/windows/fieldGrid.h"
#include "workspace/windows/workspaceWindows.h"
#include <QLineEdit>

namespace workspace {

class CellEditors final : public QObject {
    Q_OBJECT
public:
    // What is out of reach while an editor is open, beside the commands.
    enum class Hold { FieldsAndList, Fields };

    CellEditors(FieldGrid &grid, EditedRecord &record, platform::Host &host, const WorkspaceWindows &windows);

    CellText *const richText; // edits column 4
    QLineEdit *const Text1;   // edits columns 1, 2 and 3

    int editRow = 0;     // the row that was clicked last, and the one that an open editor writes to; 0: none yet
    int editCol = 0;     // the column that an open editor writes to
    QString public100ZD; // the text handed to and returned by the assistant of field 100

    // Of the current row. Does nothing where the row has no identifier or several rows are selected.
    void openContent();
    // Of the current row, in the column.
    void openIdentity(IdentityColumn column);
    // Opens the content of the current row in the large form, or changes the form of an open one.
    void openLarge();
    // Where the open content editor stands, and whether Ctrl+E has something to offer there.
    std::optional<qsizetype> position() const; // from 1
    std::optional<int> limit() const;
    bool hasAssistant() const;
    // What is to be said about the record, with the content that is being typed.
    QString warning() const;
    bool isOpen() const; // one of the editors, or an assistant of it
    // What an open editor would enter by now; nothing where it would be refused.
    std::optional<CellChange> typing() const;

Q_SIGNALS:
    void opened(Hold hold);
    void closed();
    void moved(); // the cursor of an open content editor
    void typed(); // an open editor has another text, or is closed

private:
    void connectEditors();
    void hold(Hold hold);
    void release();
    void commitContent();
    void enlarge();
    void reduce();
    void endContent();
    void commitIdentity();
    void cancelIdentity();
    void endIdentity();
    void openAssistant();
    QString runAssistant(const Assistant &assistant);
    void enter(const QString &text, bool marks, const std::optional<QString> &leader = {});
    void place();
    void keepInSight();
    void showEditedCell();

    FieldGrid &m_grid;
    EditedRecord &m_record;
    platform::Host &m_host;
    const WorkspaceWindows &m_windows;
    EditorKeys m_contentKeys;
    EditorKeys m_identityKeys;
    bool m_enlarged = false;
    bool m_isOpen = false;      // from opened() to closed()
    bool m_isElsewhere = false; // another record was shown under the open editor
};

} // namespace workspace
