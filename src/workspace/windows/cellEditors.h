// The two in-place editors over the field grid: opens an editor over a cell, keeps it there, enters or discards the
// typed text, and opens the assistants from an editor. At most one editor is open at a time.
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
    // The controls that are disabled while an editor is open, in addition to the commands.
    enum class Hold { FieldsAndList, Fields };

    CellEditors(FieldGrid &grid, EditedRecord &record, platform::Host &host, const WorkspaceWindows &windows);

    CellText *const richText; // edits column 4
    QLineEdit *const Text1;   // edits columns 1, 2 and 3

    int editRow = 0;     // the row last clicked, and the row that an open editor writes to; 0: none yet
    int editCol = 0;     // the column that an open editor writes to
    QString public100ZD; // the text passed to and returned by the field 100 assistant

    // Opens the editor for the content of the current row. Does nothing if the row has no identifier or if several rows
    // are selected.
    void openContent();
    // Opens the editor for the given column of the current row.
    void openIdentity(IdentityColumn column);
    // Opens the content of the current row in the large form, or toggles the form of an open content editor.
    void openLarge();
    // The cursor of the open content editor, its limit, and whether Ctrl+E opens an assistant.
    std::optional<qsizetype> position() const; // counted from 1
    std::optional<int> limit() const;
    bool hasAssistant() const;
    // Returns the warning about the record, including the content being typed.
    QString warning() const;
    bool isOpen() const; // an editor, or an assistant opened from it
    // Returns the change that an open editor would enter now, or std::nullopt if it would be refused.
    std::optional<CellChange> typing() const;

Q_SIGNALS:
    void opened(Hold hold);
    void closed();
    void moved(); // the cursor of an open content editor moved
    void typed(); // the text of an open editor changed, or the editor was closed

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
    bool m_isOpen = false;      // between opened() and closed()
    bool m_isElsewhere = false; // another record was shown while the editor was open
};

} // namespace workspace
