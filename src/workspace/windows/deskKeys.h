// The keys of the workspace that no caption shows: moving to a record or a tag, stepping through the records at the
// same field, undo and redo. They do nothing while an editor is open or another window is in front.
#pragma once

#include "workspace/fieldStay.h"
#include "workspace/windows/fieldCommands.h"
#include "workspace/windows/findLine.h"
#include "workspace/windows/recordMoving.h"

namespace workspace {

class DeskKeys final : public QObject {
    Q_OBJECT
public:
    struct Parts {
        FieldGrid &fields;
        RecordList &list;
        EditedRecord &record;
        CellEditors &editors;
        FieldCommands &commands;
        RecordMoving &moving;
        FindLine &find;
    };
    // The keys work in `window`.
    DeskKeys(const Parts &parts, QWidget *window);

    // Makes the record of a row current like a click.
    void goToRecord(int row);
    // Moves to the first field whose tag is not smaller.
    void goToTag(const QString &digits);

    // Returns whether no editor is open, even if some controls are enabled.
    bool isFree() const { return !m_parts.editors.isOpen(); }

Q_SIGNALS:
    void told(const QString &words);
    void remarksWanted();      // F8
    void remarkWanted(int by); // F4: 1, Shift+F4: -1
    void changesWanted();      // F9
    void fetchWanted();        // Ctrl+T
    void rowChosen();          // another row of the field grid is current

private:
    template <class Act>
    void bind(QWidget *where, const QKeySequence &key, Qt::ShortcutContext context, Act act);
    void bindAll();
    void wantRemark(int by);
    void stepAtField(int by);
    void goToWords(const QString &words);
    void goBack(const std::optional<EditedRecord::Gone> &gone, const QString &done, const QString &nothing);

    Parts m_parts;
    QWidget *m_window;
    FieldStay m_stay;
};

} // namespace workspace
