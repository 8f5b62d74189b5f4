// The keys of the workspace that no caption tells, and the ways they lead: to a record, to a tag, back over what was
// done. While an editor is open or another window stands in front they lead nowhere.
#pragma once

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
    // The keys work in the window.
    DeskKeys(const Parts &parts, QWidget *window);

    // Makes the record of a row current as a click does.
    void goToRecord(int row);
    // To the first field whose tag is no smaller.
    void goToTag(const QString &digits);

Q_SIGNALS:
    void told(const QString &words);
    void remarksWanted(); // F8
    void rowChosen();     // another row of the field grid is current

private:
    template <class Act>
    void bind(QWidget *where, const QKeySequence &key, Qt::ShortcutContext context, Act act);
    void bindAll();
    void goToWords(const QString &words);
    void goBack(const std::optional<EditedRecord::Gone> &gone, const QString &done, const QString &nothing);
    // No editor is open, whatever it has left in reach.
    bool isFree() const { return !m_parts.editors.isOpen(); }

    Parts m_parts;
    QWidget *m_window;
};

} // namespace workspace
