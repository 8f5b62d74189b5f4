#include "workspace/cellEditors.h"
#include "platform/numbers.h"
#include "workspace/fieldGrid.h"
#include "workspace/frmDaoru.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

const QString smallHint = u"鼠标右击可大屏幕编辑,回车结束输入返回,按【Esc】取消"_s;
const QString largeHint = u"双击可结束输入返回,按【Esc】取消"_s;
constexpr int lineLimit = 1 << 20; // characters; as good as none

} // namespace

CellEditors::CellEditors(frmDaoru &form, platform::Host &host, const WorkspaceWindows &windows)
    : m_form(form)
    , m_host(host)
    , m_windows(windows) {
    connectEditors();
}

void CellEditors::connectEditors() {
    CellText *content = m_form.richText;
    CellLine *identity = m_form.Text1;
    content->setAccessibleName(u"字段内容"_s);
    identity->setAccessibleName(u"字段说明或标识符"_s);
    const auto on = [this](auto *editor, auto signal, void (CellEditors::*slot)()) {
        QObject::connect(editor, signal, &m_form, [this, slot] { (this->*slot)(); });
    };
    on(content, &CellText::entered, &CellEditors::commitContent);
    on(content, &CellText::cancelled, &CellEditors::endContent);
    on(content, &CellText::assistantWanted, &CellEditors::openAssistant);
    on(content, &CellText::enlargeWanted, &CellEditors::enlarge);
    on(content, &CellText::reduceWanted, &CellEditors::reduce);
    on(identity, &CellLine::entered, &CellEditors::commitIdentity);
    on(identity, &CellLine::cancelled, &CellEditors::cancelIdentity);
    QObject::connect(content, &CellText::focused, &m_form, [this] { m_form.holdControls(true); });
    QObject::connect(identity, &CellLine::focused, &m_form, [this] { m_form.holdControls(false); });
}

void CellEditors::openContent() {
    const int row = m_form.Grid1->row();
    if (row < 1)
        return;
    if (m_form.Grid1->rowSel() != row)
        return m_form.Grid1->setRowSel(row);
    if (m_form.Grid1->text(row, IdentifierColumn).isEmpty())
        return;
    m_form.editRow = row;
    m_form.editCol = ValueColumn;
    m_form.Grid1->setColumn(ValueColumn);
    m_form.richText->setText(m_form.Grid1->text(row, ValueColumn));
    reduce();
    m_form.richText->setLimit(contentLimit(fieldRows(*m_form.Grid1), row));
    m_form.richText->show();
    m_form.richText->raise();
    m_form.richText->setFocus();
    m_form.holdControls(true);
}

void CellEditors::enlarge() {
    m_enlarged = true;
    m_form.richText->setToolTip(largeHint);
    m_form.richText->setEnlarged(true);
    place();
}

void CellEditors::reduce() {
    m_enlarged = false;
    showEditedCell();
    m_form.richText->setToolTip(smallHint);
    m_form.richText->setEnlarged(false);
    place();
}

void CellEditors::place() {
    QWidget *editor = m_form.editCol == ValueColumn ? static_cast<QWidget *>(m_form.richText) : m_form.Text1;
    if (m_enlarged && editor == m_form.richText)
        return editor->setGeometry(m_form.rightHalf());
    const QRect cell = m_form.Grid1->cellRect(m_form.editRow, m_form.editCol);
    if (cell.isValid())
        return editor->setGeometry(cell);
    // A record without that row came under the editor, which then stays where it was as far as the grid goes.
    const QRect grid = m_form.Grid1->geometry();
    editor->move(std::min(editor->x(), grid.right() - editor->width()),
                 std::min(editor->y(), grid.bottom() - editor->height()));
}

void CellEditors::keepInSight() {
    if (!m_form.richText->isVisible() && !m_form.Text1->isVisible())
        return;
    m_form.Grid1->scrollToCell(m_form.editRow, m_form.editCol);
    place();
}

void CellEditors::showEditedCell() {
    m_form.Grid1->setRow(m_form.editRow);
    m_form.Grid1->setColumn(m_form.editCol);
}

void CellEditors::changeCell(const QString &value, bool changed) {
    if (m_form.editRow >= m_form.Grid1->rows())
        return; // another record was chosen meanwhile, which has no such row
    if (changed)
        m_form.recordChanged = u"yes"_s;
    m_form.Grid1->setText(m_form.editRow, m_form.editCol, value);
}

void CellEditors::commitContent() {
    QString typed = m_form.richText->text();
    const QString before = m_form.Grid1->text(m_form.editRow, ValueColumn);
    const bool changed = platform::trimBlanks(typed) != before;
    changeCell(typed.remove(u"\r\n"_s), changed); // the blanks at the ends stay
    endContent();
}

void CellEditors::endContent() {
    m_form.releaseControls();
    m_form.richText->setText({});
    m_form.richText->hide();
    showEditedCell();
    m_form.Grid1->setFocus();
    m_form.updateStatus();
}

void CellEditors::openIdentity(IdentityColumn column) {
    const int row = m_form.Grid1->row();
    m_form.editRow = row;
    m_form.editCol = int(column);
    showEditedCell();
    const auto limit = identityLimit(fieldRow(*m_form.Grid1, row), column);
    m_form.Text1->setMaxLength(limit.value_or(lineLimit));
    place();
    m_form.Text1->setToolTip(u"回车结束输入返回，按【Esc】取消"_s);
    m_form.Text1->setText(m_form.Grid1->text(row, int(column)));
    m_form.Text1->show();
    m_form.Text1->raise();
    m_form.Text1->setFocus();
    m_form.holdControls(false);
}

void CellEditors::commitIdentity() {
    const QString typed = platform::trimBlanks(m_form.Text1->text());
    const auto column = IdentityColumn(m_form.editCol);
    const QString refusal = checkIdentity(fieldRow(*m_form.Grid1, m_form.editRow), column, typed);
    if (!refusal.isEmpty()) {
        m_host.tell(refusal, u"操作提示"_s);
        return m_form.Text1->setFocus();
    }
    changeCell(typed, typed != m_form.Grid1->text(m_form.editRow, m_form.editCol));
    endIdentity();
}

void CellEditors::cancelIdentity() {
    endIdentity();
    showEditedCell();
}

void CellEditors::endIdentity() {
    m_form.releaseControls();
    m_form.Text1->clear();
    m_form.Text1->hide();
    m_form.Grid1->setFocus();
    m_form.updateStatus();
}

void CellEditors::openAssistant() {
    const marc::FieldRows rows = fieldRows(*m_form.Grid1);
    if (m_form.Grid1->text(m_form.editRow, IdentifierColumn) == u"000")
        return runAssistant(m_form.publicTouBiao, m_windows.leaderAssistant);
    // Each further field 100 above opens the assistant once more, on a box that is empty by then.
    for (int left = field100Assistants(rows, m_form.editRow); left > 0; --left)
        runAssistant(m_form.public100ZD, m_windows.field100Assistant);
}

void CellEditors::runAssistant(QString &exchanged,
                               const std::function<std::optional<QString>(const QString &, QWidget *)> &assistant) {
    m_form.richText->hide();
    exchanged = m_form.richText->text();
    if (const auto given = assistant(exchanged, &m_form))
        exchanged = *given;
    const bool changed = exchanged != m_form.Grid1->text(m_form.editRow, ValueColumn);
    changeCell(exchanged, changed);
    endContent();
}

} // namespace workspace
