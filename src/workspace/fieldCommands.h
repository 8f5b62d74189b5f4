// The commands of the popup menu over the field grid: the editors, the pick lists of fields and subfields, deletion.
#pragma once

#include "marc/configurationFiles.h"
#include "platform/host.h"
#include "workspace/cellEditors.h"

namespace workspace {

class frmDaoru;
class PickListBox;

class FieldCommands {
public:
    FieldCommands(frmDaoru &form, platform::Host &host, CellEditors &editors);

    void rightPressed();   // the popup at the mouse
    void menuKeyPressed(); // the popup at the current row
    void gridClicked();

    void showFieldList();
    void showSubfieldList();
    void addField(const QString &line);
    void addSubfield(const QString &line);
    void deleteField();
    void deleteSubfield();

private:
    void popup(const QPoint &at);
    void offer(PickListBox &box, const marc::PickList &list);
    void run(int item);
    void insert(const NewRow &row);

    frmDaoru &m_form;
    platform::Host &m_host;
    CellEditors &m_editors;
};

} // namespace workspace
