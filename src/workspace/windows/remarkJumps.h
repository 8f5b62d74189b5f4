// The pane of remarks as the workspace uses it: shown and hidden by F8, filled by the proof of all records and by an
// import, and the way from a remark to its record and field.
#pragma once

#include "workspace/fieldTrail.h"
#include "workspace/windows/deskKeys.h"
#include "workspace/windows/workspaceWindows.h"

namespace workspace {

class RemarkJumps final : public QObject {
    Q_OBJECT
public:
    struct Parts {
        FieldGrid &fields;
        RecordList &list;
        EditedRecord &record;
        DeskKeys &keys;
    };
    // `recordsInFile` as in RemarksNeeds.
    RemarkJumps(const Parts &parts, const WorkspaceWindows &windows, std::function<qint64()> recordsInFile);

    QWidget *pane() const { return m_pane.widget; } // null where there is none

    void proofAll();
    void listRefused(const ImportOutcome &outcome); // shows them where they are wanted
    // Shows the pane or gives it the keyboard; hides it where the keyboard is in it.
    void showOrHide();
    // To the record and its field, wherever that is by now. Reports why where it cannot go.
    void jump(const marc::FieldPlace &place);
    // Whether the pane can be used: not while an editor is open.
    void allow(bool allowed);
    void end() { m_pane.end(); } // a run that is going on

Q_SIGNALS:
    void told(const QString &words);
    void rowChosen(); // another row of the field grid is current

private:
    RemarksNeeds needs(std::function<qint64()> recordsInFile);
    bool isFree() const { return m_parts.fields.isEnabled(); }
    void show();
    void goToField(const marc::FieldPlace &place);

    Parts m_parts;
    RemarksPane m_pane;
};

} // namespace workspace
