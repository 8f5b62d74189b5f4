#include "workspace/windows/fieldCommands.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "widgets/accentFrame.h"
#include "workspace/windows/menuClass.h"
#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::ChoiceList;

namespace workspace {

namespace {

// The items of the popup, counted from 1.
enum Item {
    EditContent = 1,
    AddField = 3,
    AddSubfield,
    EditLabel = 6,
    EditIdentifier,
    EditSubfieldLabel,
    DeleteField = 10,
    DeleteSubfield,
    CopyFields,
    PasteFields
};

struct CommandRow {
    QStringView caption;
    int key = 0;
};
constexpr auto commandRows = std::to_array<CommandRow>({
    {u"修改本字段内容", Qt::Key_Return},
    {u"-"},
    {u"添加字段", int(Qt::ControlModifier) | int(Qt::Key_Insert)},
    {u"添加子字段", Qt::Key_Insert},
    {u"-"},
    {u"修改字段说明", int(Qt::ShiftModifier) | int(Qt::Key_F2)},
    {u"修改（子）字段标识符", Qt::Key_F2},
    {u"修改子字段说明", int(Qt::ControlModifier) | int(Qt::Key_F2)},
    {u"-"},
    {u"删除字段", int(Qt::ControlModifier) | int(Qt::Key_Delete)},
    {u"删除子字段", Qt::Key_Delete},
    {u"复制字段", int(Qt::ControlModifier) | int(Qt::ShiftModifier) | int(Qt::Key_C)},
    {u"粘贴字段", int(Qt::ControlModifier) | int(Qt::Key_V)},
});

constexpr size_t popupCount = 11; // the commands after these have only a key

QStringList popupItems() {
    QStringList items;
    for (const CommandRow &row : std::span(commandRows).first(popupCount))
        items.append(row.caption.toString());
    return items;
}

} // namespace

QList<QKeySequence> FieldCommands::keys() {
    QList<QKeySequence> keys;
    for (const CommandRow &row : commandRows)
        keys.append(row.key ? QKeySequence(row.key) : QKeySequence());
    return keys;
}

FieldCommands::FieldCommands(FieldGrid &grid, EditedRecord &record, CellEditors &editors, platform::Host &host)
    : zdList(new ChoiceList(u"zdList"_s, u"可添加的字段"_s, grid.parentWidget()))
    , Zzdlist(new ChoiceList(u"Zzdlist"_s, u"可添加的子字段"_s, grid.parentWidget()))
    , m_grid(grid)
    , m_record(record)
    , m_editors(editors)
    , m_host(host) {
    connect(zdList, &ChoiceList::chosen, this, &FieldCommands::addField);
    connect(Zzdlist, &ChoiceList::chosen, this, &FieldCommands::addSubfield);
    for (ChoiceList *list : {zdList, Zzdlist}) {
        list->setToolTip(u"双击可返回,右击或按【Esc】取消"_s);
        list->tellKeys(u"回车添加　Esc 取消"_s);
        list->setUniformItemSizes(true); // otherwise the current entry may be out of sight on a low screen
        new widgets::AccentFrame(list);
        list->hide();
        connect(list, &ChoiceList::cancelled, this, [this, list] { close(list); });
        connect(list, &ChoiceList::left, list, &ChoiceList::dismiss);
        connect(&grid, &FieldGrid::rearranged, this, [this, list] { list->setGeometry(m_grid.rightHalf()); });
    }
}

void FieldCommands::gridClicked() {
    m_grid.setRowSel(m_grid.row());
    if (!std::exchange(clickMark, false))
        m_editors.editRow = m_grid.row();
}

void FieldCommands::rightPressed() {
    clickMark = true;
    if (m_grid.row() >= 1 && m_editors.editRow != 0)
        popup(QCursor::pos());
}

void FieldCommands::menuKeyPressed() {
    const int row = m_grid.row();
    if (row < 1)
        return;
    m_editors.editRow = row; // as if clicked, so that the popup works by keyboard alone
    m_grid.scrollToRow(row);
    const int column = std::max(m_grid.column(), int(FieldLabelColumn)); // the first column is hidden
    popup(m_grid.parentWidget()->mapToGlobal(m_grid.cellRect(row, column).center()));
}

void FieldCommands::popup(const QPoint &at) {
    if (m_record.row(1).identifier.isEmpty())
        return;
    menuClass menu;
    run(menu.Popup(popupItems(), at, m_grid.window(), keys()));
}

void FieldCommands::runByKey(int item) {
    if (m_grid.row() < 1 || m_record.row(1).identifier.isEmpty())
        return;
    m_editors.editRow = m_grid.row();
    run(item);
}

void FieldCommands::run(int item) {
    const marc::FieldRow row = m_record.row(m_grid.row());
    const bool identified = !platform::trimBlanks(row.identifier).isEmpty();
    switch (item) {
    case EditContent:
        return m_editors.openContent();
    case AddField:
        return showFieldList();
    case AddSubfield:
        return showSubfieldList();
    case EditLabel:
        if (beginsField(row))
            m_editors.openIdentity(IdentityColumn::FieldLabel);
        return;
    case EditIdentifier:
        if (identified)
            m_editors.openIdentity(IdentityColumn::Identifier);
        return;
    case EditSubfieldLabel:
        if (identified)
            m_editors.openIdentity(IdentityColumn::SubfieldLabel);
        return;
    case DeleteField:
        return deleteField();
    case DeleteSubfield:
        return deleteSubfield();
    case CopyFields:
        return copyFields();
    case PasteFields:
        return pasteFields();
    default:
        return;
    }
}

void FieldCommands::dismissLists() {
    for (ChoiceList *list : {zdList, Zzdlist})
        if (list->isVisible())
            close(list);
}

void FieldCommands::close(ChoiceList *list) {
    list->dismiss();
    m_grid.setFocus();
}

// On a damaged list file the lines before the damage are in the box, which is not shown.
void FieldCommands::offer(ChoiceList *box, const marc::PickList &list) {
    box->fill(list.lines, 0);
    if (!list.complaint.isEmpty())
        return m_host.tell(list.complaint);
    box->offer();
}

void FieldCommands::showFieldList() {
    offer(zdList, marc::readFieldList(platform::pathWithSlash(m_host.programFolder())));
}

void FieldCommands::showSubfieldList() {
    const QString tag = tagOf(m_record.rows(), m_grid.row());
    offer(Zzdlist, marc::readSubfieldList(platform::pathWithSlash(m_host.programFolder()), tag));
}

void FieldCommands::insert(const NewRow &row, ChoiceList *chosenFrom) {
    m_record.insert(row);
    m_grid.scrollToRow(row.place); // the current row does not change, but the new row becomes visible
    close(chosenFrom);
}

void FieldCommands::addField(const QString &line) {
    insert(newField(m_record.rows(), m_grid.row(), line), zdList);
}

void FieldCommands::addSubfield(const QString &line) {
    insert(newSubfield(m_record.rows(), m_grid.row(), line), Zzdlist);
}

void FieldCommands::deleteField() {
    const int current = m_grid.row();
    if (current == 1)
        return m_host.tell(u"不能删除！"_s);
    const auto field = fieldOf(m_record.rows(), current);
    if (!field)
        return m_host.tell(u"操作失败本行不属于任何字段"_s);
    const marc::FieldRow head = m_record.row(*field);
    if (!m_host.ask(u"确实要删除选择的字段【"_s + head.identifier + head.fieldLabel + u" 】吗？", platform::hintTitle,
                    platform::Answer::No))
        return;
    m_record.remove(*field, rowsOfField(m_record.rows(), *field));
}

void FieldCommands::deleteSubfield() {
    const int current = m_grid.row();
    const marc::FieldRow row = m_record.row(current);
    if (beginsField(row))
        return m_host.tell(u"请选择字段的子字段，然后执行本操作"_s);
    if (!m_host.ask(u"确实要删除选择的子字段【"_s + row.identifier + row.subfieldLabel + u" 】吗？",
                    platform::hintTitle, platform::Answer::No))
        return;
    m_record.remove(current);
}

void FieldCommands::copyFields() {
    const auto [first, last] = std::minmax({m_grid.row(), m_grid.rowSel()});
    const QString text = copiedFields(m_record.rows(), first, last);
    if (text.isEmpty())
        return m_host.tell(u"这一行没有可以复制的字段，头标区不能复制。"_s);
    QGuiApplication::clipboard()->setText(text);
    Q_EMIT told(u"已复制 %1 个字段，到别的记录里按 Ctrl+V 粘贴"_s.arg(text.count(u'\n')));
}

void FieldCommands::pasteFields() {
    const auto pasted = pastedFields(m_record.rows(), m_grid.row(), QGuiApplication::clipboard()->text(),
                                     platform::pathWithSlash(m_host.programFolder()));
    if (!pasted)
        return m_host.tell(u"剪贴板里的不是字段，没有粘贴："_s + pasted.failure().description +
                           u"\r\n字段的写法是“200 1#$a题名$f著者”，一行一个。");
    m_record.paste(pasted.value());
    m_grid.setRow(pasted.value().place);
    m_editors.editRow = m_grid.row();
    Q_EMIT told(u"已粘贴，Ctrl+Z 撤销"_s);
}

} // namespace workspace
