// The commands of the popup menu over the field grid: editors, lists of fields and subfields to add, deletion, copying.
#pragma once

#include "marc/configurationFiles.h"
#include "widgets/choiceList.h"
#include "workspace/windows/cellEditors.h"

namespace workspace {

class FieldCommands final : public QObject {
    Q_OBJECT
public:
    FieldCommands(FieldGrid &grid, EditedRecord &record, CellEditors &editors, platform::Host &host);

    widgets::ChoiceList *const zdList;  // fields
    widgets::ChoiceList *const Zzdlist; // subfields

    bool clickMark = false; // from a press of the right button until the following click

    // The keys of the popup items, which work on the grid without the popup; empty if an item has none.
    static QList<QKeySequence> keys();
    void runByKey(int item); // `item` is counted from 1; applies to the current row

    void dismissLists();   // before another record or state is shown
    void rightPressed();   // shows the popup at the mouse
    void menuKeyPressed(); // shows the popup at the current row
    void gridClicked();

    void showFieldList();
    void showSubfieldList();
    void addField(const QString &line);
    void addSubfield(const QString &line);
    void deleteField();
    void deleteSubfield();
    void copyFields();  // of the selected rows, to the clipboard
    void pasteFields(); // from the clipboard, after the current field

Q_SIGNALS:
    void told(const QString &words);

private:
    void popup(const QPoint &at);
    void run(int item);
    void offer(widgets::ChoiceList *box, const marc::PickList &list);
    void insert(const NewRow &row, widgets::ChoiceList *chosenFrom);
    void close(widgets::ChoiceList *list);

    FieldGrid &m_grid;
    EditedRecord &m_record;
    CellEditors &m_editors;
    platform::Host &m_host;
};

} // namespace workspace
