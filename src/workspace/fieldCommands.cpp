#include "workspace/fieldCommands.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "workspace/fieldGrid.h"
#include "workspace/frmDaoru.h"
#include "workspace/menuClass.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

const QString boxTitle = u"操作提示"_s;
const QString mouseDown = u"MouseDown"_s;

// The items of the popup; their numbers count from 1.
enum Item {
    EditContent = 1,
    AddField = 3,
    AddSubfield,
    EditLabel = 6,
    EditIdentifier,
    EditSubfieldLabel,
    DeleteField = 10,
    DeleteSubfield
};

QStringList popupItems() {
    return {u"修改本字段内容"_s,
            u"-"_s,
            u"添加字段"_s,
            u"添加子字段"_s,
            u"-"_s,
            u"修改字段说明"_s,
            u"修改（子）字段标识符"_s,
            u"修改子字段说明"_s,
            u"-"_s,
            u"删除字段"_s,
            u"删除子字段"_s};
}

} // namespace

FieldCommands::FieldCommands(frmDaoru &form, platform::Host &host, CellEditors &editors)
    : m_form(form)
    , m_host(host)
    , m_editors(editors) {
    QObject::connect(form.zdList, &PickListBox::chosen, &form, [this](const QString &line) { addField(line); });
    QObject::connect(form.Zzdlist, &PickListBox::chosen, &form, [this](const QString &line) { addSubfield(line); });
    for (PickListBox *list : {form.zdList, form.Zzdlist})
        QObject::connect(list, &PickListBox::cancelled, &form, [this, list] {
            list->dismiss();
            m_form.Grid1->setFocus();
        });
}

void FieldCommands::gridClicked() {
    m_form.Grid1->setRowSel(m_form.Grid1->row());
    if (m_form.clickMark.isEmpty())
        m_form.editRow = m_form.Grid1->row();
    else
        m_form.clickMark.clear();
}

void FieldCommands::rightPressed() {
    m_form.clickMark = mouseDown;
    if (m_form.Grid1->row() >= 1 && m_form.editRow != 0)
        popup(QCursor::pos());
}

void FieldCommands::menuKeyPressed() {
    const int row = m_form.Grid1->row();
    if (row < 1)
        return;
    m_form.editRow = row; // the row that the key is for counts as noted, or the keyboard alone would never get here
    const QRect cell = m_form.Grid1->cellRect(row, m_form.Grid1->column());
    popup(m_form.Picture1->mapToGlobal(cell.center()));
}

void FieldCommands::popup(const QPoint &at) {
    if (m_form.Grid1->text(1, IdentifierColumn).isEmpty())
        return;
    menuClass menu;
    run(menu.Popup(popupItems(), at, &m_form));
}

void FieldCommands::run(int item) {
    const marc::FieldRow row = fieldRow(*m_form.Grid1, m_form.Grid1->row());
    const bool identified = !platform::trimBlanks(row.identifier).isEmpty();
    switch (item) {
    case EditContent:
        return m_editors.openContent();
    case AddField:
        return showFieldList();
    case AddSubfield:
        return showSubfieldList();
    case EditLabel:
        return beginsField(row) ? m_editors.openIdentity(IdentityColumn::FieldLabel) : void();
    case EditIdentifier:
        return identified ? m_editors.openIdentity(IdentityColumn::Identifier) : void();
    case EditSubfieldLabel:
        return identified ? m_editors.openIdentity(IdentityColumn::SubfieldLabel) : void();
    case DeleteField:
        return deleteField();
    case DeleteSubfield:
        return deleteSubfield();
    default:
        return;
    }
}

void FieldCommands::showFieldList() {
    offer(*m_form.zdList, marc::readFieldList(platform::pathWithSlash(m_host.programFolder())));
}

void FieldCommands::showSubfieldList() {
    offer(*m_form.Zzdlist, marc::readSubfieldList(platform::pathWithSlash(m_host.programFolder()),
                                                  tagOf(fieldRows(*m_form.Grid1), m_form.Grid1->row())));
}

// The lines in front of a damage are in the list by then, which does not come up.
void FieldCommands::offer(PickListBox &box, const marc::PickList &list) {
    box.fill(list.lines);
    if (!list.complaint.isEmpty())
        return m_host.tell(list.complaint, boxTitle);
    box.setGeometry(m_form.rightHalf());
    box.offer();
}

void FieldCommands::insert(const NewRow &row) {
    m_form.Grid1->insertRow(row.place);
    setFieldRow(*m_form.Grid1, row.place, row.content);
    m_form.Grid1->scrollToRow(row.place); // the current row stays, yet what was added is to be seen
}

void FieldCommands::addField(const QString &line) {
    insert(newField(fieldRows(*m_form.Grid1), m_form.Grid1->row(), line));
    m_form.zdList->dismiss();
    m_form.Grid1->setFocus();
}

void FieldCommands::addSubfield(const QString &line) {
    insert(newSubfield(fieldRows(*m_form.Grid1), m_form.Grid1->row(), line));
    m_form.Zzdlist->dismiss();
    m_form.Grid1->setFocus();
}

void FieldCommands::deleteField() {
    const marc::FieldRows rows = fieldRows(*m_form.Grid1);
    const int current = m_form.Grid1->row();
    if (current == 1)
        return m_host.tell(u"不能删除！"_s, boxTitle);
    const auto field = fieldOf(rows, current);
    if (!field)
        return m_host.tell(u"操作失败本行不属于任何字段"_s, boxTitle);
    const marc::FieldRow &head = rows[*field - 1];
    if (!m_host.ask(u"确实要删除选择的字段【"_s + head.identifier + head.fieldLabel + u" 】吗？", boxTitle,
                    platform::Answer::No))
        return;
    for (int left = rowsOfField(rows, *field); left > 0; --left)
        m_form.Grid1->removeRow(*field);
    m_form.updateStatus();
}

void FieldCommands::deleteSubfield() {
    const int current = m_form.Grid1->row();
    const marc::FieldRow row = fieldRow(*m_form.Grid1, current);
    if (beginsField(row))
        return m_host.tell(u"请选择字段的子字段，然后执行本操作"_s, boxTitle);
    if (!m_host.ask(u"确实要删除选择的子字段【"_s + row.identifier + row.subfieldLabel + u" 】吗？", boxTitle,
                    platform::Answer::No))
        return;
    m_form.Grid1->removeRow(current);
    m_form.updateStatus();
}

} // namespace workspace
