// Connects the pane of remarks to the workspace: F8 shows and hides it, the proof of all records and an import fill it,
// a click on a remark moves to its record and field, and F4 and Shift+F4 move from one remark to another.
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
    // As in RemarksNeeds.
    struct File {
        std::function<QString()> path;
        std::function<qint64()> records;
    };
    RemarkJumps(const Parts &parts, const WorkspaceWindows &windows, File file);

    QWidget *pane() const { return m_pane.widget; } // null if there is no pane

    void proofAll();
    void listRefused(const ImportOutcome &outcome); // shows the pane if the user wants the refused records listed
    std::vector<marc::RefusedRecord> leftOut() const { return m_pane.leftOut(); } // by the next import
    // Shows the pane or gives it the focus; hides it if it has the focus.
    void showOrHide();
    // Moves to the record and to the current position of its field, and shows the words in the status line. Reports the
    // reason if that is not possible.
    void jump(const marc::FieldPlace &place, const QString &words);
    // Goes to the next (1) or last (-1) remark that the pane shows, even if the pane is hidden.
    void step(int by);
    std::vector<RowRemark> check(const marc::FieldRows &rows) const { return m_pane.check(rows); }
    // Sets whether the pane can be used; it cannot while an editor is open.
    void allow(bool allowed);
    bool isEmpty() const { return m_pane.isEmpty(); }
    std::vector<int> rowsWithRemarks() const { return m_pane.rowsWithRemarks(); }
    auto violatedRules() const { return m_pane.violatedRules(); }
    void end() { m_pane.end(); } // ends a running proof

Q_SIGNALS:
    void told(const QString &words);
    void remarksChanged();
    void checkChanged(); // check() may return other remarks
    void rowChosen();    // another row of the field grid is current

private:
    RemarksNeeds needs(File file);
    void show();
    void goToField(const marc::FieldPlace &place, const QString &words);

    Parts m_parts;
    RemarksPane m_pane;
};

} // namespace workspace
